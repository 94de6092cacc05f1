#include "PhotoDeletion.h"

#include "AlbumFixture.h"
#include "FileBytes.h"
#include "PrivateMount.h"
#include "RunTimeError.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace hearthbook {
namespace {

using test::namesIn;
using test::writeBytes;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
namespace fs = std::filesystem;

class PhotoDeletion : public test::AlbumFixture {
protected:
  void addMember(int album, const std::string& photo, int index) {
    folder_.addRow("SubAlbumPhotos", {{"AlbumID", album}, {"PhotoID", photo}, {"Index", index}});
    data().rsSubAlbumPhotos.Requery();
  }
  void standOn(const std::string& id) {
    photos().Find("PictureID = '" + id + "'", Recordset::Start::First);
    ASSERT_FALSE(photos().atEOF());
  }
  void erase(const std::string& id) {
    standOn(id);
    deletePhoto(album());
  }
  std::int64_t rowsOf(const std::string& select) {
    Recordset rows(data().AlbumDB);
    rows.Open(select);
    return rows.RecordCount();
  }
  std::int64_t rowsOfPhoto(const std::string& id) {
    return rowsOf("SELECT * FROM PhotoAlbum WHERE PictureID = '" + id + "'");
  }
  std::int64_t membershipsOf(const std::string& id) {
    return rowsOf("SELECT * FROM SubAlbumPhotos WHERE PhotoID = '" + id + "'");
  }
  std::string currentId() { return photos().Collect("PictureID").toText(); }
  Recordset& photos() { return data().rsPhotoAlbum; }
};

TEST_F(PhotoDeletion, TheFirstPhotoIsProtectedByItsIdAlone) {
  EXPECT_TRUE(isProtectedPhoto("HD00001"));
  EXPECT_FALSE(isProtectedPhoto("CD00001"));
  EXPECT_FALSE(isProtectedPhoto("HD10001"));
}

TEST_F(PhotoDeletion, TakesTheRowAndItsFilesAway) {
  folder_.addPhoto("HD00002", {{"NamesInPhoto", "001,"}, {"NamesCords", "001-0341X1022,"}});
  writeBytes(at("Audio/00002.wav"), "sound");
  writeBytes(at("Audio/00002.mid"), "music");
  erase("HD00002");
  EXPECT_EQ(rowsOfPhoto("HD00002"), 0);
  EXPECT_FALSE(fs::exists(at("Photos/00002.jpg")));
  EXPECT_FALSE(fs::exists(at("Thumbnails/00002.jpg")));
  EXPECT_FALSE(fs::exists(at("Audio/00002.wav")));
  EXPECT_FALSE(fs::exists(at("Audio/00002.mid")));
  EXPECT_TRUE(fs::exists(at("Photos/00001.jpg")));
}

TEST_F(PhotoDeletion, NamesAndMarkersLeaveWithTheRowAndThePeopleStay) {
  const auto anna = folder_.addPerson("Anna");
  folder_.addPhoto("HD00002", {{"NamesInPhoto", "001,"}, {"NamesCords", "001-0341X1022,"}});
  folder_.addPhoto("HD00003", {{"NamesInPhoto", "001,"}, {"NamesCords", "001-0500X0600,"}});
  ASSERT_EQ(anna, 1);
  photos().Requery();
  erase("HD00002");
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE NamesInPhoto = '001,'"), 1);
  EXPECT_EQ(rowsOf("SELECT * FROM Appearances WHERE AppearancesID = 1"), 1);
  EXPECT_EQ(photos().Collect("NamesCords"), Value("001-0500X0600,"));
}

TEST_F(PhotoDeletion, ThePhotoAndItsSoundsAreInTheTrash) {
  folder_.addPhoto("HD00002");
  writeBytes(at("Audio/00002.wav"), "sound");
  erase("HD00002");
  EXPECT_THAT(namesIn(folder_.trash()), UnorderedElementsAre("00002.jpg", "00002.wav"));
}

TEST_F(PhotoDeletion, WithoutATrashTheyAreKeptInBackup) {
  folder_.addPhoto("HD00002");
  const test::ScopedVariable noData("XDG_DATA_HOME", "");
  const test::ScopedVariable noHome("HOME", "");
  erase("HD00002");
  EXPECT_TRUE(fs::exists(at("Backup/00002.jpg")));
}

TEST_F(PhotoDeletion, FilesThatAreNotThereAreNoFailure) {
  folder_.addPhoto("HD00002");
  fs::remove(at("Photos/00002.jpg"));
  fs::remove(at("Thumbnails/00002.jpg"));
  erase("HD00002");
  EXPECT_EQ(rowsOfPhoto("HD00002"), 0);
}

TEST_F(PhotoDeletion, OfADiscPhotoTheFilesOnTheDiscStayAndItsSoundGoes) {
  const auto disc = at("disc");
  fs::create_directories(disc / "Photos");
  fs::create_directories(disc / "Thumbnails");
  folder_.drives().insertDisc("sr0", disc);
  writeBytes(disc / "Photos/00002.jpg", "photo");
  writeBytes(disc / "Thumbnails/00002.jpg", "thumbnail");
  writeBytes(at("Audio/00002.wav"), "sound");
  folder_.addPhoto("HD00003");
  folder_.addPhoto("CD00002");
  writeBytes(at("Photos/00002.jpg"), "another photo of the same number");
  addMember(1, "CD00002", 0);
  erase("CD00002");
  EXPECT_EQ(rowsOfPhoto("CD00002"), 0);
  EXPECT_EQ(membershipsOf("CD00002"), 0);
  EXPECT_TRUE(fs::exists(disc / "Photos/00002.jpg"));
  EXPECT_TRUE(fs::exists(disc / "Thumbnails/00002.jpg"));
  EXPECT_TRUE(fs::exists(at("Photos/00002.jpg")));
  EXPECT_FALSE(fs::exists(at("Audio/00002.wav")));
}

TEST_F(PhotoDeletion, ARowOfAnotherPrefixLeavesThePhotosAlone) {
  folder_.addPhoto("HD00002");
  folder_.addPhoto("XX00002");
  vars().ImagePath = at("Photos/00002.jpg");
  erase("XX00002");
  EXPECT_EQ(rowsOfPhoto("XX00002"), 0);
  EXPECT_TRUE(fs::exists(at("Photos/00002.jpg")));
}

TEST_F(PhotoDeletion, WhatAnotherFormResolvedIsNotDeleted) {
  folder_.addPhoto("HD00002");
  const auto source = at("source.jpg");
  test::writeJpeg(source);
  vars().ImagePath = source;
  erase("HD00002");
  EXPECT_TRUE(fs::exists(source));
  EXPECT_FALSE(fs::exists(at("Photos/00002.jpg")));
}

TEST_F(PhotoDeletion, APhotoInTwoSubAlbumsLosesBothRowsAndGapsStay) {
  folder_.addPhoto("HD00002");
  addMember(1, "HD00001", 0);
  addMember(1, "HD00002", 1);
  addMember(1, "HD00001", 2);
  addMember(2, "HD00002", 0);
  erase("HD00002");
  EXPECT_EQ(membershipsOf("HD00002"), 0);
  EXPECT_EQ(rowsOf("SELECT * FROM SubAlbumPhotos WHERE [Index] IN (0, 2)"), 2);
  EXPECT_EQ(data().rsSubAlbumPhotos.RecordCount(), 2);
}

TEST_F(PhotoDeletion, RowsOfEveryAlbumGoThoughTheSetStoodOnOne) {
  folder_.addPhoto("HD00002");
  addMember(1, "HD00002", 0);
  addMember(2, "HD00002", 0);
  Recordset& members = data().rsSubAlbumPhotos;
  members.Close();
  members.Open("SELECT * FROM SubAlbumPhotos WHERE AlbumID = 1");
  members.Filter("AlbumID = 7");
  erase("HD00002");
  EXPECT_EQ(membershipsOf("HD00002"), 0);
  EXPECT_EQ(members.Source(), sources::subAlbumPhotos);
  EXPECT_TRUE(members.Filter().empty());
}

TEST_F(PhotoDeletion, StandsOnThePhotoThatFollowed) {
  folder_.addPhoto("HD00002");
  folder_.addPhoto("HD00003");
  erase("HD00002");
  EXPECT_EQ(currentId(), "HD00003");
  EXPECT_EQ(photos().AbsolutePosition(), 2);
}

TEST_F(PhotoDeletion, AfterTheLastStandsOnTheNewLast) {
  folder_.addPhoto("HD00002");
  folder_.addPhoto("HD00003");
  erase("HD00003");
  EXPECT_EQ(currentId(), "HD00002");
}

TEST_F(PhotoDeletion, ThePhotosFilterStays) {
  folder_.addPhoto("HD00002", {{"Year", 1990}});
  folder_.addPhoto("HD00003");
  folder_.addPhoto("HD00004", {{"Year", 1990}});
  photos().Filter("Year = 1990");
  deletePhoto(album());
  EXPECT_EQ(currentId(), "HD00004");
  EXPECT_EQ(photos().RecordCount(), 1);
}

TEST_F(PhotoDeletion, RowsOfAGroupGoWithTheirPlacesInSubAlbums) {
  for (const char* id : {"HD00002", "HD00003", "HD00004"})
    folder_.addPhoto(id);
  addMember(1, "HD00002", 0);
  addMember(1, "HD00003", 1);
  addMember(2, "HD00004", 0);
  photos().Filter("PictureID > 'HD00002'");
  deletePhotoRows(album(), photos(), Recordset::Affect::Group, {"HD00003", "HD00004"});
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum"), 2);
  EXPECT_EQ(rowsOf("SELECT * FROM SubAlbumPhotos"), 1);
  EXPECT_EQ(membershipsOf("HD00002"), 1);
}

TEST_F(PhotoDeletion, NoPhotosAreNoRows) {
  addMember(1, "HD00001", 0);
  photos().Filter("Year = 1066");
  deletePhotoRows(album(), photos(), Recordset::Affect::Group, {});
  EXPECT_EQ(membershipsOf("HD00001"), 1);
}

TEST_F(PhotoDeletion, WithoutARowItIsRefused) {
  data().AlbumDB.execute("DELETE FROM PhotoAlbum");
  photos().Requery();
  EXPECT_THROW(deletePhoto(album()), RunTimeError);
  EXPECT_TRUE(fs::exists(at("Photos/00001.jpg")));
}

TEST_F(PhotoDeletion, ARowThatCannotBeDeletedIsStillShown) {
  folder_.addPhoto("HD00002");
  folder_.addPhoto("HD00003");
  addMember(1, "HD00002", 0);
  data().AlbumDB.execute("CREATE TRIGGER Refuse BEFORE DELETE ON SubAlbumPhotos "
                         "BEGIN SELECT RAISE(ABORT, 'no'); END");
  standOn("HD00002");
  EXPECT_THROW(deletePhoto(album()), RunTimeError);
  EXPECT_EQ(rowsOfPhoto("HD00002"), 1);
  EXPECT_EQ(currentId(), "HD00002");
  EXPECT_EQ(photos().RecordCount(), 3);
  EXPECT_EQ(data().rsSubAlbumPhotos.RecordCount(), 1);
}

TEST_F(PhotoDeletion, AFileThatCannotBeDeletedStopsItAndTheRowStays) {
  if (!test::canMountPrivately())
    GTEST_SKIP() << "this machine lets tests mount nothing";
  folder_.addPhoto("HD00002");
  addMember(1, "HD00002", 0);
  const test::ReadOnlyMount locked(at("Photos"));
  standOn("HD00002");
  try {
    deletePhoto(album());
    ADD_FAILURE() << "it could be deleted";
  } catch (const RunTimeError& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("00002.jpg"));
  }
  EXPECT_TRUE(fs::exists(at("Photos/00002.jpg")));
  EXPECT_TRUE(fs::exists(at("Thumbnails/00002.jpg")));
  EXPECT_EQ(rowsOfPhoto("HD00002"), 1);
  EXPECT_EQ(membershipsOf("HD00002"), 1);
  EXPECT_EQ(currentId(), "HD00002");
}

} // namespace
} // namespace hearthbook
