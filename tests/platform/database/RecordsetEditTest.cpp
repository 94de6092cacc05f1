#include "AlbumFile.h"

#include "RunTimeError.h"

namespace hearthbook::test {
namespace {

class Edit : public AlbumFile {
protected:
  Edit() {
    photos.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID");
    places.Open("Select * From Places Order By PlaceName");
  }

  Recordset photos{connection};
  Recordset places{connection};
};

TEST_F(Edit, AWriteIsPendingUntilUpdate) {
  photos.Collect("Year", 1960);
  EXPECT_TRUE(photos.isPending());
  EXPECT_EQ(photos.Collect("year"), Value(1960));
  EXPECT_EQ(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'CD00002'"), "Null");
  photos.Update();
  EXPECT_FALSE(photos.isPending());
  EXPECT_EQ(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'CD00002'"), "1960");
}

TEST_F(Edit, EveryMoveStores) {
  int year = 1900;
  auto edited = [&](auto leave) {
    photos.MoveFirst();
    photos.Collect("Year", ++year);
    leave();
    return stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'CD00002'") ==
           std::to_string(year);
  };
  photos.MoveLast();
  const auto mark = photos.bookmark();
  EXPECT_TRUE(edited([&] { photos.MoveFirst(); }));
  EXPECT_TRUE(edited([&] { photos.MoveLast(); }));
  EXPECT_TRUE(edited([&] { photos.MoveNext(); }));
  EXPECT_TRUE(edited([&] { photos.MovePrevious(); }));
  EXPECT_TRUE(edited([&] { photos.Move(2); }));
  EXPECT_TRUE(edited([&] { photos.goTo(mark); }));
  EXPECT_TRUE(edited([&] { photos.Find("Year = 1990"); }));
  EXPECT_TRUE(edited([&] { photos.Filter("Year = 1990"); }) && (photos.Filter(""), true));
  EXPECT_TRUE(edited([&] { photos.Sort("Year"); }) && (photos.Sort(""), true));
  EXPECT_TRUE(edited([&] { photos.UpdateBatch(); }));
  EXPECT_TRUE(edited([&] { photos.Requery(); }));
  EXPECT_TRUE(edited([&] { photos.AddNew({"PictureID"}, {"HD00009"}); }));
  EXPECT_TRUE(edited([&] { photos.Close(); }));
}

TEST_F(Edit, NullCanBeWritten) {
  photos.MoveLast();
  photos.Collect("PlaceID", Value());
  photos.Update();
  EXPECT_TRUE(photos.Collect("PlaceID").isNull());
  EXPECT_EQ(stored("SELECT PlaceID FROM PhotoAlbum WHERE PictureID = 'HD00005'"), "Null");
}

TEST_F(Edit, AnEmptyTextStaysAText) {
  photos.Collect("Description", "");
  photos.Update();
  EXPECT_EQ(photos.Collect("Description"), Value(""));
  EXPECT_EQ(stored("SELECT typeof(Description) FROM PhotoAlbum WHERE PictureID = 'CD00002'"),
            "text");
}

TEST_F(Edit, AfterUpdateTheFieldHoldsWhatIsStored) {
  photos.Collect("Year", " 1984 ");
  EXPECT_EQ(photos.Collect("Year"), Value(" 1984 "));
  photos.Update();
  EXPECT_EQ(photos.Collect("Year"), Value(1984));
}

TEST_F(Edit, CancelUpdateDropsTheEdits) {
  photos.Collect("Year", 1960);
  photos.Collect("Description", "x");
  photos.CancelUpdate();
  EXPECT_FALSE(photos.isPending());
  EXPECT_TRUE(photos.Collect("Year").isNull());
  EXPECT_EQ(photos.Collect("Description"), Value("Ärger am See"));
  photos.MoveNext();
  EXPECT_EQ(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'CD00002'"), "Null");
}

TEST_F(Edit, AFailedUpdateStaysPendingUntilItIsCancelled) {
  photos.Collect("PictureID", "HD00001");
  EXPECT_THROW(photos.Update(), RunTimeError);
  EXPECT_THROW(photos.MoveNext(), RunTimeError);
  EXPECT_EQ(photos.AbsolutePosition(), 1);
  photos.CancelUpdate();
  photos.MoveNext();
  EXPECT_EQ(photos.AbsolutePosition(), 2);
}

TEST_F(Edit, RowAfterRowIsStoredWithTheSameFieldsAndWithOthers) {
  int year = 1900;
  for (photos.MoveFirst(); !photos.atEOF(); photos.MoveNext())
    photos.Collect("Year", ++year);
  photos.MoveFirst();
  photos.Collect("Description", "other words");
  photos.Update();
  photos.MoveLast();
  photos.Collect("Year", Value());
  photos.Update();
  EXPECT_EQ(stored("SELECT count(DISTINCT Year) FROM PhotoAlbum"),
            std::to_string(photos.RecordCount() - 1));
  EXPECT_EQ(stored("SELECT Description FROM PhotoAlbum WHERE Year = 1901"), "other words");
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE Description = 'other words'"), "1");
}

TEST_F(Edit, BehindARefusedUpdateTheSameFieldsOfOtherRowsAreStored) {
  connection.execute("CREATE TRIGGER Refuse BEFORE UPDATE ON PhotoAlbum WHEN NEW.Year = 1066 "
                     "BEGIN SELECT RAISE(ABORT, 'too long ago'); END");
  photos.Collect("Year", 1990);
  photos.Update();
  photos.Collect("Year", 1066);
  EXPECT_THROW(photos.Update(), RunTimeError);
  photos.CancelUpdate();
  photos.Collect("Year", 1991);
  photos.Update();
  EXPECT_EQ(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'CD00002'"), "1991");
}

TEST_F(Edit, UpdateWithoutEditsDoesNothing) {
  photos.Update();
  photos.Move(100);
  photos.Update();
  photos.UpdateBatch();
  EXPECT_TRUE(photos.atEOF());
}

TEST_F(Edit, FieldsThatAreNotThereCannotBeWritten) {
  EXPECT_THROW(photos.Collect("Nothing", 1), RunTimeError);
  EXPECT_THROW(photos.Collect("RowKey", 1), RunTimeError);
  photos.Move(100);
  EXPECT_THROW(photos.Collect("Year", 1), RunTimeError);
}

TEST_F(Edit, AddNewStoresAtUpdateAndKnowsItsKey) {
  places.AddNew();
  EXPECT_EQ(places.RecordCount(), 4);
  EXPECT_EQ(places.AbsolutePosition(), 4);
  EXPECT_TRUE(places.Collect("PlaceID").isNull());
  places.Collect("PlaceName", "Garden");
  EXPECT_EQ(stored("SELECT count(*) FROM Places"), "3");
  places.Update();
  EXPECT_EQ(places.Collect("PlaceID"), Value(4));
  EXPECT_EQ(places.AbsolutePosition(), 4);
  EXPECT_EQ(stored("SELECT PlaceName FROM Places WHERE PlaceID = 4"), "Garden");
}

TEST_F(Edit, AddNewWithListsStoresAtOnce) {
  photos.AddNew({"PictureID", "Year"}, {"HD00007", 1970});
  EXPECT_FALSE(photos.isPending());
  EXPECT_EQ(photos.Collect("PictureID"), Value("HD00007"));
  EXPECT_TRUE(photos.Collect("Description").isNull());
  EXPECT_EQ(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'HD00007'"), "1970");
  photos.Collect("Year", 1971);
  photos.Update();
  EXPECT_EQ(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'HD00007'"), "1971");
}

TEST_F(Edit, AddNewOfATakenIdThrowsAndLeavesNoRow) {
  photos.Move(2);
  EXPECT_THROW(photos.AddNew({"PictureID"}, {"hd00001"}), RunTimeError);
  EXPECT_FALSE(photos.isPending());
  EXPECT_EQ(photos.RecordCount(), 6);
  EXPECT_EQ(photos.AbsolutePosition(), 3);
  EXPECT_THROW(photos.AddNew({"PictureID"}, {}), RunTimeError);
  EXPECT_THROW(photos.AddNew({"Nothing"}, {1}), RunTimeError);
  EXPECT_EQ(photos.RecordCount(), 6);
}

TEST_F(Edit, CancelUpdateDropsANewRowAndReturns) {
  places.MoveNext();
  places.AddNew();
  places.Collect("PlaceName", "Garden");
  places.CancelUpdate();
  EXPECT_EQ(places.RecordCount(), 3);
  EXPECT_EQ(places.AbsolutePosition(), 2);
  EXPECT_EQ(stored("SELECT count(*) FROM Places"), "3");
}

TEST_F(Edit, DeletingANewRowDropsIt) {
  places.AddNew();
  places.Delete();
  EXPECT_EQ(places.RecordCount(), 3);
  EXPECT_FALSE(places.isPending());
}

TEST_F(Edit, MovingStoresANewRow) {
  Recordset members(connection);
  members.Open("SELECT SubAlbumPhotos.*, PhotoAlbum.* FROM SubAlbumPhotos LEFT JOIN PhotoAlbum "
               "ON PhotoID = PictureID WHERE AlbumID = 2");
  members.AddNew();
  members.Collect("PhotoID", "HD00004");
  members.Collect("AlbumID", "2");
  members.Collect("Index", members.RecordCount() - 1);
  members.MoveFirst();
  EXPECT_EQ(members.RecordCount(), 3);
  EXPECT_EQ(stored("SELECT [Index] FROM SubAlbumPhotos WHERE PhotoID = 'HD00004' AND AlbumID = 2"),
            "2");
}

TEST_F(Edit, ANewRowOfAnEmptySetIsCurrent) {
  places.Open("SELECT * FROM Places WHERE PlaceID = 99");
  places.AddNew();
  places.Collect("PlaceName", "Garden");
  places.Update();
  EXPECT_EQ(places.AbsolutePosition(), 1);
  EXPECT_EQ(places.Collect("PlaceName"), Value("Garden"));
}

TEST_F(Edit, ATextThatIsTooLongForItsFieldIsRefused) {
  places.Collect("PlaceName", "123456789012345678901");
  EXPECT_THROW(places.Update(), RunTimeError);
  places.Collect("PlaceName", "äöüäöüäöüäöüäöüäöüäö");
  places.Update();
  EXPECT_EQ(places.Collect("PlaceName"), Value("äöüäöüäöüäöüäöüäöüäö"));
}

TEST_F(Edit, DeleteStandsOnTheRowThatFollowed) {
  photos.Move(2);
  photos.Delete();
  photos.UpdateBatch();
  EXPECT_EQ(photos.RecordCount(), 5);
  EXPECT_EQ(photos.AbsolutePosition(), 3);
  EXPECT_EQ(photos.Collect("PictureID"), Value("HD00003"));
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum"), "5");
}

TEST_F(Edit, DeletingTheLastRowStandsAtEOF) {
  photos.MoveLast();
  photos.Delete();
  EXPECT_TRUE(photos.atEOF());
  EXPECT_EQ(photos.RecordCount(), 5);
  EXPECT_THROW(photos.Delete(), RunTimeError);
}

TEST_F(Edit, AWalkThatDeletesAndMovesOnMeetsEveryRow) {
  Recordset members(connection);
  members.Open("SubAlbumPhotos");
  members.Filter("PhotoID = 'HD00003'");
  const auto count = members.RecordCount();
  ASSERT_EQ(count, 2);
  for (std::int64_t i = 0; i < count; ++i) {
    members.Delete();
    members.UpdateBatch();
    members.MoveNext();
  }
  EXPECT_TRUE(members.atEOF());
  EXPECT_THROW(members.MoveNext(), RunTimeError);
  members.Filter("");
  EXPECT_EQ(members.RecordCount(), 3);
  EXPECT_EQ(stored("SELECT count(*) FROM SubAlbumPhotos"), "3");
}

TEST_F(Edit, DeletingAllRowsLeavesAnEmptySet) {
  while (!places.atEOF())
    places.Delete();
  EXPECT_TRUE(places.atBOF());
  EXPECT_EQ(places.RecordCount(), 0);
  EXPECT_EQ(stored("SELECT count(*) FROM Places"), "0");
}

TEST_F(Edit, DeletingTheGroupTakesAllRowsThatTheFilterShows) {
  photos.Filter("Year = 1990");
  ASSERT_EQ(photos.RecordCount(), 2);
  photos.Delete(Recordset::Affect::Group);
  EXPECT_TRUE(photos.atEOF());
  EXPECT_EQ(photos.RecordCount(), 0);
  photos.Filter("");
  EXPECT_EQ(photos.RecordCount(), 4);
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum"), "4");
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE Year = 1990"), "0");
}

TEST_F(Edit, DeletingTheGroupOfChosenRowsLeavesTheOthers) {
  std::vector<Recordset::Bookmark> chosen;
  for (const int row : {4, 1}) {
    photos.Move(row, Recordset::Start::First);
    chosen.push_back(photos.bookmark());
  }
  photos.Filter(chosen);
  photos.Delete(Recordset::Affect::Group);
  photos.Filter("");
  EXPECT_EQ(photos.RecordCount(), 4);
  EXPECT_EQ(stored("SELECT group_concat(PictureID) FROM (SELECT * FROM PhotoAlbum ORDER BY "
                   "PictureID)"),
            "CD00002,HD00002,HD00003,HD00005");
}

TEST_F(Edit, DeletingTheGroupOfNoRowsDeletesNothing) {
  photos.Filter("Year = 1066");
  photos.Delete(Recordset::Affect::Group);
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum"), "6");
}

TEST_F(Edit, AGroupOfWhichARowIsGoneMeanwhileStaysWhole) {
  connection.execute("DELETE FROM PhotoAlbum WHERE PictureID = 'HD00003'");
  EXPECT_THROW(photos.Delete(Recordset::Affect::Group), RunTimeError);
  EXPECT_EQ(photos.RecordCount(), 6);
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum"), "5");
}

TEST_F(Edit, DeletingTheGroupDropsARowThatIsNotStoredYet) {
  photos.AddNew();
  photos.Delete(Recordset::Affect::Group);
  EXPECT_FALSE(photos.isPending());
  EXPECT_EQ(photos.RecordCount(), 0);
}

TEST_F(Edit, DeleteDropsTheEditsOfItsRow) {
  photos.Collect("Year", 1960);
  photos.Delete();
  EXPECT_FALSE(photos.isPending());
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE Year = 1960"), "0");
}

TEST_F(Edit, ARowThatIsGoneMeanwhileCannotBeChanged) {
  connection.execute("DELETE FROM PhotoAlbum WHERE PictureID = 'CD00002'");
  photos.Collect("Year", 1960);
  EXPECT_THROW(photos.Update(), RunTimeError);
  photos.CancelUpdate();
  EXPECT_THROW(photos.Delete(), RunTimeError);
  photos.Requery();
  EXPECT_EQ(photos.RecordCount(), 5);
}

TEST_F(Edit, AJoinedSetWritesToTheTableThatComesFirst) {
  Recordset strip(connection);
  strip.Open("SELECT SubAlbumPhotos.*, PhotoAlbum.*, Events.EventName, Places.PlaceName FROM "
             "((SubAlbumPhotos LEFT JOIN PhotoAlbum ON SubAlbumPhotos.PhotoID = "
             "PhotoAlbum.PictureID) LEFT JOIN Events ON PhotoAlbum.EventID = Events.EventID) LEFT "
             "JOIN Places ON PhotoAlbum.PlaceID = Places.PlaceID WHERE SubAlbumPhotos.AlbumID = 1 "
             "ORDER BY SubAlbumPhotos.index");
  EXPECT_EQ(strip.RecordCount(), 3);
  EXPECT_FALSE(strip.hasField("RowKey"));
  strip.Collect("Index", 5);
  strip.Update();
  EXPECT_EQ(stored("SELECT [Index] FROM SubAlbumPhotos WHERE PhotoID = 'HD00001'"), "5");
  EXPECT_THROW(strip.Collect("Year", 1960), RunTimeError);
  EXPECT_THROW(strip.Collect("PlaceName", "x"), RunTimeError);
  strip.Delete();
  EXPECT_EQ(stored("SELECT count(*) FROM SubAlbumPhotos WHERE AlbumID = 1"), "2");
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum"), "6");
}

TEST_F(Edit, AnAlbumsPhotosAreWrittenToThePhotos) {
  Recordset album(connection);
  album.Open("SELECT PhotoAlbum.* From PhotoAlbum, SubAlbumPhotos Where PhotoAlbum.PictureID = "
             "SubAlbumPhotos.PhotoID AND (SubAlbumPhotos.AlbumID = 1) ORDER BY "
             "SubAlbumPhotos.`Index`");
  EXPECT_EQ(album.RecordCount(), 3);
  album.Collect("Description", "new");
  album.Update();
  EXPECT_EQ(stored("SELECT Description FROM PhotoAlbum WHERE PictureID = 'HD00001'"), "new");
}

TEST_F(Edit, ASetWithoutItsKeyIsWrittenAllTheSame) {
  Recordset some(connection);
  some.Open("SELECT Year, Description FROM PhotoAlbum WHERE PictureID = 'HD00004'");
  EXPECT_EQ(some.fieldNames(), (std::vector<std::string>{"Year", "Description"}));
  some.Collect("Year", 2002);
  some.Update();
  EXPECT_EQ(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'HD00004'"), "2002");
  some.Open("SELECT PlaceName FROM Places WHERE PlaceID = 2");
  EXPECT_EQ(some.fieldNames(), (std::vector<std::string>{"PlaceName"}));
  some.Collect("PlaceName", "Cottage");
  some.Update();
  EXPECT_EQ(stored("SELECT PlaceName FROM Places WHERE PlaceID = 2"), "Cottage");
}

TEST_F(Edit, TablesWithoutANumberAsKeyAreWritten) {
  Recordset rows(connection);
  rows.Open("SELECT * FROM Preferences");
  rows.Collect("EmailHost", "smtp.example.org");
  rows.Update();
  EXPECT_EQ(stored("SELECT EmailHost FROM Preferences"), "smtp.example.org");
  rows.Open("SELECT * FROM Help");
  rows.Find("HelpID = 'start*help'", Recordset::Start::First);
  rows.Collect("HelpText", "Hello.");
  rows.Update();
  EXPECT_EQ(stored("SELECT HelpText FROM Help WHERE helpID = 'Start*Help'"), "Hello.");
}

TEST_F(Edit, SummariesCanOnlyBeRead) {
  for (const char* source :
       {"SELECT DISTINCT Year FROM PhotoAlbum", "SELECT Year FROM PhotoAlbum GROUP BY Year",
        "SELECT Year, count(*) FROM PhotoAlbum", "SELECT max(Year) AS Year FROM PhotoAlbum",
        "SELECT Year FROM PhotoAlbum UNION SELECT BirthYear FROM Appearances",
        "SELECT 1 AS Year"}) {
    Recordset rows(connection);
    rows.Open(source);
    EXPECT_THROW(rows.Collect("Year", 1), RunTimeError) << source;
    EXPECT_THROW(rows.AddNew(), RunTimeError) << source;
    EXPECT_THROW(rows.Delete(), RunTimeError) << source;
  }
  EXPECT_EQ(stored("SELECT count(*) FROM (SELECT DISTINCT Year FROM PhotoAlbum)"), "4");
}

TEST_F(Edit, ADistinctSelectShowsEachValueOnce) {
  Recordset rows(connection);
  rows.Open("SELECT DISTINCT Year FROM PhotoAlbum ORDER BY Year");
  EXPECT_EQ(all(rows, "Year"), "- 1990 1995 2001");
}

TEST_F(Edit, KeysAreNeverGivenTwice) {
  places.Find("PlaceName = 'Évian'");
  places.Delete();
  places.AddNew({"PlaceName"}, {"Garden"});
  EXPECT_EQ(places.Collect("PlaceID"), Value(4));
}

TEST_F(Edit, DestroyingASetStoresItsEdits) {
  {
    Recordset rows(connection);
    rows.Open("Places");
    rows.Collect("PlaceName", "Garden");
  }
  EXPECT_EQ(stored("SELECT PlaceName FROM Places WHERE PlaceID = 1"), "Garden");
}

// ---- one value for many rows

TEST_F(Edit, SetAllStoresInEveryRowThatTheFilterShows) {
  photos.Filter("Year = 1990");
  const auto shown = photos.RecordCount();
  ASSERT_GT(shown, 1);
  photos.setAll("EventID", 7);
  photos.Filter("");
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE EventID = 7"), std::to_string(shown));
  photos.Filter("EventID = 7");
  EXPECT_EQ(photos.RecordCount(), shown);
}

TEST_F(Edit, SetAllStaysOnItsRowAndClonesSeeIt) {
  const auto clone = photos.Clone();
  photos.Move(2);
  const auto row = photos.bookmark();
  photos.setAll("PlaceID", Value());
  EXPECT_EQ(photos.bookmark(), row);
  for (; !clone->atEOF(); clone->MoveNext())
    EXPECT_TRUE(clone->Collect("PlaceID").isNull());
}

TEST_F(Edit, SetAllStoresWhatIsPendingFirst) {
  photos.Collect("Year", 1960);
  photos.setAll("EventID", 7);
  EXPECT_FALSE(photos.isPending());
  EXPECT_EQ(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'CD00002'"), "1960");
}

TEST_F(Edit, SetAllHoldsWhatTheDatabaseMadeOfTheValue) {
  photos.setAll("Year", "1985");
  EXPECT_EQ(photos.Collect("Year"), Value(1985));
}

TEST_F(Edit, SetAllThatFailsChangesNoRow) {
  photos.MoveLast();
  connection.execute("DELETE FROM PhotoAlbum WHERE PictureID = '" +
                     photos.Collect("PictureID").toText() + "'");
  EXPECT_THROW(photos.setAll("EventID", 7), RunTimeError);
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE EventID = 7"), "0");
  photos.Filter("EventID = 7");
  EXPECT_EQ(photos.RecordCount(), 0);
}

TEST_F(Edit, SetAllOfNoRowIsNothing) {
  photos.Filter("Year = 1849");
  photos.setAll("EventID", 7);
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum WHERE EventID = 7"), "0");
}

} // namespace
} // namespace hearthbook::test
