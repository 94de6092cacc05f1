#include "ExportPages.h"

#include <gtest/gtest.h>

#include <sstream>

namespace hearthbook::test {
namespace {

std::string tableOf(std::int64_t photos) {
  std::ostringstream out;
  writeThumbnailTable(out, photos);
  return out.str();
}

int countOf(std::string_view text, std::string_view what) {
  int count = 0;
  for (auto at = text.find(what); at != std::string_view::npos; at = text.find(what, at + 1))
    ++count;
  return count;
}

const std::string cell3 =
    R"(<td align="center" valign="middle" width="12%" height="90" bgcolor="#666699"><a href="frameset.htm?Page=3" target="_blank"><img src="data\t3.jpg" border="1"></a></td>)";
const std::string emptyCell =
    R"(<td align="center" valign="middle" width="12%" height="90">&nbsp;</td>)";

TEST(ExportNames, ANameLosesItsDotsAndColonsAndTheTitleKeepsThem) {
  EXPECT_EQ(exportNames("Trip: 1.2", 7), (ExportNames{"Trip: 1.2", "Trip-_12", "trip-_12"}));
}

TEST(ExportNames, TheTitleLosesWhatNoFileNameMayHave) {
  EXPECT_EQ(exportNames("a/b\\c*d?e\"f<g>h|i", 7),
            (ExportNames{"a bcdefghi", "a_bcdefghi", "a_bcdefghi"}));
}

TEST(ExportNames, ForbiddenCharactersAloneGiveTheNumber) {
  EXPECT_EQ(exportNames("\\*?\"<>|", 7), (ExportNames{"Album #7", "Album_#7", "album_#7"}));
  EXPECT_EQ(exportNames("", 12), (ExportNames{"Album #12", "Album_#12", "album_#12"}));
}

TEST(ExportNames, ASlashIsABlankAndABlankAName) {
  EXPECT_EQ(exportNames("//", 7), (ExportNames{"  ", "__", "__"}));
  EXPECT_EQ(exportNames("   ", 7), (ExportNames{"   ", "___", "___"}));
}

TEST(ExportNames, DotsAloneNeverNameTheFolderItself) {
  EXPECT_EQ(exportNames("..", 7), (ExportNames{"..", "Album_#7", "album_#7"}));
}

TEST(ExportNames, LettersOfEveryAlphabetBecomeSmall) {
  EXPECT_EQ(exportNames("Évian ÅRE", 7), (ExportNames{"Évian ÅRE", "Évian_ÅRE", "évian_åre"}));
}

TEST(ExportNames, ALongNameIsCutSoThatItsFilesCanBeNamed) {
  const ExportNames plain = exportNames(std::string(255, 'X'), 7);
  EXPECT_EQ(plain.title, std::string(255, 'X'));
  EXPECT_EQ(plain.name, std::string(251, 'X'));
  EXPECT_EQ(plain.lcname, std::string(251, 'x'));
  std::string accents;
  for (int i = 0; i < 255; ++i)
    accents += "É";
  EXPECT_EQ(exportNames(accents, 7).name.size(), 250U); // no letter is cut in two
}

TEST(ExportPages, TheChoicesAreWordedAsFamiliesKnowThem) {
  const auto choices = optimizations();
  ASSERT_EQ(choices.size(), 4U);
  EXPECT_STREQ(choices[0].text, "Optimize for 800X600 screens, Recommended for most viewers");
  EXPECT_STREQ(choices[1].text,
               "Optimize for Web Uploading, Images will be smaller for fast web surfing");
  EXPECT_STREQ(choices[2].text, "Optimize for 1024X768 screens, Recomended for fast computers");
  EXPECT_STREQ(choices[3].text, "No optimization, original size photos!");
  EXPECT_EQ(choices[0].limits, (PixelSize{620, 400}));
  EXPECT_EQ(choices[1].limits, (PixelSize{500, 320}));
  EXPECT_EQ(choices[2].limits, (PixelSize{760, 510}));
  EXPECT_EQ(choices[3].limits, std::nullopt);
  EXPECT_EQ(choices[0].factor, 0);
  EXPECT_EQ(choices[1].factor, 10);
  EXPECT_EQ(choices[2].factor, 0);
}

TEST(ExportPages, AWidePhotoIsReducedToTheWidth) {
  EXPECT_EQ(exportedSize({4000, 3000}, {620, 400}), (PixelSize{620, 465}));
  EXPECT_EQ(exportedSize({621, 300}, {620, 400}), (PixelSize{620, 300})); // 299.52
}

TEST(ExportPages, AHighPhotoIsReducedToTheHeight) {
  EXPECT_EQ(exportedSize({3000, 4000}, {620, 400}), (PixelSize{300, 400}));
}

TEST(ExportPages, APhotoOfExactlyTheWidthStaysAsItIs) {
  EXPECT_EQ(exportedSize({760, 500}, {760, 510}), (PixelSize{760, 500}));
  EXPECT_EQ(exportedSize({760, 759}, {760, 510}), (PixelSize{760, 759})); // though it is too high
  EXPECT_EQ(exportedSize({400, 510}, {760, 510}), (PixelSize{400, 510}));
}

TEST(ExportPages, ASquarePhotoIsNeverReduced) {
  EXPECT_EQ(exportedSize({3000, 3000}, {620, 400}), (PixelSize{3000, 3000}));
}

TEST(ExportPages, ALandscapePhotoThatFitsInWidthMayBeTooHigh) {
  EXPECT_EQ(exportedSize({600, 590}, {620, 400}), (PixelSize{600, 590}));
}

TEST(ExportPages, TheOtherSideIsRoundedToTheEvenNumberInTheMiddle) {
  EXPECT_EQ(exportedSize({1240, 1001}, {620, 400}), (PixelSize{620, 500})); // 500.5
  EXPECT_EQ(exportedSize({1240, 1003}, {620, 400}), (PixelSize{620, 502})); // 501.5
}

TEST(ExportPages, AStripKeepsAPixel) {
  EXPECT_EQ(exportedSize({10000, 1}, {620, 400}), (PixelSize{620, 1}));
}

TEST(ThumbnailTable, ACellLeadsToItsPhoto) {
  const std::string table = tableOf(3);
  EXPECT_TRUE(table.starts_with("<tr>"));
  EXPECT_NE(table.find(cell3), std::string::npos);
}

TEST(ThumbnailTable, AnEmptyAlbumHasEightEmptyCells) {
  std::string cells;
  for (int i = 0; i < 8; ++i)
    cells += emptyCell;
  EXPECT_EQ(tableOf(0), "<tr>" + cells + "</tr>");
}

TEST(ThumbnailTable, FewPhotosAreFilledUpToEight) {
  EXPECT_TRUE(tableOf(3).ends_with(cell3 + emptyCell + emptyCell + emptyCell + emptyCell +
                                   emptyCell + "</tr>"));
}

TEST(ThumbnailTable, EightPhotosMakeOneRow) {
  const std::string table = tableOf(8);
  EXPECT_EQ(countOf(table, "<tr>"), 1);
  EXPECT_EQ(countOf(table, "<td "), 8);
  EXPECT_EQ(countOf(table, "&nbsp;"), 0);
}

TEST(ThumbnailTable, TheNinthPhotoStandsAloneInItsRow) {
  const std::string table = tableOf(9);
  EXPECT_EQ(countOf(table, "<tr>"), 2);
  EXPECT_EQ(countOf(table, "<td "), 9);
  EXPECT_EQ(countOf(table, "&nbsp;"), 0);
  EXPECT_EQ(countOf(table.substr(table.find("</tr><tr>")), "<td "), 1);
}

TEST(ThumbnailTable, SeventeenPhotosMakeThreeRows) {
  EXPECT_EQ(countOf(tableOf(17), "</tr><tr>"), 2);
}

TEST(ExportPages, ATokenIsReplacedWhereverItStands) {
  EXPECT_EQ(withToken("a^^audio^^b^^audio^^", tokens::audio, "x"), "axbx");
  EXPECT_EQ(withToken("none", tokens::audio, "x"), "none");
  EXPECT_EQ(withToken("^^audio^^", tokens::audio, "^^audio^^"), "^^audio^^");
}

TEST(ExportPages, ADiscOpensTheStartPage) {
  std::ostringstream out;
  writeAutorun(out, "Trip-_12");
  EXPECT_EQ(out.str(), "[autorun]\r\nopen=Autorun.exe Trip-_12.htm\r\n");
}

TEST(ExportPages, OnlyAPageBeyondAsciiIsMarkedAsUtf8) {
  EXPECT_EQ(markedAsUtf8("<html>plain"), "<html>plain");
  EXPECT_EQ(markedAsUtf8("<html>Zoë"), "\xEF\xBB\xBF<html>Zoë");
  EXPECT_EQ(markedAsUtf8("\xEF\xBB\xBF<html>Zoë"), "\xEF\xBB\xBF<html>Zoë");
}

} // namespace
} // namespace hearthbook::test
