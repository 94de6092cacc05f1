#include "NameMarks.h"

#include "AlbumFixture.h"

namespace hearthbook {
namespace {

TEST(NameMarks, APersonOrFiftyNamesLetANameIn) {
  EXPECT_FALSE(mayPutIn(false, 0));
  EXPECT_TRUE(mayPutIn(true, 0));
  EXPECT_FALSE(mayPutIn(false, 49));
  EXPECT_TRUE(mayPutIn(false, 50));
  EXPECT_TRUE(mayPutIn(true, 51)) << "so many names stop nobody";
}

TEST(NameMarks, TheTipOfTheMarkerPointsAtThePosition) {
  EXPECT_EQ(markerRect({240, 480, 5760, 2880}, {1000, 2000}),
            (TwipsRect{240 + 1000 - 100, 480 + 2000 - 288, 200, 288}));
}

TEST(NameMarks, APressBesideThePhotoIsOneOnItsEdge) {
  const TwipsRect image{240, 480, 5760, 2880};
  EXPECT_EQ(pointOnImage(image, {1240, 2480}), (TwipsPoint{1000, 2000}));
  EXPECT_EQ(pointOnImage(image, {0, 0}), (TwipsPoint{0, 0}));
  EXPECT_EQ(pointOnImage(image, {99999, 99999}), (TwipsPoint{5760, 2880}));
}

class NameMarksInARow : public test::AlbumFixture {
protected:
  NameMarksInARow() { photos().Requery(); }
  Recordset& photos() { return data().rsPhotoAlbum; }
  Value stored(const char* field) {
    Recordset rows(data().AlbumDB);
    rows.Open(sources::photoAlbum);
    return rows.Collect(field);
  }
  void set(const std::string& fields) {
    data().AlbumDB.execute("UPDATE PhotoAlbum SET " + fields);
    photos().Requery();
  }
};

TEST_F(NameMarksInARow, NamesAreWrittenAndNotYetStored) {
  writeNames(photos(), {{"Anna", 4}, {"Ben", 17}});
  EXPECT_EQ(photos().Collect("NamesInPhoto"), Value("004,017,"));
  EXPECT_TRUE(photos().isPending());
  EXPECT_TRUE(stored("NamesInPhoto").isNull());
}

TEST_F(NameMarksInARow, ANameTakesItsMarkerWithIt) {
  set("NamesInPhoto = '004,017,', NamesCords = '004-0341X1022,017-1200X0415,'");
  takeNameOut(photos(), {{"Ben", 17}}, 4);
  EXPECT_EQ(stored("NamesInPhoto"), Value("017,"));
  EXPECT_EQ(stored("NamesCords"), Value("017-1200X0415,"));
}

TEST_F(NameMarksInARow, TheLastNameLeavesNull) {
  set("NamesInPhoto = '004,', NamesCords = '004-0341X1022,'");
  takeNameOut(photos(), {}, 4);
  EXPECT_TRUE(stored("NamesInPhoto").isNull());
  EXPECT_TRUE(stored("NamesCords").isNull());
}

TEST_F(NameMarksInARow, AnEmptyFieldOfMarkersStaysAsItIs) {
  set("NamesInPhoto = '004,', NamesCords = ''");
  takeNameOut(photos(), {}, 4);
  EXPECT_EQ(stored("NamesCords"), Value(""));
}

TEST_F(NameMarksInARow, AMarkIsStoredAtOnce) {
  set("NamesInPhoto = '004,017,'");
  markName(photos(), 4, {341, 1022});
  markName(photos(), 17, {5760, 0});
  EXPECT_EQ(stored("NamesCords"), Value("004-0341X1022,017-5760X0000,"));
  markName(photos(), 4, {12, 13.4});
  EXPECT_EQ(stored("NamesCords"), Value("004-0012X0013,017-5760X0000,"));
}

TEST_F(NameMarksInARow, DamagedMarkersAreKeptAsTheyAre) {
  set("NamesInPhoto = '004,017,', NamesCords = '004-03,abc'");
  markName(photos(), 17, {1, 2});
  EXPECT_EQ(stored("NamesCords"), Value("004-03,abc017-0001X0002,"));
}

} // namespace
} // namespace hearthbook
