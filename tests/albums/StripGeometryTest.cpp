#include "StripGeometry.h"

#include <gtest/gtest.h>

#include <ostream>

namespace hearthbook {

static void PrintTo(const TwipsRect& rect, std::ostream* out) {
  *out << rect.left << ' ' << rect.top << ' ' << rect.width << ' ' << rect.height;
}
static void PrintTo(const StripRange& range, std::ostream* out) {
  *out << range.first << " to " << range.end;
}
static void PrintTo(const StripScroll& scroll, std::ostream* out) {
  *out << "blank ";
  PrintTo(scroll.blank, out);
  *out << ", load ";
  PrintTo(scroll.load, out);
}

namespace {

TEST(StripGeometry, SixCellsStandInARowWithAGapBetween) {
  EXPECT_EQ(stripCell(0), (TwipsRect{120, 120, 1155, 1155}));
  EXPECT_EQ(stripCell(5), (TwipsRect{6495, 120, 1155, 1155}));
  EXPECT_EQ(stripCell(6), (TwipsRect{120, 1395, 1155, 1155}));
  EXPECT_EQ(stripCell(19), (TwipsRect{1395, 3945, 1155, 1155}));
}

TEST(StripGeometry, APictureStandsInTheMiddleOfItsCell) {
  EXPECT_EQ(placeInStripCell(7, {1095, 821}), (TwipsRect{1425, 1562, 1095, 821}));
}

TEST(StripGeometry, AnOpenRowCountsAsOne) {
  EXPECT_EQ(stripHeight(0), 120);
  EXPECT_EQ(stripHeight(1), 1395);
  EXPECT_EQ(stripHeight(6), 1395);
  EXPECT_EQ(stripHeight(7), 2670);
}

TEST(StripGeometry, NineteenPhotosScrollByOneRow) {
  EXPECT_EQ(lastStripScroll(0), 0u);
  EXPECT_EQ(lastStripScroll(18), 0u);
  EXPECT_EQ(lastStripScroll(19), 1u);
  EXPECT_EQ(lastStripScroll(10000), 1664u);
}

TEST(StripGeometry, FourPhotosOfOnePageShareAGrey) {
  EXPECT_EQ(stripBand(0), 0xE0E0E0u);
  EXPECT_EQ(stripBand(3), 0xE0E0E0u);
  EXPECT_EQ(stripBand(4), 0x808080u);
  EXPECT_EQ(stripBand(7), 0x808080u);
  EXPECT_EQ(stripBand(8), 0xE0E0E0u);
}

TEST(StripGeometry, ScrollingByOneRowChangesOneRow) {
  EXPECT_EQ(stripScroll(0, 1), (StripScroll{{0, 6}, {18, 24}}));
  EXPECT_EQ(stripScroll(4, 5), (StripScroll{{24, 30}, {42, 48}}));
  EXPECT_EQ(stripScroll(5, 4), (StripScroll{{42, 48}, {24, 30}}));
  EXPECT_EQ(stripScroll(1, 0), (StripScroll{{18, 24}, {0, 6}}));
}

TEST(StripGeometry, ScrollingFartherChangesAllThree) {
  EXPECT_EQ(stripScroll(0, 2), (StripScroll{{0, 18}, {12, 30}}));
  EXPECT_EQ(stripScroll(9, 3), (StripScroll{{54, 72}, {18, 36}}));
}

TEST(StripGeometry, TheMarkStandsWhereAPhotoWouldLand) {
  EXPECT_EQ(insertionMark(2, 5), (TwipsPoint{2610, 120}));
  EXPECT_EQ(insertionMark(5, 2), (TwipsPoint{7710, 120}));
  EXPECT_EQ(insertionMark(7, 7), (TwipsPoint{2610, 1395}));
}

} // namespace
} // namespace hearthbook
