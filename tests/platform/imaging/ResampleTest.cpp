#include "Resample.h"

#include "RunTimeError.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

using namespace test;

Picture rowOf(std::initializer_list<std::uint32_t> greys) {
  Picture picture({static_cast<int>(greys.size()), 1});
  std::uint32_t* row = picture.writableRow(0);
  for (const std::uint32_t grey : greys)
    *row++ = 0xff000000U | grey * 0x010101U;
  return picture;
}

TEST(Resample, ShrinkingAveragesByTheAreaCovered) {
  // Three pixels into two: each new one is a whole old one and half of the middle one.
  const Picture result = resample(rowOf({0, 90, 240}), {2, 1});
  EXPECT_EQ(result.row(0)[0], 0xff1e1e1eU); // (0 + 90/2) / 1.5 = 30
  EXPECT_EQ(result.row(0)[1], 0xffbebebeU); // (90/2 + 240) / 1.5 = 190
}

TEST(Resample, ShrinkingDownTheColumnsAveragesToo) {
  Picture column({1, 4});
  column.writableRow(3)[0] = 0xffffffff;
  EXPECT_EQ(resample(column, {1, 1}).row(0)[0], 0xff404040U);
}

TEST(Resample, EnlargingBlendsBetweenNeighbours) {
  const Picture result = resample(rowOf({0, 100}), {4, 1});
  EXPECT_EQ(result.row(0)[0], 0xff000000U);
  EXPECT_EQ(result.row(0)[1], 0xff191919U); // 25
  EXPECT_EQ(result.row(0)[2], 0xff4b4b4bU); // 75
  EXPECT_EQ(result.row(0)[3], 0xff646464U);
}

TEST(Resample, APlainPictureStaysPlainAtEverySize) {
  const Picture grey = plain({97, 61}, 0xffc8641e);
  for (const PixelSize size : {PixelSize{1, 1}, {13, 60}, {96, 7}, {200, 33}, {300, 300}}) {
    const Picture result = resample(grey, size);
    for (int y = 0; y < size.height; ++y)
      for (int x = 0; x < size.width; ++x)
        ASSERT_EQ(result.row(y)[x], 0xffc8641eU) << x << "," << y;
  }
}

TEST(Resample, ToNothingOrOfNothingIsRefused) {
  EXPECT_THROW(resample(plain({4, 4}, red), {0, 4}), RunTimeError);
  EXPECT_THROW(resample(plain({4, 4}, red), {4, -3}), RunTimeError);
  EXPECT_THROW(resample(plain({4, 4}, red), {60'000, 60'000}), RunTimeError);
  EXPECT_THROW(resample(Picture(), {4, 4}), RunTimeError);
}

TEST(Resample, FittingRoundsTheOtherSideHalfToEven) {
  EXPECT_EQ(sizeWithin({1600, 1200}, 73), (PixelSize{73, 55})); // 54.75
  EXPECT_EQ(sizeWithin({1200, 1600}, 73), (PixelSize{55, 73}));
  EXPECT_EQ(sizeWithin({20, 10}, 5), (PixelSize{5, 2})); // 2.5
  EXPECT_EQ(sizeWithin({20, 10}, 7), (PixelSize{7, 4})); // 3.5
  EXPECT_EQ(sizeWithin({10, 10}, 7), (PixelSize{7, 7}));
}

TEST(Resample, FittingAThreadLeavesOnePixel) {
  EXPECT_EQ(sizeWithin({1, 10'000}, 73), (PixelSize{1, 73}));
}

TEST(Resample, WhatIsLargerThanTheMostIsShrunkInItsProportions) {
  EXPECT_EQ(sizeOfAtMost(4e6, {2000, 2000}), (PixelSize{2000, 2000}));
  EXPECT_EQ(sizeOfAtMost(4e6, {8000, 2000}), (PixelSize{4000, 1000}));
  EXPECT_EQ(sizeOfAtMost(100, {1, 10'000}), (PixelSize{1, 1000})) << "a thread stays one wide";
}

TEST(Resample, EveryOrientationIsPutUpright) {
  // Where the stored red, green, blue and white corners stand once upright.
  struct Expected {
    std::uint32_t topLeft, topRight, bottomLeft, bottomRight;
  };
  const Expected expected[] = {{red, green, blue, white}, {green, red, white, blue},
                               {white, blue, green, red}, {blue, white, red, green},
                               {red, blue, green, white}, {blue, red, white, green},
                               {white, green, blue, red}, {green, white, red, blue}};
  const Picture stored = corners({70, 40});
  for (int orientation = 1; orientation <= 8; ++orientation) {
    const Picture upright = uprighted(stored, orientation);
    ASSERT_EQ(upright.size(), (orientation < 5 ? PixelSize{70, 40} : PixelSize{40, 70}));
    const auto& wanted = expected[orientation - 1];
    const auto* top = upright.row(0);
    const auto* bottom = upright.row(upright.height() - 1);
    EXPECT_EQ(top[0], wanted.topLeft) << orientation;
    EXPECT_EQ(top[upright.width() - 1], wanted.topRight) << orientation;
    EXPECT_EQ(bottom[0], wanted.bottomLeft) << orientation;
    EXPECT_EQ(bottom[upright.width() - 1], wanted.bottomRight) << orientation;
  }
}

} // namespace
} // namespace hearthbook
