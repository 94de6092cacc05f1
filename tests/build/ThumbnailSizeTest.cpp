#include "ThumbnailSize.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

TEST(ThumbnailSize, TheLongerSideIs73AndTheOtherInProportion) {
  EXPECT_EQ(thumbnailSize({1600, 1200}), (PixelSize{73, 55})); // 54.75
  EXPECT_EQ(thumbnailSize({1200, 1600}), (PixelSize{55, 73}));
  EXPECT_EQ(thumbnailSize({500, 500}), (PixelSize{73, 73}));
  EXPECT_EQ(thumbnailSize({10, 5}), (PixelSize{73, 36})); // 36.5 to the even one
}

TEST(ThumbnailSize, AThreadOfAPictureKeepsOnePixel) {
  EXPECT_EQ(thumbnailSize({1, 10'000}), (PixelSize{1, 73}));
}

TEST(ReducedSize, OnePixelOfWidthGoesForEach1000BytesAboveTheLimit) {
  EXPECT_EQ(reducedSize({1600, 1200}, 1'000'000), (PixelSize{900, 675}));
}

TEST(ReducedSize, OneByteAboveTheLimitLeavesTheSize) {
  EXPECT_EQ(reducedSize({1600, 1200}, 300'001), (PixelSize{1600, 1200}));
}

TEST(ReducedSize, TheHeightFollowsTheUnroundedWidth) {
  // 1000 - 0.5 = 999.5 becomes 1000; the height is 2000 * 0.9995 = 1999.
  EXPECT_EQ(reducedSize({1000, 2000}, 300'500), (PixelSize{1000, 1999}));
}

TEST(ReducedSize, ATooLargeFileLeavesNoWidth) {
  EXPECT_EQ(reducedSize({700, 500}, 1'000'000), (PixelSize{0, 0}));
  EXPECT_LT(reducedSize({600, 500}, 1'000'000).width, 0);
}

} // namespace
} // namespace hearthbook
