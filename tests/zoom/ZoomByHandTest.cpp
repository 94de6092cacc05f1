#include "ZoomFixture.h"

#include <QApplication>
#include <QWheelEvent>

#include <memory>
#include <tuple>

namespace hearthbook::test {

namespace {

/// The photo under a wheel and under two fingers.
class ZoomByHand : public ZoomFixture {
protected:
  /// Two fingers on the middle of the photo that go from one distance to another.
  void pinch(LargePhoto& photo, int from, int to) {
    const QPoint middle(200, 150);
    const auto fingers = [&](int distance) {
      return std::pair{middle - QPoint(distance / 2, 0), middle + QPoint(distance / 2, 0)};
    };
    auto [left, right] = fingers(from);
    QTest::touchEvent(&photo, pad_.get()).press(0, left, &photo).press(1, right, &photo);
    constexpr int moves = 10;
    for (int move = 1; move <= moves; ++move) {
      std::tie(left, right) = fingers(from + (to - from) * move / moves);
      QTest::touchEvent(&photo, pad_.get()).move(0, left, &photo).move(1, right, &photo);
    }
    QTest::touchEvent(&photo, pad_.get()).release(0, left, &photo).release(1, right, &photo);
    settleZoom();
  }
  /// As a hand turns it, over the middle of the control.
  static void wheel(QWidget& control, int angle) {
    const QPointF place(control.rect().center());
    QWheelEvent event(place, control.mapToGlobal(place), {}, {0, angle}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event); // others do not go on to the panel
    QApplication::instance()->notify(&control, &event);
    settleZoom();
  }

  std::unique_ptr<QPointingDevice> pad_{QTest::createTouchDevice()};
};

} // namespace

TEST_F(ZoomByHand, TheWheelZoomsAboutTheMouse) {
  const auto& zoom = openPhoto(1200, 900);
  wheel(photo(zoom), 60);
  EXPECT_NEAR(photoRect(zoom).width, 8285, 0.01);
  wheel(photo(zoom), 60);
  EXPECT_NEAR(photoRect(zoom).width, 8285 * 1.5, 0.01);
  EXPECT_NEAR(photoRect(zoom).left + photoRect(zoom).width / 2, 8285 / 2.0, 20);
  wheel(photo(zoom), -120);
  EXPECT_NEAR(photoRect(zoom).width, 8285, 0.01);
}

TEST_F(ZoomByHand, AWheelThatTurnsBackIsHeededAtOnce) {
  const auto& zoom = openPhoto(1200, 900);
  wheel(photo(zoom), 60);
  wheel(photo(zoom), -120);
  EXPECT_NEAR(photoRect(zoom).width, 8285 / 1.5, 0.01);
}

TEST_F(ZoomByHand, TheWheelBesideASmallPhotoZoomsToo) {
  const auto& zoom = openPhoto(100, 80);
  auto& panel = *control(zoom, "Picture2");
  ASSERT_FALSE(photo(zoom).geometry().contains(panel.rect().center()));
  wheel(panel, 120);
  EXPECT_NEAR(photoRect(zoom).width, 1500 * 1.5, 0.01);
}

TEST_F(ZoomByHand, TheWheelOverNoPhotoDoesNothing) {
  auto& zoom = openZoom();
  zoom.ComposeZoomView(); // behind the end
  const auto before = photoRect(zoom);
  wheel(*control(zoom, "Picture2"), 120);
  expectPlace(photoRect(zoom), before);
}

TEST_F(ZoomByHand, TwoFingersZoomAStepWhenTheyHaveGoneFarEnough) {
  const auto& zoom = openPhoto(1200, 900);
  pinch(photo(zoom), 100, 130);
  EXPECT_NEAR(photoRect(zoom).width, 8285, 0.01);
  pinch(photo(zoom), 100, 180);
  EXPECT_NEAR(photoRect(zoom).width, 8285 * 1.5, 0.01);
  pinch(photo(zoom), 180, 100);
  EXPECT_NEAR(photoRect(zoom).width, 8285, 0.01);
}

} // namespace hearthbook::test
