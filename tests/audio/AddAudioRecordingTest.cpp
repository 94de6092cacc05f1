#include "AddAudioFixture.h"

namespace hearthbook::test {

namespace {

using Names = std::vector<std::string>;

/// Recording, with a microphone that hears what is played.
class AddAudioRecording : public AddAudioFixture {
protected:
  /// Records for so long and stops.
  static void record(const AddAudio& dialog, std::int64_t milliseconds = 300) {
    startRecording(dialog, milliseconds);
    transport(dialog, "stop");
  }
  static void startRecording(const AddAudio& dialog, std::int64_t milliseconds = 300) {
    transport(dialog, "record");
    ASSERT_EQ(sound(dialog).mode(), Mode::Recording);
    ASSERT_TRUE(waitFor([&] { return sound(dialog).length() >= milliseconds; }));
  }

  SoundDaemon daemon_;
};

} // namespace

TEST_F(AddAudioRecording, ARecordingHasTheFormatOfTheChosenTemplate) {
  for (const auto& [option, format] :
       {std::pair("Option1", lowQuality), std::pair("Option2", highQuality)}) {
    const auto& dialog = open();
    press(dialog, option);
    record(dialog);
    expectRecordingAttached();
    press(dialog, "Command4");
    EXPECT_EQ(infoOf(audio("00001.wav")).format, format) << option;
    EXPECT_GE(infoOf(audio("00001.wav")).length(), 300) << option;
    EXPECT_FALSE(isOpen());
  }
  EXPECT_EQ(told_, (std::vector<bool>{true, true}));
}

TEST_F(AddAudioRecording, WhatIsHeardIsAttached) {
  writeTone(source_ / "tone.wav", 600, 5000);
  MMControl music;
  music.setFile(source_ / "tone.wav");
  ASSERT_TRUE(music.Open());
  ASSERT_TRUE(music.Play());
  ASSERT_TRUE(waitFor([&] { return music.position() > 200; }));
  const auto& dialog = open();
  press(dialog, "Option2");
  record(dialog, 800);
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_NEAR(listenTo(audio("00001.wav")).hertz, 600, 30);
}

TEST_F(AddAudioRecording, ADiscIsRecorded) {
  const ScopedVariable drive("HEARTHBOOK_DISC", makeDisc(source_, {500}, 5).string());
  const auto& dialog = openTab(Disc);
  press(dialog, "Option2");
  ASSERT_TRUE(waitFor([&] { return disc(dialog).isOpen(); }));
  transport(dialog, "play", "MMControl2");
  ASSERT_TRUE(waitFor([&] { return disc(dialog).position() > 200; }));
  record(dialog, 800);
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_NEAR(listenTo(audio("00001.wav")).hertz, 500, 30);
}

TEST_F(AddAudioRecording, ADiscThatGoesAwayIsToldAndTheRecordingGoesOn) {
  const ScopedVariable drive("HEARTHBOOK_DISC", makeDisc(source_, {500}, 5).string());
  const auto& dialog = openTab(Disc);
  ASSERT_TRUE(waitFor([&] { return disc(dialog).isOpen(); }));
  transport(dialog, "play", "MMControl2");
  ASSERT_TRUE(waitFor([&] { return disc(dialog).position() > 100; }));
  transport(dialog, "record");
  std::filesystem::resize_file(source_ / "disc.bin", 0);
  EXPECT_TRUE(waitFor([&] { return disc(dialog).mode() == Mode::Stopped; }));
  EXPECT_NE(textOf(dialog, "soundNote").find("disc.cue"), std::string::npos);
  EXPECT_EQ(sound(dialog).mode(), Mode::Recording);
}

TEST_F(AddAudioRecording, TheTemplatesStayAsTheyAre) {
  const std::string before = readBytes(audio("8Bit.wav"));
  const auto& dialog = open();
  record(dialog);
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_EQ(readBytes(audio("8Bit.wav")), before);
}

TEST_F(AddAudioRecording, WhileRecordingTheSecondsAndTheSizeAreShown) {
  const auto& dialog = open();
  press(dialog, "Option2");
  EXPECT_EQ(control(dialog, "frameQuality")->property("Tag").toString(), toQString("86"));
  startRecording(dialog, 0);
  EXPECT_EQ(textOf(dialog, "lblRec"), "Recording");
  EXPECT_TRUE(isVisible(dialog, "lblRec"));
  EXPECT_EQ(titleOf(dialog, "Frame1"), "Recording Length");
  EXPECT_TRUE(waitFor([&] { return textOf(dialog, "lblLength") != "0 Sec."; }));
  const std::string length = textOf(dialog, "lblLength");
  const int seconds = std::stoi(length);
  EXPECT_EQ(length, std::to_string(seconds) + " Sec.");
  EXPECT_EQ(textOf(dialog, "lblSize"), std::to_string(seconds * 86) + "k");
}

TEST_F(AddAudioRecording, TheQualityCannotBeChangedMeanwhile) {
  const auto& dialog = open();
  startRecording(dialog);
  EXPECT_FALSE(isEnabled(dialog, "Option2"));
  transport(dialog, "stop");
  EXPECT_TRUE(isEnabled(dialog, "Option2"));
}

TEST_F(AddAudioRecording, AStoppedRecordingCanBeHeard) {
  const auto& dialog = open();
  record(dialog, 1200);
  EXPECT_EQ(sound(dialog).position(), 0);
  const auto seconds = sound(dialog).length() / 1000; // on a busy machine it stops later
  EXPECT_EQ(textOf(dialog, "lblLength"), std::to_string(seconds) + " Sec.");
  EXPECT_EQ(textOf(dialog, "lblSize"), std::to_string(seconds * 11) + "k");
  EXPECT_FALSE(isVisible(dialog, "lblRec"));
  transport(dialog, "play");
  EXPECT_EQ(textOf(dialog, "lblRec"), "Playing");
}

TEST_F(AddAudioRecording, AnotherRecordingBeginsAnew) {
  const auto& dialog = open();
  record(dialog);
  std::vector<std::int64_t> lengths; // at first, whenever it is opened
  MMControl& recorder = sound(dialog);
  const QObject watching; // no longer than the test
  QObject::connect(&recorder, &MMControl::modeChanged, &watching, [&] {
    if (recorder.mode() == Mode::Stopped)
      lengths.push_back(recorder.length());
  });
  expectLoss(MsgAnswer::Ok);
  transport(dialog, "record");
  EXPECT_EQ(recorder.mode(), Mode::Recording);
  EXPECT_EQ(lengths, std::vector<std::int64_t>{0});
}

TEST_F(AddAudioRecording, TheRecordingThatIsThereIsNotLostWithoutAQuestion) {
  const auto& dialog = open();
  record(dialog);
  const auto length = sound(dialog).length();
  expectLoss(MsgAnswer::Cancel);
  transport(dialog, "record");
  EXPECT_EQ(sound(dialog).mode(), Mode::Stopped);
  EXPECT_EQ(sound(dialog).length(), length);
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_EQ(infoOf(audio("00001.wav")).length(), length);
}

TEST_F(AddAudioRecording, TheFirstRecordingOverAnAttachedSoundAsksNothing) {
  attach("00001.wav", silentWave(lowQuality, 600'000));
  const auto& dialog = open();
  record(dialog);
  EXPECT_LT(sound(dialog).length(), 600'000);
}

TEST_F(AddAudioRecording, KeysGoFromRecordToStopAndToPlay) {
  const auto& dialog = open();
  const auto focused = [&] { return toUtf8(dialog.focusWidget()->objectName()); };
  control(*control(dialog, "MMControl1"), "record")->setFocus();
  QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
  EXPECT_EQ(focused(), "stop");
  ASSERT_TRUE(waitFor([&] { return sound(dialog).length() > 0; }));
  QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
  EXPECT_EQ(sound(dialog).mode(), Mode::Stopped);
  EXPECT_EQ(focused(), "play");
}

TEST_F(AddAudioRecording, AnAlbumsRecordingBearsItsIdAndItsOwnerIsTold) {
  addAlbums();
  auto& dialog = open("album");
  record(dialog);
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_EQ(sounds(), Names{"A7.wav"});
  EXPECT_EQ(told_, std::vector<bool>{true});
}

TEST_F(AddAudioRecording, WithoutARecordingNothingIsAttached) {
  const auto& dialog = open();
  expectRefusal("Please Record Wave File");
  press(dialog, "Command4");
  EXPECT_TRUE(sounds().empty());
  EXPECT_TRUE(isOpen());
}

TEST_F(AddAudioRecording, AnAttachedTuneIsNoRecording) {
  attach("00001.mid", midiTune(4, 4));
  const auto& dialog = open();
  expectRefusal("Please Record Wave File");
  press(dialog, "Command4");
  EXPECT_EQ(sounds(), Names{"00001.mid"});
}

TEST_F(AddAudioRecording, ARecordingOverATuneLeavesBoth) {
  attach("00001.mid", midiTune(4, 4));
  const auto& dialog = open();
  record(dialog);
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_EQ(sounds(), (Names{"00001.mid", "00001.wav"}));
}

TEST_F(AddAudioRecording, AWaveThatARecordingReplacesGoesToTheTrash) {
  attach("00001.WAV", silentWave(lowQuality, 600'000));
  const auto& dialog = open();
  record(dialog);
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_EQ(sounds(), Names{"00001.WAV"});
  EXPECT_LT(infoOf(audio("00001.WAV")).length(), 600'000);
  EXPECT_EQ(infoOf(folder_.trash() / "00001.WAV").length(), 600'000);
}

TEST_F(AddAudioRecording, ARecordingIsAttachedWithoutBeingStoppedFirst) {
  const auto& dialog = open();
  startRecording(dialog);
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_GE(infoOf(audio("00001.wav")).length(), 300);
}

TEST_F(AddAudioRecording, ARecordingThatCannotBeSavedIsToldAndKept) {
  auto& dialog = open();
  record(dialog);
  std::filesystem::rename(at("Audio"), at("Gone"));
  boxes_.expectFailure(toQString("Audio"));
  press(dialog, "Command4");
  EXPECT_GE(sound(dialog).length(), 300);
  EXPECT_TRUE(told_.empty());
  std::filesystem::rename(at("Gone"), at("Audio"));
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_EQ(sounds(), Names{"00001.wav"});
}

TEST_F(AddAudioRecording, ARecordingThatCannotBeSavedTellsItsWholeLength) {
  const auto& dialog = open();
  startRecording(dialog, 1200);
  std::filesystem::rename(at("Audio"), at("Gone"));
  boxes_.expectFailure(toQString("Audio"));
  press(dialog, "Command4");
  EXPECT_EQ(sound(dialog).mode(), Mode::Stopped);
  EXPECT_EQ(textOf(dialog, "lblLength"), std::to_string(sound(dialog).length() / 1000) + " Sec.");
  transport(dialog, "play");
  ASSERT_EQ(titleOf(dialog, "Frame1"), "Position");
  boxes_.expectFailure(toQString("Audio"));
  press(dialog, "Command4");
  EXPECT_EQ(titleOf(dialog, "Frame1"), "Recording Length");
  EXPECT_EQ(textOf(dialog, "lblLength"), std::to_string(sound(dialog).length() / 1000) + " Sec.");
  EXPECT_FALSE(isVisible(dialog, "lblRec"));
}

TEST_F(AddAudioRecording, TheClosingCommandEndsARecordingThatRuns) {
  const auto& dialog = open();
  startRecording(dialog);
  std::vector<Mode> modes;
  MMControl& recorder = sound(dialog);
  QObject::connect(&recorder, &MMControl::modeChanged, &recorder,
                   [&] { modes.push_back(recorder.mode()); });
  expectClosing(MsgAnswer::Cancel);
  press(dialog, "Command6");
  EXPECT_EQ(recorder.mode(), Mode::Recording);
  expectClosing(MsgAnswer::Ok);
  press(dialog, "Command6");
  EXPECT_EQ(modes, (std::vector{Mode::Stopped, Mode::NotOpen}));
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(sounds().empty());
}

TEST_F(AddAudioRecording, ARecordingThatIsNotAttachedIsDroppedOnClosing) {
  const auto& dialog = open();
  record(dialog);
  expectClosing(MsgAnswer::Ok);
  press(dialog, "Command6");
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(sounds().empty());
}

TEST_F(AddAudioRecording, CancelAtTheClosingQuestionKeepsTheRecording) {
  const auto& dialog = open();
  record(dialog);
  const auto length = sound(dialog).length();
  expectClosing(MsgAnswer::Cancel);
  press(dialog, "Command6");
  QCoreApplication::processEvents();
  EXPECT_EQ(sound(dialog).length(), length);
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_EQ(infoOf(audio("00001.wav")).length(), length);
}

TEST_F(AddAudioRecording, TheWindowAsksBeforeItClosesOverAnUnsavedRecording) {
  auto& dialog = open();
  record(dialog);
  expectClosing(MsgAnswer::Cancel);
  EXPECT_FALSE(dialog.close());
  EXPECT_TRUE(isOpen());
  expectClosing(MsgAnswer::Ok);
  dialog.close();
  EXPECT_FALSE(isOpen());
}

TEST_F(AddAudioRecording, ATabAsksBeforeItDropsTheRecording) {
  auto& dialog = open();
  record(dialog);
  expectLoss(MsgAnswer::Cancel);
  chooseTab(dialog, File);
  EXPECT_EQ(control<QTabBar>(dialog, "TabStrip1")->currentIndex(), Microphone);
  EXPECT_TRUE(isVisible(dialog, "fromMic"));
  EXPECT_GE(sound(dialog).length(), 300);
  expectLoss(MsgAnswer::Ok);
  chooseTab(dialog, File);
  EXPECT_TRUE(isVisible(dialog, "fromFile"));
}

TEST_F(AddAudioRecording, RemovingTheOldSoundKeepsTheRecording) {
  attach("00001.mid", midiTune(4, 4));
  const auto& dialog = open();
  record(dialog);
  expectRemoval("photo", MsgAnswer::Ok);
  press(dialog, "Command5");
  EXPECT_TRUE(sounds().empty());
  EXPECT_GE(sound(dialog).length(), 300);
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_EQ(sounds(), Names{"00001.wav"});
}

TEST_F(AddAudioRecording, ASoundServiceThatGoesAwayIsToldAndWhatWasHeardStays) {
  const auto& dialog = open();
  startRecording(dialog);
  boxes_.expectFailure({}); // in the words of the sound service
  daemon_.kill();
  EXPECT_TRUE(waitFor([&] { return boxes_.isDone(); }));
  EXPECT_EQ(sound(dialog).mode(), Mode::Stopped);
  EXPECT_FALSE(isVisible(dialog, "lblRec"));
  expectRecordingAttached();
  press(dialog, "Command4");
  EXPECT_GE(infoOf(audio("00001.wav")).length(), 300);
}

TEST_F(AddAudioRecording, AMicrophoneThatIsUnpluggedIsToldAndWhatWasHeardStays) {
  const auto& dialog = open();
  startRecording(dialog);
  boxes_.expectFailure({});
  daemon_.takeDeviceAway();
  EXPECT_TRUE(waitFor([&] { return boxes_.isDone(); }));
  EXPECT_EQ(sound(dialog).mode(), Mode::Stopped);
  EXPECT_GE(sound(dialog).length(), 300);
}

TEST_F(AddAudioRecording, WithoutASoundServiceTheFormTellsSo) {
  const NoSoundDaemon noSound;
  const auto& dialog = open();
  boxes_.expectFailure({}); // in the words of the sound service
  transport(dialog, "record");
  EXPECT_TRUE(waitFor([&] { return boxes_.isDone(); }));
  EXPECT_EQ(sound(dialog).mode(), Mode::Stopped);
  expectRefusal("Please Record Wave File");
  press(dialog, "Command4");
}

TEST_F(AddAudioRecording, UnloadingWhileItRecordsIsSilent) {
  auto& dialog = open();
  startRecording(dialog);
  std::vector<Mode> modes;
  MMControl& recorder = sound(dialog);
  QObject::connect(&recorder, &MMControl::modeChanged, &recorder,
                   [&] { modes.push_back(recorder.mode()); });
  dialog.Unload();
  EXPECT_EQ(modes, (std::vector{Mode::Stopped, Mode::NotOpen}));
  EXPECT_TRUE(sounds().empty());
}

} // namespace hearthbook::test
