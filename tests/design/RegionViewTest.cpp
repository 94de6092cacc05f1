#include "DesignerFixture.h"

#include "FileBytes.h"
#include "TestPictures.h"

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>

namespace hearthbook::test {

namespace {

class RegionViewTest : public DesignerFixture {
protected:
  /// The marking of a photo of that size.
  RegionView& mark(PixelSize photo) {
    addPhotosOf("Clara", 2);
    writeBytes(at("Photos/00002.jpg"), jpegOf(corners(photo)));
    auto& designer = open();
    bringPhoto(designer, "Bride", "Clara");
    return region(designer);
  }
  static QPointF middleOf(const RegionView& view) { return QRectF(view.rect()).center(); }
  static double scaleOf(const RegionView& view) {
    return (view.toView({100, 0}) - view.toView({0, 0})).x() / 100;
  }
  static void turn(RegionView& view, QPoint angle, QPointF place) {
    QWheelEvent event(place, view.mapToGlobal(place), {}, angle, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &event);
  }
  static std::uint32_t colourAt(RegionView& view, PhotoPoint point) {
    return view.grab().toImage().pixel(view.toView(point).toPoint());
  }
};

TEST_F(RegionViewTest, KeysMoveTheRegionAndMakeItSmallerAndLarger) {
  addPhotosOf("Clara", 2);
  writeBytes(at("Photos/00002.jpg"), jpegOf(corners({800, 800})));
  auto& designer = open();
  bringPhoto(designer, "Bride", "Clara");
  auto& view = region(designer);
  const PixelRect whole = view.region();
  EXPECT_EQ(whole.height, 800);
  QTest::keyClick(&view, Qt::Key_Minus);
  EXPECT_LT(view.region().width, whole.width);
  const PixelRect smaller = view.region();
  QTest::keyClick(&view, Qt::Key_Left);
  EXPECT_LT(view.region().left, smaller.left);
  QTest::keyClick(&view, Qt::Key_Down);
  EXPECT_GT(view.region().top, smaller.top);
  QTest::keyClick(&view, Qt::Key_Plus);
  EXPECT_GT(view.region().width, smaller.width);
}

TEST_F(RegionViewTest, AnEnlargedPhotoIsMovedByItsBars) {
  addPhotosOf("Clara", 2);
  writeBytes(at("Photos/00002.jpg"), jpegOf(corners({1600, 1200})));
  auto& designer = open();
  bringPhoto(designer, "Bride", "Clara");
  auto& view = region(designer);
  auto* across = control<QScrollBar>(designer, "HScroll2");
  auto* down = control<QScrollBar>(designer, "VScroll2");
  EXPECT_FALSE(across->isEnabled());
  view.enlarge(4, middleOf(view));
  EXPECT_TRUE(across->isEnabled());
  EXPECT_TRUE(down->isEnabled());
  const QPointF before = view.toView({800, 600});
  across->setValue(across->value() + 40);
  down->setValue(down->value() - 30);
  EXPECT_EQ(view.toView({800, 600}) - before, QPointF(-40, 30));
  view.enlarge(0.01, middleOf(view));
  EXPECT_FALSE(across->isEnabled());
}

TEST_F(RegionViewTest, TheWheelEnlargesWhereTheMouseIs) {
  auto& view = mark({1600, 1200});
  view.enlarge(3, middleOf(view));
  const QPointF mouse(70, 90);
  const QPointF corner = view.toView({0, 0});
  const double scale = scaleOf(view);
  turn(view, {0, 120}, mouse);
  EXPECT_NEAR(scaleOf(view), scale * 1.1, scale / 1000);
  const QPointF kept = mouse + (corner - mouse) * 1.1;
  EXPECT_NEAR(view.toView({0, 0}).x(), kept.x(), 1);
  EXPECT_NEAR(view.toView({0, 0}).y(), kept.y(), 1);
}

TEST_F(RegionViewTest, ATouchPadEnlargesByAsMuchAsItIsMoved) {
  auto& view = mark({1600, 1200});
  const double scale = scaleOf(view);
  for (int part = 0; part < 10; ++part)
    turn(view, {0, 12}, middleOf(view));
  EXPECT_NEAR(scaleOf(view), scale * 1.1, scale / 1000);
  turn(view, {-120, 0}, middleOf(view));
  EXPECT_NEAR(scaleOf(view), scale * 1.1, scale / 1000);
}

TEST_F(RegionViewTest, CtrlWithPlusAndMinusEnlargeThePhotoAndNotTheRegion) {
  auto& view = mark({1600, 1200});
  const double scale = scaleOf(view);
  const PixelRect region = view.region();
  QTest::keyClick(&view, Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_GT(scaleOf(view), scale);
  QTest::keyClick(&view, Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_NEAR(scaleOf(view), scale, scale / 1000);
  EXPECT_EQ(view.region(), region);
}

TEST_F(RegionViewTest, ShowsTheSamePlacesAtEverySizeAndWhereverItIsMoved) {
  auto& view = mark({1600, 1200});
  const auto expectColours = [&view](const char* when) {
    EXPECT_LT(distance(colourAt(view, {790, 590}), red), 40) << when;
    EXPECT_LT(distance(colourAt(view, {810, 590}), green), 40) << when;
    EXPECT_LT(distance(colourAt(view, {790, 610}), blue), 40) << when;
    EXPECT_LT(distance(colourAt(view, {810, 610}), white), 40) << when;
  };
  expectColours("whole");
  view.enlarge(2.5, middleOf(view));
  expectColours("enlarged");
  view.enlarge(3, middleOf(view));
  expectColours("beyond its own pixels");
  auto* across = control<QScrollBar>(*Forms::loaded<ExportDesigner>(), "HScroll2");
  across->setValue(across->value() + 50);
  expectColours("moved");
}

TEST_F(RegionViewTest, WhatDoesNotGoIntoTheBoxIsDimmed) {
  auto& view = mark({1600, 400});
  EXPECT_LT(distance(colourAt(view, {700, 100}), red), 8);
  EXPECT_GT(distance(colourAt(view, {100, 100}), red), 60);
}

} // namespace

} // namespace hearthbook::test
