#include "ImgRatio.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

void expectAt(const TwipsRect& place, const TwipsRect& expected) {
  EXPECT_NEAR(place.left, expected.left, 1e-6);
  EXPECT_NEAR(place.top, expected.top, 1e-6);
  EXPECT_NEAR(place.width, expected.width, 1e-6);
  EXPECT_NEAR(place.height, expected.height, 1e-6);
}

TEST(FitImage, ALandscapePictureTakesTheFullWidthOfEachBox) {
  expectAt(FitImage({0, 0, 1090, 1090}, 1600, 1200, 1090, 1090), {0, 136.25, 1090, 817.5});
  expectAt(FitImage({0, 0, 3375, 3375}, 1600, 1200, 3375, 3375), {0, 421.875, 3375, 2531.25});
  expectAt(FitImage({0, 0, 5760, 5760}, 1600, 1200, 5760, 5760), {0, 720, 5760, 4320});
  expectAt(FitImage({0, 0, 8285, 6960}, 1600, 1200, 8285, 6960), {0, 373.125, 8285, 6213.75});
}

TEST(FitImage, APortraitPictureTakesTheFullHeightOfEachBox) {
  expectAt(FitImage({0, 0, 1090, 1090}, 1200, 1600, 1090, 1090), {136.25, 0, 817.5, 1090});
  expectAt(FitImage({0, 0, 3375, 3375}, 1200, 1600, 3375, 3375), {421.875, 0, 2531.25, 3375});
  expectAt(FitImage({0, 0, 5760, 5760}, 1200, 1600, 5760, 5760), {720, 0, 4320, 5760});
  expectAt(FitImage({0, 0, 8285, 6960}, 1200, 1600, 8285, 6960), {1532.5, 0, 5220, 6960});
}

TEST(FitImage, ASquarePictureCountsAsPortrait) {
  expectAt(FitImage({0, 0, 8285, 6960}, 500, 500, 8285, 6960), {662.5, 0, 6960, 6960});
}

TEST(FitImage, ANearlySquareLandscapePictureStandsTallerThanABoxThatIsNotSquare) {
  const TwipsRect place = FitImage({0, 0, 8285, 6960}, 1100, 1000, 8285, 6960);
  EXPECT_NEAR(place.width, 8285, 1e-6);
  EXPECT_NEAR(place.height, 8285 / 1.1, 1e-6);
  EXPECT_LT(place.top, 0);
  EXPECT_NEAR(place.top, (6960 - 8285 / 1.1) / 2, 1e-6);
}

TEST(FitImage, ASmallPictureIsEnlarged) {
  expectAt(FitImage({0, 0, 5760, 5760}, 64, 32, 5760, 5760), {0, 1440, 5760, 2880});
}

TEST(FitImage, ReturnsToTheBoxOfTheFitBefore) {
  TwipsRect place{300, 150, 5760, 5760};
  for (int i = 0; i < 3; ++i) {
    place = FitImage(place, 1600, 1200, 5760, 5760);
    expectAt(place, {300, 870, 5760, 4320});
    place = FitImage(place, 1200, 1600, 5760, 5760);
    expectAt(place, {1020, 150, 4320, 5760});
  }
}

TEST(FitImage, OnlyTheRatioOfThePicturesSidesCounts) {
  expectAt(FitImage({0, 0, 5760, 5760}, 24'000, 18'000, 5760, 5760),
           FitImage({0, 0, 5760, 5760}, 4, 3, 5760, 5760));
}

} // namespace
} // namespace hearthbook
