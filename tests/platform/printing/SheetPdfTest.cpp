#include "SheetPdf.h"

#include "FileBytes.h"
#include "PdfPages.h"
#include "SheetText.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace hearthbook {
namespace {

constexpr int dots = 72; // a pixel is 20 twips
constexpr TwipsSize letterAcross{15840, 12240};

class SheetPdfTest : public testing::Test {
protected:
  std::filesystem::path write(const PrintSheet& sheet, const std::vector<Picture>& pixels,
                              int copies = 1) {
    const auto file = folder_.path() / "page.pdf";
    test::writeBytes(file, sheetAsPdf(sheet, pixels, copies, "A page"));
    return file;
  }
  test::TemporaryFolder folder_;
};

std::uint32_t pixelAt(const Picture& page, double x, double y) {
  return *(page.row(static_cast<int>(y / 20)) + static_cast<int>(x / 20));
}

/// The first and the last row that is not white within a column of the page, in twips.
std::pair<double, double> inkedRows(const Picture& page) {
  int first = -1;
  int last = -1;
  for (int y = 0; y < page.height(); ++y)
    if (std::any_of(page.row(y), page.row(y) + page.width(),
                    [](std::uint32_t pixel) { return test::distance(pixel, test::white) > 80; })) {
      first = first < 0 ? y : first;
      last = y;
    }
  return {first * 20.0, (last + 1) * 20.0};
}

TEST_F(SheetPdfTest, APageIsAsLargeAsItsSheet) {
  const auto letter = test::pdfPages(write({letterAcross, {}, {}}, {}), dots);
  ASSERT_EQ(letter.size(), 1u);
  EXPECT_EQ(letter.front().size(), (PixelSize{792, 612}));
  const auto photo = test::pdfPages(write({{5760, 8640}, {}, {}}, {}), dots);
  EXPECT_EQ(photo.front().size(), (PixelSize{288, 432}));
}

TEST_F(SheetPdfTest, APictureStandsInItsPlaceOnTheSheet) {
  const PrintSheet sheet{
      letterAcross, {360, 180}, {SheetPicture{{1000, 2000, 4000, 3000}, {}, {}}}};
  const Picture page = test::pdfPages(write(sheet, {test::corners({400, 300})}), dots).front();
  EXPECT_LE(test::distance(pixelAt(page, 1500, 2400), test::red), 8);
  EXPECT_LE(test::distance(pixelAt(page, 5200, 2400), test::green), 8);
  EXPECT_LE(test::distance(pixelAt(page, 1500, 5000), test::blue), 8);
  EXPECT_EQ(pixelAt(page, 1300, 2400), test::white);
  EXPECT_EQ(pixelAt(page, 1500, 2140), test::white);
  EXPECT_EQ(pixelAt(page, 5420, 2400), test::white);
}

TEST_F(SheetPdfTest, ALineOfTextStandsUnderItsUpperLeftCorner) {
  const PrintSheet sheet{letterAcross, {}, {SheetLine{{1000, 2000}, "Hg"}}};
  const auto [first, last] = inkedRows(test::pdfPages(write(sheet, {}), dots).front());
  EXPECT_GE(first, 2000);
  EXPECT_LE(last, 2000 + sheetLineHeight() + 20);
  EXPECT_GT(last, 2120);
}

TEST_F(SheetPdfTest, TextIsTextInEveryLanguageOfTheFamily) {
  const PrintSheet sheet{letterAcross, {}, {SheetLine{{1000, 2000}, "1987, Familienfest in Köln"}}};
  EXPECT_NE(test::pdfText(write(sheet, {})).find("1987, Familienfest in Köln"), std::string::npos);
}

TEST_F(SheetPdfTest, ALineOverAPictureHasPaperBehindIt) {
  PrintSheet sheet{letterAcross,
                   {},
                   {SheetPicture{{0, 0, 8000, 8000}, {}, {}}, SheetLine{{1000, 2000}, "I I I"}}};
  const auto dark = test::plain({10, 10}, test::blue);
  EXPECT_EQ(pixelAt(test::pdfPages(write(sheet, {dark}), dots).front(), 1070, 2050) & 0xff, 0xfeu);
  std::get<SheetLine>(sheet.operations.back()).overPicture = true;
  const Picture page = test::pdfPages(write(sheet, {dark}), dots).front();
  bool hasPaper = false;
  for (double x = 1000; x < 1400; x += 20)
    hasPaper = hasPaper || test::distance(pixelAt(page, x, 2170), test::white) < 30;
  EXPECT_TRUE(hasPaper);
}

TEST_F(SheetPdfTest, APictureWithoutPixelsIsLeftOut) {
  const PrintSheet sheet{
      letterAcross,
      {},
      {SheetPicture{{0, 0, 2000, 2000}, {}, {}}, SheetPicture{{4000, 0, 2000, 2000}, {}, {}}}};
  const Picture page =
      test::pdfPages(write(sheet, {Picture(), test::plain({10, 10}, test::blue)}), dots).front();
  EXPECT_EQ(pixelAt(page, 1000, 1000), test::white);
  EXPECT_LE(test::distance(pixelAt(page, 5000, 1000), test::blue), 8);
}

TEST_F(SheetPdfTest, APictureOfOneByTenThousandIsAThinLine) {
  const PrintSheet sheet{letterAcross, {}, {SheetPicture{{1000, 300, 0.576, 5760}, {}, {}}}};
  const auto pages = test::pdfPages(write(sheet, {test::plain({1, 10000}, test::blue)}), dots);
  ASSERT_EQ(pages.size(), 1u);
  EXPECT_EQ(pixelAt(pages.front(), 1100, 1000), test::white);
}

TEST_F(SheetPdfTest, CopiesArePagesThatShareTheirPictures) {
  const PrintSheet sheet{letterAcross, {}, {SheetPicture{{0, 0, 8000, 6000}, {}, {}}}};
  const std::vector<Picture> pixels{test::grainy({800, 600})};
  const auto once = std::filesystem::file_size(write(sheet, pixels));
  const auto file = write(sheet, pixels, 3);
  EXPECT_LT(std::filesystem::file_size(file), once * 11 / 10);
  EXPECT_EQ(test::pdfPages(file, 20).size(), 3u);
}

TEST(SheetText, TypeIsOfTenPoints) {
  EXPECT_EQ(sheetFont().pixelSize(), 200); // a pixel is a twip
  EXPECT_NEAR(sheetLineHeight(), 240, 20);
  EXPECT_GT(sheetWidthOf("mm"), 1.9 * sheetWidthOf("m"));
}

} // namespace
} // namespace hearthbook
