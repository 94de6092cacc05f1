#include "ZoomFixture.h"

#include "BackgroundSound.h"
#include "SoundDaemon.h"
#include "TestSounds.h"

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

TEST_F(ZoomSound, TheViewClosesInTheMiddleOfAClip) {
  const auto& zoom = openWithSound(60'000);
  FormControls::press(zoom, "Image3(0)");
  std::vector<Mode> modes;
  QObject::connect(clip_, &MMControl::modeChanged, clip_, [&] { modes.push_back(clip_->mode()); });
  FormControls::press(zoom, "Command1");
  EXPECT_EQ(modes, std::vector{Mode::NotOpen});
}

} // namespace hearthbook::test
