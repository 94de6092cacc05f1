#include "Corrections.h"

#include "RunTimeError.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace hearthbook {
namespace {

using namespace test;

void expectCorners(const Picture& picture, std::uint32_t topLeft, std::uint32_t topRight,
                   std::uint32_t bottomLeft, std::uint32_t bottomRight) {
  const auto* top = picture.row(0);
  const auto* bottom = picture.row(picture.height() - 1);
  EXPECT_EQ(top[0], topLeft);
  EXPECT_EQ(top[picture.width() - 1], topRight);
  EXPECT_EQ(bottom[0], bottomLeft);
  EXPECT_EQ(bottom[picture.width() - 1], bottomRight);
}

bool same(const Picture& a, const Picture& b) {
  if (a.size() != b.size())
    return false;
  for (int y = 0; y < a.height(); ++y)
    if (!std::equal(a.row(y), a.row(y) + a.width(), b.row(y)))
      return false;
  return true;
}

TEST(Rotate, LeftIsAgainstTheClock) {
  const Picture left = rotated(corners({70, 40}), 90);
  EXPECT_EQ(left.size(), (PixelSize{40, 70}));
  expectCorners(left, green, white, red, blue);
}

TEST(Rotate, RightIsWithTheClock) {
  const Picture right = rotated(corners({70, 40}), -90);
  EXPECT_EQ(right.size(), (PixelSize{40, 70}));
  expectCorners(right, blue, red, white, green);
}

TEST(Rotate, FlipIsAHalfTurnAndMirrorsNothing) {
  const Picture flipped = rotated(corners({70, 40}), 180);
  EXPECT_EQ(flipped.size(), (PixelSize{70, 40}));
  expectCorners(flipped, white, blue, green, red);
}

TEST(Rotate, RightAnglesMovePixelsAsTheyAreAndCanBeUndone) {
  for (const PixelSize size : {PixelSize{123, 77}, {32, 32}, {1, 90}, {1, 1}}) {
    const Picture picture = grainy(size);
    EXPECT_TRUE(same(rotated(rotated(picture, 90), -90), picture));
    EXPECT_TRUE(same(rotated(rotated(picture, 180), 180), picture));
    EXPECT_TRUE(same(rotated(rotated(picture, 90), 90), rotated(picture, 180)));
    EXPECT_TRUE(same(rotated(picture, 270), rotated(picture, -90)));
    EXPECT_TRUE(same(rotated(picture, -3600 + 90), rotated(picture, 90)));
  }
}

TEST(Rotate, AWholeTurnSharesThePixels) {
  const Picture picture = grainy({20, 20});
  EXPECT_EQ(rotated(picture, 0).share(), picture.share());
  EXPECT_EQ(rotated(picture, 360).share(), picture.share());
}

TEST(Rotate, AnyAngleHoldsTheWholePictureOnPaper) {
  const Picture result = rotated(plain({200, 100}, 0xff0a1428), 30);
  EXPECT_EQ(result.width(), static_cast<int>(std::ceil(200 * std::sqrt(3) / 2 + 50)));
  EXPECT_EQ(result.height(), static_cast<int>(std::ceil(100 * std::sqrt(3) / 2 + 100)));
  expectCorners(result, white, white, white, white);
  EXPECT_EQ(result.row(result.height() / 2)[result.width() / 2], 0xff0a1428);
}

TEST(Rotate, NoLightIsLostOnTheWay) {
  const Picture result = rotated(plain({200, 100}, 0xff000000), 17);
  double dark = 0;
  for (int y = 0; y < result.height(); ++y)
    for (int x = 0; x < result.width(); ++x)
      dark += 1 - (result.row(y)[x] & 0xffU) / 255.0;
  EXPECT_NEAR(dark, 200 * 100, 200);
}

TEST(Rotate, ALittleToTheLeftLiftsTheRightSide) {
  Picture level({201, 101});
  for (int y = 0; y < 101; ++y)
    std::fill_n(level.writableRow(y), 201, y < 50 ? white : 0xff000000);
  const Picture result = rotated(level, 5);
  const auto darkFrom = [&](int x) {
    int y = result.height() / 2 - 30;
    while ((result.row(y)[x] & 0xffU) > 127)
      ++y;
    return y;
  };
  EXPECT_NEAR(darkFrom(50) - darkFrom(150), 100 * std::tan(5 * std::numbers::pi / 180), 1.5);
}

TEST(Rotate, ThereAndBackAgainIsNearlyThePicture) {
  const Picture picture = corners({101, 101});
  const Picture back = rotated(rotated(picture, 12), -12);
  const int x = back.width() / 2;
  const int y = back.height() / 2;
  EXPECT_LE(distance(back.row(y - 25)[x - 25], red), 2);
  EXPECT_LE(distance(back.row(y - 25)[x + 25], green), 2);
  EXPECT_LE(distance(back.row(y + 25)[x - 25], blue), 2);
  EXPECT_LE(distance(back.row(y + 25)[x + 25], white), 2);
}

TEST(Rotate, EveryAngleOfEverySmallPictureWorks) {
  for (const PixelSize size : {PixelSize{1, 1}, {2, 1}, {1, 7}, {5, 5}})
    for (double degrees = -181; degrees < 182; degrees += 3.7)
      EXPECT_FALSE(rotated(grainy(size), degrees).isNull());
}

TEST(Rotate, WhatIsTooLargeOrNoAngleIsRefused) {
  EXPECT_THROW(rotated(plain({60'000, 1}, red), 45), RunTimeError) << "1,800 megapixels of paper";
  EXPECT_THROW(rotated(plain({3, 3}, red), std::nan("")), RunTimeError);
  EXPECT_THROW(rotated(plain({3, 3}, red), std::numeric_limits<double>::infinity()), RunTimeError);
}

} // namespace
} // namespace hearthbook
