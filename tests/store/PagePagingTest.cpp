#include "PagePaging.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

/// As a set of so many records stands behind a page that ends with `lastShown`.
PagePaging behind(std::int64_t perPage, std::int64_t recordCount, std::int64_t lastShown,
                  std::int64_t shown) {
  const bool atEnd = lastShown >= recordCount;
  return {perPage, recordCount, atEnd ? -3 : lastShown + 1, recordCount == 0, atEnd, shown};
}

TEST(PagePaging, OnePageHasNoPreviousOne) {
  EXPECT_EQ(behind(24, 24, 24, 24).previous(), std::nullopt);
  EXPECT_EQ(behind(4, 3, 3, 3).previous(), std::nullopt);
  EXPECT_EQ(behind(4, 0, 0, 0).previous(), std::nullopt);
}

TEST(PagePaging, FromTheEndTheLastPageIsOneRecordShort) {
  EXPECT_EQ(behind(24, 48, 48, 24).previous(), 1);
  EXPECT_EQ(behind(24, 60, 60, 12).previous(), 25);
  EXPECT_EQ(behind(4, 5, 5, 1).previous(), 1);
}

TEST(PagePaging, FromTheMiddleOnePageAndWhatIsShownGoBack) {
  EXPECT_EQ(behind(4, 20, 12, 4).previous(), 5);
  EXPECT_EQ(behind(24, 100, 72, 24).previous(), 25);
}

TEST(PagePaging, AWalkOffTheBeginningEndsOnTheFirstRecord) {
  EXPECT_EQ(behind(4, 20, 5, 4).previous(), 1);
}

TEST(PagePaging, InFrontOfTheSecondPageThereIsNothing) {
  EXPECT_EQ(behind(4, 20, 3, 3).previous(), std::nullopt);
}

TEST(PagePaging, TheLastPageBeginsBehindTheFullOnes) {
  EXPECT_EQ(behind(4, 5, 4, 4).last(), 5);
  EXPECT_EQ(behind(4, 8, 4, 4).last(), 5);
  EXPECT_EQ(behind(24, 49, 24, 24).last(), 49);
  EXPECT_EQ(behind(4, 0, 0, 0).last(), 1);
}

TEST(PagePaging, APageThatIsBegunCounts) {
  EXPECT_EQ(pagesOf(0, 4), 0);
  EXPECT_EQ(pagesOf(1, 4), 1);
  EXPECT_EQ(pagesOf(4, 4), 1);
  EXPECT_EQ(pagesOf(5, 4), 2);
}

TEST(PagePaging, ThePageOfAPositionBeginsWithAMultiple) {
  EXPECT_EQ(pageStart(1, 4), 0);
  EXPECT_EQ(pageStart(4, 4), 0);
  EXPECT_EQ(pageStart(5, 4), 4);
  EXPECT_EQ(pageStart(25, 24), 24);
}

TEST(PagePaging, AfterAChangeOneReturnsToThePageShown) {
  EXPECT_EQ(behind(4, 20, 12, 4).returnRow(1), 8);
  EXPECT_EQ(behind(4, 18, 18, 2).returnRow(1), 16);
}

TEST(PagePaging, AtTheEndAPageOfTooFewGoesBackByMore) {
  EXPECT_EQ(behind(4, 18, 18, 0).returnRow(1), 13);
  EXPECT_EQ(behind(4, 17, 17, 1).returnRow(2), 12);
  EXPECT_EQ(behind(4, 17, 17, 1).returnRow(1), 16);
}

TEST(PagePaging, NoReturnGoesInFrontOfTheFirstRow) {
  EXPECT_EQ(behind(4, 20, 2, 2).returnRow(1), 0);
  EXPECT_EQ(behind(4, 3, 3, 0).returnRow(1), 0);
}

} // namespace
} // namespace hearthbook
