#include "SubjectPicture.h"
#include "AlbumFolder.h"
#include "PictureBox.h"
#include "TemporaryFolder.h"
#include "WaitFor.h"

#include <future>

namespace hearthbook::test {

namespace {

class SubjectPictureTest : public testing::Test {
protected:
  SubjectPictureTest() {
    writeJpeg(tall_, 48, 64);
    writeJpeg(wide_, 64, 48);
    window_.show();
  }
  /// What was asked for is decoded; it comes to the window with the next events.
  void letDecode() {
    pool_.run([] { return true; }).get();
  }

  TemporaryFolder folder_;
  std::filesystem::path tall_ = folder_.path() / "tall.jpg";
  std::filesystem::path wide_ = folder_.path() / "wide.jpg";
  WorkPool pool_{1};
  QWidget window_;
  PictureBox box_{&window_};
  SubjectPicture picture_{box_, pool_, nullptr};
};

} // namespace

TEST_F(SubjectPictureTest, AnOlderPictureThatComesTooLateIsDropped) {
  picture_.show(tall_);
  letDecode();
  std::promise<void> gate;
  pool_.post([&] { gate.get_future().wait(); }, true);
  picture_.show(wide_);
  QCoreApplication::processEvents();
  EXPECT_FALSE(box_.hasPicture());
  gate.set_value();
  EXPECT_TRUE(waitFor([&] { return box_.isVisible(); }));
  EXPECT_GT(box_.width(), box_.height());
}

TEST_F(SubjectPictureTest, WhatIsHiddenBeforeItsPictureComesStaysHidden) {
  picture_.show(wide_);
  picture_.hide();
  letDecode();
  QCoreApplication::processEvents();
  EXPECT_FALSE(box_.isVisible());
}

} // namespace hearthbook::test
