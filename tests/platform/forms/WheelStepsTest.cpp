#include "WheelSteps.h"

#include <gtest/gtest.h>

namespace hearthbook {

namespace {

int turn(WheelSteps& wheel, int angle, int pixels = 0, int pixelsPerStep = 40) {
  const QWheelEvent event({}, {}, {0, pixels}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
  return wheel.take(event, pixelsPerStep);
}

TEST(WheelSteps, ANotchIsAStepAndUpIsAboveZero) {
  WheelSteps wheel;
  EXPECT_EQ(turn(wheel, 120), 1);
  EXPECT_EQ(turn(wheel, -120), -1);
  EXPECT_EQ(turn(wheel, 360), 3);
}

TEST(WheelSteps, PartsOfANotchAddUp) {
  WheelSteps wheel;
  for (int part = 0; part < 9; ++part)
    EXPECT_EQ(turn(wheel, 12), 0) << part;
  EXPECT_EQ(turn(wheel, 12), 1);
  EXPECT_EQ(turn(wheel, 12), 0);
}

TEST(WheelSteps, WherePixelsAreToldTheyCount) {
  WheelSteps wheel;
  EXPECT_EQ(turn(wheel, -120, -30), 0);
  EXPECT_EQ(turn(wheel, -120, -30), -1);
  EXPECT_EQ(turn(wheel, -120, -100), -3);
}

TEST(WheelSteps, AHandThatTurnsBackIsHeededAtOnce) {
  WheelSteps wheel;
  EXPECT_EQ(turn(wheel, 110), 0);
  EXPECT_EQ(turn(wheel, -110), 0);
  EXPECT_EQ(turn(wheel, -10), -1);
}

} // namespace

} // namespace hearthbook
