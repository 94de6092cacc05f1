#include "PrintNote.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

constexpr auto landscape = PaperOrientation::Landscape;
constexpr auto portrait = PaperOrientation::Portrait;
constexpr TwipsSize lyingPhoto{5760, 4320};
constexpr TwipsSize standingPhoto{4320, 5760};

SinglePrint printOf(TwipsSize size, SinglePrint::From from = SinglePrint::From::Editor) {
  SinglePrint page;
  page.from = from;
  page.heading = "1987, Wedding in Lake";
  page.photo = PagePicture{{0, 0, size.width, size.height}, "Photos/00012.jpg", {}};
  page.names = {"Anna", "Ben"};
  return page;
}

std::string noteOf(const PrintPage& page, const PrintChoices& choices) {
  const PrintType type{
      [](const std::string& text) { return 100.0 * static_cast<double>(text.size()); }, 240};
  return printNote(page, choices, std::nullopt, type);
}

PrintChoices fitted(PaperOrientation orientation, PaperSize paper = PaperSize::Letter) {
  return {orientation, PrintSize::FitToPage, paper};
}

TEST(PrintNote, SaysNothingWhereAllOfThePageIsPrinted) {
  EXPECT_EQ(noteOf(printOf(lyingPhoto), {}), "");
  EXPECT_EQ(noteOf(printOf(lyingPhoto), fitted(landscape)), "");
  EXPECT_EQ(noteOf(printOf(standingPhoto), fitted(portrait)), "");
  EXPECT_EQ(noteOf(SinglePrint{}, {}), "");
  EXPECT_EQ(noteOf(AlbumPrint{{AlbumPrintCell{}}}, {}), "");
  EXPECT_EQ(noteOf(ContactPrint{}, {}), "");
}

TEST(PrintNote, TellsTheEdgeThatIsCutOffAndHowThePaperIsToLie) {
  EXPECT_EQ(noteOf(printOf(standingPhoto), fitted(landscape)),
            "The photo is larger than the paper: its lower edge is cut off. Choose Portrait to "
            "print all of it.");
  EXPECT_EQ(noteOf(printOf(lyingPhoto), fitted(portrait)),
            "The photo is larger than the paper: its right edge is cut off. Choose Landscape to "
            "print all of it.");
}

TEST(PrintNote, AdvisesTheOriginalSizeWhereTurningThePaperIsNotEnough) {
  EXPECT_EQ(noteOf(printOf({8280, 6210}, SinglePrint::From::Zoom), fitted(landscape)),
            "The photo is larger than the paper: its right and lower edges are cut off. Choose "
            "Original to print all of it.");
  EXPECT_EQ(noteOf(printOf({9000, 12000}, SinglePrint::From::Zoom), fitted(landscape)),
            "The photo is larger than the paper: its right and lower edges are cut off. Choose "
            "Portrait and Original to print all of it.");
}

TEST(PrintNote, AdvisesNothingWhereNothingHelps) {
  const SinglePrint magnified = printOf({40000, 30000}, SinglePrint::From::Zoom);
  EXPECT_EQ(noteOf(magnified, {}),
            "The photo is larger than the paper: its right and lower edges are cut off.");
}

TEST(PrintNote, KnowsThePhotoPaper) {
  EXPECT_EQ(noteOf(printOf(lyingPhoto), fitted(portrait, PaperSize::Photo)),
            "The photo is larger than the paper: its right edge is cut off. Choose Original to "
            "print all of it.");
}

TEST(PrintNote, TellsWhereNamesHaveNoRoom) {
  SinglePrint page = printOf(lyingPhoto);
  page.names = std::vector<std::string>(6000, "Anna");
  EXPECT_EQ(noteOf(page, {}), "Not all of the names have room on the paper.");
  page.names.clear();
  page.heading = std::string(1000, 'W'); // shortened as well, but no name is missing
  EXPECT_EQ(noteOf(page, {}), "");
}

TEST(PrintNote, TellsThatAnAlbumPageIsPrintedWithTheNamesInSight) {
  AlbumPrint page{{AlbumPrintCell{}, AlbumPrintCell{}}};
  page.cells.back().hasMoreNames = true;
  EXPECT_EQ(noteOf(page, {}),
            "Of a long list of names, those in sight on the album page are printed.");
}

} // namespace
} // namespace hearthbook
