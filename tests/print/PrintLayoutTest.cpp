#include "PrintLayout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace hearthbook {
namespace {

constexpr double lineHeight = 240;
constexpr double letterWidth = 100; // of every character

PrintType type() {
  return {[](const std::string& text) { return letterWidth * static_cast<double>(text.size()); },
          lineHeight};
}

PrintChoices choices(PrintSize size, PaperSize paper = PaperSize::Letter,
                     PaperOrientation orientation = PaperOrientation::Landscape) {
  return {orientation, size, paper};
}

PrintSheet laidOut(const PrintPage& page, const PrintChoices& how = {}) {
  return layOut(page, how, paperFor(page, how, std::nullopt), type());
}

std::vector<SheetPicture> picturesOf(const PrintSheet& sheet) {
  std::vector<SheetPicture> pictures;
  for (const PaintOperation& operation : sheet.operations)
    if (const auto* picture = std::get_if<SheetPicture>(&operation))
      pictures.push_back(*picture);
  return pictures;
}

std::vector<SheetLine> linesOf(const PrintSheet& sheet) {
  std::vector<SheetLine> lines;
  for (const PaintOperation& operation : sheet.operations)
    if (const auto* line = std::get_if<SheetLine>(&operation))
      lines.push_back(*line);
  return lines;
}

/// No text leaves the sheet.
void expectTextOnSheet(const PrintSheet& sheet) {
  for (const SheetLine& line : linesOf(sheet)) {
    EXPECT_GE(line.at.x + sheet.origin.x, 0) << line.text;
    EXPECT_GE(line.at.y + sheet.origin.y, 0) << line.text;
    EXPECT_LE(line.at.x + sheet.origin.x + type().widthOf(line.text), sheet.paper.width)
        << line.text;
    EXPECT_LE(line.at.y + sheet.origin.y + lineHeight, sheet.paper.height) << line.text;
  }
}

std::vector<std::string> manyNames() { return std::vector<std::string>(60, "Grandmother Anna"); }

SinglePrint single(SinglePrint::From from, TwipsRect place) {
  SinglePrint page;
  page.from = from;
  page.heading = "1987, Wedding in Lake";
  page.photo = PagePicture{place, "Photos/00012.jpg", {}};
  page.names = {"Anna", "Ben"};
  return page;
}
constexpr TwipsRect editorAcross{150, 1020, 5760, 4320};
constexpr TwipsRect editorUpright{870, 300, 4320, 5760};
constexpr TwipsRect zoomAcross{0, 374, 8280, 6210};

TEST(PrintScale, OriginalIsAsLargeAsOnTheScreen) {
  for (const auto paper : {PaperSize::Letter, PaperSize::Photo})
    for (const auto from : {SinglePrint::From::Editor, SinglePrint::From::Zoom})
      EXPECT_EQ(printScale(from, choices(PrintSize::Original, paper)), 1);
}

TEST(PrintScale, FitToPageOnLetterFillsTenAndAHalfInchesWithTheFormsBox) {
  EXPECT_DOUBLE_EQ(printScale(SinglePrint::From::Editor, choices(PrintSize::FitToPage)),
                   15120.0 / 5760);
  EXPECT_DOUBLE_EQ(printScale(SinglePrint::From::Zoom, choices(PrintSize::FitToPage)),
                   15120.0 / 6960);
}

TEST(PrintScale, FitToPageOnPhotoPaperFillsFiveInchesPointSix) {
  const auto photo = choices(PrintSize::FitToPage, PaperSize::Photo);
  EXPECT_DOUBLE_EQ(printScale(SinglePrint::From::Editor, photo), 8064.0 / 5760);
  EXPECT_DOUBLE_EQ(printScale(SinglePrint::From::Zoom, photo), 8064.0 / 6960);
}

TEST(SingleLayout, HeadingPhotoAndNamesStandWhereTheyAreTold) {
  const PrintSheet sheet = laidOut(single(SinglePrint::From::Editor, editorAcross));
  ASSERT_EQ(sheet.operations.size(), 3u);
  const auto& heading = std::get<SheetLine>(sheet.operations[0]);
  EXPECT_EQ(heading.text, "1987, Wedding in Lake");
  EXPECT_EQ(heading.at, (TwipsPoint{10, 10}));
  const auto& photo = std::get<SheetPicture>(sheet.operations[1]);
  EXPECT_EQ(photo.place, (TwipsRect{0, 300, 5760, 4320}));
  EXPECT_EQ(photo.file, "Photos/00012.jpg");
  const auto& names = std::get<SheetLine>(sheet.operations[2]);
  EXPECT_EQ(names.text, "Anna, Ben");
  EXPECT_EQ(names.at, (TwipsPoint{10, 4320 + 300}));
  EXPECT_FALSE(names.overPicture);
}

TEST(SingleLayout, FitToPageScalesThePhotoAndMovesTheNames) {
  const PrintSheet sheet =
      laidOut(single(SinglePrint::From::Editor, editorAcross), choices(PrintSize::FitToPage));
  EXPECT_EQ(picturesOf(sheet).at(0).place, (TwipsRect{0, 300, 15120, 11340}));
  EXPECT_EQ(linesOf(sheet).at(1).at, (TwipsPoint{10, 11640}));
  EXPECT_FALSE(linesOf(sheet).at(1).overPicture);
  expectTextOnSheet(sheet);
}

TEST(SingleLayout, AnUprightPhotoFillsUprightLetter) {
  const PrintSheet sheet =
      laidOut(single(SinglePrint::From::Editor, editorUpright),
              choices(PrintSize::FitToPage, PaperSize::Letter, PaperOrientation::Portrait));
  EXPECT_EQ(sheet.paper, (TwipsSize{12240, 15840}));
  EXPECT_EQ(picturesOf(sheet).at(0).place, (TwipsRect{0, 300, 11340, 15120}));
  expectTextOnSheet(sheet);
}

TEST(SingleLayout, TheZoomViewsPhotoIsPrintedAsFarAsItIsMagnifiedNow) {
  const double f = 15120.0 / 6960;
  const PrintSheet sheet =
      laidOut(single(SinglePrint::From::Zoom, {-2000, -900, 8280 * 1.5, 6210 * 1.5}),
              choices(PrintSize::FitToPage));
  const TwipsRect place = picturesOf(sheet).at(0).place;
  EXPECT_EQ(place.left, 0);
  EXPECT_EQ(place.top, 300);
  EXPECT_DOUBLE_EQ(place.width, 8280 * 1.5 * f);
  EXPECT_DOUBLE_EQ(place.height, 6210 * 1.5 * f);
  expectTextOnSheet(sheet);
}

TEST(SingleLayout, OnPhotoPaperThePhotoIsScaledToIt) {
  const PrintSheet sheet = laidOut(single(SinglePrint::From::Zoom, zoomAcross),
                                   choices(PrintSize::FitToPage, PaperSize::Photo));
  EXPECT_EQ(sheet.paper, (TwipsSize{8640, 5760}));
  EXPECT_DOUBLE_EQ(picturesOf(sheet).at(0).place.width, 8280 * 8064.0 / 6960);
  expectTextOnSheet(sheet);
}

TEST(SingleLayout, KeepsTheEdgeFreeThatPrintersCannotReach) {
  const PrintSheet sheet = laidOut(single(SinglePrint::From::Editor, editorAcross));
  EXPECT_EQ(sheet.origin, (TwipsPoint{360, 360}));
}

TEST(SingleLayout, SharesTheEdgeThatALargePhotoLeaves) {
  const PrintSheet sheet =
      laidOut(single(SinglePrint::From::Editor, editorAcross), choices(PrintSize::FitToPage));
  EXPECT_EQ(sheet.origin.x, 360);
  EXPECT_EQ(sheet.origin.y, (12240.0 - 11640 - lineHeight) / 2);
}

TEST(SingleLayout, ManyNamesAreBrokenIntoLinesAndTheLastIsShortened) {
  SinglePrint page = single(SinglePrint::From::Editor, {150, 1020, 5760, 5760});
  page.names = manyNames();
  const PrintSheet sheet = laidOut(page);
  const auto lines = linesOf(sheet);
  ASSERT_EQ(lines.size(), 1u + 8);
  EXPECT_EQ(lines[1].at, (TwipsPoint{10, 6060}));
  EXPECT_EQ(lines[2].at, (TwipsPoint{10, 6060 + lineHeight}));
  EXPECT_FALSE(lines.back().text.ends_with("…"));
  expectTextOnSheet(sheet);

  page.names = std::vector<std::string>(6000, "Anna");
  const PrintSheet full = laidOut(page);
  EXPECT_TRUE(linesOf(full).back().text.ends_with("…"));
  expectTextOnSheet(full);
}

TEST(SingleLayout, NamesThatHaveNoRoomBelowThePhotoStandOverIt) {
  const PrintSheet sheet =
      laidOut(single(SinglePrint::From::Zoom, zoomAcross), choices(PrintSize::FitToPage));
  const auto lines = linesOf(sheet);
  EXPECT_TRUE(lines.at(1).overPicture);
  EXPECT_EQ(lines.at(1).text, "Anna, Ben");
  expectTextOnSheet(sheet);
}

TEST(SingleLayout, ALongHeadingIsShortened) {
  SinglePrint page = single(SinglePrint::From::Editor, editorAcross);
  page.heading = "1987, " + std::string(400, 'W') + " in Lake";
  const PrintSheet sheet = laidOut(page);
  EXPECT_TRUE(linesOf(sheet).at(0).text.ends_with("…"));
  EXPECT_EQ(linesOf(sheet).size(), 2u);
  expectTextOnSheet(sheet);
}

TEST(SingleLayout, WithoutPhotoNamesAndHeadingNothingIsPainted) {
  EXPECT_TRUE(laidOut(SinglePrint{}).operations.empty());
}

TEST(SingleLayout, APhotoOfOneByTenThousandKeepsItsPlace) {
  const PrintSheet sheet = laidOut(single(SinglePrint::From::Editor, {3029.7, 300, 0.576, 5760}),
                                   choices(PrintSize::FitToPage));
  EXPECT_DOUBLE_EQ(picturesOf(sheet).at(0).place.width, 0.576 * 15120 / 5760);
  EXPECT_EQ(picturesOf(sheet).at(0).place.height, 15120);
  expectTextOnSheet(sheet);
}

/// The cells of an album page: a photo that lies across, within its box of 3375.
AlbumPrintCell albumCell(int place) {
  AlbumPrintCell cell;
  cell.place = place;
  cell.photo.place = {place % 2 == 0 ? 2400.0 : 8280.0, place < 2 ? 420.0 : 3900.0, 3375, 2535};
  cell.photo.file = "Photos/0000" + std::to_string(place) + ".jpg";
  cell.infoWidth = 2175;
  cell.gridSize = {2175, 1740};
  cell.caption = "1987, Wedding in Lake";
  return cell;
}

AlbumPrint albumPage() { return {{albumCell(0), albumCell(1), albumCell(2), albumCell(3)}}; }

TEST(AlbumLayout, EachPlaceHasItsCornerOnThePage) {
  const auto pictures = picturesOf(laidOut(albumPage()));
  ASSERT_EQ(pictures.size(), 8u);
  const TwipsPoint wanted[] = {{2400, 420 * 1.2},
                               {8280 * 1.2, 420 * 1.2},
                               {2400, 3900 * 1.6 + 300},
                               {8280 * 1.2, 3900 * 1.6 + 300}};
  for (std::size_t place = 0; place < 4; ++place) {
    const SheetPicture& grid = pictures[2 * place];
    const SheetPicture& photo = pictures[2 * place + 1];
    EXPECT_EQ(photo.place, (TwipsRect{wanted[place].x, wanted[place].y, 3375 * 1.5, 2535 * 1.5}));
    EXPECT_EQ(grid.place, (TwipsRect{wanted[place].x - 2175, wanted[place].y, 2175, 1740}));
    EXPECT_EQ(photo.file, "Photos/0000" + std::to_string(place) + ".jpg");
    EXPECT_TRUE(grid.file.empty());
  }
}

TEST(AlbumLayout, YearAndPlaceStandUnderThePhoto) {
  const auto lines = linesOf(laidOut(albumPage()));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0].at, (TwipsPoint{2400, 420 * 1.2 + 2535 * 1.5}));
  EXPECT_EQ(lines[3].at, (TwipsPoint{8280 * 1.2, 3900 * 1.6 + 300 + 2535 * 1.5}));
  for (const SheetLine& line : lines)
    EXPECT_EQ(line.text, "1987, Wedding in Lake");
}

TEST(AlbumLayout, NamesPhotoAndTextArePaintedCellByCell) {
  const PrintSheet sheet = laidOut(albumPage());
  ASSERT_EQ(sheet.operations.size(), 12u);
  for (std::size_t at = 0; at < 12; ++at)
    EXPECT_EQ(std::holds_alternative<SheetLine>(sheet.operations[at]), at % 3 == 2) << at;
}

TEST(AlbumLayout, APageOfFewerThanFourPhotosPrintsOnlyTheFilledPlaces) {
  const auto pictures = picturesOf(laidOut(AlbumPrint{{albumCell(0), albumCell(2)}}));
  ASSERT_EQ(pictures.size(), 4u);
  EXPECT_EQ(pictures[3].place.top, 3900 * 1.6 + 300);
  EXPECT_TRUE(laidOut(AlbumPrint{}).operations.empty());
}

TEST(AlbumLayout, TheWholePageLiesOnTheSheet) {
  AlbumPrint page = albumPage();
  for (AlbumPrintCell& cell : page.cells)
    cell.photo.place = {cell.place % 2 == 0 ? 2400.0 : 8280.0, cell.place < 2 ? 0.0 : 3480.0, 3375,
                        3375}; // square photos fill their boxes
  const PrintSheet sheet = laidOut(page);
  for (const SheetPicture& picture : picturesOf(sheet)) {
    EXPECT_GE(picture.place.left, 0);
    EXPECT_LE(picture.place.left + picture.place.width + sheet.origin.x, sheet.paper.width - 360);
    EXPECT_LE(picture.place.top + picture.place.height + sheet.origin.y, sheet.paper.height - 360);
  }
  expectTextOnSheet(sheet);
}

TEST(AlbumLayout, ALongTextEndsBeforeTheNamesBesideIt) {
  AlbumPrint page = albumPage();
  for (AlbumPrintCell& cell : page.cells)
    cell.caption = "1987, The Eightieth Birthday Of Great-Grandmother Augusta in The Old Farmhouse "
                   "Behind The Mill At The Lake Where We All Learned To Swim As Children";
  const PrintSheet sheet = laidOut(page);
  expectTextOnSheet(sheet);
  const double namesOfPlace1 = 8280 * 1.2 - 2175;
  int lines = 0;
  for (const SheetLine& line : linesOf(sheet))
    if (line.at.x < namesOfPlace1) {
      EXPECT_LE(line.at.x + type().widthOf(line.text), namesOfPlace1);
      ++lines;
    }
  EXPECT_GT(lines, 2); // broken into lines first, shortened only where there is no room for them
}

TEST(AlbumLayout, ALongTextEndsBeforeTheRowBelow) {
  AlbumPrint page = albumPage();
  page.cells.at(0).photo.place.height = 3375;
  page.cells.at(0).photo.place.top = 0;
  page.cells.at(0).caption = std::string(300, 'W');
  const double rowBelow = 3900 * 1.6 + 300;
  const auto lines = linesOf(laidOut(page));
  EXPECT_GT(lines.size(), 4u);
  for (const SheetLine& line : lines)
    if (line.text.starts_with("W")) {
      EXPECT_LE(line.at.y + lineHeight, rowBelow);
    }
}

TEST(AlbumLayout, StaysWithLetterAcrossInItsOriginalSizeWhateverIsChosen) {
  const PrintChoices other =
      choices(PrintSize::FitToPage, PaperSize::Photo, PaperOrientation::Landscape);
  const PrintSheet sheet = laidOut(albumPage(), other);
  EXPECT_EQ(sheet.paper, (TwipsSize{15840, 12240}));
  EXPECT_EQ(picturesOf(sheet).at(1).place.width, 3375 * 1.5);
}

ContactPrint contactPage(int count) {
  ContactPrint page;
  for (int place = 0; place < count; ++place)
    page.cells.push_back(
        {place, {{240 + place % 8 * 1320.0, 120 + place / 8 * 1320.0, 1090, 820}, "t.jpg", {}}});
  return page;
}

TEST(ContactLayout, ThumbnailsAreLargerAndFurtherApart) {
  const PrintSheet sheet = laidOut(contactPage(24));
  const auto pictures = picturesOf(sheet);
  ASSERT_EQ(pictures.size(), 24u);
  EXPECT_EQ(pictures[0].place, (TwipsRect{240 * 1.4, 120 * 1.4, 1090 * 1.4, 820 * 1.4}));
  EXPECT_EQ(pictures[23].place,
            (TwipsRect{(240 + 7 * 1320.0) * 1.4, (120 + 2 * 1320.0) * 1.4, 1090 * 1.4, 820 * 1.4}));
  EXPECT_EQ(sheet.origin, (TwipsPoint{360, 360}));
  const TwipsRect last = pictures[7].place;
  EXPECT_LE(last.left + last.width, 15120);
}

TEST(ContactLayout, PrintsOnlyTheFilledPlaces) {
  EXPECT_EQ(laidOut(contactPage(5)).operations.size(), 5u);
  EXPECT_TRUE(laidOut(contactPage(0)).operations.empty());
}

} // namespace
} // namespace hearthbook
