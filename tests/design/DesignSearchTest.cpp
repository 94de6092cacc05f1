#include "DesignSearch.h"

#include "AlbumFixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace hearthbook {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DesignSearchTest : public test::AlbumFixture {
protected:
  std::vector<std::string> found(DesignSearch by, std::int64_t id) {
    std::vector<std::string> ids;
    for (const DesignHit& hit : designHits(data().AlbumDB, by, id))
      ids.push_back(hit.pictureId);
    return ids;
  }
};

constexpr const char* query =
    "SELECT PhotoAlbum.PictureID, PhotoAlbum.Year, Places.PlaceName, Events.EventName FROM "
    "(PhotoAlbum LEFT JOIN Places ON PhotoAlbum.PlaceID = Places.PlaceID) LEFT JOIN Events ON "
    "PhotoAlbum.EventID = Events.EventID WHERE ";

TEST(DesignStatement, LooksForAPersonByThreeDigits) {
  EXPECT_EQ(designStatement(DesignSearch::Person, 4),
            std::string(query) +
                "(((PhotoAlbum.NamesInPhoto) LIKE '%004%')) ORDER BY PhotoAlbum.Year;");
  EXPECT_EQ(designStatement(DesignSearch::Person, 1234),
            std::string(query) +
                "(((PhotoAlbum.NamesInPhoto) LIKE '%1234%')) ORDER BY PhotoAlbum.Year;");
}

TEST(DesignStatement, LooksForAPlaceOrAnEventByItsNumber) {
  EXPECT_EQ(designStatement(DesignSearch::Place, 7),
            std::string(query) + "(((PhotoAlbum.PlaceID) = 7)) ORDER BY PhotoAlbum.Year;");
  EXPECT_EQ(designStatement(DesignSearch::Event, 12),
            std::string(query) + "(((PhotoAlbum.EventID) = 12)) ORDER BY PhotoAlbum.Year;");
}

TEST_F(DesignSearchTest, TheListsAreInTheOrderOfNames) {
  const auto clara = folder_.addPerson("Clara");
  const auto anna = folder_.addPerson("anna");
  const auto lake = folder_.addPlace("Lake");
  const auto garden = folder_.addPlace("garden");
  const auto wedding = folder_.addEvent("Wedding");
  const auto picnic = folder_.addEvent("picnic");
  const auto expectOrder = [this](DesignSearch by, const DesignChoice& first,
                                  const DesignChoice& second) {
    const auto choices = designChoices(data().AlbumDB, by);
    const auto at = std::ranges::find(choices, first);
    ASSERT_NE(at, choices.end()) << first.name;
    EXPECT_NE(std::find(at, choices.end(), second), choices.end()) << second.name;
  };
  expectOrder(DesignSearch::Person, {"anna", anna}, {"Clara", clara});
  expectOrder(DesignSearch::Place, {"garden", garden}, {"Lake", lake});
  expectOrder(DesignSearch::Event, {"picnic", picnic}, {"Wedding", wedding});
}

TEST_F(DesignSearchTest, PhotosOfAPersonAreFoundInTheOrderOfYears) {
  const auto clara = folder_.addPerson("Clara");
  const std::string key = std::string(clara < 10 ? "00" : "0") + std::to_string(clara) + ",";
  folder_.addPhoto("HD00002", {{"Year", 1999}, {"NamesInPhoto", key}});
  folder_.addPhoto("HD00003", {{"Year", 1950}, {"NamesInPhoto", "900," + key}});
  folder_.addPhoto("HD00004", {{"Year", 1960}});
  EXPECT_THAT(found(DesignSearch::Person, clara), ElementsAre("HD00003", "HD00002"));
}

TEST_F(DesignSearchTest, PhotosOfAPlaceAndOfAnEventAreFound) {
  const auto lake = folder_.addPlace("Lake");
  const auto picnic = folder_.addEvent("Picnic");
  folder_.addPhoto("HD00002", {{"PlaceID", lake}});
  folder_.addPhoto("HD00003", {{"EventID", picnic}});
  EXPECT_THAT(found(DesignSearch::Place, lake), ElementsAre("HD00002"));
  EXPECT_THAT(found(DesignSearch::Event, picnic), ElementsAre("HD00003"));
  EXPECT_THAT(found(DesignSearch::Event, 4711), IsEmpty());
}

TEST_F(DesignSearchTest, AThumbnailSaysYearEventAndPlace) {
  const auto lake = folder_.addPlace("Lake");
  const auto picnic = folder_.addEvent("Picnic");
  folder_.addPhoto("HD00002", {{"PlaceID", lake}, {"EventID", picnic}, {"Year", 1989}});
  EXPECT_THAT(designHits(data().AlbumDB, DesignSearch::Place, lake),
              ElementsAre(DesignHit{"HD00002", "1989, Picnic in Lake"}));
}

TEST_F(DesignSearchTest, WhatIsNotKnownIsLeftEmpty) {
  const auto lake = folder_.addPlace("Lake");
  folder_.addPhoto("HD00002", {{"PlaceID", lake}});
  EXPECT_THAT(designHits(data().AlbumDB, DesignSearch::Place, lake),
              ElementsAre(DesignHit{"HD00002", ",  in Lake"}));
}

} // namespace

} // namespace hearthbook
