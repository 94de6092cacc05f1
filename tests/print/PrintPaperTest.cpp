#include "PrintLayout.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

constexpr TwipsSize a4{11906, 16838};

SinglePrint photoOf(SinglePrint::From from) {
  SinglePrint page;
  page.from = from;
  return page;
}
const PrintPage editor = photoOf(SinglePrint::From::Editor);
const PrintPage zoom = photoOf(SinglePrint::From::Zoom);

constexpr auto upright = PaperOrientation::Portrait;
constexpr auto across = PaperOrientation::Landscape;

TEST(PrintChoices, BeginAcrossInOriginalSizeOnLetter) {
  EXPECT_EQ(PrintChoices{}, (PrintChoices{across, PrintSize::Original, PaperSize::Letter}));
}

TEST(PrintPaper, LetterIsEightAndAHalfByEleven) {
  for (const auto size : {PrintSize::Original, PrintSize::FitToPage}) {
    const PrintPaper paper = paperFor(editor, {upright, size, PaperSize::Letter}, a4);
    EXPECT_EQ(paper.sheet, (TwipsSize{12240, 15840}));
    EXPECT_EQ(paper.media, "na_letter_8.5x11in");
    EXPECT_EQ(paperFor(editor, {across, size, PaperSize::Letter}, a4).sheet,
              (TwipsSize{15840, 12240}));
  }
}

TEST(PrintPaper, ItsPrintableLengthIsTenAndAHalfInches) {
  const PrintPaper paper = paperFor(editor, {across, PrintSize::FitToPage, PaperSize::Letter}, {});
  EXPECT_EQ(paper.sheet.width - 2 * paper.margin, 15120);
}

TEST(PrintPaper, PhotoPaperStandsUprightForTheEditorWhateverIsChosen) {
  for (const auto orientation : {upright, across}) {
    const PrintPaper paper =
        paperFor(editor, {orientation, PrintSize::FitToPage, PaperSize::Photo}, a4);
    EXPECT_EQ(paper.sheet, (TwipsSize{5760, 8640}));
    EXPECT_EQ(paper.media, "na_index-4x6_4x6in");
    EXPECT_EQ(paper.sheet.height - 2 * paper.margin, 8064);
  }
}

TEST(PrintPaper, PhotoPaperLiesAcrossForTheZoomViewInLandscape) {
  EXPECT_EQ(paperFor(zoom, {upright, PrintSize::FitToPage, PaperSize::Photo}, a4).sheet,
            (TwipsSize{5760, 8640}));
  EXPECT_EQ(paperFor(zoom, {across, PrintSize::FitToPage, PaperSize::Photo}, a4).sheet,
            (TwipsSize{8640, 5760}));
}

TEST(PrintPaper, PhotoPaperInOriginalSizeLeavesThePrintersPaperAsItIs) {
  for (const PrintPage& page : {editor, zoom}) {
    const PrintChoices choices{upright, PrintSize::Original, PaperSize::Photo};
    EXPECT_TRUE(leavesPaper(page, choices));
    const PrintPaper paper = paperFor(page, choices, a4);
    EXPECT_EQ(paper.sheet, a4);
    EXPECT_TRUE(paper.media.empty());
    EXPECT_EQ(paperFor(page, {across, PrintSize::Original, PaperSize::Photo}, a4).sheet,
              (TwipsSize{a4.height, a4.width}));
  }
}

TEST(PrintPaper, APrinterThatDoesNotTellItsPaperIsTakenToHaveLetter) {
  EXPECT_EQ(paperFor(zoom, {upright, PrintSize::Original, PaperSize::Photo}, {}).sheet,
            (TwipsSize{12240, 15840}));
}

TEST(PrintPaper, PagesOfSeveralPhotosAlwaysGoToLetter) {
  const PrintChoices choices{across, PrintSize::Original, PaperSize::Photo};
  for (const PrintPage& page : {PrintPage(AlbumPrint{}), PrintPage(ContactPrint{})}) {
    EXPECT_FALSE(leavesPaper(page, choices));
    EXPECT_EQ(paperFor(page, choices, a4).sheet, (TwipsSize{15840, 12240}));
    EXPECT_EQ(paperFor(page, choices, a4).media, "na_letter_8.5x11in");
  }
}

} // namespace
} // namespace hearthbook
