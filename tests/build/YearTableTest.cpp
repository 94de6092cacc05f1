#include "YearTable.h"
#include "AlbumFixture.h"
#include "RunTimeError.h"

#include <random>

namespace hearthbook::test {
namespace {

constexpr int person = 4;
constexpr int place = 1;
constexpr int event = 2;

class YearTableTest : public AlbumFixture {
protected:
  void addPhoto(const Value& year, const Value& placeId, const Value& eventId, const Value& names) {
    folder_.addRow("PhotoAlbum", {{"PictureID", "HD" + std::to_string(20000 + added_++)},
                                  {"Year", year},
                                  {"PlaceID", placeId},
                                  {"EventID", eventId},
                                  {"NamesInPhoto", names}});
  }
  YearTable tableFrom(int birthYear, int currentYear = 2026) {
    return yearTable(data().AlbumDB, {person, place, event, birthYear, currentYear});
  }
  /// The same by a filter for each year, as slowly as one would do it by hand.
  YearTable byFilters(int birthYear, int currentYear) {
    YearTable table;
    Recordset photos(data().AlbumDB);
    photos.Open("SELECT * FROM PhotoAlbum");
    for (int year = birthYear; year <= currentYear; ++year) {
      YearRow row{year, year - birthYear};
      photos.Filter(" Year = '" + std::to_string(year) + "'");
      for (; !photos.atEOF(); photos.MoveNext()) {
        if (photos.Collect("NamesInPhoto").toText().find("004") == std::string::npos)
          continue;
        row.placeMark |= photos.Collect("PlaceID") == Value(place);
        row.eventMark |= photos.Collect("EventID") == Value(event);
      }
      table.rows.push_back(row);
      if (row.placeMark && row.eventMark && table.firstHit == 0)
        table.firstHit = static_cast<int>(table.rows.size());
    }
    return table;
  }

  int added_ = 0;
};

TEST_F(YearTableTest, APersonBornThisYearHasOneRowAtAgeZero) {
  const YearTable table = tableFrom(2026);
  EXPECT_EQ(table.rows, (std::vector<YearRow>{{2026, 0, false, false}}));
  EXPECT_EQ(table.firstHit, 0);
}

TEST_F(YearTableTest, ABirthYearAfterTheCurrentYearHasNoRows) {
  EXPECT_TRUE(tableFrom(2027).rows.empty());
  EXPECT_TRUE(tableFrom(3000).rows.empty());
}

TEST_F(YearTableTest, AnyYearCanBeTheFirst) {
  EXPECT_EQ(tableFrom(0).rows.size(), 2027U);
  EXPECT_EQ(tableFrom(-5).rows.size(), 2032U);
  EXPECT_EQ(tableFrom(-5).rows.front(), (YearRow{-5, 0}));
}

TEST_F(YearTableTest, TheAgeIsTheRowLessOne) {
  const YearTable table = tableFrom(1977);
  ASSERT_EQ(table.rows.size(), 50U);
  EXPECT_EQ(table.rows.back(), (YearRow{2026, 49}));
}

TEST_F(YearTableTest, PlaceAndEventAreMarkedInTheirYears) {
  addPhoto(1980, place, 9, "004,");
  addPhoto(1981, 9, event, "001,004,");
  addPhoto(1982, place, event, "004,");
  const YearTable table = tableFrom(1980, 1983);
  EXPECT_EQ(table.rows, (std::vector<YearRow>{{1980, 0, true, false},
                                              {1981, 1, false, true},
                                              {1982, 2, true, true},
                                              {1983, 3, false, false}}));
  EXPECT_EQ(table.firstHit, 3);
}

TEST_F(YearTableTest, DifferentPhotosOfAYearMakeAHitTogether) {
  addPhoto(1981, place, {}, "004,");
  addPhoto(1981, {}, event, "004,");
  EXPECT_EQ(tableFrom(1980).firstHit, 2);
}

TEST_F(YearTableTest, APhotoInWhichThePersonIsNotNamedLeavesNoMark) {
  addPhoto(1980, place, event, "005,");
  addPhoto(1980, place, event, {});
  EXPECT_EQ(tableFrom(1980).rows.front(), (YearRow{1980, 0, false, false}));
}

TEST_F(YearTableTest, TheDigitsOfTheIdAreFoundWhereverTheyStand) {
  addPhoto(1980, place, {}, "1004,");
  addPhoto(1981, {}, event, "0041,");
  const YearTable table = tableFrom(1980, 1981);
  EXPECT_TRUE(table.rows[0].placeMark);
  EXPECT_TRUE(table.rows[1].eventMark);
}

TEST_F(YearTableTest, PhotosWithoutAYearOrFromOtherTimesLeaveNoMark) {
  addPhoto({}, place, event, "004,");
  addPhoto(1979, place, event, "004,");
  addPhoto(2027, place, event, "004,");
  EXPECT_EQ(tableFrom(1980).firstHit, 0);
}

TEST_F(YearTableTest, IsTheSameAsFilteringYearByYear) {
  std::mt19937 random(7);
  const std::vector<Value> odd{Value(), 1980.5, 0};
  const std::vector<Value> ids{Value(), 1, 2, 3};
  const std::vector<Value> names{Value(), "", "004,", "001,", "001,004,", "1004,", "040,"};
  const auto pick = [&](const std::vector<Value>& from) -> const Value& {
    return from[random() % from.size()];
  };
  for (int photo = 0; photo < 400; ++photo) {
    const Value year = 1975 + static_cast<int>(random() % 60);
    addPhoto(random() % 9 == 0 ? pick(odd) : year, pick(ids), pick(ids), pick(names));
  }
  EXPECT_EQ(tableFrom(1977), byFilters(1977, 2026));
  EXPECT_EQ(tableFrom(-5), byFilters(-5, 2026));
  EXPECT_EQ(tableFrom(2026), byFilters(2026, 2026));
}

TEST_F(YearTableTest, ALateFirstHitIsScrolledToTheMiddle) {
  YearTable table;
  EXPECT_EQ(table.topRow(), 1);
  table.firstHit = 13;
  EXPECT_EQ(table.topRow(), 1);
  table.firstHit = 14;
  EXPECT_EQ(table.topRow(), 7);
}

TEST_F(YearTableTest, TheHeaderIsOneFormat) {
  EXPECT_EQ(yearTableFormat("Anna", "Lake", "Picnic"), "<Year    |<Anna      |^Lake  |^Picnic  ");
  EXPECT_EQ(yearTableFormat("A|B", "Lake", "Picnic"), "<Year    |<A/B      |^Lake  |^Picnic  ");
}

TEST_F(YearTableTest, ARowIsTextWithTabs) {
  EXPECT_EQ(yearRowText({1980, 3, true, false}), "1980\tAge 3\tX\t");
  EXPECT_EQ(yearRowText({1980, 3, false, true}), "1980\tAge 3\t\tX");
}

TEST_F(YearTableTest, TheFirstYearIsTheStoredNumber) {
  EXPECT_EQ(firstYear(1977), 1977);
  EXPECT_EQ(firstYear(" 77 "), 77);
  EXPECT_THROW(firstYear("abcd"), RunTimeError);
  EXPECT_THROW(firstYear({}), RunTimeError);
  EXPECT_THROW(firstYear(1e9), RunTimeError);
}

} // namespace
} // namespace hearthbook::test
