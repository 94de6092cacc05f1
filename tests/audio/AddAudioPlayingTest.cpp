#include "AddAudioFixture.h"

namespace hearthbook::test {

namespace {

/// Where nobody hears anything: what is played takes its time all the same.
class AddAudioPlaying : public AddAudioFixture {
protected:
  /// Of the position; -1 where something else than bare seconds is shown.
  static int secondsOf(const AddAudio& dialog) {
    bool isNumber = false;
    const int seconds = toQString(textOf(dialog, "lblLength")).toInt(&isNumber);
    return isNumber ? seconds : -1;
  }

private:
  NoSoundDaemon noSound_;
};

} // namespace

TEST_F(AddAudioPlaying, WhilePlayingTheSecondsOfThePositionAreShown) {
  attach("00001.wav", silentWave(lowQuality, 600'000));
  const auto& dialog = open();
  EXPECT_FALSE(isVisible(dialog, "lblRec"));
  transport(dialog, "play");
  EXPECT_EQ(titleOf(dialog, "Frame1"), "Position");
  EXPECT_EQ(textOf(dialog, "lblRec"), "Playing");
  EXPECT_TRUE(isVisible(dialog, "lblRec"));
  EXPECT_EQ(textOf(dialog, "lblLength"), "0");
  EXPECT_TRUE(waitFor([&] { return secondsOf(dialog) >= 1; }));
}

TEST_F(AddAudioPlaying, WhilePlayingTheSizeStaysThatOfTheWhole) {
  attach("00001.wav", silentWave(lowQuality, 600'000));
  const auto& dialog = open();
  transport(dialog, "play");
  EXPECT_EQ(textOf(dialog, "lblSize"), "6600k");
  EXPECT_TRUE(waitFor([&] { return secondsOf(dialog) >= 1; }));
  EXPECT_EQ(textOf(dialog, "lblSize"), "6600k");
}

TEST_F(AddAudioPlaying, StopGoesToTheStartAndShowsTheLength) {
  attach("00001.wav", silentWave(lowQuality, 60'000));
  const auto& dialog = open();
  transport(dialog, "play");
  EXPECT_TRUE(waitFor([&] { return sound(dialog).position() > 0; }));
  transport(dialog, "stop");
  EXPECT_EQ(sound(dialog).position(), 0);
  EXPECT_FALSE(isVisible(dialog, "lblRec"));
  EXPECT_EQ(titleOf(dialog, "Frame1"), "Recording Length");
  EXPECT_EQ(textOf(dialog, "lblLength"), "60 Sec.");
  EXPECT_EQ(textOf(dialog, "lblSize"), "660k");
}

TEST_F(AddAudioPlaying, APlayThatIsDoneGoesToTheStartAndTicksNoMore) {
  attach("00001.wav", silentWave(lowQuality, 200));
  const auto& dialog = open();
  EXPECT_EQ(sound(dialog).updateInterval(), 1000);
  transport(dialog, "play");
  EXPECT_TRUE(waitFor([&] { return !isVisible(dialog, "lblRec"); }));
  EXPECT_EQ(sound(dialog).mode(), Mode::Stopped);
  EXPECT_EQ(sound(dialog).position(), 0);
  EXPECT_EQ(sound(dialog).updateInterval(), 0);
}

TEST_F(AddAudioPlaying, TheNextPlayTicksAgain) {
  attach("00001.wav", silentWave(lowQuality, 600'000));
  const auto& dialog = open();
  sound(dialog).setUpdateInterval(0);
  transport(dialog, "play");
  EXPECT_EQ(sound(dialog).updateInterval(), 1000);
  EXPECT_TRUE(waitFor([&] { return secondsOf(dialog) >= 1; }));
}

TEST_F(AddAudioPlaying, WhereNothingCanBeHeardTheFormTellsSoAndTheTimePasses) {
  attach("00001.wav", silentWave(lowQuality, 300));
  const auto& dialog = open();
  transport(dialog, "play");
  EXPECT_TRUE(waitFor([&] { return isVisible(dialog, "soundNote"); }));
  EXPECT_TRUE(waitFor([&] { return sound(dialog).mode() == Mode::Stopped; }));
}

TEST_F(AddAudioPlaying, OnlyWhatCanBeDoneIsEnabled) {
  const auto& empty = open();
  for (const char* button : {"play", "pause", "stop", "toStart"})
    EXPECT_FALSE(canPress(empty, button)) << button;
  EXPECT_TRUE(canPress(empty, "record"));
  Forms::get<AddAudio>().Unload();

  attach("00001.wav", silentWave(lowQuality, 60'000));
  const auto& dialog = open();
  EXPECT_TRUE(canPress(dialog, "play"));
  EXPECT_FALSE(canPress(dialog, "stop"));
  transport(dialog, "play");
  EXPECT_FALSE(canPress(dialog, "play"));
  transport(dialog, "pause");
  EXPECT_EQ(sound(dialog).mode(), Mode::Paused);
  EXPECT_FALSE(isVisible(dialog, "lblRec"));
  EXPECT_TRUE(canPress(dialog, "play"));
  EXPECT_TRUE(canPress(dialog, "stop"));
}

TEST_F(AddAudioPlaying, KeysStayOnTheRecorderWhereverAButtonIsDisabled) {
  attach("00001.wav", silentWave(lowQuality, 600'000));
  const auto& dialog = open();
  const auto focused = [&] { return toUtf8(dialog.focusWidget()->objectName()); };
  const auto pressSpace = [&] { QTest::keyClick(dialog.focusWidget(), Qt::Key_Space); };
  control(*control(dialog, "MMControl1"), "play")->setFocus();
  pressSpace();
  EXPECT_EQ(sound(dialog).mode(), Mode::Playing);
  EXPECT_EQ(focused(), "pause");
  pressSpace();
  EXPECT_EQ(sound(dialog).mode(), Mode::Paused);
  EXPECT_EQ(focused(), "play");
  control(*control(dialog, "MMControl1"), "stop")->setFocus();
  pressSpace();
  EXPECT_EQ(sound(dialog).mode(), Mode::Stopped);
  EXPECT_EQ(focused(), "play");
}

TEST_F(AddAudioPlaying, KeysOnAnotherControlAreNotTakenAwayByTheRecorder) {
  attach("00001.wav", silentWave(lowQuality, 200));
  const auto& dialog = open();
  control(dialog, "Command7")->setFocus();
  transport(dialog, "play");
  control(dialog, "Command7")->setFocus();
  EXPECT_TRUE(waitFor([&] { return sound(dialog).mode() == Mode::Stopped; }));
  EXPECT_EQ(dialog.focusWidget(), control(dialog, "Command7"));
}

// Troubles

TEST_F(AddAudioPlaying, ATroubleIsToldUntilItIsOver) {
  attach("00001.wav", silentWave(lowQuality, 300));
  const auto& dialog = open();
  transport(dialog, "play");
  ASSERT_TRUE(waitFor([&] { return isVisible(dialog, "soundNote"); }));
  ASSERT_TRUE(waitFor([&] { return sound(dialog).mode() == Mode::Stopped; }));
  const SoundDaemon daemon;
  transport(dialog, "play");
  ASSERT_TRUE(waitFor([&] { return sound(dialog).mode() == Mode::Stopped; }));
  EXPECT_FALSE(isVisible(dialog, "soundNote")) << textOf(dialog, "soundNote");
}

TEST_F(AddAudioPlaying, TheTroubleOfTheDiscIsToldBesideThatOfTheSoundAndUntilADiscIsThere) {
  attach("00001.wav", silentWave(lowQuality, 300));
  const ScopedVariable drive("HEARTHBOOK_DISC", (source_ / "disc.cue").string());
  auto& dialog = openTab(Disc);
  const auto note = [&] { return textOf(dialog, "soundNote"); };
  ASSERT_TRUE(waitFor([&] { return note().find("disc.cue") != std::string::npos; }));
  transport(dialog, "play");
  ASSERT_TRUE(waitFor([&] { return note().find("Sound cannot be heard") != std::string::npos; }));
  EXPECT_NE(note().find("disc.cue"), std::string::npos);
  makeDisc(source_, {400}, 3);
  EXPECT_TRUE(disc(dialog).Open());
  ASSERT_TRUE(waitFor([&] { return disc(dialog).isOpen(); }));
  EXPECT_EQ(note().find("disc.cue"), std::string::npos) << note();
  EXPECT_NE(note().find("Sound cannot be heard"), std::string::npos) << note();
}

// Discs

TEST_F(AddAudioPlaying, ADiscThatIsPutInLaterIsPlayedOnDemand) {
  const ScopedVariable drive("HEARTHBOOK_DISC", (source_ / "disc.cue").string());
  auto& dialog = openTab(Disc);
  ASSERT_TRUE(waitFor([&] { return isVisible(dialog, "soundNote"); }));
  makeDisc(source_, {400, 500}, 60);
  transport(dialog, "play", "MMControl2");
  EXPECT_TRUE(waitFor([&] { return disc(dialog).mode() == Mode::Playing; }));
  EXPECT_EQ(textOf(dialog, "discPosition"), "Track 1 of 2");
}

TEST_F(AddAudioPlaying, ADiscThatWasAskedForAndLeftIsNotPlayedLater) {
  const ScopedVariable drive("HEARTHBOOK_DISC", makeDisc(source_, {400}, 60).string());
  auto& dialog = openTab(Disc);
  ASSERT_TRUE(waitFor([&] { return disc(dialog).isOpen(); }));
  disc(dialog).Close();
  transport(dialog, "play", "MMControl2");
  chooseTab(dialog, Microphone);
  chooseTab(dialog, Disc);
  ASSERT_TRUE(waitFor([&] { return disc(dialog).isOpen(); }));
  EXPECT_EQ(disc(dialog).mode(), Mode::Stopped);
}

} // namespace hearthbook::test
