#include "PhotoLevels.h"

#include "TestPictures.h"

#include <gtest/gtest.h>

namespace hearthbook {

namespace {

using test::corners;
using test::distance;

TEST(PhotoLevels, TheSmallestThatIsWideEnoughIsPainted) {
  const PhotoLevels levels(corners({4000, 2400}));
  EXPECT_EQ(levels.atLeast(4000).size(), (PixelSize{4000, 2400}));
  EXPECT_EQ(levels.atLeast(2000.5).size(), (PixelSize{4000, 2400}));
  EXPECT_EQ(levels.atLeast(2000).size(), (PixelSize{2000, 1200}));
  EXPECT_EQ(levels.atLeast(700).size(), (PixelSize{1000, 600}));
  EXPECT_EQ(levels.atLeast(10).size(), (PixelSize{500, 300}));
}

TEST(PhotoLevels, BeyondItsOwnPixelsThePhotoIsStretched) {
  EXPECT_EQ(PhotoLevels(corners({400, 300})).atLeast(9000).size(), (PixelSize{400, 300}));
}

TEST(PhotoLevels, EachShowsTheSame) {
  const PhotoLevels levels(corners({1200, 1200}));
  const Picture& small = levels.atLeast(300);
  ASSERT_EQ(small.size(), (PixelSize{300, 300}));
  EXPECT_LT(distance(small.row(10)[10], test::red), 3);
  EXPECT_LT(distance(small.row(10)[290], test::green), 3);
  EXPECT_LT(distance(small.row(290)[10], test::blue), 3);
}

TEST(PhotoLevels, OfNoPhotoThereIsNone) {
  EXPECT_TRUE(PhotoLevels().photo().isNull());
  EXPECT_TRUE(PhotoLevels().atLeast(5).isNull());
  EXPECT_TRUE(PhotoLevels(Picture()).photo().isNull());
}

} // namespace

} // namespace hearthbook
