#include "LargePhoto.h"

#include "TestPictures.h"

#include <gtest/gtest.h>

#include <QImage>

#include <algorithm>
#include <array>

namespace hearthbook::test {

namespace {

/// Where the four colours of a photo meet, stretched over three million pixels: whether one of
/// them is seen, or something between them.
bool isRoughInTheMiddle(LargePhoto& photo) {
  photo.resize(2000, 1500);
  const QRgb middle = photo.grab().toImage().pixel(1000, 750);
  return std::ranges::any_of(std::array{red, green, blue, white},
                             [&](auto colour) { return distance(middle, colour) < 30; });
}

} // namespace

TEST(LargePhoto, IsStretchedSmoothlyWhereNoFinerPixelsCome) {
  LargePhoto photo;
  photo.setPicture(corners({4, 4}));
  EXPECT_FALSE(isRoughInTheMiddle(photo));
}

TEST(LargePhoto, IsStretchedRoughlyUntilTheFinerPixelsCome) {
  LargePhoto photo;
  photo.setPicture(corners({4, 4}));
  photo.expectFiner(true);
  EXPECT_TRUE(isRoughInTheMiddle(photo));
  photo.expectFiner(false);
  EXPECT_FALSE(isRoughInTheMiddle(photo));
}

} // namespace hearthbook::test
