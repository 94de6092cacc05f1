#include "Decode.h"

#include "FileBytes.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

using namespace test;

class Decode : public testing::Test {
protected:
  std::filesystem::path file(const std::string& name, const std::string& bytes) {
    writeBytes(folder_.path() / name, bytes);
    return folder_.path() / name;
  }

  TemporaryFolder folder_;
};

void expectCorners(const Picture& picture, PixelSize size, int tolerance) {
  ASSERT_EQ(picture.size(), size);
  const auto* top = picture.row(size.height / 8);
  const auto* bottom = picture.row(size.height * 7 / 8);
  EXPECT_LE(distance(top[size.width / 8], red), tolerance);
  EXPECT_LE(distance(top[size.width * 7 / 8], green), tolerance);
  EXPECT_LE(distance(bottom[size.width / 8], blue), tolerance);
  EXPECT_LE(distance(bottom[size.width * 7 / 8], white), tolerance);
}

TEST_F(Decode, EveryFormatOfThePatternIsRead) {
  const Picture picture = corners({61, 40});
  const std::pair<std::string, std::string> files[] = {
      {"jpeg", jpegOf(picture)},
      {"png", encodedBy("png", picture)},
      {"bmp", encodedBy("bmp", picture)},
      {"tiff", encodedBy("tiff", picture)},
      {"ico", encodedBy("ico", picture)},
      {"pcx", pcxOf(picture)},
      {"tga", tgaOf(picture)},
  };
  for (const auto& [format, bytes] : files) {
    SCOPED_TRACE(format);
    const auto path = file("picture." + format.substr(0, 3), bytes);
    const PictureInfo info = readPictureInfo(path);
    EXPECT_EQ(info.format, format);
    EXPECT_EQ(info.size, (PixelSize{61, 40}));
    EXPECT_EQ(info.orientation, 1);
    const Decoded decoded = decodePicture(path);
    EXPECT_FALSE(decoded.cut);
    EXPECT_EQ(decoded.fullSize, (PixelSize{61, 40}));
    expectCorners(decoded.picture, {61, 40}, format == "jpeg" ? 4 : 0);
  }
}

TEST_F(Decode, TheContentDecidesAndNotTheName) {
  EXPECT_EQ(readPictureInfo(file("a.jpg", encodedBy("png", corners({20, 20})))).format, "png");
  EXPECT_EQ(readPictureInfo(file("a.png", jpegOf(corners({20, 20})))).format, "jpeg");
  EXPECT_EQ(readPictureInfo(file("a.tga", encodedBy("bmp", corners({20, 20})))).format, "bmp");
  expectCorners(decodePicture(file("b.jpg", encodedBy("png", corners({20, 20})))).picture, {20, 20},
                0);
}

TEST_F(Decode, ATgaIsTakenForOneByItsNameOrItsFooterOnly) {
  const std::string tga = tgaOf(corners({20, 20}));
  const std::string footer = std::string(8, '\0') + std::string("TRUEVISION-XFILE.\0", 18);
  EXPECT_EQ(readPictureInfo(file("a.TGA", tga)).format, "tga");
  EXPECT_EQ(readPictureInfo(file("a.jpg", tga + footer)).format, "tga");
  EXPECT_ANY_THROW(readPictureInfo(file("b.jpg", tga)));
}

TEST_F(Decode, SixteenBitsInAChannelAreRead) {
  for (const char* format : {"tiff", "png"})
    expectCorners(decodePicture(file("a", encodedBy(format, corners({50, 40}), 16))).picture,
                  {50, 40}, 0);
}

TEST_F(Decode, ProgressiveJpegsAreRead) {
  expectCorners(decodePicture(file("a.jpg", progressiveJpegOf(corners({80, 60})))).picture,
                {80, 60}, 4);
}

TEST_F(Decode, AJpegComesAtExactlyTheSizeWanted) {
  const auto path = file("a.jpg", jpegOf(corners({640, 480})));
  for (const PixelSize size : {PixelSize{73, 55}, {100, 75}, {333, 250}, {640, 480}, {800, 600}}) {
    const Decoded decoded = decodePictureAt(path, size);
    expectCorners(decoded.picture, size, 6);
    EXPECT_EQ(decoded.fullSize, (PixelSize{640, 480}));
  }
}

TEST_F(Decode, OtherFormatsComeAtExactlyTheSizeWanted) {
  const Picture picture = corners({64, 48});
  for (const std::string& bytes : {encodedBy("png", picture), tgaOf(picture)}) {
    const auto path = file("a.tga", bytes);
    expectCorners(decodePictureAt(path, {32, 24}).picture, {32, 24}, 0);
    expectCorners(decodePictureAt(path, {128, 96}).picture, {128, 96}, 0);
  }
}

TEST_F(Decode, AScaledJpegLooksLikeTheAverageOfItsPixels) {
  const Picture picture = grainy({800, 600});
  const auto path = file("a.jpg", jpegOf(picture));
  const Picture small = decodePictureAt(path, {73, 55}).picture;
  for (const int x : {5, 36, 70}) {
    const int across = (x * 2 + 1) * 200 / (2 * 73) + 15; // the grain's mean is 15
    EXPECT_NEAR(static_cast<int>(small.row(27)[x] >> 16 & 255U), across, 4) << x;
  }
}

TEST_F(Decode, FitsIntoASquare) {
  EXPECT_EQ(decodePictureWithin(file("a.jpg", jpegOf(corners({640, 480}))), 100).picture.size(),
            (PixelSize{100, 75}));
  EXPECT_EQ(decodePictureWithin(file("b.jpg", jpegOf(corners({30, 60}))), 100).picture.size(),
            (PixelSize{50, 100}));
}

TEST_F(Decode, RoughlyGivesTheCheapestSizeThatIsLargeEnough) {
  const auto path = file("a.jpg", jpegOf(corners({1600, 1200})));
  EXPECT_EQ(decodePictureRoughly(path, 200).picture.size(), (PixelSize{200, 150}));
  EXPECT_EQ(decodePictureRoughly(path, 201).picture.size(), (PixelSize{400, 300}));
  EXPECT_EQ(decodePictureRoughly(path, 5000).picture.size(), (PixelSize{1600, 1200}));
}

TEST_F(Decode, AThreadOfAPictureIsRead) {
  const auto path = file("a.jpg", jpegOf(plain({1, 10'000}, red)));
  EXPECT_EQ(readPictureInfo(path).size, (PixelSize{1, 10'000}));
  EXPECT_EQ(decodePictureWithin(path, 73).picture.size(), (PixelSize{1, 73}));
  const auto wide = file("b.png", encodedBy("png", plain({10'000, 1}, red)));
  EXPECT_EQ(decodePictureWithin(wide, 73).picture.size(), (PixelSize{73, 1}));
}

TEST_F(Decode, NamesOfAllKindsAreOpened) {
  const std::string jpeg = jpegOf(corners({20, 20}));
  std::string longest(251, 'x');
  for (const std::string& name :
       {std::string("with blank.jpg"), std::string("it's \"quoted\".jpg"),
        std::string("Gr\xc3\xbc\xc3\x9f"
                    "e.jpg"),
        std::string("\xf0\x9f\x8e\x82.jpg"), std::string("pic.jpg[1]"), std::string("%02d.jpg"),
        std::string("no\xff utf8.jpg"), longest + ".jpg"})
    EXPECT_EQ(readPictureInfo(file(name, jpeg)).size, (PixelSize{20, 20})) << name;
}

TEST_F(Decode, ClearPartsShowWhitePaper) {
  Picture half({2, 1});
  half.writableRow(0)[0] = 0xffff0000;
  std::string tga = tgaOf(half);
  tga.resize(18);
  tga[16] = 32;
  tga[17] = 0x28;
  tga += std::string("\x00\x00\xff\xff", 4) + std::string("\x00\x00\x00\x00", 4);
  const Picture picture = decodePicture(file("a.tga", tga)).picture;
  EXPECT_EQ(picture.row(0)[0], red);
  EXPECT_EQ(picture.row(0)[1], white);
}

} // namespace
} // namespace hearthbook
