#include "Regions.h"

#include "RunTimeError.h"
#include "TestPictures.h"
#include "WorkPool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace hearthbook {
namespace {

using namespace test;

void expectSame(const Picture& a, const Picture& b) {
  ASSERT_EQ(a.size(), b.size());
  for (int y = 0; y < a.height(); ++y)
    ASSERT_TRUE(std::equal(a.row(y), a.row(y) + a.width(), b.row(y))) << "row " << y;
}

TEST(Regions, ARegionBeyondTheEdgesIsCutThere) {
  const PixelSize size{100, 60};
  EXPECT_EQ(cutTo({10, 20, 30, 10}, size), (PixelRect{10, 20, 30, 10}));
  EXPECT_EQ(cutTo({-5, -5, 20, 20}, size), (PixelRect{0, 0, 15, 15}));
  EXPECT_EQ(cutTo({90, 50, 50, 50}, size), (PixelRect{90, 50, 10, 10}));
  EXPECT_EQ(cutTo({-9, -9, 999, 999}, size), (PixelRect{0, 0, 100, 60}));
  const int most = std::numeric_limits<int>::max();
  EXPECT_EQ(cutTo({99, 59, most, most}, size), (PixelRect{99, 59, 1, 1}));
}

TEST(Regions, ARegionOutsideIsEmpty) {
  const PixelSize size{100, 60};
  for (const PixelRect& outside :
       {PixelRect{100, 0, 5, 5}, PixelRect{0, 60, 5, 5}, PixelRect{-5, 0, 5, 5},
        PixelRect{3, 3, 0, 9}, PixelRect{3, 3, 9, -2}, PixelRect{500, 500, 10, 10}}) {
    EXPECT_EQ(cutTo(outside, size), PixelRect());
    EXPECT_TRUE(cutTo(outside, size).isEmpty());
  }
}

TEST(Regions, CroppingTakesThePixelsAsTheyAre) {
  const Picture picture = grainy({64, 48});
  const Picture piece = cropped(picture, {10, 7, 20, 30});
  ASSERT_EQ(piece.size(), (PixelSize{20, 30}));
  for (int y = 0; y < 30; ++y)
    for (int x = 0; x < 20; ++x)
      ASSERT_EQ(piece.row(y)[x], picture.row(y + 7)[x + 10]);
}

TEST(Regions, CroppingASinglePixel) {
  const Picture pixel = cropped(corners({9, 9}), {8, 8, 1, 1});
  ASSERT_EQ(pixel.size(), (PixelSize{1, 1}));
  EXPECT_EQ(pixel.row(0)[0], white);
}

TEST(Regions, CroppingAllOfItKeepsThePixelsShared) {
  const Picture picture = grainy({40, 30});
  EXPECT_EQ(cropped(picture, {-3, -3, 100, 100}).share(), picture.share());
}

TEST(Regions, CroppingNothingIsRefused) {
  EXPECT_THROW(cropped(plain({9, 9}, red), {9, 9, 5, 5}), RunTimeError);
  EXPECT_THROW(cropped(plain({9, 9}, red), {2, 2, 0, 0}), RunTimeError);
  EXPECT_THROW(cropped(Picture(), {0, 0, 5, 5}), RunTimeError);
}

TEST(Regions, ARegionPutBackWhereItWasChangesNothing) {
  WorkPool pool(2);
  const Picture picture = grainy({500, 400});
  Picture copy = picture;
  paste(copy, cropped(picture, {100, 50, 300, 200}, &pool), 100, 50, &pool);
  expectSame(copy, picture);
}

TEST(Regions, APieceBeyondTheEdgesIsCutThere) {
  Picture picture = plain({20, 20}, white);
  paste(picture, corners({10, 10}), -5, -5);
  EXPECT_EQ(picture.row(4)[4], white); // its white corner
  EXPECT_EQ(picture.row(5)[0], white);
  paste(picture, plain({10, 10}, blue), 15, 15);
  EXPECT_EQ(picture.row(19)[19], blue);
  EXPECT_EQ(picture.row(14)[15], white);
  paste(picture, plain({10, 10}, green), 40, 0);
  paste(picture, Picture(), 0, 0);
  EXPECT_EQ(picture.row(0)[19], white);
}

TEST(Regions, PastingLeavesThePicturesThatShareThePixelsAlone) {
  const Picture before = plain({20, 20}, white);
  Picture after = before;
  paste(after, plain({5, 5}, red), 0, 0);
  EXPECT_EQ(before.row(0)[0], white);
  EXPECT_EQ(after.row(0)[0], red);
}

TEST(Regions, FlatteningLaysPiecesInTheirOrderAndOutlinesAbove) {
  const Picture page = plain({30, 30}, white);
  const Picture flat =
      flattened(page, {{plain({10, 10}, green), 5, 5}, {plain({10, 10}, blue), 10, 10}},
                {{{10, 10, 10, 10}, red, 2}});
  EXPECT_EQ(flat.row(4)[4], white);
  EXPECT_EQ(flat.row(6)[6], green);
  EXPECT_EQ(flat.row(14)[14], blue);
  EXPECT_EQ(flat.row(10)[10], red);
  EXPECT_EQ(flat.row(11)[11], red);
  EXPECT_EQ(flat.row(12)[12], blue);
  EXPECT_EQ(flat.row(19)[19], red);
  EXPECT_EQ(flat.row(20)[20], white);
  EXPECT_EQ(page.row(10)[10], white);
}

TEST(Regions, AnOutlineThickerThanItsRectangleFillsIt) {
  const Picture flat = flattened(plain({9, 9}, white), {}, {{{2, 2, 3, 2}, red, 50}});
  int marked = 0;
  for (int y = 0; y < 9; ++y)
    marked += static_cast<int>(std::count(flat.row(y), flat.row(y) + 9, red));
  EXPECT_EQ(marked, 6);
}

TEST(Regions, AnOutlineBeyondTheEdgesIsDrawnAsFarAsItLiesInside) {
  const Picture flat =
      flattened(plain({9, 9}, white), {}, {{{4, 4, 100, 100}, red, 1}, {{0, 0, 0, 5}, red, 1}});
  EXPECT_EQ(flat.row(4)[8], red);
  EXPECT_EQ(flat.row(8)[4], red);
  EXPECT_EQ(flat.row(8)[8], white); // its right edge lies outside
  EXPECT_EQ(flat.row(0)[0], white);
}

TEST(Regions, FlatteningNothingSharesThePixels) {
  const Picture page = plain({30, 30}, white);
  EXPECT_EQ(flattened(page, {}).share(), page.share());
}

} // namespace
} // namespace hearthbook
