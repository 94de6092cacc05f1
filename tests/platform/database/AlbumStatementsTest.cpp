#include "AlbumFile.h"

#include "RunTimeError.h"

#include <string>
#include <vector>

// Every statement that the program sends to the album, as its rooms word it.

namespace hearthbook::test {
namespace {

struct Select {
  std::string source;
  const char* field;    // of which the rows are told
  const char* expected; // in the order of the rows
};

const std::string strip =
    "SELECT SubAlbumPhotos.*, PhotoAlbum.*, Events.EventName, Places.PlaceName FROM "
    "((SubAlbumPhotos LEFT JOIN PhotoAlbum ON SubAlbumPhotos.PhotoID = PhotoAlbum.PictureID) LEFT "
    "JOIN Events ON PhotoAlbum.EventID = Events.EventID) LEFT JOIN Places ON PhotoAlbum.PlaceID = "
    "Places.PlaceID WHERE SubAlbumPhotos.AlbumID = ";

const std::string designer =
    "SELECT PhotoAlbum.PictureID, PhotoAlbum.Year, Places.PlaceName, Events.EventName FROM "
    "(PhotoAlbum LEFT JOIN Places ON PhotoAlbum.PlaceID = Places.PlaceID) LEFT JOIN Events ON "
    "PhotoAlbum.EventID = Events.EventID WHERE ";

const std::string albumPages =
    "SELECT PhotoAlbum.* From PhotoAlbum, SubAlbumPhotos Where PhotoAlbum.PictureID = "
    "SubAlbumPhotos.PhotoID AND (SubAlbumPhotos.AlbumID = 1) ORDER BY SubAlbumPhotos.";

constexpr const char* all6 = "CD00002 HD00001 HD00002 HD00003 HD00004 HD00005";

const std::vector<Select> selects{
    // The shared record sets
    {"Select * From Events Order By EventName", "EventID", "2 1"},
    {"SELECT * FROM PhotoAlbum ORDER BY PictureID", "PictureID", all6},
    {"SELECT * FROM PhotoAlbum Order By PictureID", "PictureID", all6},
    {"Select * From Places Order By PlaceName", "PlaceID", "3 2 1"},
    {"Select * From Appearances Order By AppearancesNames", "AppearancesID", "2 4 3 1"},
    {"SELECT * From SubAlbums Order By AlbumName ", "AlbumID", "2 1"},
    {"SubAlbumPhotos", "PhotoID", "HD00003 HD00001 HD00003 HD00002 HD09999"},
    {"SELECT * FROM Help", "helpID", "Build Album*Add Event Start*Help"},
    {"SELECT * FROM Preferences", "eMail", "a@example.org"},
    // Names
    {"Select * From Appearances where RelationID = 0", "AppearancesID", "1 2 4"},
    {"Select * From Appearances where RelationID = 2 Order By AppearancesNames", "AppearancesID",
     "3"},
    {"SELECT * FROM Appearances Order By AppearancesNames", "AppearancesID", "2 4 3 1"},
    {"SELECT * FROM Appearances Where AppearancesID = 3", "AFirstName", "-"},
    // Photos
    {"SELECT * FROM PhotoAlbum", "PictureID", all6},
    {"Select * From PhotoAlbum Where PlaceID = 1", "PictureID", "HD00003 HD00005"},
    {"Select * From PhotoAlbum Where EventID = 2", "PictureID", "HD00003 HD00004"},
    {"SELECT * From PhotoAlbum Where PictureID = Null", "PictureID", ""},
    {"SELECT * From PhotoAlbum Where PictureID = Null OR PictureID = 'HD00004' OR PictureID = "
     "'CD00002'",
     "PictureID", "CD00002 HD00004"},
    {"SELECT * FROM PhotoAlbum Order By Year, PictureID", "PictureID",
     "CD00002 HD00005 HD00002 HD00003 HD00001 HD00004"},
    // Search
    {"SELECT * FROM PhotoAlbum  ORDER BY Year, PictureID", "PictureID",
     "CD00002 HD00005 HD00002 HD00003 HD00001 HD00004"},
    {"SELECT * FROM PhotoAlbum  ORDER BY PlaceID, PictureID", "PictureID",
     "CD00002 HD00003 HD00005 HD00001 HD00004 HD00002"},
    {"SELECT * FROM PhotoAlbum  ORDER BY EventID, PictureID", "PictureID",
     "HD00001 HD00005 CD00002 HD00002 HD00003 HD00004"},
    {"SELECT * FROM PhotoAlbum WHERE (PhotoAlbum.PlaceID = 1 OR PhotoAlbum.PlaceID = 3) And "
     "(PhotoAlbum.EventID = 1) AND (NamesInPhoto LIKE '%002%') AND (Year >= 1990) AND (Year "
     "<= 1995) AND (Description LIKE '%Bob''s%') ORDER BY PlaceID, PictureID",
     "PictureID", "HD00002"},
    {"SELECT * FROM PhotoAlbum WHERE (PhotoAlbum.EventID = 2) AND (Year <= 1995) ORDER BY "
     "Year, PictureID",
     "PictureID", "HD00003"},
    {"SELECT * FROM PhotoAlbum WHERE (NamesInPhoto LIKE '%002%' AND NamesInPhoto LIKE "
     "'%001%') ORDER BY Year, PictureID",
     "PictureID", "HD00003"},
    {"SELECT * FROM PhotoAlbum WHERE (Description LIKE '%SEE%') ORDER BY PictureID, PictureID",
     "PictureID", "CD00002"},
    // Album pages
    {albumPages + "`Index`", "PictureID", "HD00001 HD00003 HD00002"},
    {albumPages + "[Index]", "PictureID", "HD00001 HD00003 HD00002"},
    {albumPages + "Index", "PictureID", "HD00001 HD00003 HD00002"},
    // The strip of a sub-album and its arrangements; a member without a photo is kept
    {strip + "1 ORDER BY SubAlbumPhotos.index", "PhotoID", "HD00001 HD00003 HD00002"},
    {strip + "1 ORDER BY SubAlbumPhotos.INDEX", "PhotoID", "HD00001 HD00003 HD00002"},
    {strip + "2 ORDER BY SubAlbumPhotos.index", "PhotoID", "HD00003 HD09999"},
    {strip + "1 ORDER BY PhotoAlbum.Year, PhotoAlbum.PictureID", "PhotoID",
     "HD00002 HD00003 HD00001"},
    {strip + "1 ORDER BY Events.EventName, PhotoAlbum.PictureID", "PhotoID",
     "HD00001 HD00003 HD00002"},
    {strip + "1 ORDER BY Places.PlaceName, PhotoAlbum.PictureID", "PhotoID",
     "HD00002 HD00001 HD00003"},
    {strip + "1 ORDER BY PhotoAlbum.PictureID", "PhotoID", "HD00001 HD00002 HD00003"},
    {strip + "2 ORDER BY Places.PlaceName, PhotoAlbum.PictureID", "PlaceName", "- lake"},
    // Export
    {"SELECT SubAlbumPhotos.AlbumID, PhotoAlbum.PictureID, Events.EventName, "
     "Places.PlaceName, PhotoAlbum.Year, PhotoAlbum.NamesInPhoto, PhotoAlbum.NamesCords, "
     "PhotoAlbum.Description FROM SubAlbumPhotos INNER JOIN ((PhotoAlbum LEFT JOIN Places ON "
     "PhotoAlbum.PlaceID = Places.PlaceID) LEFT JOIN Events ON PhotoAlbum.EventID = "
     "Events.EventID) ON SubAlbumPhotos.PhotoID = PhotoAlbum.PictureID WHERE "
     "(((SubAlbumPhotos.AlbumID)=1)) ORDER BY SubAlbumPhotos.Index, PhotoAlbum.PictureID;",
     "PlaceName", "Home lake Évian"},
    {designer + "(((PhotoAlbum.NamesInPhoto) LIKE '%002%')) ORDER BY PhotoAlbum.Year;", "PictureID",
     "HD00003 HD00002"},
    {designer + "(((PhotoAlbum.PlaceID) = 1)) ORDER BY PhotoAlbum.Year;", "PlaceName", "lake lake"},
    {designer + "(((PhotoAlbum.EventID) = 1)) ORDER BY PhotoAlbum.Year;", "PictureID",
     "CD00002 HD00002"},
};

class AlbumStatements : public AlbumFile {};

TEST_F(AlbumStatements, SelectsGiveTheirRowsInOrder) {
  Recordset rows(connection);
  for (const Select& select : selects) {
    SCOPED_TRACE(select.source);
    ASSERT_NO_THROW(rows.Open(select.source));
    EXPECT_EQ(all(rows, select.field), select.expected);
    EXPECT_FALSE(rows.hasField("RowKey"));
  }
}

TEST_F(AlbumStatements, SelectsOfPhotosCanBeEdited) {
  Recordset rows(connection);
  for (const Select& select : selects) {
    SCOPED_TRACE(select.source);
    rows.Open(select.source);
    if (rows.RecordCount() == 0)
      continue;
    const std::string field = rows.fieldNames().front();
    rows.Collect(field, rows.Collect(field));
    EXPECT_NO_THROW(rows.Update());
  }
}

TEST_F(AlbumStatements, ActionsChangeTheirRows) {
  Recordset rows(connection);
  rows.Open("DELETE FROM SubAlbumPhotos WHERE AlbumID = 1 AND PhotoID = 'HD00003'");
  EXPECT_EQ(stored("SELECT count(*) FROM SubAlbumPhotos"), "4");
  rows.Open("UPDATE SubAlbumPhotos SET SubAlbumPhotos.[Index] = 4 WHERE SubAlbumPhotos.PhotoID = "
            "'HD00003'");
  EXPECT_EQ(stored("SELECT [Index] FROM SubAlbumPhotos WHERE PhotoID = 'HD00003'"), "4");
  rows.Open("DELETE FROM SubAlbumPhotos WHERE AlbumID = 1");
  EXPECT_EQ(stored("SELECT count(*) FROM SubAlbumPhotos"), "2");
}

TEST_F(AlbumStatements, TheSelectWithoutASortFieldIsRefused) {
  Recordset rows(connection);
  EXPECT_THROW(rows.Open("SELECT * FROM PhotoAlbum  ORDER BY , PictureID"), RunTimeError);
}

TEST_F(AlbumStatements, AYearThatIsNoNumberOfTheDatabaseIsRefused) {
  Recordset rows(connection);
  EXPECT_THROW(rows.Open("SELECT * FROM PhotoAlbum WHERE (Year >= 1,990) ORDER BY Year, PictureID"),
               RunTimeError);
}

std::string manyPhotos(int count) {
  std::string statement = "SELECT * From PhotoAlbum Where PictureID = Null";
  for (int i = 1; i <= count; ++i)
    statement += " OR PictureID = 'HD" + std::to_string(100'000 + i).substr(1) + "'";
  return statement;
}

TEST_F(AlbumStatements, ThousandsOfPhotosCanBeChosen) {
  Recordset rows(connection);
  for (const int count : {398, 399, 400, 401, 999, 1'000, 5'000, 9'999}) {
    rows.Open(manyPhotos(count));
    EXPECT_EQ(all(rows, "PictureID"), "HD00001 HD00002 HD00003 HD00004 HD00005") << count;
  }
}

TEST_F(AlbumStatements, HundredsOfThousandsOfTermsAreTaken) {
  std::string statement = "SELECT * FROM PhotoAlbum WHERE (Year = 0";
  for (int i = 0; i < 170'000; ++i)
    statement += " OR Year=1";
  Recordset rows(connection);
  rows.Open(statement + " OR Year = 2001) AND PlaceID = 2");
  EXPECT_EQ(all(rows, "PictureID"), "HD00004");
}

} // namespace
} // namespace hearthbook::test
