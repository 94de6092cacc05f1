#include "ReducedPhoto.h"

#include "DottedPhoto.h"

#include "Decode.h"
#include "Encode.h"
#include "FileBytes.h"
#include "RunTimeError.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace hearthbook {
void PrintTo(const PixelSize& size, std::ostream* out) {
  *out << size.width << " by " << size.height;
}
} // namespace hearthbook

namespace hearthbook::test {

namespace {

class ReducedPhoto : public testing::Test {
protected:
  std::filesystem::path put(const std::string& bytes) {
    writeBytes(photo_, bytes);
    return photo_;
  }
  Picture reduced(const Picture& picture) {
    writeBytes(folder_.path() / "out.jpg", reducedForMail(put(jpegOf(picture))));
    return decodePicture(folder_.path() / "out.jpg").picture;
  }

  TemporaryFolder folder_;
  std::filesystem::path photo_ = folder_.path() / "00001.jpg";
};

} // namespace

TEST(MailedSize, NearlyEveryPhotoIs320Wide) {
  EXPECT_EQ(mailedSize({4000, 3000}), (PixelSize{320, 240}));
  EXPECT_EQ(mailedSize({3000, 4000}), (PixelSize{320, 427})); // upright too: 426.67
  EXPECT_EQ(mailedSize({640, 481}), (PixelSize{320, 240}));   // 240.5, to the even one
  EXPECT_EQ(mailedSize({640, 483}), (PixelSize{320, 242}));   // 241.5
  EXPECT_EQ(mailedSize({22, 22}), (PixelSize{320, 320}));     // 330 twips are over 320
}

TEST(MailedSize, AHighSliverIs240High) {
  EXPECT_EQ(mailedSize({21, 210}), (PixelSize{24, 240})); // 315 twips wide
  EXPECT_EQ(mailedSize({21, 17}), (PixelSize{296, 240})); // 255 twips high; 296.47
}

TEST(MailedSize, ATinyPhotoStaysAsItIs) {
  EXPECT_EQ(mailedSize({21, 16}), std::nullopt); // 315 by 240 twips
  EXPECT_EQ(mailedSize({1, 1}), std::nullopt);
}

TEST(MailedSize, NoSideIsLessThanAPixel) {
  EXPECT_EQ(mailedSize({10'000, 1}), (PixelSize{320, 1}));
  EXPECT_EQ(mailedSize({1, 10'000}), (PixelSize{1, 240}));
}

TEST_F(ReducedPhoto, IsAJpegOfThatSizeAndLooksTheSame) {
  const Picture small = reduced(corners({1600, 1200}));
  EXPECT_EQ(small.size(), (PixelSize{320, 240}));
  EXPECT_LT(distance(small.row(20)[20], red), 12);
  EXPECT_LT(distance(small.row(220)[300], white), 12);
}

TEST_F(ReducedPhoto, IsCompressedByAFactorOfFive) {
  const auto photo = put(jpegOf(grainy({640, 480}, 1)));
  const Picture small = decodePictureAt(photo, {320, 240}).picture;
  EXPECT_TRUE(reducedForMail(photo) == jpegBytes(small, 5));
  EXPECT_FALSE(jpegBytes(small, 5) == jpegBytes(small, 4));
}

TEST_F(ReducedPhoto, ATinyOneIsEncodedAnewAtItsSize) {
  EXPECT_EQ(reduced(corners({20, 16})).size(), (PixelSize{20, 16}));
}

TEST_F(ReducedPhoto, AnUprightOneOfTheCameraComesOutUpright) {
  put(withOrientation(jpegOf(corners({800, 600})), 6));
  writeBytes(folder_.path() / "out.jpg", reducedForMail(photo_));
  EXPECT_EQ(readPictureInfo(folder_.path() / "out.jpg").size, (PixelSize{320, 427}));
}

TEST_F(ReducedPhoto, ASliverOfTenThousandCanBeMailed) {
  EXPECT_EQ(reduced(plain({1, 10'000}, red)).size(), (PixelSize{1, 240}));
  EXPECT_EQ(reduced(plain({10'000, 1}, red)).size(), (PixelSize{320, 1}));
}

TEST_F(ReducedPhoto, OfALengthThatWouldBeginALineWithADotHasOneByteMoreAndTheSamePixels) {
  writeDottedPhoto(photo_);
  const std::string plain = encodedForMail(photo_);
  const std::string mailed = reducedForMail(photo_);
  EXPECT_EQ(mailed.size(), plain.size() + 1);
  EXPECT_FALSE(lastUuLineBeginsWithDot(mailed.size()));
  const auto picture = [this](const std::string& jpeg) {
    writeBytes(folder_.path() / "out.jpg", jpeg);
    return decodePicture(folder_.path() / "out.jpg").picture;
  };
  const Picture expected = picture(plain);
  const Picture shown = picture(mailed);
  ASSERT_EQ(shown.size(), expected.size());
  for (int y = 0; y < shown.height(); ++y)
    EXPECT_TRUE(std::equal(shown.row(y), shown.row(y) + shown.width(), expected.row(y))) << y;
}

TEST_F(ReducedPhoto, WhatIsNoPictureFails) {
  EXPECT_THROW(reducedForMail(photo_), RunTimeError);
  EXPECT_THROW(reducedForMail(put("no picture")), RunTimeError);
}

} // namespace hearthbook::test
