#include "SubAlbums.h"

#include "AlbumFixture.h"
#include "FileBytes.h"
#include "RunTimeError.h"
#include "SubAlbumFolder.h"

#include <filesystem>
#include <fstream>

namespace hearthbook::test {

namespace {

using Numbers = std::vector<int>;
namespace fs = std::filesystem;

class SubAlbums : public AlbumFixture {
protected:
  Recordset& members() { return data().rsSubAlbumPhotos; }
  void open(std::int64_t id) { members().Open(stripQuery(std::to_string(id))); }
  std::vector<std::string> names() {
    std::vector<std::string> names;
    const auto walker = data().rsSubAlbums.Clone();
    for (; !walker->atEOF(); walker->MoveNext())
      names.push_back(walker->Collect("AlbumName").toText());
    return names;
  }
  void writeSound(const char* name) const { std::ofstream(at("Audio") / name) << "la"; }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(SubAlbums, ANewOneIsStoredAsTypedAndFound) {
  for (const char* name : {"Grandma's", "\"Quoted\"", "''", "100 % [x]*"}) {
    const auto id = createSubAlbum(data().rsSubAlbums, name);
    EXPECT_EQ(data().rsSubAlbums.Collect("AlbumName").toText(), name);
    EXPECT_EQ(data().rsSubAlbums.Collect("AlbumID").toInteger(), id);
    EXPECT_TRUE(data().rsSubAlbums.Collect("Description").isNull());
  }
}

TEST_F(SubAlbums, OfTwoOfOneNameTheFirstIsFound) {
  const auto first = createSubAlbum(data().rsSubAlbums, "Lake");
  const auto second = createSubAlbum(data().rsSubAlbums, "Lake");
  EXPECT_NE(first, second);
  EXPECT_EQ(data().rsSubAlbums.Collect("AlbumID").toInteger(), first);
  EXPECT_EQ(names(), (Names{"Lake", "Lake"}));
}

TEST_F(SubAlbums, BehindTheLastNumberNoneCanBeMadeAndTheOthersStay) {
  data().AlbumDB.execute("INSERT INTO SubAlbums (AlbumID, albumName) VALUES (32767, 'Last')");
  data().rsSubAlbums.Requery();
  EXPECT_THROW(createSubAlbum(data().rsSubAlbums, "Lake"), RunTimeError);
  EXPECT_FALSE(data().rsSubAlbums.isPending());
  data().rsSubAlbums.Requery();
  EXPECT_EQ(names(), Names{"Last"});
}

TEST_F(SubAlbums, ADeletedOneTakesItsMembersAndItsSoundAndLeavesThePhotos) {
  folder_.addPhoto("HD00002");
  const auto lake = addSubAlbum(folder_, "Lake", {1, 2});
  const auto home = addSubAlbum(folder_, "Home", {2, 1});
  for (const char* sound : {"A1.wav", "A1.mid", "A12.wav", "A2.wav"})
    writeSound(sound);
  open(lake);
  deleteSubAlbum(album(), std::to_string(lake));
  EXPECT_EQ(names(), Names{"Home"});
  EXPECT_TRUE(storedNumbers(folder_, lake).empty());
  EXPECT_EQ(storedNumbers(folder_, home), (Numbers{2, 1}));
  EXPECT_EQ(data().rsPhotoAlbum.RecordCount(), 2);
  EXPECT_TRUE(fs::exists(at("Photos/00002.jpg")));
  for (const char* gone : {"A1.wav", "A1.mid"}) {
    EXPECT_FALSE(fs::exists(at("Audio") / gone)) << gone;
    EXPECT_TRUE(fs::exists(folder_.trash() / gone)) << gone;
  }
  for (const char* other : {"A12.wav", "A2.wav"})
    EXPECT_TRUE(fs::exists(at("Audio") / other)) << other;
  EXPECT_EQ(members().Source(), stripQuery(std::to_string(lake)));
}

TEST_F(SubAlbums, TheLastOneCanBeDeleted) {
  const auto lake = addSubAlbum(folder_, "Lake", {1});
  open(lake);
  deleteSubAlbum(album(), std::to_string(lake));
  EXPECT_EQ(data().rsSubAlbums.RecordCount(), 0);
}

TEST_F(SubAlbums, ADeletionThatFailsLeavesEverything) {
  const auto lake = addSubAlbum(folder_, "Lake", {1});
  open(lake);
  data().AlbumDB.execute("CREATE TEMP TRIGGER Full BEFORE DELETE ON SubAlbumPhotos BEGIN SELECT "
                         "RAISE(ABORT, 'full'); END");
  EXPECT_THROW(deleteSubAlbum(album(), std::to_string(lake)), RunTimeError);
  EXPECT_EQ(names(), Names{"Lake"});
  EXPECT_EQ(storedNumbers(folder_, lake), Numbers{1});
}

TEST_F(SubAlbums, ADeletionThatFailsLeavesTheSetOnTheSubAlbum) {
  addSubAlbum(folder_, "Home", {});
  const auto lake = addSubAlbum(folder_, "Lake", {1});
  open(lake);
  data().AlbumDB.execute("CREATE TEMP TRIGGER Full BEFORE DELETE ON SubAlbumPhotos BEGIN SELECT "
                         "RAISE(ABORT, 'full'); END");
  EXPECT_THROW(deleteSubAlbum(album(), std::to_string(lake)), RunTimeError);
  EXPECT_EQ(data().rsSubAlbums.Collect("AlbumName").toText(), "Lake");
}

TEST_F(SubAlbums, ANewMemberGetsThePlaceBehindTheLast) {
  addPhotoRows(folder_, 4);
  const auto lake = addSubAlbum(folder_, "Lake", {3, 1});
  open(lake);
  EXPECT_TRUE(addMember(members(), std::to_string(lake), "HD00004"));
  EXPECT_FALSE(members().isPending());
  EXPECT_EQ(storedOrder(folder_, lake),
            (Stored{{photoId(3), 0}, {photoId(1), 1}, {photoId(4), 2}}));
}

TEST_F(SubAlbums, AMemberIsNotAddedAgainAndTheFilterIsGone) {
  const auto lake = addSubAlbum(folder_, "Lake", {1});
  open(lake);
  EXPECT_FALSE(addMember(members(), std::to_string(lake), "hd00001"));
  EXPECT_EQ(members().Filter(), "");
  EXPECT_EQ(storedNumbers(folder_, lake), Numbers{1});
}

TEST_F(SubAlbums, OfManyOnlyTheNewOnesAreAdded) {
  addPhotoRows(folder_, 6);
  const auto lake = addSubAlbum(folder_, "Lake", {2, 4});
  open(lake);
  addMembers(members(), std::to_string(lake),
             {photoId(5), photoId(4), photoId(5), photoId(1), "hd00002"});
  EXPECT_EQ(storedOrder(folder_, lake),
            (Stored{{photoId(2), 0}, {photoId(4), 1}, {photoId(5), 2}, {photoId(1), 3}}));
}

TEST_F(SubAlbums, OfManyAllAreAddedOrNone) {
  addPhotoRows(folder_, 6);
  const auto lake = addSubAlbum(folder_, "Lake", {2});
  open(lake);
  data().AlbumDB.execute("CREATE TEMP TRIGGER Full BEFORE INSERT ON SubAlbumPhotos WHEN "
                         "NEW.PhotoID = 'HD00005' BEGIN SELECT RAISE(ABORT, 'full'); END");
  EXPECT_THROW(addMembers(members(), std::to_string(lake), {photoId(3), photoId(4), photoId(5)}),
               RunTimeError);
  EXPECT_EQ(storedNumbers(folder_, lake), Numbers{2});
  EXPECT_EQ(members().RecordCount(), 1);
  EXPECT_FALSE(members().isPending());
}

TEST_F(SubAlbums, ARemovedMemberLeavesAGap) {
  addPhotoRows(folder_, 3);
  const auto lake = addSubAlbum(folder_, "Lake", {1, 2, 3});
  const auto home = addSubAlbum(folder_, "Home", {2});
  open(lake);
  removeMember(members(), std::to_string(lake), "HD00002");
  EXPECT_EQ(storedOrder(folder_, lake), (Stored{{photoId(1), 0}, {photoId(3), 2}}));
  EXPECT_EQ(storedNumbers(folder_, home), Numbers{2});
  EXPECT_EQ(members().RecordCount(), 2);
}

TEST_F(SubAlbums, AResultWithoutASelectionGoesInWhole) {
  addPhotoRows(folder_, 4);
  vars().rsSearch = data().rsPhotoAlbum.Clone();
  vars().rsSearch->MoveLast();
  EXPECT_EQ(photosOfResult(vars()), (Names{photoId(1), photoId(2), photoId(3), photoId(4)}));
  EXPECT_EQ(vars().rsSearch->AbsolutePosition(), 4); // the page stays where it is
}

TEST_F(SubAlbums, TheSelectedOnesGoInInRisingOrder) {
  addPhotoRows(folder_, 5);
  vars().rsSearch = data().rsPhotoAlbum.Clone();
  for (const int position : {4, 1, 3})
    vars().selection.select(position);
  vars().selection.deselect(1);
  EXPECT_EQ(photosOfResult(vars()), (Names{photoId(3), photoId(4)}));
  EXPECT_EQ(vars().selection.rising(), (std::vector<std::int64_t>{3, 4}));
  EXPECT_EQ(vars().selection.SelectedPositions.at(0), Value(3));
}

TEST_F(SubAlbums, APositionBehindTheLimitIsNeverPicked) {
  addPhotoRows(folder_, 3);
  vars().rsSearch = data().rsPhotoAlbum.Clone();
  vars().selection.select(2);
  vars().selection.select(9999);
  EXPECT_EQ(photosOfResult(vars()), Names{photoId(2)});
}

} // namespace hearthbook::test
