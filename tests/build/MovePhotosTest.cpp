#include "AddPhotosFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace hearthbook {
namespace {

using namespace test;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

class MovePhotos : public AddPhotosFixture {
protected:
  MovePhotos() { request_.move = true; }
};

TEST_F(MovePhotos, RemovesASourceWhoseBytesAreInTheAlbum) {
  const auto file = source("a.jpg", photoJpeg());
  add({file});
  EXPECT_FALSE(fs::exists(file));
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), photoJpeg());
  EXPECT_THAT(trashed(), IsEmpty());
  EXPECT_THAT(failures_, IsEmpty());
}

TEST_F(MovePhotos, CopyingLeavesTheSource) {
  request_.move = false;
  const auto file = source("a.jpg", photoJpeg());
  add({file});
  EXPECT_EQ(readBytes(file), photoJpeg());
}

TEST_F(MovePhotos, AConvertedSourceGoesToTheTrash) {
  const std::string bytes = encodedBy("png", grainy({64, 48}));
  const auto file = source("a.png", bytes);
  add({file});
  EXPECT_FALSE(fs::exists(file));
  EXPECT_THAT(trashed(), ElementsAre("a.png"));
  EXPECT_EQ(readBytes(folder_.trash() / "a.png"), bytes);
}

TEST_F(MovePhotos, AReducedSourceGoesToTheTrash) {
  request_.reduce = true;
  const std::string bytes = jpegOfLength(grainy({640, 480}), 400'000);
  add({source("a.jpg", bytes)});
  EXPECT_THAT(trashed(), ElementsAre("a.jpg"));
  EXPECT_EQ(readBytes(folder_.trash() / "a.jpg"), bytes);
}

TEST_F(MovePhotos, AReductionThatFailedLeavesTheBytesInTheAlbum) {
  request_.reduce = true;
  const auto file = source("a.jpg", jpegOfLength(grainy({400, 300}), 700'000));
  add({file});
  EXPECT_THAT(failures_, ElementsAre("a.jpg"));
  EXPECT_FALSE(fs::exists(file));
  EXPECT_EQ(fs::file_size(at("Photos/00002.jpg")), 700'000U);
}

TEST_F(MovePhotos, AReadOnlySourceIsSparedWithoutAWord) {
  const auto file = source("a.jpg", photoJpeg());
  fs::permissions(file, fs::perms::owner_write, fs::perm_options::remove);
  add({file});
  EXPECT_TRUE(fs::exists(file));
  EXPECT_THAT(failures_, IsEmpty());
}

TEST_F(MovePhotos, ASourceThatTheAlbumCouldNotTakeStays) {
  const auto file = source("letter.png", letter);
  add({file});
  EXPECT_EQ(readBytes(file), letter);
  EXPECT_THAT(causes_, Contains(testing::HasSubstr("stays where it is")));
}

TEST_F(MovePhotos, ASourceOfWhichAnotherPictureWasStoredStays) {
  const auto file = source("letter.png", letter);
  add({source("a.jpg", photoJpeg()), file});
  EXPECT_TRUE(fs::exists(at("Photos/00003.jpg")));
  EXPECT_EQ(readBytes(file), letter);
  EXPECT_THAT(trashed(), IsEmpty());
}

TEST_F(MovePhotos, ABrokenJpegWhoseBytesAreInTheAlbumIsMoved) {
  const auto file = source("letter.jpg", letter);
  add({file});
  EXPECT_FALSE(fs::exists(file));
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), letter);
}

TEST_F(MovePhotos, ASourceStaysWhereThePhotoCannotBeWritten) {
  fs::remove_all(at("Photos"));
  writeBytes(at("Photos"), "a file where the folder should be");
  const auto jpeg = source("a.jpg", photoJpeg());
  const auto png = source("b.png", encodedBy("png", grainy({64, 48})));
  add({jpeg, png});
  EXPECT_TRUE(fs::exists(jpeg));
  EXPECT_TRUE(fs::exists(png));
}

TEST_F(MovePhotos, ASourceStaysWhereItsRowCannotBeStored) {
  data().AlbumDB.execute("CREATE TRIGGER Full BEFORE INSERT ON PhotoAlbum BEGIN "
                         "SELECT RAISE(ABORT, 'the album is full'); END");
  const auto file = source("a.jpg", photoJpeg());
  EXPECT_EQ(add({file}), 1);
  EXPECT_THAT(failures_, ElementsAre("a.jpg"));
  EXPECT_THAT(ids(), ElementsAre("HD00001"));
  EXPECT_TRUE(fs::exists(file));
}

TEST_F(MovePhotos, ThePhotoOfARowIsAddedAgainAndStays) {
  const std::string bytes = readBytes(at("Photos/00001.jpg"));
  add({at("Photos/00001.jpg"), at("Thumbnails/00001.jpg")});
  EXPECT_EQ(readBytes(at("Photos/00001.jpg")), bytes);
  EXPECT_TRUE(fs::exists(at("Thumbnails/00001.jpg")));
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), bytes);
  EXPECT_TRUE(fs::exists(at("Photos/00003.jpg")));
  EXPECT_THAT(failures_, IsEmpty());
}

TEST_F(MovePhotos, AFileOfNoRowInTheAlbumsFolderIsMoved) {
  writeBytes(at("Photos/00077.jpg"), photoJpeg());
  add({at("Photos/00077.jpg")});
  EXPECT_FALSE(fs::exists(at("Photos/00077.jpg")));
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), photoJpeg());
}

TEST_F(MovePhotos, ASourceThatStandsWhereThePhotoGoesStaysThere) {
  writeBytes(at("Photos/00002.jpg"), photoJpeg());
  for (const bool move : {true, false}) {
    request_.move = move;
    add({at("Photos/00002.jpg")});
    EXPECT_EQ(readBytes(at("Photos/00002.jpg")), photoJpeg());
    EXPECT_THAT(failures_, IsEmpty());
    EXPECT_THAT(kept_, IsEmpty());
    data().AlbumDB.execute("DELETE FROM PhotoAlbum WHERE PictureID = 'HD00002'");
    data().rsPhotoAlbum.Requery();
    fs::remove(at("Thumbnails/00002.jpg"));
  }
}

TEST_F(MovePhotos, ASourceReducedInItsOwnPlaceIsKeptInBackup) {
  request_.reduce = true;
  const std::string bytes = jpegOfLength(grainy({640, 480}), 400'000);
  writeBytes(at("Photos/00002.jpg"), bytes);
  add({at("Photos/00002.jpg")});
  EXPECT_EQ(sizeOf("Photos/00002.jpg").width, 540);
  ASSERT_EQ(kept_.size(), 1U);
  EXPECT_EQ(readBytes(at("Backup/Photos 00002.jpg")), bytes);
}

TEST_F(MovePhotos, ASourceThatStandsWhereTheThumbnailGoesBecomesThePhotoAllTheSame) {
  writeBytes(at("Thumbnails/00002.jpg"), photoJpeg());
  add({at("Thumbnails/00002.jpg")});
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), photoJpeg());
  EXPECT_EQ(sizeOf("Thumbnails/00002.jpg"), (PixelSize{73, 55}));
  EXPECT_EQ(readBytes(at("Backup/Thumbnails 00002.jpg")), photoJpeg());
}

class FullNumbers : public AddPhotosFixture {
protected:
  FullNumbers() {
    folder_.addRow("PhotoAlbum", {{"PictureID", Value("HD10000")}});
    data().rsPhotoAlbum.Requery();
    oldPhoto_ = readBytes(at("Photos/00001.jpg"));
    oldThumbnail_ = readBytes(at("Thumbnails/00001.jpg"));
  }

  std::string oldPhoto_;
  std::string oldThumbnail_;
};

TEST_F(FullNumbers, AfterHD10000ComesNumberOneWhoseFilesAreWrittenOver) {
  EXPECT_EQ(add({source("a.jpg", photoJpeg())}), 1);
  EXPECT_THAT(failures_, ElementsAre("a.jpg")); // the row is there already
  EXPECT_THAT(ids(), ElementsAre("HD00001", "HD10000"));
  EXPECT_EQ(vars().NextPhotoNumber, 1);
  EXPECT_EQ(readBytes(at("Photos/00001.jpg")), photoJpeg());
  EXPECT_EQ(sizeOf("Thumbnails/00001.jpg"), (PixelSize{73, 55}));
}

TEST_F(FullNumbers, WhatIsWrittenOverIsKeptInBackupAndTold) {
  add({source("a.jpg", photoJpeg())});
  EXPECT_EQ(readBytes(at("Backup/Photos 00001.jpg")), oldPhoto_);
  EXPECT_EQ(readBytes(at("Backup/Thumbnails 00001.jpg")), oldThumbnail_);
  EXPECT_THAT(kept_,
              ElementsAre(std::pair(at("Thumbnails/00001.jpg"), at("Backup/Thumbnails 00001.jpg")),
                          std::pair(at("Photos/00001.jpg"), at("Backup/Photos 00001.jpg"))));
}

TEST_F(FullNumbers, NothingInBackupIsWrittenOver) {
  request_.move = true;
  add({source("a.jpg", photoJpeg(1)), source("b.jpg", photoJpeg(2))});
  EXPECT_EQ(readBytes(at("Backup/Photos 00001.jpg")), oldPhoto_);
  EXPECT_EQ(readBytes(at("Backup/Photos 00001 (2).jpg")), photoJpeg(1));
  EXPECT_EQ(readBytes(at("Photos/00001.jpg")), photoJpeg(2));
}

TEST_F(FullNumbers, WhatCannotBeKeptIsNotWrittenOver) {
  fs::remove_all(at("Backup"));
  writeBytes(at("Backup"), "a file where the folder should be");
  request_.move = true;
  const auto file = source("a.jpg", photoJpeg());
  add({file});
  EXPECT_EQ(readBytes(at("Photos/00001.jpg")), oldPhoto_);
  EXPECT_EQ(readBytes(at("Thumbnails/00001.jpg")), oldThumbnail_);
  EXPECT_TRUE(fs::exists(file));
}

} // namespace
} // namespace hearthbook
