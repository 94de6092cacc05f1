#include "PhotoFiles.h"
#include "AlbumFixture.h"
#include "FileBytes.h"

namespace hearthbook {
namespace {

using test::writeBytes;
namespace fs = std::filesystem;

class PhotoDrive : public testing::Test {
protected:
  fs::path disc(const std::string& name) {
    fs::create_directories(folder_.path() / name);
    return folder_.path() / name;
  }
  fs::path discWithPhoto(const std::string& name) {
    writeBytes(disc(name) / "Photos/00012.jpg", "x");
    return disc(name);
  }
  static Drive optical(char letter, const fs::path& root) {
    return {letter, Drive::Type::CdRom, !root.empty(), root, {}};
  }

  test::TemporaryFolder folder_;
  Drive fixed_{'c', Drive::Type::Fixed, true, "/", {}};
};

TEST_F(PhotoDrive, WithoutAnOpticalDriveTheAnswerIsC) {
  EXPECT_EQ(findPhotoDrive({}), "c");
  EXPECT_EQ(findPhotoDrive({fixed_}), "c");
}

TEST_F(PhotoDrive, ADriveWithoutADiscDoesNotCount) {
  EXPECT_EQ(findPhotoDrive({fixed_, optical('d', {})}), "c");
}

TEST_F(PhotoDrive, TheFirstDriveWhosePhotosFolderHoldsAFileWins) {
  EXPECT_EQ(findPhotoDrive({fixed_, optical('d', disc("music")), optical('e', discWithPhoto("one")),
                            optical('f', discWithPhoto("two"))}),
            "e");
}

TEST_F(PhotoDrive, WithoutSuchADriveTheLastReadyOneIsTheAnswer) {
  EXPECT_EQ(findPhotoDrive(
                {fixed_, optical('d', disc("one")), optical('e', disc("two")), optical('f', {})}),
            "e");
}

TEST_F(PhotoDrive, AnEmptyPhotosFolderIsOnlyAFallback) {
  fs::create_directories(disc("empty") / "Photos/sub");
  EXPECT_EQ(findPhotoDrive({optical('d', disc("empty")), optical('e', discWithPhoto("one"))}), "e");
  EXPECT_EQ(findPhotoDrive({optical('d', disc("empty"))}), "d");
}

TEST_F(PhotoDrive, OnlyOpticalDrivesCount) {
  const Drive stick{'d', Drive::Type::Removable, true, discWithPhoto("stick"), {}};
  EXPECT_EQ(findPhotoDrive({fixed_, stick}), "c");
}

TEST_F(PhotoDrive, ADriveAIsNeverThePhotoDrive) {
  EXPECT_EQ(findPhotoDrive({optical('a', discWithPhoto("one"))}), "c");
}

class PhotoFiles : public test::AlbumFixture {
protected:
  PhotoFiles() {
    writeBytes(disc_ / "Photos/00012.jpg", "disc photo");
    writeBytes(disc_ / "Thumbnails/00012.jpg", "disc thumbnail");
  }
  void insertDisc() { folder_.drives().insertDisc("sr0", disc_); }

  fs::path disc_ = folder_.root().parent_path() / "disc";
  fs::path notFound_ = at("Media/NotFound.gif");
};

TEST_F(PhotoFiles, APhotoOfTheHardDiskLiesInPhotosWhetherItIsThereOrNot) {
  EXPECT_EQ(imagePath(album(), "HD00012"), at("Photos/00012.jpg"));
}

TEST_F(PhotoFiles, APhotoOfADiscLiesOnTheDisc) {
  insertDisc();
  EXPECT_EQ(imagePath(album(), "CD00012"), disc_ / "Photos/00012.jpg");
  EXPECT_EQ(thumbnailPath(album(), "CD00012"), disc_ / "Thumbnails/00012.jpg");
}

TEST_F(PhotoFiles, ADiscWithoutTheThumbnailShowsThePhoto) {
  insertDisc();
  fs::remove(disc_ / "Thumbnails/00012.jpg");
  EXPECT_EQ(thumbnailPath(album(), "CD00012"), disc_ / "Photos/00012.jpg");
}

TEST_F(PhotoFiles, TheDriveIsProbedAnewForEachPhoto) {
  resolveImage(album(), "CD00012");
  EXPECT_FALSE(vars().ImagePicture.found);
  insertDisc();
  resolveImage(album(), "CD00012");
  EXPECT_TRUE(vars().ImagePicture.found);
  folder_.drives().unmountAll();
  resolveImage(album(), "CD00012");
  EXPECT_EQ(vars().ImagePicture, (PictureSource{notFound_, false}));
}

TEST_F(PhotoFiles, WithoutADiscItsPhotosAreLookedForOnDriveC) {
  EXPECT_EQ(imagePath(album(), "CD00012"), "/Photos/00012.jpg");
}

TEST_F(PhotoFiles, AReadyDriveWithoutPhotosShowsTheNotFoundPicture) {
  fs::remove_all(disc_ / "Photos");
  insertDisc();
  resolveImage(album(), "CD00012");
  EXPECT_EQ(vars().ImagePath, disc_ / "Photos/00012.jpg");
  EXPECT_EQ(vars().ImagePicture, (PictureSource{notFound_, false}));
}

TEST_F(PhotoFiles, AThumbnailIsTakenWhereItIsThereAndThePhotoElse) {
  folder_.addPhoto("HD00012");
  EXPECT_EQ(thumbnailPath(album(), "HD00012"), at("Thumbnails/00012.jpg"));
  fs::remove(at("Thumbnails/00012.jpg"));
  EXPECT_EQ(thumbnailPath(album(), "HD00012"), at("Photos/00012.jpg"));
}

TEST_F(PhotoFiles, AnImageThatIsThereIsShown) {
  resolveImage(album(), "HD00001");
  EXPECT_EQ(vars().ImagePath, at("Photos/00001.jpg"));
  EXPECT_EQ(vars().ImagePicture, (PictureSource{at("Photos/00001.jpg"), true}));
}

TEST_F(PhotoFiles, AThumbnailThatIsThereIsShown) {
  resolveThumbnail(album(), "HD00001");
  EXPECT_EQ(vars().ImagePath, at("Thumbnails/00001.jpg"));
  EXPECT_EQ(vars().ImagePicture, (PictureSource{at("Thumbnails/00001.jpg"), true}));
}

TEST_F(PhotoFiles, AMissingImageKeepsItsPathAndShowsTheNotFoundPicture) {
  resolveImage(album(), "HD00777");
  EXPECT_EQ(vars().ImagePath, at("Photos/00777.jpg"));
  EXPECT_EQ(vars().ImagePicture, (PictureSource{notFound_, false}));
}

TEST_F(PhotoFiles, AnIdOfAnotherPrefixShowsThePhotoBefore) {
  resolveImage(album(), "HD00001");
  resolveImage(album(), "XX00012");
  EXPECT_EQ(vars().ImagePath, at("Photos/00001.jpg"));
  EXPECT_EQ(vars().ImagePicture, (PictureSource{at("Photos/00001.jpg"), true}));
  EXPECT_EQ(imagePath(album(), "XX00012"), std::nullopt);
  EXPECT_EQ(thumbnailPath(album(), "XX00012"), std::nullopt);
}

TEST_F(PhotoFiles, AnIdOfAnotherPrefixAtFirstShowsTheNotFoundPicture) {
  resolveImage(album(), "XX00012");
  EXPECT_TRUE(vars().ImagePath.empty());
  EXPECT_EQ(vars().ImagePicture, (PictureSource{notFound_, false}));
}

TEST_F(PhotoFiles, ASoundOfTheHardDiskBelongsToADiscPhotoToo) {
  EXPECT_FALSE(hasSound(album().folder, "HD00012"));
  writeBytes(at("Audio/00012.mid"), "x");
  EXPECT_TRUE(hasSound(album().folder, "HD00012"));
  EXPECT_TRUE(hasSound(album().folder, "CD00012"));
  EXPECT_FALSE(hasSound(album().folder, "HD00013"));
}

} // namespace
} // namespace hearthbook
