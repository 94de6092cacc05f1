#include "ZoomFixture.h"

#include "FileBytes.h"

namespace hearthbook::test {

namespace {

class ZoomShow : public ZoomFixture {
protected:
  static void start(const Zoom& zoom) { press(zoom, "Check1"); }
  static std::string caption(const Zoom& zoom) {
    return toUtf8(control<QCheckBox>(zoom, "Check1")->text());
  }
  void remove(const std::string& id) {
    photos().Find("PictureID = '" + id + "'", Recordset::Start::First);
    photos().Delete();
  }
};

} // namespace

TEST_F(ZoomShow, RestsAtFirstWithTwoSeconds) {
  const auto& zoom = openZoomOf(2);
  EXPECT_FALSE(timer(zoom).isActive());
  EXPECT_EQ(labelOf(zoom, "Label2"), "2 Sec.");
  EXPECT_EQ(bar(zoom, "VScroll2").value(), 2);
}

TEST_F(ZoomShow, TheSwitchStartsAndStopsTheTimerAndSaysWhatItWouldDo) {
  const auto& zoom = openZoomOf(2);
  start(zoom);
  EXPECT_EQ(caption(zoom), "Stop");
  EXPECT_TRUE(timer(zoom).isActive());
  EXPECT_EQ(timer(zoom).interval(), 2000);
  start(zoom);
  EXPECT_EQ(caption(zoom), "Slide");
  EXPECT_FALSE(timer(zoom).isActive());
}

TEST_F(ZoomShow, TheSecondsGoFromOneToTenAndChangeTheRunningShow) {
  const auto& zoom = openZoomOf(2);
  start(zoom);
  for (int seconds = 1; seconds <= 10; ++seconds) {
    bar(zoom, "VScroll2").setValue(seconds);
    EXPECT_EQ(labelOf(zoom, "Label2"), std::to_string(seconds) + " Sec.");
    EXPECT_EQ(timer(zoom).interval(), seconds * 1000);
  }
  bar(zoom, "VScroll2").setValue(11);
  EXPECT_EQ(labelOf(zoom, "Label2"), "10 Sec.");
}

TEST_F(ZoomShow, UpMeansFewerSeconds) {
  const auto& zoom = openZoomOf(2);
  bar(zoom, "VScroll2").setFocus();
  QTest::keyClick(&bar(zoom, "VScroll2"), Qt::Key_Up);
  EXPECT_EQ(labelOf(zoom, "Label2"), "1 Sec.");
}

TEST_F(ZoomShow, ChangingTheSecondsOfARestingShowStartsNothing) {
  const auto& zoom = openZoomOf(2);
  bar(zoom, "VScroll2").setValue(5);
  EXPECT_FALSE(timer(zoom).isActive());
  start(zoom);
  EXPECT_EQ(timer(zoom).interval(), 5000);
}

TEST_F(ZoomShow, GoesRoundWithOneTickWithoutAChange) {
  const auto& zoom = openZoomOf(2);
  tick(zoom);
  EXPECT_EQ(position(zoom), "2 Of 2");
  tick(zoom);
  EXPECT_EQ(position(zoom), "2 Of 2");
  tick(zoom);
  EXPECT_EQ(position(zoom), "1 Of 2");
}

TEST_F(ZoomShow, ATickWaitsForThePhotoOfTheOneBefore) {
  const auto& zoom = openZoomOf(4);
  start(zoom);
  const auto freePool = holdPool();
  writePhoto(2, 300, 200);
  tickAtOnce(zoom);
  tickAtOnce(zoom);
  tickAtOnce(zoom);
  EXPECT_EQ(position(zoom), "2 Of 4");
  freePool();
  settleZoom();
  EXPECT_EQ(pixels(zoom), QSize(300, 200));
  tick(zoom);
  EXPECT_EQ(position(zoom), "3 Of 4");
}

TEST_F(ZoomShow, RunsByItself) {
  const auto& zoom = openZoomOf(2);
  bar(zoom, "VScroll2").setValue(1);
  start(zoom);
  waitUntil([&] { return position(zoom) == "2 Of 2"; });
  EXPECT_TRUE(timer(zoom).isActive());
}

TEST_F(ZoomShow, PreviousInTheTickWithoutAChangeIsTheOneBeforeTheLast) {
  const auto& zoom = openZoomOf(3, 3);
  tick(zoom);
  press(zoom, "Command3");
  EXPECT_EQ(position(zoom), "2 Of 3");
}

TEST_F(ZoomShow, RowsDeletedMeanwhileAreLeftOut) {
  const auto& zoom = openZoomOf(5);
  start(zoom);
  remove("HD00002");
  tick(zoom);
  EXPECT_EQ(vars().ImagePath.filename(), "00003.jpg");
  remove("HD00003");
  remove("HD00005");
  tick(zoom);
  EXPECT_EQ(vars().ImagePath.filename(), "00004.jpg");
  tick(zoom);
  tick(zoom);
  EXPECT_EQ(position(zoom), "1 Of 2");
}

TEST_F(ZoomShow, EndsWhereNothingIsLeft) {
  const auto& zoom = openZoomOf(2);
  start(zoom);
  remove("HD00001");
  remove("HD00002");
  tick(zoom);
  EXPECT_FALSE(timer(zoom).isActive());
  EXPECT_EQ(caption(zoom), "Slide");
}

TEST_F(ZoomShow, FilesDeletedMeanwhileAreStoodIn) {
  const auto& zoom = openZoomOf(2);
  std::filesystem::remove(at("Photos/00002.jpg"));
  tick(zoom);
  EXPECT_TRUE(photo(zoom).hasPicture());
  EXPECT_FALSE(vars().ImagePicture.found);
}

TEST_F(ZoomShow, ABrokenPhotoIsToldAndTheShowGoesOn) {
  addPhotosUpTo(3);
  writeBytes(at("Photos/00002.jpg"), "no photo at all");
  const auto& zoom = openZoom();
  start(zoom);
  expectTryAgain();
  tick(zoom);
  waitUntil([&] { return boxes_.isDone(); });
  EXPECT_TRUE(timer(zoom).isActive());
  tick(zoom);
  EXPECT_EQ(position(zoom), "3 Of 3");
}

TEST_F(ZoomShow, AnErrorInATickIsToldAndTheTimerStaysOn) {
  const auto& zoom = openZoomOf(2);
  start(zoom);
  slides().Close();
  expectTryAgain();
  tick(zoom);
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_TRUE(timer(zoom).isActive());
}

TEST_F(ZoomShow, TheViewMayCloseWhileAPhotoOfATickIsOnItsWay) {
  const auto& zoom = openZoomOf(3);
  start(zoom);
  const auto freePool = holdPool();
  tickAtOnce(zoom);
  FormControls::press(zoom, "Command1");
  freePool();
  QCoreApplication::processEvents();
  EXPECT_EQ(Forms::loaded<Zoom>(), nullptr);
}

TEST_F(ZoomShow, TheViewMayCloseInTheMiddleOfATicksMessage) {
  auto& zoom = openZoomOf(2);
  slides().Close();
  class Closing : public BoxPlayer {
  public:
    MsgAnswer message(const QString&, const QString&, MsgIcon, MsgButtons) override {
      Forms::get<Zoom>().Unload();
      QCoreApplication::processEvents();
      return MsgAnswer::Ok;
    }
    QString input(const QString&, const QString&, const QString&) override { return {}; }
  } closing;
  BoxPlayer* former = BoxPlayer::install(&closing);
  tickAtOnce(zoom);
  BoxPlayer::install(former);
  EXPECT_EQ(Forms::loaded<Zoom>(), nullptr);
  QCoreApplication::processEvents();
}

TEST_F(ZoomShow, WhatComesNextIsDecodedAhead) {
  addPhotosUpTo(4);
  const auto& zoom = openZoom();
  awaitPicturesAhead();
  const auto freePool = holdPool();
  FormControls::press(zoom, "Command2"); // nothing can be decoded now
  EXPECT_FALSE(zoom.isWaitingForPicture());
  freePool();
}

} // namespace hearthbook::test
