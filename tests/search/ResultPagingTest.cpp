#include "ResultPaging.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace hearthbook::test {

namespace {

/// Pages through a result of `count` records as the form does: each page is composed from its
/// first record, and the set then stands behind it.
class Reader {
public:
  explicit Reader(std::int64_t count) {
    at.recordCount = count;
    at.atFirstPage = true; // as a form that was just loaded
    compose(1);
  }

  void compose(std::int64_t first) {
    const std::int64_t behind = std::min(at.recordCount + 1, first + resultsPerPage);
    at.pageThumbCount = behind - first;
    at.atEnd = behind > at.recordCount;
    at.position = at.atEnd ? -3 : behind;
  }
  void turnTo(std::optional<std::int64_t> first) {
    ASSERT_TRUE(first);
    compose(*first);
    at.atFirstPage = *first == 1;
  }

  ResultPaging at;
};

} // namespace

TEST(ResultPaging, OnePageOf24HasNothingBeforeOrBehindIt) {
  const Reader reader(24);
  EXPECT_EQ(reader.at.label(), "1 to 24 of 24");
  EXPECT_TRUE(reader.at.atEnd);
  EXPECT_EQ(reader.at.next(), std::nullopt);
  EXPECT_EQ(reader.at.previous(), std::nullopt);
  EXPECT_EQ(reader.at.last(), 1);
}

TEST(ResultPaging, FewerThan25HaveNothingBeforeThemEvenIfTheFirstPageIsNotKnown) {
  Reader reader(24);
  reader.at.atFirstPage = false;
  EXPECT_EQ(reader.at.previous(), std::nullopt);
}

TEST(ResultPaging, TheSecondPageOf25HasOnePhoto) {
  Reader reader(25);
  EXPECT_EQ(reader.at.label(), "1 to 24 of 25");
  reader.turnTo(reader.at.next());
  EXPECT_EQ(reader.at.pageThumbCount, 1);
  EXPECT_EQ(reader.at.label(), "25 to 25 of 25");
  EXPECT_EQ(reader.at.next(), std::nullopt);
  EXPECT_EQ(reader.at.previous(), 1);
}

TEST(ResultPaging, TheLastPageOf48BeginsWith25) {
  Reader reader(48);
  reader.turnTo(reader.at.last());
  EXPECT_EQ(reader.at.label(), "25 to 48 of 48");
  EXPECT_EQ(reader.at.previous(), 1);
}

TEST(ResultPaging, TheLastPageOf60IsLeftBackwardsTo25) {
  Reader reader(60);
  reader.turnTo(reader.at.last());
  EXPECT_EQ(reader.at.label(), "49 to 60 of 60");
  reader.turnTo(reader.at.previous());
  EXPECT_EQ(reader.at.label(), "25 to 48 of 60");
  reader.turnTo(reader.at.previous());
  EXPECT_EQ(reader.at.label(), "1 to 24 of 60");
  EXPECT_EQ(reader.at.previous(), std::nullopt);
}

TEST(ResultPaging, ManyPagesAreTheSameForwardAndBackward) {
  constexpr std::int64_t count = 100'000;
  Reader reader(count);
  std::int64_t pages = 1;
  for (; reader.at.next(); ++pages)
    reader.turnTo(reader.at.next());
  EXPECT_EQ(pages, 4167);
  EXPECT_EQ(reader.at.label(), "99985 to 100000 of 100000");
  for (std::int64_t page = pages - 1; page > 0; --page)
    reader.turnTo(reader.at.previous());
  EXPECT_EQ(reader.at.label(), "1 to 24 of 100000");
  EXPECT_TRUE(reader.at.atFirstPage);
}

TEST(ResultPaging, AWalkThatRunsOffTheBeginningEndsOnTheFirstPage) {
  Reader reader(60);
  reader.at.atFirstPage = false; // a new search does not say that it is on its first page
  EXPECT_EQ(reader.at.previous(), 1);
  reader.compose(11);
  EXPECT_EQ(reader.at.previous(), 1);
}

TEST(ResultPaging, ThereIsNothingBeforeASetThatStandsWithinItsFirstPage) {
  ResultPaging paging{60, 10, false, false, 24, false};
  EXPECT_EQ(paging.previous(), std::nullopt);
}

TEST(ResultPaging, ThereIsNothingBehindAPageThatWasNeverComposed) {
  const ResultPaging paging{60, 1, false, false, 0, true};
  EXPECT_EQ(paging.next(), std::nullopt);
}

TEST(ResultPaging, ReturnsToThePageThatTheSetStandsBehind) {
  Reader reader(60);
  EXPECT_EQ(reader.at.returnRow(), 0);
  reader.turnTo(25);
  EXPECT_EQ(reader.at.returnRow(), 24);
  reader.turnTo(49);
  EXPECT_EQ(reader.at.returnRow(), 48);
}

TEST(ResultPaging, ReturnsAPageEarlierFromALastPageOfOnePhoto) {
  Reader reader(49);
  reader.turnTo(49);
  EXPECT_EQ(reader.at.returnRow(), 24);
}

TEST(ResultPaging, ReturnsToTheFirstRowWhereNoPageWasComposed) {
  EXPECT_EQ((ResultPaging{60, 1, false, false, 0, true}.returnRow()), 0);
  EXPECT_EQ((ResultPaging{3, -3, false, true, 1, true}.returnRow()), 0);
}

TEST(ResultPaging, SaysWhereItStandsInFewRecords) {
  EXPECT_EQ(Reader(1).at.label(), "1 to 1 of 1");
  EXPECT_EQ((ResultPaging{60, 10, false, false, 9, false}.label()), "1 to 9 of 60");
}

TEST(ResultPaging, APageBeginsBehindWholePagesOnly) {
  EXPECT_EQ(pageStart(0), 0);
  EXPECT_EQ(pageStart(1), 0);
  EXPECT_EQ(pageStart(24), 0);
  EXPECT_EQ(pageStart(25), 24);
  EXPECT_EQ(pageStart(48), 24);
  EXPECT_EQ(pageStart(49), 48);
  EXPECT_EQ(pageStart(100'000), 99'984);
}

TEST(ResultPaging, TheClearCommandCountsTheSelection) {
  EXPECT_EQ(clearCaption(0), "No Selection");
  EXPECT_EQ(clearCaption(1), "Clear Selection (1)");
  EXPECT_EQ(clearCaption(1234), "Clear Selection (1234)");
}

} // namespace hearthbook::test
