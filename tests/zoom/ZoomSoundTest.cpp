#include "ZoomFixture.h"

#include "BackgroundSound.h"
#include "FileBytes.h"
#include "SoundDaemon.h"
#include "TestSounds.h"

#include <QSignalSpy>

namespace hearthbook::test {

namespace {

using Mode = MMControl::Mode;

/// The zoom view of a photo with a sound, on a desktop with sound.
class ZoomSound : public ZoomFixture {
protected:
  Zoom& openWithSound(std::int64_t milliseconds) {
    writeTone(at("Audio/00001.wav"), 440, milliseconds);
    auto& zoom = openZoomOf(2);
    clip_ = zoom.findChild<const MMControl*>(toQString("MMControl1"));
    return zoom;
  }
  /// The pages of an album with a sound behind them, which sounds.
  const MMControl& openAlbumWithSound() {
    writeTone(at("Audio/A7.wav"), 220, 60'000);
    vars().chosenAlbum = {7, "Lake"};
    vars().CallerForm = "Viewer";
    vars().rsViewer = data().rsPhotoAlbum.Clone();
    auto& pages = Forms::get<Viewer>();
    pages.Show();
    return pages.background().player();
  }
  void expectClipRefused(const char* name) {
    boxes_.expectMessage(toQString("Cannot play \"" + at("Audio/" + std::string(name)).string() +
                                   "\": it is no wave."),
                         toQString("Sound"), MsgIcon::Exclamation);
  }

  SoundDaemon daemon_;
  const MMControl* clip_ = nullptr;
};

} // namespace

TEST_F(ZoomSound, AClickOnTheNotePlaysThePhotosClipToItsEnd) {
  const auto& zoom = openWithSound(300);
  FormControls::press(zoom, "Image3(0)");
  EXPECT_EQ(clip_->mode(), Mode::Playing);
  EXPECT_EQ(clip_->length(), 300);
  waitUntil([&] { return clip_->mode() == Mode::NotOpen; });
}

TEST_F(ZoomSound, UnderAClipTheSoundOfTheAlbumRestsAndThenGoesOnWhereItStopped) {
  const auto& album = openAlbumWithSound();
  const auto& zoom = openWithSound(300);
  waitUntil([&] { return album.position() >= 400; });
  FormControls::press(zoom, "Image3(0)");
  EXPECT_EQ(album.mode(), Mode::NotOpen);
  const auto stopped = album.position();
  EXPECT_GE(stopped, 400);
  waitUntil([&] { return clip_->mode() == Mode::NotOpen; });
  EXPECT_EQ(album.mode(), Mode::Playing);
  EXPECT_GE(album.position(), stopped);
  EXPECT_LT(album.position(), stopped + 30'000);
}

TEST_F(ZoomSound, TheSoundOfAnAlbumThatWasOpenedLaterRestsToo) {
  const auto& zoom = openWithSound(60'000);
  const auto& album = openAlbumWithSound();
  EXPECT_EQ(album.mode(), Mode::Playing);
  FormControls::press(zoom, "Image3(0)");
  EXPECT_EQ(clip_->mode(), Mode::Playing);
  EXPECT_EQ(album.mode(), Mode::NotOpen);
}

TEST_F(ZoomSound, ThePhotoWithoutASoundHasNoNote) {
  const auto& zoom = openWithSound(300);
  press(zoom, "Command2");
  EXPECT_TRUE(control(zoom, "Image3(0)")->isHidden());
}

TEST_F(ZoomSound, EscapeEndsTheClip) {
  auto& zoom = openWithSound(60'000);
  FormControls::press(zoom, "Image3(0)");
  ASSERT_EQ(clip_->mode(), Mode::Playing);
  key(zoom, Qt::Key_Escape);
  EXPECT_EQ(clip_->mode(), Mode::NotOpen);
}

TEST_F(ZoomSound, TheViewClosesInTheMiddleOfAClip) {
  const auto& zoom = openWithSound(60'000);
  FormControls::press(zoom, "Image3(0)");
  std::vector<Mode> modes;
  QObject::connect(clip_, &MMControl::modeChanged, clip_, [&] { modes.push_back(clip_->mode()); });
  FormControls::press(zoom, "Command1");
  EXPECT_EQ(modes, std::vector{Mode::NotOpen});
}

TEST_F(ZoomSound, WhereTheViewClosesInTheMiddleOfAClipTheSoundOfTheAlbumGoesOn) {
  const auto& album = openAlbumWithSound();
  const auto& zoom = openWithSound(60'000);
  waitUntil([&] { return album.position() >= 400; });
  FormControls::press(zoom, "Image3(0)");
  const auto stopped = album.position();
  ASSERT_EQ(album.mode(), Mode::NotOpen);
  FormControls::press(zoom, "Command1");
  EXPECT_EQ(album.mode(), Mode::Playing);
  EXPECT_GE(album.position(), stopped);
}

TEST_F(ZoomSound, WhereTheViewClosesWithoutAClipTheSoundOfTheAlbumPlaysOn) {
  const auto& album = openAlbumWithSound();
  const auto& zoom = openWithSound(60'000);
  ASSERT_EQ(album.mode(), Mode::Playing);
  const QSignalSpy changes(&album, &MMControl::modeChanged);
  FormControls::press(zoom, "Command1");
  EXPECT_EQ(album.mode(), Mode::Playing);
  EXPECT_TRUE(changes.empty());
}

TEST_F(ZoomSound, AClipThatCannotBeReadIsToldAndTheAlbumsSoundGoesOn) {
  const auto& album = openAlbumWithSound();
  writeBytes(at("Audio/00001.wav"), "no sound at all");
  expectClipRefused("00001.wav");
  expectClipRefused("00002.wav");
  expectClipRefused("00003.mp3");
  writeBytes(at("Audio/00002.wav"), "");
  writeBytes(at("Audio/00003.mp3"), "another kind");
  const auto& zoom = openZoomOf(3);
  for (int photo = 0; photo < 3; ++photo) {
    FormControls::press(zoom, "Image3(0)");
    EXPECT_EQ(zoom.findChild<const MMControl*>(toQString("MMControl1"))->mode(), Mode::NotOpen);
    EXPECT_EQ(album.mode(), Mode::Playing);
    if (photo < 2)
      press(zoom, "Command2");
  }
  EXPECT_TRUE(boxes_.isDone());
}

} // namespace hearthbook::test
