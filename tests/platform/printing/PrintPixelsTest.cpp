#include "PrintPixels.h"

#include "FileBytes.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

using test::plain;

PrintSettings draft() {
  PrintSettings settings;
  settings.quality = PrintQuality::Draft;
  return settings;
}

Picture pixelsOf(const SheetPicture& picture) { return pixelsForPrint(picture, draft()).pixels; }

/// A photo on the disk, and another on the screen, so that one can tell which was printed.
class PrintPixelsTest : public testing::Test {
protected:
  SheetPicture photo(PixelSize size, TwipsRect place) {
    const auto file = folder_.path() / "photo.jpg";
    test::writeBytes(file, test::jpegOf(plain(size, test::red)));
    return {place, file, plain({4, 4}, test::blue)};
  }
  test::TemporaryFolder folder_;
};

TEST(PrintSettings, AreTheNumbersThatPrintersAreTold) {
  EXPECT_EQ(static_cast<int>(ColorMode::Color), 2);
  EXPECT_EQ(static_cast<int>(ColorMode::Monochrome), 1);
  EXPECT_EQ(static_cast<int>(PrintQuality::Best), -4);
  EXPECT_EQ(static_cast<int>(PrintQuality::Normal), -3);
  EXPECT_EQ(static_cast<int>(PrintQuality::Draft), -1);
  EXPECT_EQ(static_cast<int>(PaperOrientation::Portrait), 1);
  EXPECT_EQ(static_cast<int>(PaperOrientation::Landscape), 2);
}

TEST(PrintSettings, BetterQualityPrintsMoreDots) {
  EXPECT_EQ(dotsPerInch(PrintQuality::Draft), 150);
  EXPECT_EQ(dotsPerInch(PrintQuality::Normal), 300);
  EXPECT_EQ(dotsPerInch(PrintQuality::Best), 600);
}

TEST(PrintedPixels, AreThoseOfThePlaceOnPaper) {
  EXPECT_EQ(printedPixels({0, 0, 2880, 1440}, {4000, 3000}, 300), (PixelSize{600, 300}));
}

TEST(PrintedPixels, AreNeverMoreThanTheFileHas) {
  EXPECT_EQ(printedPixels({0, 0, 14400, 10800}, {400, 300}, 300), (PixelSize{400, 300}));
}

TEST(PrintedPixels, OfAPhotoOfOneByTenThousandAreAtLeastOneWide) {
  EXPECT_EQ(printedPixels({0, 0, 0.3375, 3375}, {1, 10000}, 300), (PixelSize{1, 10000}));
  EXPECT_EQ(printedPixels({0, 0, 0.3375, 3375}, {2, 20000}, 300), (PixelSize{1, 704}));
}

TEST(PrintedPixels, AreBoundedForAPhotoMagnifiedFarOverTheSheet) {
  const PixelSize pixels = printedPixels({0, 0, 1e9, 1e9}, {20000, 15000}, 600);
  EXPECT_LE(static_cast<double>(pixels.width) * pixels.height, 50e6);
  EXPECT_NEAR(static_cast<double>(pixels.width) / pixels.height, 20000.0 / 15000, 0.001);
}

TEST_F(PrintPixelsTest, ComeFromTheFileAndNotFromTheScreen) {
  const PrintedPixels printed = pixelsForPrint(photo({400, 300}, {0, 0, 1440, 1080}), draft());
  EXPECT_EQ(printed.pixels.size(), (PixelSize{150, 113}));
  EXPECT_LE(test::distance(*printed.pixels.row(50), test::red), 3);
  EXPECT_FALSE(printed.isStandIn);
}

TEST_F(PrintPixelsTest, OfAFileOfAnotherShapeAreThoseOfTheScreen) {
  const SheetPicture upright = photo({400, 300}, {0, 0, 1080, 1440});
  EXPECT_EQ(*pixelsOf(upright).row(0), test::blue);
  EXPECT_FALSE(pixelsForPrint(upright, draft()).isStandIn); // another picture was in sight
  // A thumbnail of 73 by 41 is no other shape than its photo of 1600 by 900.
  const SheetPicture thumbnail = photo({1600, 900}, {0, 0, 73 * 21, 41 * 21});
  EXPECT_LE(test::distance(*pixelsOf(thumbnail).row(0), test::red), 3);
}

TEST_F(PrintPixelsTest, OfABrokenFileAreThoseOfTheScreen) {
  const SheetPicture broken = photo({400, 300}, {0, 0, 1440, 1080});
  test::writeBytes(broken.file, "not a picture");
  EXPECT_EQ(*pixelsOf(broken).row(0), test::blue);
  EXPECT_TRUE(pixelsForPrint(broken, draft()).isStandIn);
}

TEST_F(PrintPixelsTest, OfAFileThatIsGoneAreThoseOfTheScreen) {
  const SheetPicture gone = photo({400, 300}, {0, 0, 1440, 1080});
  std::filesystem::remove(gone.file);
  EXPECT_EQ(*pixelsOf(gone).row(0), test::blue);
  EXPECT_TRUE(pixelsForPrint(gone, draft()).isStandIn);
}

TEST_F(PrintPixelsTest, OfABrokenFileThatIsNotOnTheScreenEitherAreNone) {
  SheetPicture gone = photo({400, 300}, {0, 0, 1440, 1080});
  gone.atHand = {};
  std::filesystem::remove(gone.file);
  PrintSettings grey = draft();
  grey.colorMode = ColorMode::Monochrome;
  EXPECT_TRUE(pixelsForPrint(gone, grey).pixels.isNull());
}

TEST_F(PrintPixelsTest, AreGreyWhereThePrinterIsTo) {
  PrintSettings grey = draft();
  grey.colorMode = ColorMode::Monochrome;
  const SheetPicture picture = photo({400, 300}, {0, 0, 1440, 1080});
  const std::uint32_t pixel = *pixelsForPrint(picture, grey).pixels.row(10);
  EXPECT_EQ(pixel >> 16 & 0xff, pixel & 0xff);
  EXPECT_EQ(pixel >> 8 & 0xff, pixel & 0xff);
}

TEST(Greyed, KeepsHowBrightTheColoursAre) {
  const Picture grey = greyed(test::corners({2, 2}));
  EXPECT_EQ(*(grey.row(1) + 1), test::white);
  EXPECT_EQ(*grey.row(0), 0xff4d4d4d);                       // red: 0.299 of white
  EXPECT_GT(*(grey.row(0) + 1) & 0xff, *grey.row(0) & 0xff); // green over red
  EXPECT_GT(*grey.row(0) & 0xff, *grey.row(1) & 0xff);       // red over blue
}

TEST(Greyed, LeavesThePictureThatItWasMadeFrom) {
  const Picture red = plain({2, 2}, test::red);
  EXPECT_NE(*greyed(red).row(0), test::red);
  EXPECT_EQ(*red.row(0), test::red);
}

} // namespace
} // namespace hearthbook
