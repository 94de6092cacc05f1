#include "Decode.h"

#include "FileBytes.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImage>

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

using namespace test;

class Colours : public testing::Test {
protected:
  Picture decoded(const std::string& bytes) {
    writeBytes(folder_.path() / "a", bytes);
    return decodePicture(folder_.path() / "a").picture;
  }

  TemporaryFolder folder_;
};

std::string withProfile(const std::string& jpeg, const std::string& profile) {
  return withSegment(jpeg, 0xe2, std::string("ICC_PROFILE\0\x01\x01", 14) + profile);
}

std::string profileOf(QColorSpace::NamedColorSpace space) {
  return QColorSpace(space).iccProfile().toStdString();
}

constexpr std::uint32_t leaf = 0xff28b33c; // 40, 179, 60

TEST_F(Colours, AJpegWithAWideProfileIsTurnedIntoSrgb) {
  const Picture picture =
      decoded(withProfile(jpegOf(plain({32, 32}, leaf)), profileOf(QColorSpace::AdobeRgb)));
  EXPECT_LE(distance(picture.row(10)[10], 0xff00b52a), 4); // 0, 181, 42
}

TEST_F(Colours, AProfileInTwoPiecesIsPutTogether) {
  const std::string profile = profileOf(QColorSpace::AdobeRgb);
  const auto half = profile.size() / 2;
  std::string jpeg = withSegment(jpegOf(plain({32, 32}, leaf)), 0xe2,
                                 std::string("ICC_PROFILE\0\x02\x02", 14) + profile.substr(half));
  jpeg =
      withSegment(jpeg, 0xe2, std::string("ICC_PROFILE\0\x01\x02", 14) + profile.substr(0, half));
  EXPECT_LE(distance(decoded(jpeg).row(10)[10], 0xff00b52a), 4);
}

TEST_F(Colours, AJpegInSrgbOrWithABrokenProfileStaysAsItIs) {
  const std::string jpeg = jpegOf(plain({32, 32}, leaf));
  for (const std::string& profile :
       {profileOf(QColorSpace::SRgb), std::string("nonsense"), std::string(4000, '\xee'),
        profileOf(QColorSpace::AdobeRgb).substr(0, 200)})
    EXPECT_LE(distance(decoded(withProfile(jpeg, profile)).row(10)[10], leaf), 3);
}

TEST_F(Colours, APngWithAWideProfileIsTurnedIntoSrgb) {
  QImage image(32, 32, QImage::Format_RGB32);
  image.fill(leaf);
  image.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  ASSERT_TRUE(image.save(&buffer, "png"));
  EXPECT_LE(distance(decoded(buffer.data().toStdString()).row(10)[10], 0xff00b52a), 3);
}

TEST_F(Colours, APictureForThePressHasItsColours) {
  for (const bool adobe : {true, false}) {
    const Picture picture = decoded(pressJpegOf(corners({32, 32}), adobe));
    EXPECT_LE(distance(picture.row(4)[4], red), 4) << adobe;
    EXPECT_LE(distance(picture.row(4)[28], green), 4) << adobe;
    EXPECT_LE(distance(picture.row(28)[4], blue), 4) << adobe;
    EXPECT_LE(distance(picture.row(28)[28], white), 4) << adobe;
  }
}

TEST_F(Colours, AGreyJpegIsGrey) {
  EXPECT_LE(distance(decoded(greyJpegOf(plain({32, 32}, 0xff5a5a5a))).row(9)[9], 0xff5a5a5a), 2);
}

} // namespace
} // namespace hearthbook
