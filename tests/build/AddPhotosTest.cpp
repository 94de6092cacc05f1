#include "AddPhotosFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace hearthbook {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

class AddPhotos : public AddPhotosFixture {};

/// The first quantiser of a JPEG: 2 at factor 0, 6 at factor 15.
int quantiserOf(const std::string& jpeg) {
  return static_cast<unsigned char>(jpeg.at(jpeg.find("\xff\xdb") + 5));
}

TEST_F(AddPhotos, AnEmptyAlbumBeginsWithNumberOne) {
  emptyAlbum();
  EXPECT_EQ(add({source("a.jpg", photoJpeg())}), 1);
  EXPECT_THAT(ids(), ElementsAre("HD00001"));
  EXPECT_TRUE(fs::exists(at("Photos/00001.jpg")));
  EXPECT_TRUE(fs::exists(at("Thumbnails/00001.jpg")));
  EXPECT_EQ(vars().NextPhotoNumber, 1);
  EXPECT_THAT(failures_, IsEmpty());
}

TEST_F(AddPhotos, ThreeFilesGetConsecutiveNumbersInTheOrderOfTheList) {
  const std::string bytes[] = {photoJpeg(1), photoJpeg(2), photoJpeg(3)};
  EXPECT_EQ(add({source("c.jpg", bytes[0]), source("a.jpg", bytes[1]), source("b.jpg", bytes[2])}),
            3);
  EXPECT_THAT(ids(), ElementsAre("HD00001", "HD00002", "HD00003", "HD00004"));
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), bytes[0]);
  EXPECT_EQ(readBytes(at("Photos/00003.jpg")), bytes[1]);
  EXPECT_EQ(readBytes(at("Photos/00004.jpg")), bytes[2]);
}

TEST_F(AddPhotos, TheNumberIsReadAfreshForEachFile) {
  folder_.addRow("PhotoAlbum", {{"PictureID", Value("HD00041")}});
  data().rsPhotoAlbum.Requery();
  add({source("a.jpg", photoJpeg()), source("b.jpg", photoJpeg())});
  EXPECT_THAT(ids(), ElementsAre("HD00001", "HD00041", "HD00042", "HD00043"));
}

TEST_F(AddPhotos, TheRowHoldsItsIdAloneAndIsStoredAtOnce) {
  add({source("a.jpg", photoJpeg())});
  folder_.close();
  folder_.open();
  Recordset& rows = data().rsPhotoAlbum;
  rows.MoveLast();
  EXPECT_EQ(rows.Collect("PictureID").toText(), "HD00002");
  for (const std::string& field : rows.fieldNames())
    EXPECT_EQ(rows.Collect(field).isNull(), field != "PictureID") << field;
}

TEST_F(AddPhotos, TheBarGoesThroughTheWholeListAndOnlySelectedFilesAreAdded) {
  request_.list = {source("a.jpg", photoJpeg()), source("b.jpg", photoJpeg()),
                   source("c.jpg", photoJpeg())};
  request_.selected = {false, true, false};
  EXPECT_EQ(addPhotos(album(), pool_, request_, listener_), 1);
  EXPECT_THAT(indexes_, ElementsAre(0, 1, 2));
  EXPECT_THAT(ids(), ElementsAre("HD00001", "HD00002"));
}

TEST_F(AddPhotos, NothingSelectedAddsNothing) {
  request_.list = {source("a.jpg", photoJpeg())};
  request_.selected = {false};
  EXPECT_EQ(addPhotos(album(), pool_, request_, listener_), 0);
  EXPECT_THAT(ids(), ElementsAre("HD00001"));
  request_ = {};
  EXPECT_EQ(addPhotos(album(), pool_, request_, listener_), 0);
}

TEST_F(AddPhotos, AJpegKeepsItsExactBytes) {
  const std::string bytes = withOrientation(photoJpeg(), 6) + "something behind the end";
  add({source("a.jpg", bytes), source("b.JPG", bytes), source("nojpg", bytes)});
  for (const char* photo : {"Photos/00002.jpg", "Photos/00003.jpg", "Photos/00004.jpg"})
    EXPECT_EQ(readBytes(at(photo)), bytes) << photo;
}

TEST_F(AddPhotos, AMixedEndingIsDecodedAndEncodedAnew) {
  const std::string bytes = photoJpeg();
  add({source("a.Jpg", bytes), source("b.jpeg", bytes)});
  for (const char* photo : {"Photos/00002.jpg", "Photos/00003.jpg"}) {
    EXPECT_NE(readBytes(at(photo)), bytes);
    EXPECT_EQ(quantiserOf(readBytes(at(photo))), 2);
    EXPECT_EQ(sizeOf(photo), (PixelSize{320, 240}));
  }
}

TEST_F(AddPhotos, OtherFormatsBecomeJpegsAtTheBestFactor) {
  const Picture picture = corners({64, 48});
  add({source("a.png", encodedBy("png", picture)), source("b.bmp", encodedBy("bmp", picture)),
       source("c.tif", encodedBy("tiff", picture, 16)), source("d.pcx", pcxOf(picture)),
       source("e.tga", tgaOf(picture)), source("f.ico", encodedBy("ico", picture))});
  EXPECT_THAT(failures_, IsEmpty());
  for (int number = 2; number <= 7; ++number) {
    const auto photo = at("Photos/0000" + std::to_string(number) + ".jpg");
    EXPECT_EQ(quantiserOf(readBytes(photo)), 2);
    EXPECT_LE(distance(decodePicture(photo).picture.row(40)[8], blue), 4) << number;
  }
}

TEST_F(AddPhotos, AThumbnailIs73PixelsOnItsLongerSideAtFactor15) {
  add({source("a.jpg", photoJpeg(1, {1600, 1200})), source("b.jpg", photoJpeg(1, {1200, 1600})),
       source("c.png", encodedBy("png", grainy({500, 500})))});
  EXPECT_EQ(sizeOf("Thumbnails/00002.jpg"), (PixelSize{73, 55}));
  EXPECT_EQ(sizeOf("Thumbnails/00003.jpg"), (PixelSize{55, 73}));
  EXPECT_EQ(sizeOf("Thumbnails/00004.jpg"), (PixelSize{73, 73}));
  for (const char* thumbnail : {"Thumbnails/00002.jpg", "Thumbnails/00004.jpg"})
    EXPECT_EQ(quantiserOf(readBytes(at(thumbnail))), 6);
}

TEST_F(AddPhotos, TheThumbnailOfATurnedPhotoIsUpright) {
  add({source("a.jpg", withOrientation(jpegOf(corners({640, 480})), 6))});
  const Picture thumbnail = decodePicture(at("Thumbnails/00002.jpg")).picture;
  EXPECT_EQ(thumbnail.size(), (PixelSize{55, 73}));
  EXPECT_LE(distance(thumbnail.row(10)[10], blue), 20);
  EXPECT_LE(distance(thumbnail.row(10)[45], red), 20);
}

TEST_F(AddPhotos, AThreadOfAPictureIsAdded) {
  add({source("a.jpg", jpegOf(plain({1, 10'000}, red)))});
  EXPECT_EQ(sizeOf("Thumbnails/00002.jpg"), (PixelSize{1, 73}));
  EXPECT_THAT(failures_, IsEmpty());
}

TEST_F(AddPhotos, ThePreviewFollowsTheWork) {
  add({source("a.jpg", photoJpeg(1, {1600, 1200})),
       source("b.png", encodedBy("png", plain({50, 40}, red)))});
  ASSERT_EQ(shown_.size(), 2U);
  EXPECT_EQ(shown_[0], (PixelSize{400, 300}));
  EXPECT_EQ(shown_[1], (PixelSize{50, 40}));
}

TEST_F(AddPhotos, TheAlbumsThreadOnlyWaitsThroughTheListener) {
  int waits = 0;
  listener_.wait = [&](const std::function<bool()>& done) {
    ++waits;
    while (!done())
      std::this_thread::yield();
  };
  add({source("a.jpg", photoJpeg()), source("b.jpg", photoJpeg())});
  EXPECT_EQ(waits, 6); // for the picture, for its copy and for the rest of its files
}

TEST_F(AddPhotos, NothingHalfMadeIsLeft) {
  add({source("a.jpg", photoJpeg()), source("letter.jpg", letter), at("Photos/gone.jpg")});
  EXPECT_THAT(namesIn(at("Photos")), ElementsAre("00001.jpg", "00002.jpg", "00003.jpg"));
  EXPECT_THAT(namesIn(at("Thumbnails")),
              ElementsAre("00001.jpg", "00002.jpg", "00003.jpg", "00004.jpg"));
}

TEST_F(AddPhotos, AFormThatThrowsEndsTheAddingInOrder) {
  listener_.showing = [](const Picture&) { throw std::runtime_error("closed"); };
  listener_.failed = [](const fs::path&, const std::exception&) { throw std::logic_error("no"); };
  EXPECT_THROW(add({source("a.jpg", photoJpeg()), source("b.jpg", photoJpeg())}), std::logic_error);
  EXPECT_THAT(namesIn(at("Photos")), ElementsAre("00001.jpg"));
}

TEST_F(AddPhotos, NamesOfAllKindsAreTaken) {
  const std::string bytes = photoJpeg();
  add({source("it's \"Oma\" & co.jpg", bytes),
       source("Gr\xc3\xbc\xc3\x9f"
              "e \xf0\x9f\x8e\x82.jpg",
              bytes),
       source(std::string(251, 'x') + ".jpg", bytes), source("no\xff text.jpg", bytes)});
  EXPECT_THAT(failures_, IsEmpty());
  EXPECT_EQ(readBytes(at("Photos/00005.jpg")), bytes);
}

TEST_F(AddPhotos, ACutJpegIsAddedWithWhatThereIs) {
  const std::string whole = photoJpeg(1, {800, 600});
  const std::string cut = whole.substr(0, whole.size() / 2);
  add({source("a.jpg", cut)});
  EXPECT_THAT(failures_, IsEmpty());
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), cut);
  EXPECT_EQ(sizeOf("Thumbnails/00002.jpg"), (PixelSize{73, 55}));
}

class Reduction : public AddPhotosFixture {
protected:
  Reduction() { request_.reduce = true; }
};

TEST_F(Reduction, OnePixelOfWidthGoesForEach1000BytesTooMany) {
  add({source("a.jpg", jpegOfLength(grainy({1600, 1200}), 1'000'000))});
  EXPECT_THAT(failures_, IsEmpty());
  EXPECT_EQ(sizeOf("Photos/00002.jpg"), (PixelSize{900, 675}));
  EXPECT_EQ(quantiserOf(readBytes(at("Photos/00002.jpg"))), 2);
}

TEST_F(Reduction, ExactlyTheLimitIsLeftAlone) {
  const std::string bytes = jpegOfLength(grainy({640, 480}), 300'000);
  add({source("a.jpg", bytes)});
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), bytes);
}

TEST_F(Reduction, OneByteMoreIsEncodedAnewAtTheSameSize) {
  const std::string bytes = jpegOfLength(grainy({640, 480}), 300'001);
  add({source("a.jpg", bytes)});
  EXPECT_NE(readBytes(at("Photos/00002.jpg")), bytes);
  EXPECT_EQ(sizeOf("Photos/00002.jpg"), (PixelSize{640, 480}));
  EXPECT_EQ(quantiserOf(readBytes(at("Photos/00002.jpg"))), 2);
}

TEST_F(Reduction, WhereNoWidthIsLeftTheUnreducedPhotoStays) {
  const std::string bytes = jpegOfLength(grainy({400, 300}), 700'000);
  add({source("a.jpg", bytes)});
  EXPECT_THAT(failures_, ElementsAre("a.jpg"));
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), bytes);
}

TEST_F(Reduction, ATurnedPhotoIsReducedUpright) {
  add({source("a.jpg",
              withOrientation(jpegOf(corners({640, 480})), 6) + std::string(400'000, '\0'))});
  const auto photo = at("Photos/00002.jpg");
  const auto length = fs::file_size(source(
      "b.jpg", withOrientation(jpegOf(corners({640, 480})), 6) + std::string(400'000, '\0')));
  const double width = 480 - (static_cast<double>(length) - 300'000) / 1000;
  const PictureInfo info = readPictureInfo(photo);
  EXPECT_EQ(info.orientation, 1);
  EXPECT_NEAR(info.size.width, width, 0.5);
  EXPECT_LE(distance(decodePicture(photo).picture.row(20)[20], blue), 20);
}

TEST_F(Reduction, AnEncodedPhotoIsJudgedByItsOwnLength) {
  const Picture picture = grainy({1600, 1200});
  add({source("a.png", encodedBy("png", picture))});
  const double length = static_cast<double>(jpegOf(picture, 0).size());
  ASSERT_GT(length, 300'000);
  EXPECT_NEAR(sizeOf("Photos/00002.jpg").width, 1600 - (length - 300'000) / 1000, 0.5);
}

TEST_F(Reduction, WithoutTheWishNothingIsReduced) {
  request_.reduce = false;
  const std::string bytes = jpegOfLength(grainy({640, 480}), 500'000);
  add({source("a.jpg", bytes)});
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), bytes);
}

class BrokenFiles : public AddPhotosFixture {};

TEST_F(BrokenFiles, KeepTheirRowAndCountAndTheNextFilesFollow) {
  EXPECT_EQ(add({source("letter.jpg", letter), source("b.jpg", photoJpeg())}), 2);
  EXPECT_THAT(ids(), ElementsAre("HD00001", "HD00002", "HD00003"));
  EXPECT_EQ(sizeOf("Photos/00003.jpg"), (PixelSize{320, 240}));
}

TEST_F(BrokenFiles, TellEachStepThatFails) {
  add({source("letter.jpg", letter)});
  // Loading, making the thumbnail smaller, saving it, loading again; the copy needs no picture.
  EXPECT_THAT(failures_, ElementsAre("letter.jpg", "letter.jpg", "letter.jpg", "letter.jpg"));
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), letter);
  EXPECT_FALSE(fs::exists(at("Thumbnails/00002.jpg")));
}

TEST_F(BrokenFiles, GoOnWithThePictureOfTheFileBefore) {
  add({source("a.jpg", photoJpeg()), source("letter.jpg", letter), source("letter.png", letter)});
  EXPECT_THAT(failures_, ElementsAre("letter.jpg", "letter.jpg", "letter.png", "letter.png"));
  EXPECT_EQ(readBytes(at("Thumbnails/00003.jpg")), readBytes(at("Thumbnails/00002.jpg")));
  EXPECT_EQ(readBytes(at("Photos/00003.jpg")), letter);
  EXPECT_EQ(sizeOf("Photos/00004.jpg"), (PixelSize{73, 55}));
}

TEST_F(BrokenFiles, GoOnWithWhatThePreviewShowedAtTheStart) {
  request_.preview = grainy({400, 200});
  add({source("letter.png", letter)});
  EXPECT_THAT(failures_, ElementsAre("letter.png", "letter.png"));
  EXPECT_EQ(sizeOf("Thumbnails/00002.jpg"), (PixelSize{73, 36}));
}

TEST_F(BrokenFiles, AFileThatHasVanishedKeepsItsRow) {
  EXPECT_EQ(add({at("Photos/gone.jpg")}), 1);
  EXPECT_THAT(ids(), ElementsAre("HD00001", "HD00002"));
  EXPECT_EQ(failures_.size(), 5U); // the copy fails as well
  EXPECT_FALSE(fs::exists(at("Photos/00002.jpg")));
}

TEST_F(BrokenFiles, AHugeClaimIsToldInPlainWords) {
  std::string tga = tgaOf(plain({8, 8}, red));
  tga.replace(12, 4, "\xff\xff\xff\xff");
  add({source("a.tga", tga)});
  ASSERT_FALSE(causes_.empty());
  EXPECT_THAT(causes_[0], testing::HasSubstr("65535 by 65535 pixels, which is too large"));
}

TEST_F(BrokenFiles, AThumbnailThatCannotBeWrittenDoesNotKeepThePhotoOut) {
  fs::remove_all(at("Thumbnails"));
  writeBytes(at("Thumbnails"), "a file where the folder should be");
  add({source("a.jpg", photoJpeg())});
  EXPECT_THAT(failures_, ElementsAre("a.jpg"));
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), photoJpeg());
}

} // namespace
} // namespace hearthbook
