#include "PhotoRegion.h"

#include <gtest/gtest.h>

#include <ostream>

namespace hearthbook {

inline void PrintTo(const PixelRect& rect, std::ostream* out) {
  *out << rect.left << "," << rect.top << " " << rect.width << "x" << rect.height;
}

namespace {

constexpr PixelSize photo{1200, 800};
constexpr PixelSize square{100, 100};
constexpr PixelSize portrait{150, 300};

TEST(PhotoRegion, BeginsAsLargeAsThePhotoAllowsInItsMiddle) {
  EXPECT_EQ(wholeRegion(photo, square), (PixelRect{200, 0, 800, 800}));
  EXPECT_EQ(wholeRegion(photo, portrait), (PixelRect{400, 0, 400, 800}));
  EXPECT_EQ(wholeRegion({800, 1200}, square), (PixelRect{0, 200, 800, 800}));
}

TEST(PhotoRegion, IsDrawnInEveryDirection) {
  EXPECT_EQ(drawnRegion({100, 100}, {300, 300}, photo, square), (PixelRect{100, 100, 200, 200}));
  EXPECT_EQ(drawnRegion({300, 300}, {100, 100}, photo, square), (PixelRect{100, 100, 200, 200}));
  EXPECT_EQ(drawnRegion({300, 100}, {100, 300}, photo, square), (PixelRect{100, 100, 200, 200}));
}

TEST(PhotoRegion, KeepsTheProportionsOfTheBoxHoweverItIsDrawn) {
  EXPECT_EQ(drawnRegion({0, 0}, {300, 20}, photo, square), (PixelRect{0, 0, 300, 300}));
  EXPECT_EQ(drawnRegion({0, 0}, {20, 300}, photo, square), (PixelRect{0, 0, 300, 300}));
  EXPECT_EQ(drawnRegion({0, 0}, {100, 100}, photo, portrait), (PixelRect{0, 0, 100, 200}));
}

TEST(PhotoRegion, EndsWhereThePhotoEnds) {
  EXPECT_EQ(drawnRegion({1000, 100}, {5000, 200}, photo, square), (PixelRect{1000, 100, 200, 200}));
}

TEST(PhotoRegion, BeginsWhereTheMouseComesOntoThePhoto) {
  EXPECT_EQ(drawnRegion({-50, -50}, {90, 90}, photo, square), (PixelRect{0, 0, 90, 90}));
  EXPECT_EQ(drawnRegion({-50, 100}, {90, 120}, photo, square), (PixelRect{0, 100, 90, 90}));
  EXPECT_EQ(drawnRegion({1250, 850}, {1100, 780}, photo, square), (PixelRect{1100, 700, 100, 100}));
}

TEST(PhotoRegion, OfAMouseThatWentNowhereIsNone) {
  EXPECT_TRUE(drawnRegion({100, 100}, {100, 100}, photo, square).isEmpty());
  EXPECT_TRUE(drawnRegion({100, 100}, {103, 102}, photo, square).isEmpty());
  EXPECT_TRUE(drawnRegion({1200, 800}, {1900, 900}, photo, square).isEmpty());
  EXPECT_TRUE(drawnRegion({-80, -80}, {-20, -20}, photo, square).isEmpty());
}

TEST(PhotoRegion, IsMovedAsFarAsThePhotoReaches) {
  const PixelRect region{100, 100, 200, 200};
  EXPECT_EQ(movedRegion(region, 10, -10, photo), (PixelRect{110, 90, 200, 200}));
  EXPECT_EQ(movedRegion(region, -500, 5000, photo), (PixelRect{0, 600, 200, 200}));
}

TEST(PhotoRegion, GrowsAndShrinksAroundItsMiddle) {
  const PixelRect region{400, 300, 200, 200};
  EXPECT_EQ(scaledRegion(region, 2, photo, square), (PixelRect{300, 200, 400, 400}));
  EXPECT_EQ(scaledRegion(region, 0.5, photo, square), (PixelRect{450, 350, 100, 100}));
  EXPECT_EQ(scaledRegion(region, 100, photo, square).size(), (PixelSize{800, 800}));
  EXPECT_FALSE(scaledRegion(region, 0, photo, square).isEmpty());
}

TEST(PhotoRegion, StandsOnATinyPhotoToo) {
  EXPECT_EQ(wholeRegion({1, 1}, portrait).width, 1);
  EXPECT_EQ(wholeRegion({3, 400}, square), (PixelRect{0, 198, 3, 3}));
}

} // namespace

} // namespace hearthbook
