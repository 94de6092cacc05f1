#include "AudioFiles.h"
#include "AlbumFixture.h"
#include "FileBytes.h"
#include "RunTimeError.h"

#include <gmock/gmock.h>

namespace hearthbook::test {

namespace {

namespace fs = std::filesystem;

class AudioFiles : public AlbumFixture {
protected:
  fs::path sound(const std::string& name, const std::string& bytes = "sound") {
    writeBytes(at("Audio") / name, bytes);
    return at("Audio") / name;
  }
  fs::path source(const std::string& name, const std::string& bytes = "new sound") {
    writeBytes(at("Source") / name, bytes);
    return at("Source") / name;
  }
  /// What lies in Audio beside the templates.
  std::vector<std::string> sounds() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(at("Audio")))
      if (const auto name = entry.path().filename().string(); !name.ends_with("Bit.wav"))
        names.push_back(name);
    std::ranges::sort(names);
    return names;
  }
};

} // namespace

TEST_F(AudioFiles, APhotosSoundIsCalledByTheFiveDigitsOfItsId) {
  EXPECT_EQ(photoAudioName("HD00012"), "00012");
  EXPECT_EQ(photoAudioName("CD00012"), "00012");
}

TEST_F(AudioFiles, AnAlbumsSoundIsCalledByItsIdWithoutLeadingZeros) {
  EXPECT_EQ(albumAudioName(7), "A7");
  sound("A7.wav");
  sound("A00007.wav");
  sound("A77.wav");
  EXPECT_EQ(attachedAudio(album(), albumAudioName(7)), at("Audio/A7.wav"));
}

TEST_F(AudioFiles, WhatIsNotThereIsNotAttached) {
  sound("000121.wav");
  EXPECT_EQ(attachedAudio(album(), "00012"), std::nullopt);
}

TEST_F(AudioFiles, OfTwoSoundsTheFirstByNameCounts) {
  sound("00012.wav");
  sound("00012.mid");
  EXPECT_EQ(attachedAudio(album(), "00012"), at("Audio/00012.mid"));
}

TEST_F(AudioFiles, WhichOfTwoSoundsCountsDoesNotHangOnTheirSpelling) {
  sound("00012.WAV");
  sound("00012.mid");
  EXPECT_EQ(attachedAudio(album(), "00012"), at("Audio/00012.mid"));
}

TEST_F(AudioFiles, AFileOfAnotherKindUnderTheNameCountsToo) {
  sound("00012.ogg");
  EXPECT_EQ(attachedAudio(album(), "00012"), at("Audio/00012.ogg"));
}

TEST_F(AudioFiles, AnAttachedFileKeepsTheLastFourCharactersOfItsName) {
  attachAudio(album(), "00012", source("Grandma's song.MID"));
  EXPECT_EQ(readBytes(at("Audio/00012.MID")), "new sound");
  EXPECT_TRUE(fs::exists(at("Source/Grandma's song.MID")));
}

TEST(SoundExtension, IsTheLastFourCharactersOfTheName) {
  EXPECT_EQ(soundExtension("Music/A7.MID"), ".MID");
  EXPECT_EQ(soundExtension("a.flac"), "flac");
  EXPECT_EQ(soundExtension("a"), "a");
}

TEST_F(AudioFiles, AMidiAttachedOverAWaveLeavesOnlyTheMidi) {
  sound("00012.wav", "old");
  attachAudio(album(), "00012", source("tune.mid"));
  EXPECT_THAT(sounds(), testing::ElementsAre("00012.mid"));
  EXPECT_EQ(readBytes(folder_.trash() / "00012.wav"), "old");
}

TEST_F(AudioFiles, AllSoundsOfTheOwnerGiveWayAndNoOthers) {
  for (const char* name : {"00012.wav", "00012.MID", "00012.ogg", "00013.wav", "A12.wav"})
    sound(name);
  attachAudio(album(), "00012", source("tune.wav"));
  EXPECT_THAT(sounds(), testing::ElementsAre("00012.wav", "00013.wav", "A12.wav"));
  EXPECT_EQ(readBytes(at("Audio/00012.wav")), "new sound");
}

TEST_F(AudioFiles, TheOwnersOwnSoundCanBeAttachedAgain) {
  attachAudio(album(), "00012", sound("00012.wav", "mine"));
  EXPECT_EQ(readBytes(at("Audio/00012.wav")), "mine");
}

TEST_F(AudioFiles, ACopyOfAReadOnlyFileCanBeWrittenTo) {
  const auto readOnly = source("tune.wav");
  fs::permissions(readOnly, fs::perms::owner_read);
  attachAudio(album(), "00012", readOnly);
  const auto rights = fs::status(at("Audio/00012.wav")).permissions();
  EXPECT_NE(rights & fs::perms::owner_write, fs::perms::none);
}

TEST_F(AudioFiles, ASourceThatHasGoneLeavesTheOwnersSoundAlone) {
  sound("00012.wav", "old");
  EXPECT_THROW(attachAudio(album(), "00012", at("Source/gone.mid")), RunTimeError);
  EXPECT_THAT(sounds(), testing::ElementsAre("00012.wav"));
}

TEST_F(AudioFiles, RemovedSoundsGoToTheTrash) {
  sound("00012.wav", "one");
  sound("00012.mid", "two");
  sound("00013.mid");
  removeAudio(album(), "00012");
  EXPECT_THAT(sounds(), testing::ElementsAre("00013.mid"));
  EXPECT_EQ(readBytes(folder_.trash() / "00012.wav"), "one");
  EXPECT_EQ(readBytes(folder_.trash() / "00012.mid"), "two");
}

TEST_F(AudioFiles, AnAlbumsSoundIsRemovedHoweverItsNameIsSpelled) {
  sound("a7.wav");
  removeAudio(album(), albumAudioName(7));
  EXPECT_TRUE(sounds().empty());
}

TEST_F(AudioFiles, ARecordingIsAlwaysAWave) {
  sound("00012.mid");
  EXPECT_EQ(recordingFile(album(), "00012"), at("Audio/00012.wav"));
}

TEST_F(AudioFiles, ARecordingTakesThePlaceOfAWaveInAnySpelling) {
  sound("00012.WAV");
  EXPECT_EQ(recordingFile(album(), "00012"), at("Audio/00012.WAV"));
}

} // namespace hearthbook::test
