#include "PhotoFacts.h"

#include "AlbumFixture.h"

#include <algorithm>

namespace hearthbook::test {
namespace {

class PhotoFactsTest : public AlbumFixture {
protected:
  static constexpr std::size_t least = 6;

  /// The facts of a photo with these fields.
  PhotoFacts facts(const AlbumFolder::Fields& fields) {
    folder_.addPhoto("HD00002", fields);
    Recordset& photos = data().rsPhotoAlbum;
    photos.Find("PictureID = 'HD00002'", Recordset::Start::First);
    return photoFacts(data(), photos, least);
  }
  std::vector<std::string> textsOf(const std::vector<NamesRow>& rows) {
    std::vector<std::string> texts;
    for (const NamesRow& row : rows)
      texts.push_back(row.text);
    return texts;
  }
  /// So many people, and the field that names them all.
  std::string addPeople(int count) {
    std::string field;
    for (int person = 1; person <= count; ++person)
      field +=
          std::to_string(1000 + folder_.addPerson("P" + std::to_string(person))).substr(1) + ",";
    return field;
  }
  std::vector<NamesRow> rows(const std::string& field, const PhotoMarkers& markers = std::nullopt) {
    return namesRows(data().rsAppearances, field, markers, least);
  }
};

TEST_F(PhotoFactsTest, AnEmptyRowTellsNothing) {
  const PhotoFacts known = facts({});
  EXPECT_EQ(known.year, "");
  EXPECT_EQ(known.place, "");
  EXPECT_FALSE(known.hasDescription);
  EXPECT_EQ(known.names, std::vector<NamesRow>(least));
  EXPECT_EQ(known.markers, std::nullopt);
}

TEST_F(PhotoFactsTest, EventInPlace) {
  const auto lake = folder_.addPlace("Lake");
  const auto wedding = folder_.addEvent("Wedding");
  const PhotoFacts known = facts({{"Year", 1987}, {"PlaceID", lake}, {"EventID", wedding}});
  EXPECT_EQ(known.year, "1987");
  EXPECT_EQ(known.place, "Wedding in Lake");
}

TEST_F(PhotoFactsTest, APlaceAloneIsItsName) {
  EXPECT_EQ(facts({{"PlaceID", folder_.addPlace("Lake")}}).place, "Lake");
}

TEST_F(PhotoFactsTest, AnEventAloneIsInNothing) {
  EXPECT_EQ(facts({{"EventID", folder_.addEvent("Wedding")}}).place, "Wedding in ");
}

TEST_F(PhotoFactsTest, APlaceOrEventThatIsGoneIsLeftOut) {
  const auto lake = folder_.addPlace("Lake");
  folder_.addEvent("Wedding");
  EXPECT_EQ(facts({{"PlaceID", lake}, {"EventID", 999}}).place, "Lake");
}

TEST_F(PhotoFactsTest, AGonePlaceLeavesTheEventInNothing) {
  const auto wedding = folder_.addEvent("Wedding");
  folder_.addPlace("Lake");
  EXPECT_EQ(facts({{"PlaceID", 999}, {"EventID", wedding}}).place, "Wedding in ");
}

TEST_F(PhotoFactsTest, AnEmptyDescriptionIsNone) {
  EXPECT_FALSE(facts({{"Description", ""}}).hasDescription);
}

TEST_F(PhotoFactsTest, ADescriptionIsSeen) {
  EXPECT_TRUE(facts({{"Description", "Behind the house"}}).hasDescription);
}

TEST_F(PhotoFactsTest, SixNamesKeepSixRows) {
  EXPECT_EQ(textsOf(rows(addPeople(6))),
            (std::vector<std::string>{"P1", "P2", "P3", "P4", "P5", "P6"}));
}

TEST_F(PhotoFactsTest, TheSeventhNameIsARowMore) {
  EXPECT_EQ(textsOf(rows(addPeople(7))),
            (std::vector<std::string>{"P1", "P2", "P3", "P4", "P5", "P6", "P7"}));
}

TEST_F(PhotoFactsTest, NamesTakeThePlaceOfEmptyRows) {
  EXPECT_EQ(textsOf(rows(addPeople(2))), (std::vector<std::string>{"P1", "P2", "", "", "", ""}));
  EXPECT_EQ(rows("")[0], NamesRow());
}

TEST_F(PhotoFactsTest, ANameKeepsTheOrderOfTheField) {
  addPeople(3);
  EXPECT_EQ(textsOf(rows("003,001,"))[0], "P3");
  EXPECT_EQ(rows("003,001,")[1], (NamesRow{"P1", "1", false}));
}

TEST_F(PhotoFactsTest, SomebodyWhoIsGoneLeavesHisRowEmpty) {
  addPeople(2);
  EXPECT_EQ(textsOf(rows("001,077,002,")), (std::vector<std::string>{"P1", "", "P2", "", "", ""}));
}

TEST_F(PhotoFactsTest, OneWhoIsGoneAmongManyDoesNotPushTheOthersOut) {
  const std::string field = "077," + addPeople(7);
  const auto shown = textsOf(rows(field));
  EXPECT_EQ(std::ranges::count(shown, ""), 1);
  EXPECT_EQ(shown.back(), "P7");
}

TEST_F(PhotoFactsTest, WhatFollowsTheLastCommaIsNoName) {
  addPeople(2);
  EXPECT_EQ(textsOf(rows("001,002")), (std::vector<std::string>{"P1", "", "", "", "", ""}));
}

TEST_F(PhotoFactsTest, AFieldOfRubbishNamesNobodyAndFailsNothing) {
  addPeople(2);
  EXPECT_EQ(textsOf(rows("x',,001,")), (std::vector<std::string>{"", "", "P1", "", "", ""}));
}

TEST_F(PhotoFactsTest, ANameWithAMarkerStandsOut) {
  addPeople(2);
  const auto known = facts({{"NamesInPhoto", "001,002,"}, {"NamesCords", "002-0100X0200,"}});
  EXPECT_EQ(known.names[0], (NamesRow{"P1", "1", false}));
  EXPECT_EQ(known.names[1], (NamesRow{"P2   ", "2", true}));
  EXPECT_EQ(known.markers, (std::vector<std::string>{"002-0100X0200", ""}));
}

TEST_F(PhotoFactsTest, EachMarkerOfAPersonAddsItsBlanks) {
  addPeople(1);
  EXPECT_EQ(rows("001,", std::vector<std::string>{"001-0100X0200", "001-0300X0400"})[0].text,
            "P1      ");
}

TEST_F(PhotoFactsTest, AnEmptyFieldOfMarkersIsAListAllTheSame) {
  EXPECT_EQ(facts({{"NamesCords", ""}}).markers, std::vector<std::string>{""});
}

TEST_F(PhotoFactsTest, WithoutAnyPlaceEventOrPersonNothingFails) {
  data().AlbumDB.execute("DELETE FROM Places");
  data().AlbumDB.execute("DELETE FROM Events");
  data().AlbumDB.execute("DELETE FROM Appearances");
  for (Recordset* rows : {&data().rsPlaces, &data().rsEvents, &data().rsAppearances})
    rows->Requery();
  const auto known =
      facts({{"Year", 1987}, {"PlaceID", 1}, {"EventID", 1}, {"NamesInPhoto", "001,"}});
  EXPECT_EQ(known.year, "1987");
  EXPECT_EQ(known.place, "");
  EXPECT_EQ(known.names, std::vector<NamesRow>(least));
}

TEST(ArrowRect, TheTipPointsAtThePersonAtTheScaleOfThePhoto) {
  const TwipsRect arrow = arrowRect({2400, 421, 3375, 2531}, {2880, 1440}, 3375);
  EXPECT_DOUBLE_EQ(arrow.left, 2400 + 2880 * 3375.0 / 5760 - 100);
  EXPECT_DOUBLE_EQ(arrow.top, 421 + 1440 * 3375.0 / 5760 - 288);
}

} // namespace
} // namespace hearthbook::test
