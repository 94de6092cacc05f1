#include "Decode.h"

#include "ByteOrder.h"
#include "FileBytes.h"
#include "PictureFormats.h"
#include "RunTimeError.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace hearthbook {
namespace {

using namespace test;

class BadPictures : public testing::Test {
protected:
  std::filesystem::path file(const std::string& name, const std::string& bytes) {
    writeBytes(folder_.path() / name, bytes);
    return folder_.path() / name;
  }
  Decoded decoded(const std::string& name, const std::string& bytes) {
    return decodePicture(file(name, bytes));
  }
  /// The error's text behind the file's name.
  static std::string causeOf(const std::filesystem::path& path) {
    try {
      decodePicture(path);
    } catch (const RunTimeError& error) {
      const std::string start = "The picture " + path.string() + " cannot be read: ";
      const std::string text = error.what();
      EXPECT_EQ(text.substr(0, start.size()), start);
      return text.substr(std::min(start.size(), text.size()));
    }
    return "nothing was thrown";
  }
  std::string cause(const std::string& name, const std::string& bytes) {
    return causeOf(file(name, bytes));
  }

  TemporaryFolder folder_;
};

std::string half(const std::string& bytes) { return bytes.substr(0, bytes.size() / 2); }

/// The checksum of PNG.
std::uint32_t crcOf(std::string_view bytes) {
  std::uint32_t crc = 0xffffffff;
  for (const char byte : bytes) {
    crc ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit)
      crc = crc >> 1 ^ (crc & 1U ? 0xedb88320U : 0U);
  }
  return ~crc;
}

/// A PNG whose head claims a size.
std::string pngClaiming(std::uint32_t width, std::uint32_t height) {
  std::string png = encodedBy("png", plain({8, 8}, red));
  png.replace(16, 8, bigEndian(width, 4) + bigEndian(height, 4));
  return png.replace(29, 4, bigEndian(crcOf(png.substr(12, 17)), 4));
}

TEST_F(BadPictures, AJpegCutInTheMiddleIsShownAsFarAsItGoes) {
  for (const std::string& jpeg :
       {jpegOf(grainy({320, 240})), progressiveJpegOf(grainy({320, 240}))}) {
    const Decoded picture = decoded("a.jpg", half(jpeg));
    EXPECT_TRUE(picture.cut);
    EXPECT_EQ(picture.picture.size(), (PixelSize{320, 240}));
    EXPECT_NEAR(static_cast<int>(picture.picture.row(5)[300] >> 16 & 255U), 202, 25);
  }
}

TEST_F(BadPictures, ACutJpegIsNoticedAtEverySize) {
  const auto path = file("a.jpg", half(jpegOf(grainy({800, 600}))));
  EXPECT_TRUE(decodePictureAt(path, {73, 55}).cut);
  EXPECT_TRUE(decodePictureAt(path, {400, 300}).cut);
}

TEST_F(BadPictures, AWholeJpegIsNotTakenForCut) {
  const std::string jpeg = jpegOf(grainy({320, 240}));
  EXPECT_FALSE(decoded("a.jpg", jpeg).cut);
  EXPECT_FALSE(decoded("a.jpg", jpeg + std::string(5000, '\0')).cut);
}

TEST_F(BadPictures, AJpegWithoutItsLastBytesIsCut) {
  const std::string jpeg = jpegOf(grainy({320, 240}));
  EXPECT_TRUE(decoded("a.jpg", jpeg.substr(0, jpeg.size() * 99 / 100)).cut);
}

TEST_F(BadPictures, AJpegThatEndsInItsHeadCannotBeShown) {
  const std::string jpeg = jpegOf(grainy({320, 240}));
  for (const std::size_t length : {3U, 20U, 100U, 170U})
    EXPECT_EQ(cause("a.jpg", jpeg.substr(0, length)), "the file ends before its picture begins.");
}

TEST_F(BadPictures, OtherFormatsCutAreShownAsFarAsTheyGo) {
  const Picture picture = grainy({320, 240});
  const std::pair<std::string, std::string> files[] = {
      {"a.png", encodedBy("png", picture)},
      {"a.bmp", encodedBy("bmp", picture)},
      {"a.pcx", pcxOf(picture)},
      {"a.tga", tgaOf(picture)},
  };
  for (const auto& [name, bytes] : files) {
    SCOPED_TRACE(name);
    const Decoded cut = decoded(name, half(bytes));
    EXPECT_TRUE(cut.cut);
    EXPECT_EQ(cut.picture.size(), (PixelSize{320, 240}));
    const int row = name == "a.bmp" ? 230 : 10; // a BMP begins at its foot
    EXPECT_EQ(cut.picture.row(row)[100], picture.row(row)[100]);
    EXPECT_FALSE(decoded(name, bytes).cut);
  }
}

TEST_F(BadPictures, ACutTiffKeepsTheColoursOfTheRowsThatAreThere) {
  const Picture picture = grainy({320, 240});
  for (const int bits : {8, 16}) {
    SCOPED_TRACE(bits);
    const std::string tiff = tiffOf(picture, bits);
    const Decoded cut = decoded("a.tif", half(tiff));
    EXPECT_TRUE(cut.cut);
    EXPECT_EQ(cut.picture.size(), (PixelSize{320, 240}));
    EXPECT_EQ(cut.picture.row(10)[100], picture.row(10)[100]);
    EXPECT_EQ(cut.picture.row(10)[300], picture.row(10)[300]);
    EXPECT_FALSE(decoded("a.tif", tiff).cut);
  }
}

TEST_F(BadPictures, ATiffThatHasLostItsDirectoryIsRefusedInPlainWords) {
  EXPECT_EQ(cause("a.tif", half(encodedBy("tiff", grainy({64, 64})))),
            "it does not say how large it is.");
}

TEST_F(BadPictures, ACutIconIsShownAsFarAsItGoes) {
  const Picture picture = grainy({256, 256});
  const std::pair<std::string, int> icons[] = {{pngIconOf(picture), 10},
                                               {bitmapIconOf(picture), 250}}; // from the foot up
  for (const auto& [icon, row] : icons) {
    SCOPED_TRACE(row);
    const Decoded cut = decoded("a.ico", half(icon));
    EXPECT_TRUE(cut.cut);
    EXPECT_EQ(cut.picture.size(), (PixelSize{256, 256}));
    EXPECT_EQ(cut.picture.row(row)[30], picture.row(row)[30]);
    const Decoded whole = decoded("a.ico", icon);
    EXPECT_FALSE(whole.cut);
    EXPECT_EQ(whole.picture.row(128)[30], picture.row(128)[30]);
  }
}

TEST_F(BadPictures, AnIconOfWhichNoPixelIsThereIsRefused) {
  EXPECT_NE(cause("a.ico", pngIconOf(grainy({64, 64})).substr(0, 60)), "nothing was thrown");
}

TEST_F(BadPictures, ACutBitmapOfPackedRowsIsNoticedAndShownAsFarAsItGoes) {
  const std::string bitmap = packedBmp({64, 600});
  const Decoded whole = decoded("a.bmp", bitmap);
  EXPECT_FALSE(whole.cut);
  EXPECT_EQ(whole.picture.row(0)[30], red);
  const Decoded cut = decoded("a.bmp", half(bitmap));
  EXPECT_TRUE(cut.cut);
  EXPECT_EQ(cut.picture.size(), (PixelSize{64, 600}));
  EXPECT_EQ(cut.picture.row(599)[30], red);
  EXPECT_NE(cut.picture.row(0)[30], red);
}

TEST_F(BadPictures, ACutGifIsNoticedAndShownAsFarAsItGoes) {
  const std::string gif = gifOf({64, 64});
  const Decoded whole = decoded("a.gif", gif);
  EXPECT_FALSE(whole.cut);
  EXPECT_EQ(whole.picture.row(63)[30], red);
  const Decoded cut = decoded("a.gif", half(gif));
  EXPECT_TRUE(cut.cut);
  EXPECT_EQ(cut.picture.size(), (PixelSize{64, 64}));
  EXPECT_EQ(cut.picture.row(1)[30], red);
}

TEST_F(BadPictures, AnEmptyFileIsNamedSo) {
  for (const char* name : {"a.jpg", "a.png", "a.tga"})
    EXPECT_EQ(cause(name, ""), "the file is empty.");
}

TEST_F(BadPictures, ATextNamedLikeAPictureIsNone) {
  const std::string text = "Dear grandmother, here are the photos of the summer.\n";
  for (const char* extension : {"jpg", "png", "bmp", "tif", "ico", "pcx", "tga"})
    EXPECT_EQ(cause(std::string("letter.") + extension, text),
              "it is not a picture of a kind that Hearthbook knows.");
  EXPECT_NE(cause("letter.bmp", "BM" + text + text), "nothing was thrown");
}

TEST_F(BadPictures, DrawingsAndOtherKindsAreNotRead) {
  EXPECT_EQ(cause("a.jpg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>"),
            "it is not a picture of a kind that Hearthbook knows.");
}

TEST_F(BadPictures, ClaimsOfHugeSizesAreRefusedBeforeMemoryIsTaken) {
  EXPECT_EQ(cause("a.png", pngClaiming(60'000, 60'000)),
            "it says that it has 60000 by 60000 pixels, which is too large.");
  std::string jpeg = jpegOf(plain({8, 8}, red));
  const auto frame = jpeg.find("\xff\xc0");
  jpeg.replace(frame + 5, 4, "\xfd\xe8\xfd\xe8"); // 65000
  EXPECT_EQ(cause("a.jpg", jpeg), "it says that it has 65000 by 65000 pixels, which is too large.");
  std::string tga = tgaOf(plain({8, 8}, red));
  tga.replace(12, 4, "\xff\xff\xff\xff");
  EXPECT_EQ(cause("a.tga", tga), "it says that it has 65535 by 65535 pixels, which is too large.");
}

TEST_F(BadPictures, APngOfWhichNothingIsThereIsRefused) {
  EXPECT_NE(cause("a.png", pngClaiming(2000, 2000)), "nothing was thrown");
  EXPECT_NE(cause("a.png", pngClaiming(0, 8)), "nothing was thrown");
}

TEST_F(BadPictures, AnIconIsJudgedByThePictureInIt) {
  std::string icon = encodedBy("ico", plain({8, 8}, red));
  const auto png = icon.find("\x89PNG");
  ASSERT_EQ(png, std::string::npos) << "the writer stores small icons as bitmaps";
  icon.replace(22 + 4, 8, std::string("\x60\xea\x00\x00\xc0\xd4\x01\x00", 8)); // 60000, 2 * 60000
  EXPECT_EQ(cause("a.ico", icon), "it says that it has 60000 by 60000 pixels, which is too large.");
}

TEST_F(BadPictures, FoldersPipesAndMissingFilesAreNamedSo) {
  EXPECT_EQ(causeOf(folder_.path()), "it is a folder.");
  EXPECT_EQ(causeOf(folder_.path() / "none.jpg"), "it is not there.");
  const auto pipe = folder_.path() / "pipe.jpg";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(causeOf(pipe), "it is not a file.");
  std::filesystem::create_symlink("nowhere", folder_.path() / "link.jpg");
  EXPECT_EQ(causeOf(folder_.path() / "link.jpg"), "it is not there.");
}

TEST_F(BadPictures, AFileThatMayNotBeReadIsNamedSo) {
  if (geteuid() == 0)
    GTEST_SKIP() << "root may read everything";
  const auto path = file("a.jpg", jpegOf(plain({8, 8}, red)));
  std::filesystem::permissions(path, std::filesystem::perms::none);
  EXPECT_EQ(causeOf(path), "access is not allowed.");
}

} // namespace
} // namespace hearthbook
