#include "LargePhoto.h"

#include "Look.h"
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

TEST(LargePhoto, ANoteStandsAtItsFootAndUnderTheMouse) {
  LargePhoto photo;
  photo.setPicture(corners({300, 200}));
  photo.resize(300, 200);
  photo.setNote(QStringLiteral("The picture cannot be read: it ends too early."));
  EXPECT_EQ(photo.grab().toImage().pixelColor(1, 198), look::panelYellow);
  EXPECT_NE(photo.grab().toImage().pixelColor(1, 1), look::panelYellow);
  EXPECT_EQ(photo.toolTip(), photo.note());
  photo.setNote({});
  EXPECT_NE(photo.grab().toImage().pixelColor(1, 198), look::panelYellow);
}

} // namespace hearthbook::test
