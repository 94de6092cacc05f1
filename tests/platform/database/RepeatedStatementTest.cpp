#include "RepeatedStatement.h"

#include "AlbumFile.h"
#include "RunTimeError.h"

namespace hearthbook::test {
namespace {

class RepeatedStatementTest : public AlbumFile {};

TEST_F(RepeatedStatementTest, RunsOnceForEachSetOfValues) {
  RepeatedStatement number(connection, "UPDATE SubAlbumPhotos SET SubAlbumPhotos.[Index] = ? WHERE "
                                       "SubAlbumPhotos.PhotoID = ?");
  connection.execute("DELETE FROM SubAlbumPhotos");
  for (const char* id : {"HD00001", "HD00002"})
    connection.execute(std::string("INSERT INTO SubAlbumPhotos (AlbumID, PhotoID) VALUES (1, '") +
                       id + "')");
  number.run({7, "HD00002"});
  number.run({8, "HD00001"});
  EXPECT_EQ(stored("SELECT [Index] FROM SubAlbumPhotos WHERE PhotoID = 'HD00001'"), "8");
  EXPECT_EQ(stored("SELECT [Index] FROM SubAlbumPhotos WHERE PhotoID = 'HD00002'"), "7");
}

TEST_F(RepeatedStatementTest, AValueIsNeverPartOfTheStatement) {
  RepeatedStatement add(connection, "INSERT INTO Places (PlaceName) VALUES (?)");
  add.run({"O'B'); DROP TABLE x;"});
  EXPECT_EQ(stored("SELECT PlaceName FROM Places ORDER BY PlaceID DESC"), "O'B'); DROP TABLE x;");
}

TEST_F(RepeatedStatementTest, CanGoOnBehindARunThatFailed) {
  connection.execute("CREATE TEMP TABLE Few (Number INTEGER CHECK (Number < 3))");
  RepeatedStatement add(connection, "INSERT INTO Few (Number) VALUES (?)");
  add.run({1});
  EXPECT_THROW(add.run({3}), RunTimeError);
  add.run({2});
  EXPECT_EQ(stored("SELECT 2"), "2");
  Recordset few(connection);
  few.Open("SELECT * FROM Few");
  EXPECT_EQ(few.RecordCount(), 2);
}

TEST_F(RepeatedStatementTest, AWrongStatementIsRefusedAtOnce) {
  EXPECT_THROW(RepeatedStatement(connection, "INSERT INTO Nowhere VALUES (?)"), RunTimeError);
}

} // namespace
} // namespace hearthbook::test
