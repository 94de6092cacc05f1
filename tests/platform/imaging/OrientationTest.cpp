#include "Decode.h"
#include "Exif.h"

#include "FileBytes.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include <gtest/gtest.h>

#include <array>
#include <span>

namespace hearthbook {
namespace {

using namespace test;

/// Top left corner of an upright picture whose stored corners are red, green, blue and white.
constexpr std::array<std::uint32_t, 9> uprightTopLeft{0,   red,  green, white, blue,
                                                      red, blue, white, green};
constexpr std::array<std::uint32_t, 9> uprightTopRight{0,    green, red,   blue, white,
                                                       blue, red,   green, white};

void expectUpright(const Decoded& decoded, int orientation) {
  SCOPED_TRACE(orientation);
  const PixelSize size = orientation < 5 ? PixelSize{64, 48} : PixelSize{48, 64};
  EXPECT_EQ(decoded.fullSize, size);
  const Picture& picture = decoded.picture;
  const auto index = static_cast<std::size_t>(orientation);
  EXPECT_LE(distance(picture.row(1)[1], uprightTopLeft[index]), 5);
  EXPECT_LE(distance(picture.row(1)[picture.width() - 2], uprightTopRight[index]), 5);
}

TEST(Orientation, EveryJpegComesUpright) {
  const TemporaryFolder folder;
  const auto path = folder.path() / "a.jpg";
  const std::string jpeg = jpegOf(corners({64, 48}));
  for (int orientation = 1; orientation <= 8; ++orientation)
    for (const bool bigEndian : {true, false}) {
      writeBytes(path, withOrientation(jpeg, orientation, bigEndian));
      EXPECT_EQ(readPictureInfo(path).orientation, orientation);
      EXPECT_EQ(readPictureInfo(path).size,
                (orientation < 5 ? PixelSize{64, 48} : PixelSize{48, 64}));
      expectUpright(decodePicture(path), orientation);
    }
}

TEST(Orientation, TheSizeWantedIsThatOfTheUprightPicture) {
  const TemporaryFolder folder;
  const auto path = folder.path() / "a.jpg";
  writeBytes(path, withOrientation(jpegOf(corners({640, 480})), 6));
  const Picture picture = decodePictureAt(path, {48, 64}).picture;
  EXPECT_EQ(picture.size(), (PixelSize{48, 64}));
  EXPECT_LE(distance(picture.row(1)[1], blue), 5);
  EXPECT_EQ(decodePictureWithin(path, 73).picture.size(), (PixelSize{55, 73}));
}

TEST(Orientation, EveryTiffComesUpright) {
  const QImageIOHandler::Transformation transformations[] = {
      QImageIOHandler::TransformationNone,
      QImageIOHandler::TransformationMirror,
      QImageIOHandler::TransformationRotate180,
      QImageIOHandler::TransformationFlip,
      QImageIOHandler::TransformationFlipAndRotate90,
      QImageIOHandler::TransformationRotate90,
      QImageIOHandler::TransformationMirrorAndRotate90,
      QImageIOHandler::TransformationRotate270};
  const TemporaryFolder folder;
  const auto path = folder.path() / "a.tif";
  const Picture stored = corners({64, 48});
  const QImage image(reinterpret_cast<const uchar*>(stored.row(0)), 64, 48, 64 * 4,
                     QImage::Format_RGB32);
  for (int orientation = 1; orientation <= 8; ++orientation) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "tiff");
    writer.setTransformation(transformations[orientation - 1]);
    ASSERT_TRUE(writer.write(image));
    writeBytes(path, buffer.data().toStdString());
    EXPECT_EQ(readPictureInfo(path).orientation, orientation);
    expectUpright(decodePicture(path), orientation);
  }
}

int orientationOf(const std::string& segment) {
  return exifOrientation({reinterpret_cast<const std::uint8_t*>(segment.data()), segment.size()});
}

/// What stands in the APP1 segment of a JPEG with an orientation.
std::string exifSegment(int orientation, bool bigEndian) {
  return withOrientation("\xff\xd8", orientation, bigEndian).substr(6);
}

TEST(Exif, ACutSegmentCountsAsUpright) {
  for (const bool bigEndian : {true, false}) {
    const std::string whole = exifSegment(6, bigEndian);
    ASSERT_EQ(orientationOf(whole), 6);
    for (std::size_t length = 0; length < whole.size() - 4; ++length)
      EXPECT_EQ(orientationOf(whole.substr(0, length)), 1) << length;
  }
}

TEST(Exif, NonsenseCountsAsUpright) {
  EXPECT_EQ(orientationOf(exifSegment(0, true)), 1);
  EXPECT_EQ(orientationOf(exifSegment(9, false)), 1);
  EXPECT_EQ(orientationOf("http://ns.adobe.com/xap/1.0/"), 1);
  std::string farDirectory = exifSegment(6, true);
  farDirectory.replace(10, 4, "\xff\xff\xff\xff");
  EXPECT_EQ(orientationOf(farDirectory), 1);
  std::string manyEntries = exifSegment(1, true);
  manyEntries.replace(14, 2, "\xff\xff");
  EXPECT_EQ(orientationOf(manyEntries), 1);
}

} // namespace
} // namespace hearthbook
