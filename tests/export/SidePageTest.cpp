#include "ExportPages.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <vector>

namespace hearthbook::test {
namespace {

using Lines = std::vector<std::string>;

const std::map<std::int64_t, std::string> people{
    {4, "Ann"}, {17, "Ben"}, {123, "Zoë"}, {1234, "Kim"}};

std::optional<std::string> personOf(std::int64_t id) {
  const auto found = people.find(id);
  return found == people.end() ? std::nullopt : std::optional(found->second);
}

Lines linesOf(const SidePage& page) {
  std::ostringstream out;
  writeSidePage(out, page, personOf);
  Lines lines;
  std::string rest = out.str();
  for (auto end = rest.find("\r\n"); end != std::string::npos; end = rest.find("\r\n")) {
    lines.push_back(rest.substr(0, end));
    rest.erase(0, end + 2);
  }
  EXPECT_EQ(rest, ""); // the last line ends too
  return lines;
}

const std::string body = R"(<html><body bgcolor="#FFFFFF" background="../html/watermark2.gif">)";
const std::string outer =
    R"(<table width="146" border="0" align="center" cellspacing="0" cellpadding="0" background="../html/paper.jpg">)";
const std::string yearStart = R"(<tr><td height="30" align="center"><font size="5"><b>)";
const std::string yearEnd = "</b></font></td></tr>";
const std::string eventStart =
    R"(<tr><td height="45" valign="top"><font size="4" color="#990000" face="Arial, Helvetica, sans-serif">)";
const std::string eventEnd = "</font></td></tr>";
const std::string inner =
    R"(<tr><td><table width="146" height="100%" border="0" align="center" cellspacing="0" cellpadding="0">)";
const std::string nameStart = R"(<tr><td valign="middle" width="146" height="25">)";
const std::string fontStart = R"(<font color="#000099" face="Arial, Helvetica, sans-serif"><b>)";
const std::string nameEnd = "</b></font></tr>";
const std::string descriptionStart =
    R"(<tr><td height="32"></td></tr><tr><td valign="top" width="146" height="25"><i><font size="4" font color="#333333" font face="Verdana, Arial, Helvetica, sans-serif">)";
const std::string descriptionEnd = "</font></i></td></tr>";
const std::string paperLine =
    R"(<tr><td valign="bottom"><img src="../html/paperline.gif" border="0" width="146" height="2"></td></tr></table></td></tr></table>)";
const std::string end = "</body></html>";

std::string marker(const std::string& cords) {
  return R"(<a href="../html/leftctrl.htm?cords=)" + cords +
         R"(" target="leftCtrl"><img src="../html/marker.gif" border="0" align="absmiddle"></a>)";
}

/// The lines of the names of a page on which nothing else is known.
Lines namesOf(const char* namesInPhoto, const char* namesCords = "") {
  SidePage page;
  page.namesInPhoto = namesInPhoto;
  page.namesCords = namesCords;
  const Lines lines = linesOf(page);
  EXPECT_GE(lines.size(), 7U);
  return {lines.begin() + 5, lines.end() - 2};
}

TEST(SidePage, APhotoOfWhichNothingIsKnown) {
  EXPECT_EQ(linesOf({}), (Lines{body, outer, yearStart + "----" + yearEnd, eventStart + eventEnd,
                                inner, "<tr></tr>", paperLine, end}));
}

TEST(SidePage, APhotoOfWhichAllIsKnown) {
  SidePage page;
  page.number = 12;
  page.year = 1987;
  page.event = "Wedding";
  page.place = "Lake House";
  page.namesInPhoto = "004,017,";
  page.namesCords = "017-1200X0415,";
  page.description = "By the lake";
  page.soundExtension = ".wav";
  EXPECT_EQ(
      linesOf(page),
      (Lines{
          body, outer, yearStart + "1987" + yearEnd,
          eventStart + "Wedding in Lake House" + eventEnd, inner,
          nameStart + fontStart + "Ann" + nameEnd,
          nameStart + marker("1200X0415") + fontStart + "Ben" + nameEnd,
          descriptionStart + "By the lake" + descriptionEnd, paperLine,
          R"(<bgsound loop="1" SRC="../audio/12.wav">)", R"(<script language="JavaScript">)",
          R"(if (navigator.appName == "Netscape") {)",
          R"(document.write('<embed src="../audio/12.wav" hidden="TRUE" autostart="TRUE"  loop= "FALSE"></embed>');})",
          "</script>", end}));
}

TEST(SidePage, APlaceWithoutAnEventBeginsWithItsPreposition) {
  SidePage page;
  page.place = "Lake House";
  EXPECT_EQ(linesOf(page)[3], eventStart + " in Lake House" + eventEnd);
}

TEST(SidePage, AnEventWithoutAPlaceStandsAlone) {
  SidePage page;
  page.event = "Wedding";
  EXPECT_EQ(linesOf(page)[3], eventStart + "Wedding" + eventEnd);
}

TEST(SidePage, NothingIsEscaped) {
  SidePage page;
  page.event = "Tom & Ann";
  page.description = "a <b>bold</b> \"day\"\nand & so on";
  const Lines lines = linesOf(page);
  EXPECT_EQ(lines[3], eventStart + "Tom & Ann" + eventEnd);
  EXPECT_EQ(lines[6], descriptionStart + "a <b>bold</b> \"day\"\nand & so on" + descriptionEnd);
}

TEST(SidePage, AnEmptyDescriptionLeavesNoLine) {
  SidePage page;
  page.description = "";
  EXPECT_EQ(linesOf(page), linesOf({}));
}

TEST(SidePage, NamesStandInTheOrderOfTheirField) {
  EXPECT_EQ(namesOf("123,004,"), (Lines{nameStart + fontStart + "Zoë" + nameEnd,
                                        nameStart + fontStart + "Ann" + nameEnd}));
}

TEST(SidePage, AnEmptyFirstNameStandsForAll) {
  EXPECT_EQ(namesOf(""), Lines{"<tr></tr>"});
  EXPECT_EQ(namesOf(",004,"), Lines{"<tr></tr>"});
}

TEST(SidePage, WhatFollowsTheLastCommaIsNoName) {
  EXPECT_EQ(namesOf("004,017"), Lines{nameStart + fontStart + "Ann" + nameEnd});
  EXPECT_EQ(namesOf("004"), Lines{});
}

TEST(SidePage, SomebodyWhoIsGoneHasNoLine) {
  EXPECT_EQ(namesOf("005,004,", "005-0001X0002,"), Lines{nameStart + fontStart + "Ann" + nameEnd});
}

TEST(SidePage, AMarkerIsTheFirstThatIsFound) {
  EXPECT_EQ(namesOf("004,", "017-0001X0002,004-0341X1022,004-9999X9999,"),
            Lines{nameStart + marker("0341X1022") + fontStart + "Ann" + nameEnd});
}

// The place is counted from three digits on.
TEST(SidePage, AMarkerOfFourDigitsBeginsWithItsDash) {
  EXPECT_EQ(namesOf("1234,", "1234-0341X1022,"),
            Lines{nameStart + marker("-0341X102") + fontStart + "Kim" + nameEnd});
}

TEST(SidePage, AMarkerThatIsCutOffGivesWhatThereIs) {
  EXPECT_EQ(namesOf("004,", "004-03"),
            Lines{nameStart + marker("03") + fontStart + "Ann" + nameEnd});
  EXPECT_EQ(namesOf("004,", "004-"), Lines{nameStart + marker("") + fontStart + "Ann" + nameEnd});
}

TEST(SidePage, AStreamThatFailsIsLeftFailed) {
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  writeSidePage(out, {}, personOf);
  EXPECT_TRUE(out.fail());
}

} // namespace
} // namespace hearthbook::test
