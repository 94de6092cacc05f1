#include "SearchCriteriaOf.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace hearthbook::test {

namespace {

const std::pair<int, std::string> toldClauses[] = {
    {1, "PhotoAlbum.PlaceID = 3 OR PhotoAlbum.PlaceID = 5"},
    {2, "PhotoAlbum.EventID = 2"},
    {4, "NamesInPhoto LIKE '%007%'"},
    {8, "Year >= 1990"},
    {16, "Year <= 1995"},
    {32, "Description LIKE '%Bob''s%'"},
};

std::string toldStatement(int present) {
  std::string text = "SELECT * FROM PhotoAlbum ";
  int before = 0;
  for (const auto& [bit, clause] : toldClauses) {
    if (!(present & bit))
      continue;
    const bool isEventBehindPlace = bit == 2 && before == 1;
    text += before == 0 ? "WHERE (" : isEventBehindPlace ? " And (" : " AND (";
    text += clause + ")";
    before |= bit;
  }
  return text + " ORDER BY Year, PictureID";
}

const std::pair<int, std::string> toldWords[] = {
    {2, "Wedding, "}, {1, "Home, Lake, "}, {4, "Ann, "}, {8, "From 1990 "}, {16, "To 1995"},
};

std::string toldSummary(int present) {
  std::string text;
  for (const auto& [bit, words] : toldWords)
    text += present & bit ? words : "";
  return text;
}

std::string whereOf(const SearchCriteria& criteria) {
  const std::string sql = BuildSearchQuery(criteria).sql;
  const std::string head = "SELECT * FROM PhotoAlbum ";
  const std::string tail = " ORDER BY Year, PictureID";
  EXPECT_TRUE(sql.starts_with(head) && sql.ends_with(tail)) << sql;
  return sql.substr(head.size(), sql.size() - head.size() - tail.size());
}

} // namespace

TEST(BuildSearchQuery, AsksForTheWholeAlbumWithTwoBlanksWhereThereAreNoCriteria) {
  EXPECT_EQ(BuildSearchQuery({}),
            (SearchQuery{"SELECT * FROM PhotoAlbum  ORDER BY Year, PictureID", ""}));
}

TEST(BuildSearchQuery, AsksForAllCriteriaInTheOrderOfTheStatement) {
  SearchCriteria criteria = criteriaOf(allCriteria - 1);
  criteria.sort = "Place";
  EXPECT_EQ(
      BuildSearchQuery(criteria),
      (SearchQuery{"SELECT * FROM PhotoAlbum WHERE (PhotoAlbum.PlaceID = 3 OR PhotoAlbum.PlaceID = "
                   "5) And (PhotoAlbum.EventID = 2) AND (NamesInPhoto LIKE '%007%') AND (Year >= "
                   "1990) AND (Year <= 1995) AND (Description LIKE '%Bob''s%') ORDER BY PlaceID, "
                   "PictureID",
                   "Wedding, Home, Lake, Ann, From 1990 To 1995"}));
}

TEST(BuildSearchQuery, JoinsEachOfTheCombinationsOfCriteria) {
  for (int present = 0; present < allCriteria; ++present)
    EXPECT_EQ(BuildSearchQuery(criteriaOf(present)),
              (SearchQuery{toldStatement(present), toldSummary(present)}))
        << present;
}

TEST(BuildSearchQuery, HasOneGroupAndNoConnectorForADescriptionAlone) {
  EXPECT_EQ(whereOf(criteriaOf(32)), "WHERE (Description LIKE '%Bob''s%')");
}

TEST(BuildSearchQuery, WritesAndInMixedCaseBehindAPlaceAndBeforeAnEventOnly) {
  EXPECT_EQ(whereOf(criteriaOf(2 | 16)), "WHERE (PhotoAlbum.EventID = 2) AND (Year <= 1995)");
  EXPECT_EQ(whereOf(criteriaOf(1 | 2)), "WHERE (PhotoAlbum.PlaceID = 3 OR PhotoAlbum.PlaceID = 5) "
                                        "And (PhotoAlbum.EventID = 2)");
  EXPECT_EQ(whereOf(criteriaOf(2 | 4)),
            "WHERE (PhotoAlbum.EventID = 2) AND (NamesInPhoto LIKE '%007%')");
}

TEST(BuildSearchQuery, JoinsTheChoicesOfEachListInTheirOrder) {
  SearchCriteria criteria;
  criteria.events = {{"Wedding", 9}, {"Birthday", 2}, {"Easter", 30}};
  criteria.people = {{"Ann", 7}, {"Bo", 21}};
  EXPECT_EQ(whereOf(criteria),
            "WHERE (PhotoAlbum.EventID = 9 OR PhotoAlbum.EventID = 2 OR PhotoAlbum.EventID = 30) "
            "AND (NamesInPhoto LIKE '%007%' OR NamesInPhoto LIKE '%021%')");
  EXPECT_EQ(BuildSearchQuery(criteria).summary, "Wedding, Birthday, Easter, Ann, Bo, ");
}

TEST(BuildSearchQuery, WritesAPersonWithAtLeastThreeDigitsAndCutsNone) {
  SearchCriteria criteria;
  criteria.people = {{"Ann", 12}, {"Bo", 1234}};
  EXPECT_EQ(whereOf(criteria), "WHERE (NamesInPhoto LIKE '%012%' OR NamesInPhoto LIKE '%1234%')");
}

TEST(BuildSearchQuery, TakesTheYearsAsTheyWereTyped) {
  SearchCriteria criteria;
  criteria.fromYear = " 1,990";
  criteria.toYear = "&H7C6";
  EXPECT_EQ(whereOf(criteria), "WHERE (Year >=  1,990) AND (Year <= &H7C6)");
  EXPECT_EQ(BuildSearchQuery(criteria).summary, "From  1,990 To &H7C6");
}

TEST(BuildSearchQuery, AcceptsAFromYearBehindTheToYear) {
  SearchCriteria criteria;
  criteria.fromYear = "2000";
  criteria.toYear = "1990";
  EXPECT_EQ(whereOf(criteria), "WHERE (Year >= 2000) AND (Year <= 1990)");
}

TEST(BuildSearchQuery, DoublesQuotesOfTheDescriptionAndNothingElse) {
  SearchCriteria criteria;
  criteria.description = "'50% of_it' [a]\\ \"x\"";
  EXPECT_EQ(whereOf(criteria), "WHERE (Description LIKE '%''50% of_it'' [a]\\ \"x\"%')");
}

TEST(BuildSearchQuery, DoesNotTellTheDescriptionInTheSummary) {
  EXPECT_EQ(BuildSearchQuery(criteriaOf(32)).summary, "");
}

TEST(BuildSearchQuery, LeavesTheCommaBehindTheLastNameOfTheSummary) {
  EXPECT_EQ(BuildSearchQuery(criteriaOf(1)).summary, "Home, Lake, ");
  EXPECT_EQ(BuildSearchQuery(criteriaOf(8)).summary, "From 1990 ");
}

TEST(BuildSearchQuery, SortsByTheIdsOfTheEntryAndThenByThePhoto) {
  const auto orderOf = [](const std::string& sort) {
    SearchCriteria criteria;
    criteria.sort = sort;
    const std::string sql = BuildSearchQuery(criteria).sql;
    return sql.substr(sql.find(" ORDER BY"));
  };
  EXPECT_EQ(orderOf("Place"), " ORDER BY PlaceID, PictureID");
  EXPECT_EQ(orderOf("Event"), " ORDER BY EventID, PictureID");
  EXPECT_EQ(orderOf("Year"), " ORDER BY Year, PictureID");
  EXPECT_EQ(orderOf("No Sort"), " ORDER BY PictureID, PictureID");
  EXPECT_EQ(orderOf("No Sort!"), " ORDER BY , PictureID");
  EXPECT_EQ(orderOf(""), " ORDER BY , PictureID");
}

TEST(BuildSearchQuery, OffersNoSortWithAnExclamationMark) {
  EXPECT_EQ(std::vector<std::string>(std::begin(sortEntries), std::end(sortEntries)),
            (std::vector<std::string>{"Place", "Event", "Year", "No Sort!"}));
}

TEST(SearchCriteria, KnowsWhichPlacesAndEventsItAsksFor) {
  const SearchCriteria criteria = criteriaOf(1 | 2);
  EXPECT_TRUE(criteria.hasPlace(5));
  EXPECT_FALSE(criteria.hasPlace(2));
  EXPECT_TRUE(criteria.hasEvent(2));
  EXPECT_FALSE(criteria.hasEvent(3));
}

} // namespace hearthbook::test
