#include "AlbumFile.h"

#include "RunTimeError.h"

namespace hearthbook::test {
namespace {

class Search : public AlbumFile {
protected:
  Search() {
    photos.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID");
    people.Open("Select * From Appearances Order By AppearancesNames");
  }

  std::string filtered(const char* criterion) {
    photos.Filter(criterion);
    return all(photos, "PictureID");
  }

  Recordset photos{connection};
  Recordset people{connection};
};

TEST_F(Search, FindStartsAtTheCurrentRowWhichIsIncluded) {
  photos.MoveFirst();
  photos.Find("Year = 1990");
  EXPECT_EQ(photos.Collect("PictureID"), Value("HD00002"));
  photos.Find("Year = 1990");
  EXPECT_EQ(photos.Collect("PictureID"), Value("HD00002"));
  photos.MoveNext();
  photos.Find("Year = 1990");
  EXPECT_EQ(photos.Collect("PictureID"), Value("HD00003"));
}

TEST_F(Search, FindStartsAtTheFirstRowWhereTold) {
  photos.MoveLast();
  photos.Find("PictureID = 'HD00001'", Recordset::Start::First);
  EXPECT_EQ(photos.AbsolutePosition(), 2);
}

TEST_F(Search, FindThatFindsNothingStandsAtEOF) {
  photos.Find("Year = 1850");
  EXPECT_TRUE(photos.atEOF());
  photos.Find("Year = 1990");
  EXPECT_TRUE(photos.atEOF());
  photos.MoveFirst();
  EXPECT_EQ(photos.AbsolutePosition(), 1);
}

TEST_F(Search, FindFromBofStartsAtTheFirstRow) {
  photos.Move(-5);
  photos.Find("PictureID = 'CD00002'");
  EXPECT_EQ(photos.AbsolutePosition(), 1);
}

TEST_F(Search, FindFindsNull) {
  photos.MoveNext();
  photos.Find("Year = Null");
  EXPECT_EQ(photos.Collect("PictureID"), Value("HD00005"));
}

TEST_F(Search, FindOfNullWhereThereIsNoneStandsAtEOF) {
  photos.Open("SELECT * FROM PhotoAlbum WHERE Year >= 1990");
  photos.Find("Year = Null");
  EXPECT_TRUE(photos.atEOF());
  photos.MoveFirst();
  EXPECT_FALSE(photos.atEOF());
}

TEST_F(Search, FindTakesQuotedNumbersAndPaddedOnes) {
  for (const char* criterion : {"AppearancesID = 3", "AppearancesID = '3'", "AppearancesID='003'",
                                "AppearancesID = ' 3 '", "[AppearancesID] = '3.0'"}) {
    people.Find(criterion, Recordset::Start::First);
    EXPECT_EQ(people.Collect("AppearancesNames"), Value("Émile")) << criterion;
  }
  people.Find("AppearancesID = '3x'", Recordset::Start::First);
  EXPECT_TRUE(people.atEOF());
  people.Find("AppearancesID = ''", Recordset::Start::First);
  EXPECT_TRUE(people.atEOF());
}

TEST_F(Search, FindIgnoresCaseInEveryAlphabetButNotAccents) {
  people.Find("AppearancesNames = 'émile'", Recordset::Start::First);
  EXPECT_EQ(people.Collect("AppearancesID"), Value(3));
  people.Find("AppearancesNames = 'ZOË'", Recordset::Start::First);
  EXPECT_EQ(people.Collect("AppearancesID"), Value(1));
  people.Find("AppearancesNames = 'Emile'", Recordset::Start::First);
  EXPECT_TRUE(people.atEOF());
}

TEST_F(Search, FindTakesADoubledApostrophe) {
  people.AddNew({"AppearancesNames"}, {"O'Brien"});
  people.Find("AppearancesNames = 'O''Brien'", Recordset::Start::First);
  EXPECT_EQ(people.Collect("AppearancesID"), Value(5));
}

TEST_F(Search, FindFailsOnAStrayApostropheAndStaysWhereItIs) {
  people.MoveNext();
  EXPECT_THROW(people.Find("AppearancesNames = 'O'Brien'"), RunTimeError);
  EXPECT_THROW(people.Find("AppearancesNames = 'Ann''"), RunTimeError);
  EXPECT_EQ(people.AbsolutePosition(), 2);
}

TEST_F(Search, FindTakesOneComparisonOnly) {
  EXPECT_THROW(people.Find("AppearancesNames = 'x' OR AppearancesID = '1'"), RunTimeError);
  EXPECT_THROW(people.Find("Nothing = 1"), RunTimeError);
  EXPECT_THROW(people.Find(""), RunTimeError);
}

TEST_F(Search, FindSearchesWhatIsNotFilteredOut) {
  photos.Filter("Year = 1990");
  photos.Find("PictureID = 'HD00001'");
  EXPECT_TRUE(photos.atEOF());
}

TEST_F(Search, FilterShowsTheRowsForWhichItHoldsAndCountsThem) {
  photos.MoveLast();
  photos.Filter("PlaceID = '1'");
  EXPECT_EQ(photos.RecordCount(), 2);
  EXPECT_EQ(photos.AbsolutePosition(), 1);
  EXPECT_EQ(photos.Filter(), "PlaceID = '1'");
  EXPECT_EQ(all(photos, "PictureID"), "HD00003 HD00005");
}

TEST_F(Search, AnEmptyFilterShowsAllRows) {
  photos.Filter("PlaceID = '1'");
  photos.Filter("");
  EXPECT_EQ(photos.RecordCount(), 6);
  EXPECT_EQ(photos.AbsolutePosition(), 1);
  EXPECT_EQ(photos.Filter(), "");
}

TEST_F(Search, FilterTakesBlanksInFrontAndAnyCase) {
  EXPECT_EQ(filtered(" Year = '1990'"), "HD00002 HD00003");
  EXPECT_EQ(filtered("PictureID = 'HD00001' Or PictureID = 'hd00004'"), "HD00001 HD00004");
}

TEST_F(Search, FilterTakesAllComparisons) {
  EXPECT_EQ(filtered("Year > 1990"), "HD00001 HD00004");
  EXPECT_EQ(filtered("Year >= '1995'"), "HD00001 HD00004");
  EXPECT_EQ(filtered("Year < 1995"), "HD00002 HD00003");
  EXPECT_EQ(filtered("Year <= 1995"), "HD00001 HD00002 HD00003");
  EXPECT_EQ(filtered("Year <> 1990"), "HD00001 HD00004");
  EXPECT_EQ(filtered("Year <> Null"), "HD00001 HD00002 HD00003 HD00004");
  EXPECT_EQ(filtered("Year > -1.5"), "HD00001 HD00002 HD00003 HD00004");
  EXPECT_EQ(filtered("PictureID < 'hd00001'"), "CD00002");
  EXPECT_EQ(filtered("Description LIKE '%SEE'"), "CD00002");
  EXPECT_EQ(filtered("Description LIKE 'är%'"), "CD00002");
  EXPECT_EQ(filtered("Year LIKE '19%'"), "HD00001 HD00002 HD00003");
}

TEST_F(Search, AndBindsCloserThanOrAndBracketsCloserStill) {
  EXPECT_EQ(filtered("Year = 1995 OR Year = 1990 AND PlaceID = 3"), "HD00001 HD00002");
  EXPECT_EQ(filtered("(Year = 1995 OR Year = 1990) AND PlaceID = 3"), "HD00002");
}

TEST_F(Search, FilterThatIsWrongThrowsAndChangesNothing) {
  photos.Filter("Year = 1990");
  photos.MoveLast();
  EXPECT_THROW(photos.Filter("Nothing = 1"), RunTimeError);
  EXPECT_THROW(photos.Filter("Year ="), RunTimeError);
  EXPECT_EQ(photos.Filter(), "Year = 1990");
  EXPECT_EQ(photos.AbsolutePosition(), 2);
}

TEST_F(Search, FilterOfThousandsOfIdsFindsThem) {
  std::string criterion = "PictureID = 'HD00004'";
  for (int i = 0; i < 5'000; ++i)
    criterion += " Or PictureID = 'x" + std::to_string(i) + "'";
  EXPECT_EQ(filtered((criterion + " Or PictureID = 'HD00001'").c_str()), "HD00001 HD00004");
}

TEST_F(Search, FilterByBookmarksShowsThoseRowsInTheirOrder) {
  photos.MoveLast();
  const auto last = photos.bookmark();
  photos.MoveFirst();
  const auto first = photos.bookmark();
  photos.Filter(std::vector{last, first, last});
  EXPECT_EQ(all(photos, "PictureID"), "CD00002 HD00005");
  photos.Filter(std::vector<Recordset::Bookmark>{});
  EXPECT_EQ(photos.RecordCount(), 0);
  photos.Filter("");
  EXPECT_EQ(photos.RecordCount(), 6);
}

TEST_F(Search, ARowThatIsEditedUnderAFilterStaysInTheWalk) {
  photos.Filter("PlaceID = '1'");
  int met = 0;
  for (; !photos.atEOF(); photos.MoveNext(), ++met) {
    photos.Collect("PlaceID", Value());
    photos.Update();
  }
  EXPECT_EQ(met, 2);
  photos.Filter("");
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE PlaceID = 1"), "0");
  EXPECT_EQ(filtered("PlaceID = '1'"), "");
}

TEST_F(Search, ARowAddedUnderAFilterIsShownUntilTheNextFilter) {
  photos.Filter("Year = 1990");
  photos.AddNew({"PictureID"}, {"HD00006"});
  EXPECT_EQ(photos.RecordCount(), 3);
  EXPECT_EQ(photos.Collect("PictureID"), Value("HD00006"));
  EXPECT_EQ(filtered("Year = 1990"), "HD00002 HD00003");
  EXPECT_EQ(filtered(""), "CD00002 HD00001 HD00002 HD00003 HD00004 HD00005 HD00006");
}

TEST_F(Search, OrderIsTheUsersWithoutRegardToCase) {
  EXPECT_EQ(all(people, "AppearancesNames"), "Ann bob Émile zoë");
}

TEST_F(Search, SortOrdersWhatIsShownAndStandsOnTheFirstRow) {
  people.Open("Select * From Appearances where RelationID = 0");
  people.MoveLast();
  people.Sort("AppearancesNames");
  EXPECT_EQ(people.AbsolutePosition(), 1);
  EXPECT_EQ(all(people, "AppearancesNames"), "Ann bob zoë");
  people.Sort("");
  EXPECT_EQ(all(people, "AppearancesNames"), "zoë Ann bob");
}

TEST_F(Search, SortTakesSeveralFieldsAndDirections) {
  photos.Sort("Year desc, PictureID");
  EXPECT_EQ(all(photos, "PictureID"), "HD00004 HD00001 HD00002 HD00003 CD00002 HD00005");
  photos.Sort("[Year] ASC , PictureID DESC");
  EXPECT_EQ(all(photos, "PictureID"), "HD00005 CD00002 HD00003 HD00002 HD00001 HD00004");
}

TEST_F(Search, SortThatIsWrongThrowsAndChangesNothing) {
  photos.Sort("Year");
  for (const char* fields : {"Nothing", "Year,", ", Year", "Year Year", "Year up", "'Year'"})
    EXPECT_THROW(photos.Sort(fields), RunTimeError) << fields;
  EXPECT_EQ(all(photos, "PictureID"), "CD00002 HD00005 HD00002 HD00003 HD00001 HD00004");
}

TEST_F(Search, FilterAndSortHoldTogether) {
  people.Filter("RelationID = 0");
  people.Sort("BirthYear");
  EXPECT_EQ(all(people, "AppearancesNames"), "Ann bob zoë");
  people.Filter("");
  people.Sort("");
  EXPECT_EQ(all(people, "AppearancesNames"), "Ann bob Émile zoë");
}

TEST_F(Search, TextsCompareWithoutRegardToCaseInStatementsToo) {
  EXPECT_EQ(stored("SELECT PlaceID FROM Places WHERE PlaceName = 'ÉVIAN'"), "3");
  EXPECT_EQ(stored("SELECT PlaceID FROM Places WHERE PlaceName = 'evian'"), "no row");
  EXPECT_EQ(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'hd00001'"), "1995");
}

TEST_F(Search, LikeIgnoresCaseInEveryAlphabetButNotAccents) {
  auto count = [&](const std::string& pattern) {
    return stored("SELECT count(*) FROM PhotoAlbum WHERE Description LIKE '" + pattern + "'");
  };
  EXPECT_EQ(count("ÄRGER%"), "1");
  EXPECT_EQ(count("%am see%"), "1");
  EXPECT_EQ(count("Arger%"), "0");
  EXPECT_EQ(count("%Bob''s%"), "1");
  EXPECT_EQ(count("%"), "4");
  EXPECT_EQ(stored("SELECT PictureID FROM PhotoAlbum WHERE Description LIKE '%#_%' ESCAPE '#'"),
            "HD00004");
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE Description LIKE Null"), "0");
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE NamesInPhoto LIKE '%002%'"), "2");
}

TEST_F(Search, QuotedNumbersMatchNumbersInStatementsToo) {
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE EventID = '1'"), "2");
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE EventID = '01'"), "2");
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE Year >= '1995'"), "2");
}

TEST_F(Search, NullComesFirst) {
  photos.Open("SELECT * FROM PhotoAlbum Order By Year, PictureID");
  EXPECT_EQ(all(photos, "PictureID"), "CD00002 HD00005 HD00002 HD00003 HD00001 HD00004");
}

} // namespace
} // namespace hearthbook::test
