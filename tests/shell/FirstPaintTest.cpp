#include "FirstPaint.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>

namespace hearthbook {
namespace {

class PaintedWindow : public QWidget {
public:
  int paints = 0;

protected:
  void paintEvent(QPaintEvent* /*event*/) override { ++paints; }
};

TEST(FirstPaint, TheWorkComesOnceAndBehindThePaint) {
  PaintedWindow window;
  int runs = 0;
  int paintsBefore = 0;
  afterFirstPaint(window, [&] {
    ++runs;
    paintsBefore = window.paints;
  });
  QCoreApplication::processEvents();
  EXPECT_EQ(runs, 0);

  window.show();
  ASSERT_TRUE(QTest::qWaitFor([&] { return runs > 0; }));
  EXPECT_GE(paintsBefore, 1);

  const int paints = window.paints;
  window.update();
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.paints > paints; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(runs, 1);
}

TEST(FirstPaint, AWindowThatIsNeverPaintedTakesTheWorkWithIt) {
  int runs = 0;
  {
    PaintedWindow window;
    afterFirstPaint(window, [&] { ++runs; });
  }
  QCoreApplication::processEvents();

  EXPECT_EQ(runs, 0);
}

} // namespace
} // namespace hearthbook
