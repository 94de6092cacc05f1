#include "DatabaseMaker.h"
#include "AlbumFolder.h"
#include "FileBytes.h"
#include "RunTimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace hearthbook {
namespace {

using test::namesIn;
using test::readBytes;
using test::writeBytes;
using testing::ElementsAre;
namespace fs = std::filesystem;

std::vector<HelpRow> rowsOf(const std::string& text) {
  std::istringstream lines(text);
  return readHelpRows(lines);
}

TEST(HelpRows, AKeyStandsInBracketsAboveItsText) {
  EXPECT_THAT(rowsOf("[Zoom*Slide]\nShows one photo\nafter the other.\n\n[E-Mail*Sender]\nYou.\n"),
              ElementsAre(HelpRow{"Zoom*Slide", "Shows one photo\nafter the other."},
                          HelpRow{"E-Mail*Sender", "You."}));
}

TEST(HelpRows, ATextMayHoldBrackets) {
  EXPECT_THAT(rowsOf("[Zoom*Slide]\nPress\n[a*b]\n"),
              ElementsAre(HelpRow{"Zoom*Slide", "Press\n[a*b]"}));
}

TEST(HelpRows, ATextWithoutAKeyAndAKeyWithoutATextAreRefused) {
  EXPECT_THROW(rowsOf("Shows one photo.\n"), RunTimeError);
  EXPECT_THROW(rowsOf("[Zoom]\nShows one photo.\n"), RunTimeError);
  EXPECT_THROW(rowsOf("[Zoom*Slide]\n"), RunTimeError);
  EXPECT_THROW(rowsOf("[Zoom*Slide]\n\n[Zoom*Zoom In]\nNearer.\n"), RunTimeError);
}

TEST(HelpRows, NoLinesAreNoRows) { EXPECT_TRUE(rowsOf("").empty()); }

class DatabaseMaker : public testing::Test {
protected:
  [[nodiscard]] fs::path at(const std::string& name) const { return folder_.path() / name; }

  test::TemporaryFolder folder_;
};

TEST_F(DatabaseMaker, AnAlbumThatIsThereIsNeverTouched) {
  writeBytes(at("Photo_Album.mdb"), "the family's");
  writeBytes(at("Help.mdb"), "the family's");
  EXPECT_FALSE(makeAlbumDatabase(at("Photo_Album.mdb"), HEARTHBOOK_SCHEMA));
  EXPECT_FALSE(makeHelpDatabase(at("Help.mdb"), HEARTHBOOK_SCHEMA, {}));
  EXPECT_EQ(readBytes(at("Photo_Album.mdb")), "the family's");
  EXPECT_EQ(readBytes(at("Help.mdb")), "the family's");
}

TEST_F(DatabaseMaker, OnlyTheDatabaseIsLeft) {
  EXPECT_TRUE(makeAlbumDatabase(at("Data/Photo_Album.mdb"), HEARTHBOOK_SCHEMA));
  EXPECT_THAT(namesIn(at("Data")), ElementsAre("Photo_Album.mdb"));
}

TEST_F(DatabaseMaker, ASchemaThatFailsLeavesNothing) {
  writeBytes(at("schema/album-001.sql"), "CREATE TABLE A (B);\nCREATE NONSENSE;\n");
  EXPECT_THROW(makeAlbumDatabase(at("Data/a.mdb"), at("schema")), RunTimeError);
  EXPECT_THROW(makeHelpDatabase(at("Data/a.mdb"), at("schema"), {}), RunTimeError);
  EXPECT_TRUE(namesIn(at("Data")).empty());
}

TEST_F(DatabaseMaker, HelpTextsAreFoundByTheirKeys) {
  makeHelpDatabase(at("Help.mdb"), HEARTHBOOK_SCHEMA, {{"Zoom*Slide", "one\ntwo"}, {"a*b", "'x'"}});
  Connection connection;
  connection.Open(at("Help.mdb"));
  Recordset help(connection);
  help.Open("SELECT * FROM Help");
  help.Find("HelpID = 'Zoom*Slide'");
  EXPECT_EQ(help.Collect("HelpText").toText(), "one\ntwo");
  help.Find("HelpID = 'a*b'", Recordset::Start::First);
  EXPECT_EQ(help.Collect("HelpText").toText(), "'x'");
}

TEST_F(DatabaseMaker, AKeyThatStandsTwiceIsRefused) {
  EXPECT_THROW(
      makeHelpDatabase(at("Help.mdb"), HEARTHBOOK_SCHEMA, {{"a*b", "one"}, {"A*B", "two"}}),
      RunTimeError);
  EXPECT_TRUE(namesIn(folder_.path()).empty());
}

TEST_F(DatabaseMaker, ThereIsOneRowOfSettingsWithoutAnyYet) {
  makeHelpDatabase(at("Help.mdb"), HEARTHBOOK_SCHEMA, {});
  Connection connection;
  connection.Open(at("Help.mdb"));
  Recordset settings(connection);
  settings.Open("SELECT * FROM Preferences");
  ASSERT_EQ(settings.RecordCount(), 1);
  for (const char* field : {"eMail", "EmailName", "EmailHost"})
    EXPECT_TRUE(settings.Collect(field).isNull()) << field;
}

class AlbumSchema : public DatabaseMaker {
protected:
  AlbumSchema() {
    makeAlbumDatabase(at("a.mdb"), HEARTHBOOK_SCHEMA);
    connection_.Open(at("a.mdb"));
  }

  [[nodiscard]] std::int64_t number(const std::string& statement) {
    Recordset answer(connection_);
    answer.Open(statement);
    return answer.Collect(answer.fieldNames().front()).toInteger();
  }

  Connection connection_;
};

TEST_F(AlbumSchema, NumbersOfDeletedRowsAreNotGivenAgain) {
  connection_.execute("INSERT INTO Places (PlaceName) VALUES ('Rome')");
  connection_.execute("DELETE FROM Places");
  connection_.execute("INSERT INTO Places (PlaceName) VALUES ('Paris')");
  EXPECT_EQ(number("SELECT PlaceID FROM Places"), 2);
}

TEST_F(AlbumSchema, ANameStandsOnceWithoutRegardToCase) {
  connection_.execute("INSERT INTO Places (PlaceName) VALUES ('Zürich')");
  connection_.execute("INSERT INTO Events (EventName) VALUES ('Zürich')");
  connection_.execute("INSERT INTO Appearances (AppearancesNames) VALUES ('Zürich')");
  EXPECT_THROW(connection_.execute("INSERT INTO Places (PlaceName) VALUES ('ZÜRICH')"),
               RunTimeError);
  EXPECT_THROW(connection_.execute("INSERT INTO Events (EventName) VALUES ('ZÜRICH')"),
               RunTimeError);
  EXPECT_THROW(connection_.execute("INSERT INTO Appearances (AppearancesNames) VALUES ('ZÜRICH')"),
               RunTimeError);
}

TEST_F(AlbumSchema, ANameCannotBeChangedToAnothersButItsOwnCaseCan) {
  connection_.execute("INSERT INTO Events (EventName) VALUES ('Wedding')");
  connection_.execute("INSERT INTO Events (EventName) VALUES ('Birthday')");
  EXPECT_THROW(connection_.execute("UPDATE Events SET EventName = 'wedding' WHERE EventID = 2"),
               RunTimeError);
  EXPECT_NO_THROW(
      connection_.execute("UPDATE Events SET EventName = 'BIRTHDAY' WHERE EventID = 2"));
}

TEST_F(AlbumSchema, ANameHasAtMostTwentyCharacters) {
  EXPECT_NO_THROW(connection_.execute("INSERT INTO Places (PlaceName) VALUES "
                                      "('ÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖ')"));
  EXPECT_THROW(connection_.execute("INSERT INTO Places (PlaceName) VALUES "
                                   "('123456789012345678901')"),
               RunTimeError);
}

TEST_F(AlbumSchema, APhotosIdStandsOnceAndHasAtMostSevenCharacters) {
  EXPECT_THROW(connection_.execute("INSERT INTO PhotoAlbum (PictureID) VALUES ('HD00001')"),
               RunTimeError);
  EXPECT_THROW(connection_.execute("INSERT INTO PhotoAlbum (PictureID) VALUES ('HD000012')"),
               RunTimeError);
}

TEST_F(AlbumSchema, TheMasterAlbumsNumberNeverStandsInTheSubAlbums) {
  EXPECT_THROW(connection_.execute("INSERT INTO SubAlbums (AlbumID, albumName) VALUES (0, 'x')"),
               RunTimeError);
  connection_.execute("INSERT INTO SubAlbums (AlbumID, albumName) VALUES (32767, 'last')");
  EXPECT_THROW(connection_.execute("INSERT INTO SubAlbums (albumName) VALUES ('too many')"),
               RunTimeError);
}

TEST_F(AlbumSchema, AnEmptyTextIsNoYear) {
  EXPECT_THROW(connection_.execute("UPDATE PhotoAlbum SET Year = ''"), RunTimeError);
  EXPECT_NO_THROW(connection_.execute("UPDATE PhotoAlbum SET Year = '1990'"));
  EXPECT_EQ(number("SELECT Year FROM PhotoAlbum"), 1990);
}

TEST_F(AlbumSchema, APersonIsOfTheFamilyUnlessToldOtherwise) {
  connection_.execute("INSERT INTO Appearances (AppearancesNames) VALUES ('Anna')");
  EXPECT_EQ(number("SELECT RelationID FROM Appearances"), 0);
}

TEST(HelpRows, TheProgramsOwnTextsAreRead) {
  std::ifstream lines(HEARTHBOOK_HELP_ROWS);
  EXPECT_GT(readHelpRows(lines).size(), 80U);
}

} // namespace
} // namespace hearthbook
