#include "PhotoIdentity.h"
#include "AlbumFixture.h"
#include "RunTimeError.h"

namespace hearthbook {
namespace {

TEST(PhotoIdentityText, ThePrefixTellsWhereTheFilesLie) {
  EXPECT_EQ(originOf("HD00012"), PhotoOrigin::HardDisk);
  EXPECT_EQ(originOf("CD00012"), PhotoOrigin::Disc);
  for (const char* other : {"XX00012", "hd00012", "H", ""})
    EXPECT_EQ(originOf(other), PhotoOrigin::Other) << other;
}

TEST(PhotoIdentityText, TheStemIsTheIdFromItsThirdCharacterOn) {
  EXPECT_EQ(stemOf("HD00012"), "00012");
  EXPECT_EQ(stemOf("CD00012"), "00012");
  EXPECT_EQ(stemOf("HD"), "");
  EXPECT_EQ(stemOf("H"), "");
  EXPECT_EQ(stemOf(""), "");
}

TEST(PhotoIdentityText, PhotosAreSearchedByTheirIds) {
  EXPECT_EQ(photosCriterion("PictureID", {}), "");
  EXPECT_EQ(photosCriterion("PhotoID", {"HD00001"}), "PhotoID = 'HD00001'");
  EXPECT_EQ(photosCriterion("PictureID", {"HD00001", "CD00002"}),
            "PictureID = 'HD00001' Or PictureID = 'CD00002'");
}

TEST(PhotoIdentityText, AnIdHasFiveDigits) {
  EXPECT_EQ(hardDiskId(1), "HD00001");
  EXPECT_EQ(hardDiskId(10000), "HD10000");
}

class PhotoIdentity : public test::AlbumFixture {
protected:
  std::int16_t next() { return nextPhotoNumber(data().rsPhotoAlbum); }
};

TEST_F(PhotoIdentity, TheNextNumberFollowsTheHighestId) {
  folder_.addPhoto("HD00007");
  EXPECT_EQ(next(), 8);
  EXPECT_EQ(data().rsPhotoAlbum.AbsolutePosition(), 2);
}

TEST_F(PhotoIdentity, AnEmptyAlbumBeginsWithOne) {
  data().AlbumDB.execute("DELETE FROM PhotoAlbum");
  data().rsPhotoAlbum.Requery();
  EXPECT_TRUE(data().rsPhotoAlbum.atBOF());
  EXPECT_TRUE(data().rsPhotoAlbum.atEOF());
  EXPECT_EQ(next(), 1);
}

TEST_F(PhotoIdentity, DiscPhotosDoNotCountBesideOneOfTheHardDisk) {
  folder_.addPhoto("CD00900");
  EXPECT_EQ(next(), 2);
}

TEST_F(PhotoIdentity, InAnAlbumOfDiscPhotosTheirNumbersCount) {
  data().AlbumDB.execute("DELETE FROM PhotoAlbum");
  folder_.addPhoto("CD00900");
  EXPECT_EQ(next(), 901);
}

TEST_F(PhotoIdentity, AfterTenThousandTheNumberIsOneAgain) {
  folder_.addPhoto("HD09999");
  EXPECT_EQ(hardDiskId(next()), "HD10000");
  folder_.addPhoto("HD10000");
  EXPECT_EQ(hardDiskId(next()), "HD00001");
}

TEST_F(PhotoIdentity, AnIdWithoutANumberCountsAsZero) {
  folder_.addPhoto("HDx");
  EXPECT_EQ(next(), 1);
}

} // namespace
} // namespace hearthbook
