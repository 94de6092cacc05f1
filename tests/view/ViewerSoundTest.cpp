#include "ViewerFixture.h"

#include "BackgroundSound.h"
#include "ClipPlayer.h"
#include "SoundDaemon.h"
#include "TestSounds.h"

#include <QSignalSpy>

namespace hearthbook::test {

namespace {

using Mode = MMControl::Mode;

/// The pages of an album with sounds, on a desktop with sound.
class ViewerSound : public ViewerFixture {
protected:
  ViewerSound() { vars().chosenAlbum = {7, "Lake"}; }

  void addTone(const std::string& name, std::int64_t milliseconds) {
    writeTone(at("Audio/" + name), 440, milliseconds);
  }
  void addTune(const std::string& name) { writeBytes(at("Audio/" + name), midiTune(2, 0)); }

  Viewer& openPagesWithSound() {
    auto& viewer = openPages();
    clip_ = viewer.findChild<const MMControl*>(toQString("MMControl1"));
    background_ = &viewer.background().player();
    return viewer;
  }
  static void playClip(const Viewer& viewer, int cell = 0) { clickIcon(viewer, "Image3", cell); }
  void expectRefusal(const char* name, const char* why) {
    expectTold("Cannot play \"" + at("Audio/" + std::string(name)).string() + "\": " + why);
  }
  void expectTold(const std::string& what) {
    boxes_.expectMessage(toQString(what), toQString("Sound"), MsgIcon::Exclamation);
  }
  void waitForBackground(std::int64_t position) {
    waitUntil([&] { return background_->position() >= position; });
  }
  void waitForClipsEnd() {
    waitUntil([&] { return clip_->mode() == Mode::NotOpen; });
  }

  SoundDaemon daemon_;
  const MMControl* clip_ = nullptr;
  const MMControl* background_ = nullptr;
};

} // namespace

TEST_F(ViewerSound, AClickOnTheNotePlaysThePhotosClip) {
  addTone("00001.wav", 300);
  const auto& viewer = openPagesWithSound();
  playClip(viewer);
  EXPECT_EQ(clip_->mode(), Mode::Playing);
  EXPECT_EQ(clip_->length(), 300);
  waitForClipsEnd();
}

TEST_F(ViewerSound, TheClipIsThatOfItsOwnPhoto) {
  folder_.addPhoto("HD00002");
  addTone("00001.wav", 300);
  addTone("00002.wav", 500);
  const auto& viewer = openPagesWithSound();
  playClip(viewer, 1);
  EXPECT_EQ(clip_->fileName().filename(), "00002.wav");
  playClip(viewer, 0); // in the middle of the other
  EXPECT_EQ(clip_->length(), 300);
  waitForClipsEnd();
}

TEST_F(ViewerSound, ATuneIsPlayedByItsOwnDevice) {
  addTune("00001.MID");
  const auto& viewer = openPagesWithSound();
  playClip(viewer);
  EXPECT_EQ(clip_->deviceType(), DeviceType::Sequencer);
  EXPECT_EQ(clip_->mode(), Mode::Playing);
  waitForClipsEnd();
}

TEST_F(ViewerSound, AnAlbumWithoutASoundIsSilent) {
  addTone("A1.wav", 300);
  addTone("A77.wav", 300);
  openPagesWithSound();
  EXPECT_EQ(background_->mode(), Mode::NotOpen);
}

TEST_F(ViewerSound, TheSoundOfTheChosenAlbumGoesRoundAndRound) {
  addTone("A7.wav", 250);
  openPagesWithSound();
  EXPECT_EQ(background_->mode(), Mode::Playing);
  const QSignalSpy rounds(background_, &MMControl::done);
  waitUntil([&] { return rounds.size() >= 2; });
  EXPECT_EQ(background_->mode(), Mode::Playing);
}

TEST_F(ViewerSound, ASoundOfNoLengthIsPlayedOnce) {
  writeBytes(at("Audio/A7.wav"), silentWave(lowQuality, 0));
  openPagesWithSound();
  const QSignalSpy rounds(background_, &MMControl::done);
  writeTone(at("meanwhile.wav"), 440, 300);
  MMControl other;
  other.setFile(at("meanwhile.wav"));
  ASSERT_TRUE(other.Open());
  const QSignalSpy played(&other, &MMControl::done);
  other.Play();
  waitUntil([&] { return !played.empty(); });
  EXPECT_LE(rounds.size(), 1);
  EXPECT_NE(background_->mode(), Mode::Playing);
}

TEST_F(ViewerSound, UnderAClipTheAlbumsSoundRestsAndThenGoesOnWhereItStopped) {
  addTone("A7.wav", 60'000);
  addTone("00001.wav", 300);
  const auto& viewer = openPagesWithSound();
  waitForBackground(400);
  playClip(viewer);
  EXPECT_EQ(background_->mode(), Mode::NotOpen);
  const auto stopped = background_->position();
  EXPECT_GE(stopped, 400);
  waitForClipsEnd();
  EXPECT_EQ(background_->mode(), Mode::Playing);
  EXPECT_GE(background_->position(), stopped);
  EXPECT_LT(background_->position(), stopped + 30'000);
}

TEST_F(ViewerSound, ASecondClipRemembersWhereTheAlbumsSoundStopped) {
  addTone("A7.wav", 60'000);
  addTone("00001.wav", 60'000);
  folder_.addPhoto("HD00002");
  addTone("00002.wav", 200);
  const auto& viewer = openPagesWithSound();
  waitForBackground(400);
  playClip(viewer, 0);
  const auto stopped = background_->position();
  playClip(viewer, 1);
  waitForClipsEnd();
  EXPECT_EQ(background_->mode(), Mode::Playing);
  EXPECT_GE(background_->position(), stopped);
}

TEST_F(ViewerSound, TheEditorIsOpenedInSilence) {
  addTone("A7.wav", 60'000);
  addTone("00001.wav", 60'000);
  const auto& viewer = openPagesWithSound();
  playClip(viewer);
  press(viewer, "Command3");
  EXPECT_EQ(clip_->mode(), Mode::NotOpen);
  EXPECT_EQ(background_->mode(), Mode::NotOpen);
  settle();
}

TEST_F(ViewerSound, TheSubAlbumEditorIsOpenedInSilence) {
  addTone("A7.wav", 60'000);
  addTone("00001.wav", 60'000);
  auto& viewer = openPagesWithSound();
  viewer.allowSubAlbumEdit(true);
  playClip(viewer);
  press(viewer, "Command5");
  EXPECT_EQ(clip_->mode(), Mode::NotOpen);
  EXPECT_EQ(background_->mode(), Mode::NotOpen);
}

TEST_F(ViewerSound, TurningThePageLetsTheClipPlayOn) {
  addPhotosUpTo(5);
  addTone("00001.wav", 60'000);
  const auto& viewer = openPagesWithSound();
  playClip(viewer);
  press(viewer, "Command1");
  EXPECT_EQ(clip_->mode(), Mode::Playing);
}

TEST_F(ViewerSound, EscapeEndsTheClipAndTheAlbumsSoundGoesOn) {
  addTone("A7.wav", 60'000);
  addTone("00001.wav", 60'000);
  auto& viewer = openPagesWithSound();
  playClip(viewer);
  QTest::keyClick(&viewer, Qt::Key_Escape);
  EXPECT_EQ(clip_->mode(), Mode::NotOpen);
  EXPECT_EQ(background_->mode(), Mode::Playing);
}

TEST_F(ViewerSound, EscapePutsTheDescriptionAwayBeforeItEndsTheClip) {
  execute("UPDATE PhotoAlbum SET Description = 'Behind the house'");
  addTone("00001.wav", 60'000);
  auto& viewer = openPagesWithSound();
  playClip(viewer);
  clickIcon(viewer, "Image2", 0);
  QTest::keyClick(&viewer, Qt::Key_Escape);
  EXPECT_EQ(clip_->mode(), Mode::Playing);
}

TEST_F(ViewerSound, ThePagesCloseInTheMiddleOfAClip) {
  addTone("A7.wav", 60'000);
  addTone("00001.wav", 60'000);
  auto& viewer = openPagesWithSound();
  playClip(viewer);
  std::vector<Mode> clipModes;
  std::vector<Mode> backgroundModes;
  QObject::connect(clip_, &MMControl::modeChanged, clip_,
                   [&] { clipModes.push_back(clip_->mode()); });
  QObject::connect(background_, &MMControl::modeChanged, background_,
                   [&] { backgroundModes.push_back(background_->mode()); });
  viewer.Unload();
  EXPECT_EQ(clipModes, std::vector{Mode::NotOpen});
  EXPECT_EQ(backgroundModes, std::vector{Mode::Stopped}); // opened, and not played
  QCoreApplication::processEvents();
}

TEST_F(ViewerSound, AClipThatCannotBeReadIsToldAndTheAlbumsSoundGoesOn) {
  addTone("A7.wav", 60'000);
  const auto& viewer = [&]() -> Viewer& {
    writeBytes(at("Audio/00001.wav"), "no sound at all");
    return openPagesWithSound();
  }();
  expectRefusal("00001.wav", "it is no wave.");
  playClip(viewer);
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_EQ(clip_->mode(), Mode::NotOpen);
  EXPECT_EQ(background_->mode(), Mode::Playing);
}

TEST_F(ViewerSound, AnEmptyFileAndAFileOfAnotherKindAreToldToo) {
  folder_.addPhoto("HD00002");
  writeBytes(at("Audio/00001.wav"), "");
  writeBytes(at("Audio/00002.mp3"), "another kind");
  const auto& viewer = openPagesWithSound();
  expectRefusal("00001.wav", "it is no wave.");
  playClip(viewer, 0);
  expectRefusal("00002.mp3", "it is no wave.");
  playClip(viewer, 1);
  EXPECT_TRUE(boxes_.isDone());
}

TEST_F(ViewerSound, AnAlbumsSoundThatCannotBeReadIsPassedOver) {
  writeBytes(at("Audio/A7.mid"), "no tune at all");
  const auto& viewer = openPagesWithSound();
  EXPECT_EQ(background_->mode(), Mode::NotOpen);
  EXPECT_EQ(shownIds(viewer), ids(1, 1));
}

TEST_F(ViewerSound, AClipThatHasGoneMeanwhileIsPassedOver) {
  addTone("00001.wav", 300);
  const auto& viewer = openPagesWithSound();
  std::filesystem::remove(at("Audio/00001.wav"));
  playClip(viewer);
  EXPECT_EQ(clip_->mode(), Mode::NotOpen);
}

TEST_F(ViewerSound, WithTheSoundServiceGoneAClipIsToldOnceAndEnds) {
  addTone("00001.wav", 600);
  const auto& viewer = openPagesWithSound();
  daemon_.kill();
  expectTold("Sound cannot be heard: the desktop's sound service does not answer (Connection "
             "refused).");
  playClip(viewer);
  waitUntil([&] { return boxes_.isDone(); });
  waitForClipsEnd();
}

} // namespace hearthbook::test
