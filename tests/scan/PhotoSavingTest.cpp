#include "PhotoSaving.h"
#include "AlbumFixture.h"
#include "Decode.h"
#include "Encode.h"
#include "FileBytes.h"
#include "PhotoFiles.h"
#include "PhotoIdentity.h"
#include "Resample.h"
#include "RunTimeError.h"
#include "ScanPrint.h"
#include "TestPictures.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace hearthbook::test {
namespace {

namespace fs = std::filesystem;

class PhotoSaving : public AlbumFixture {
protected:
  Recordset& photos() { return data().rsPhotoAlbum; }
};

} // namespace

TEST_F(PhotoSaving, APhotoGetsTheNumberBehindTheLastAndTwoFiles) {
  folder_.addPhoto("HD00007");
  const PhotoPlaces places = addPhotoRow(album(), photos());
  EXPECT_EQ(photos().Collect("PictureID").toText(), "HD00008");
  EXPECT_EQ(vars().NextPhotoNumber, 8);
  EXPECT_EQ(places.photo, at("Photos/00008.jpg"));
  EXPECT_EQ(places.thumbnail, at("Thumbnails/00008.jpg"));
  writePhoto(grainy({300, 200}), places);
  EXPECT_EQ(readPictureInfo(places.photo).size, (PixelSize{300, 200}));
  EXPECT_EQ(readPictureInfo(places.thumbnail).size, (PixelSize{73, 49}));
}

TEST_F(PhotoSaving, ThePhotoIsOfTheBestQualityAndTheThumbnailOfItsOwn) {
  const Picture picture = grainy({300, 200});
  const PhotoPlaces places = addPhotoRow(album(), photos());
  writePhoto(picture, places);
  EXPECT_EQ(readBytes(places.photo), jpegOf(picture, 0));
  EXPECT_EQ(readBytes(places.thumbnail), jpegOf(resample(picture, {73, 49}), thumbnailFactor));
}

TEST_F(PhotoSaving, OnePixelIsAPhoto) {
  const PhotoPlaces places = addPhotoRow(album(), photos());
  writePhoto(plain({1, 1}, red), places);
  EXPECT_EQ(readPictureInfo(places.photo).size, (PixelSize{1, 1}));
  EXPECT_EQ(readPictureInfo(places.thumbnail).size, (PixelSize{73, 73}));
}

TEST_F(PhotoSaving, AnAlbumWithoutRowsBeginsWithOne) {
  data().AlbumDB.execute("DELETE FROM PhotoAlbum");
  photos().Requery();
  EXPECT_EQ(addPhotoRow(album(), photos()).photo, at("Photos/00001.jpg"));
}

TEST_F(PhotoSaving, AFileInTheWayOfANewPhotoGoesToTheTrash) {
  writeBytes(at("Photos/00002.jpg"), "left behind by somebody");
  writePhoto(grainy({30, 20}), addPhotoRow(album(), photos()));
  EXPECT_EQ(readBytes(folder_.trash() / "00002.jpg"), "left behind by somebody");
}

TEST_F(PhotoSaving, AnUpdateGoesToThePhotoOnWhichTheAlbumStandsNow) {
  folder_.addPhoto("HD00002");
  photos().MoveLast();
  vars().ImagePath = at("Photos/00001.jpg"); // as another form has resolved last
  const PhotoPlaces places = placesOfCurrentPhoto(album());
  EXPECT_EQ(places.photo, at("Photos/00002.jpg"));
  EXPECT_EQ(places.thumbnail, at("Thumbnails/00002.jpg"));
  EXPECT_EQ(vars().ImagePath, at("Photos/00002.jpg"));
}

TEST_F(PhotoSaving, TheOriginalOfAnUpdatedPhotoGoesToTheTrash) {
  const std::string original = readBytes(at("Photos/00001.jpg"));
  const Picture picture = grainy({90, 60});
  writePhoto(picture, placesOfCurrentPhoto(album()));
  EXPECT_EQ(readBytes(at("Photos/00001.jpg")), jpegOf(picture, 0));
  EXPECT_EQ(readBytes(folder_.trash() / "00001.jpg"), original);
  EXPECT_EQ(readPictureInfo(at("Thumbnails/00001.jpg")).size, (PixelSize{73, 49}));
}

TEST_F(PhotoSaving, WithoutARowNothingIsUpdated) {
  data().AlbumDB.execute("DELETE FROM PhotoAlbum");
  photos().Requery();
  EXPECT_THROW(placesOfCurrentPhoto(album()), RunTimeError);
}

TEST_F(PhotoSaving, APhotoOnADiscOrOfAnUnknownKindIsNeverUpdated) {
  for (const char* id : {"CD00001", "XX00001"}) {
    data().AlbumDB.execute(std::string("UPDATE PhotoAlbum SET PictureID = '") + id + "'");
    photos().Requery();
    EXPECT_THROW(placesOfCurrentPhoto(album()), RunTimeError) << id;
  }
}

TEST_F(PhotoSaving, APictureThatCannotBeEncodedLeavesThePhotoAsItWas) {
  const std::string original = readBytes(at("Photos/00001.jpg"));
  EXPECT_THROW(writePhoto(Picture(), placesOfCurrentPhoto(album())), RunTimeError);
  EXPECT_EQ(readBytes(at("Photos/00001.jpg")), original);
  EXPECT_FALSE(fs::exists(folder_.trash() / "00001.jpg"));
}

TEST_F(PhotoSaving, AThumbnailThatCannotTakeItsPlaceIsToldAsThatAlone) {
  const PhotoPlaces places = addPhotoRow(album(), photos());
  fs::create_directories(places.thumbnail / "in the way");
  EXPECT_THROW(writePhoto(grainy({90, 60}), places), ThumbnailFailure);
  EXPECT_TRUE(fs::exists(places.photo));
}

TEST_F(PhotoSaving, TheScannedPageIsOnTheDiskUntilItIsForgotten) {
  KeptPage page(album().folder);
  page.keep(grainy({90, 60}));
  EXPECT_EQ(page.file(), at("Backup/Scanned page.jpg"));
  EXPECT_EQ(readPictureInfo(page.file()).size, (PixelSize{90, 60}));
  page.forget();
  EXPECT_FALSE(fs::exists(page.file()));
  page.keep(grainy({90, 60}));
  EXPECT_FALSE(fs::exists(page.file())) << "what was still being written comes too late";
}

TEST_F(PhotoSaving, APageThatACrashHasLeftGoesToTheTrashWhenAnotherTakesItsPlace) {
  KeptPage(album().folder).keep(grainy({90, 60}));
  KeptPage page(album().folder);
  page.keep(grainy({30, 20}), 1);
  page.keep(grainy({50, 40}), 2);
  EXPECT_EQ(readPictureInfo(folder_.trash() / "Scanned page.jpg").size, (PixelSize{90, 60}));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.trash()), {}), 1);
  EXPECT_EQ(readPictureInfo(page.file()).size, (PixelSize{50, 40}));
}

TEST_F(PhotoSaving, APageThatACrashHasLeftGoesToTheTrashWhereTheNextOneCameTooLate) {
  KeptPage(album().folder).keep(grainy({90, 60}));
  KeptPage page(album().folder);
  page.forget();
  page.keep(grainy({30, 20}), 1);
  EXPECT_EQ(readPictureInfo(folder_.trash() / "Scanned page.jpg").size, (PixelSize{90, 60}));
  EXPECT_FALSE(fs::exists(page.file()));
}

TEST_F(PhotoSaving, AnOlderPageThatIsReadyLateDoesNotTakeThePlaceOfANewerOne) {
  KeptPage page(album().folder);
  page.keep(grainy({90, 60}), 2);
  page.keep(grainy({30, 20}), 1);
  EXPECT_EQ(readPictureInfo(page.file()).size, (PixelSize{90, 60}));
  page.keep(grainy({50, 40}), 3);
  EXPECT_EQ(readPictureInfo(page.file()).size, (PixelSize{50, 40}));
}

} // namespace hearthbook::test
