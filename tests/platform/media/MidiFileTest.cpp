#include "MidiFile.h"
#include "RunTimeError.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

namespace hearthbook {

namespace {

std::string midiRefusal(std::string_view bytes) {
  try {
    const MidiFile midi(bytes);
    return {};
  } catch (const RunTimeError& failure) {
    return failure.what();
  }
}

} // namespace

TEST(MidiFile, TheLengthFollowsTheTempo) {
  EXPECT_EQ(MidiFile(test::midiTune(4, 4)).length(), 2000);
  EXPECT_EQ(MidiFile(test::midiTune(4, 0)).length(), 1000);
}

TEST(MidiFile, AChangeOfTempoCountsFromItsTickOn) {
  EXPECT_EQ(MidiFile(test::midiTune(10, 4)).length(), 4 * 500 + 6 * 250);
}

TEST(MidiFile, ATickIsFoundByItsTime) {
  const MidiFile midi(test::midiTune(10, 4));
  EXPECT_EQ(midi.tickAt(0), 0);
  EXPECT_EQ(midi.tickAt(500), 480);
  EXPECT_EQ(midi.tickAt(2000), 4 * 480);
  EXPECT_EQ(midi.tickAt(2250), 5 * 480);
  EXPECT_EQ(midi.tickAt(99'999), 10 * 480);
}

TEST(MidiFile, OfSeveralTracksTheLongestCountsAndTheFirstsTempo) {
  std::string slow = test::midiTune(4, 4);
  slow[11] = 2; // tracks
  const std::string other = test::midiTune(8, 8).substr(14);
  EXPECT_EQ(MidiFile(slow + other).length(), 4000);
}

TEST(MidiFile, ChunksThatAreNotKnownAreSteppedOver) {
  const std::string tune = test::midiTune(4, 4);
  EXPECT_EQ(
      MidiFile(tune.substr(0, 14) + std::string("XXXX\0\0\0\2ab", 10) + tune.substr(14)).length(),
      2000);
}

TEST(MidiFile, WhatStandsBehindThePromisedTracksIsNotRead) {
  const std::string tune = test::midiTune(4, 4);
  for (const std::string& behind : {std::string(1, '\0'), std::string("TAG of some program"),
                                    std::string(3000, 'x'), std::string("MTrk\0\0\0\2ab", 10)})
    EXPECT_EQ(MidiFile(tune + behind).length(), 2000) << behind.size();
}

TEST(MidiFile, ATrackThatIsPromisedAndMissingLeavesTheOthers) {
  std::string tune = test::midiTune(4, 4);
  tune[11] = 9;
  EXPECT_EQ(MidiFile(tune).length(), 2000);
}

TEST(MidiFile, GarbageIsRefused) {
  EXPECT_EQ(midiRefusal(""), "it is no MIDI");
  EXPECT_EQ(midiRefusal("garbage and more garbage"), "it is no MIDI");
  EXPECT_EQ(midiRefusal("MThd"), "it is no MIDI");
  EXPECT_EQ(midiRefusal(test::midiTune(4, 4).substr(0, 14)), "there is no music in it");
}

TEST(MidiFile, AFileThatIsCutOffIsRefusedWhereverItIsCut) {
  const std::string tune = test::midiTune(4, 4);
  for (std::size_t bytes = 0; bytes < tune.size(); ++bytes)
    EXPECT_NE(midiRefusal(tune.substr(0, bytes)), "") << bytes;
}

TEST(MidiFile, TimeThatIsNotCountedInNotesIsRefused) {
  std::string tune = test::midiTune(4, 4);
  tune.replace(12, 2, std::string("\0\0", 2));
  EXPECT_EQ(midiRefusal(tune), "its time is not counted in notes");
  tune.replace(12, 2, "\xE7\x28");
  EXPECT_EQ(midiRefusal(tune), "its time is not counted in notes") << "pictures of a film";
}

TEST(MidiFile, AnEventThatCannotBeOneIsRefused) {
  std::string tune = test::midiTune(1, 1);
  tune.replace(22 + 1, 1, "\x05"); // with no event before that it could be like
  EXPECT_EQ(midiRefusal(tune), "it is damaged");
}

} // namespace hearthbook
