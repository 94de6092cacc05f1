#include "ExportPages.h"

#include "NamesInPhoto.h"
#include "Numbers.h"
#include "TextOrder.h"
#include "Words.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <vector>

namespace hearthbook {

namespace {

constexpr const char* lineEnd = "\r\n";
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

/// A file name has at most 255 bytes; the longest ending that is put behind one is ".htm".
constexpr std::size_t longestName = 255 - 4;

constexpr int thumbnailsInRow = 8;
constexpr const char* cellStart = R"(<td align="center" valign="middle" width="12%" height="90")";

constexpr std::array<Optimization, 4> choices{{
    {"Optimize for 800X600 screens, Recommended for most viewers", PixelSize{620, 400}, 0},
    {"Optimize for Web Uploading, Images will be smaller for fast web surfing", PixelSize{500, 320},
     10},
    {"Optimize for 1024X768 screens, Recomended for fast computers", PixelSize{760, 510}, 0},
    {"No optimization, original size photos!", std::nullopt, 0},
}};

std::string titleOf(std::string_view albumName, std::int64_t albumId) {
  std::string title;
  for (const char c : albumName) {
    if (c == '/')
      title += ' ';
    else if (std::string_view("\\*?\"<>|").find(c) == std::string_view::npos)
      title += c;
  }
  return title.empty() ? "Album #" + std::to_string(albumId) : title;
}

std::string nameOf(std::string_view title) {
  std::string name;
  for (const char c : title) {
    if (c == '.')
      continue;
    if (std::string_view("\\/:*?><|").find(c) != std::string_view::npos)
      name += '-';
    else if (c == '"')
      name += '\'';
    else
      name += c == ' ' ? '_' : c;
  }
  return name;
}

/// An empty id in front hides those behind it.
bool namesNobody(std::string_view namesInPhoto) {
  return namesInPhoto.empty() || namesInPhoto.front() == ',';
}

/// Of ids with three digits these are the place's nine characters.
void writeMarker(std::ostream& out, std::string_view namesCords, const std::string& id) {
  constexpr std::size_t idAndDash = 4;
  constexpr std::size_t placeLength = 9;
  const auto at = namesCords.find(id + "-");
  if (at == std::string_view::npos)
    return;
  const auto begin = std::min(at + idAndDash, namesCords.size());
  out << R"(<a href="../html/leftctrl.htm?cords=)" << namesCords.substr(begin, placeLength)
      << R"(" target="leftCtrl"><img src="../html/marker.gif" border="0" align="absmiddle"></a>)";
}

void writeName(std::ostream& out, std::string_view namesCords, const std::string& id,
               const NameOfPerson& nameOf) {
  const auto name = nameOf(leadingNumber(id));
  if (!name)
    return;
  out << R"(<tr><td valign="middle" width="146" height="25">)";
  writeMarker(out, namesCords, id);
  out << R"(<font color="#000099" face="Arial, Helvetica, sans-serif"><b>)" << *name
      << "</b></font></tr>" << lineEnd;
}

void writeNames(std::ostream& out, const SidePage& page, const NameOfPerson& nameOf) {
  const std::string names = page.namesInPhoto.toText();
  if (namesNobody(names)) {
    out << "<tr></tr>" << lineEnd;
    return;
  }
  const std::string cords = page.namesCords.toText();
  for (const std::string& id : namedIds(names))
    writeName(out, cords, id, nameOf);
}

void writeHeading(std::ostream& out, const SidePage& page) {
  out << R"(<html><body bgcolor="#FFFFFF" background="../html/watermark2.gif">)" << lineEnd
      << R"(<table width="146" border="0" align="center" cellspacing="0" cellpadding="0" background="../html/paper.jpg">)"
      << lineEnd << R"(<tr><td height="30" align="center"><font size="5"><b>)" << yearLine(page)
      << "</b></font></td></tr>" << lineEnd
      << R"(<tr><td height="45" valign="top"><font size="4" color="#990000" face="Arial, Helvetica, sans-serif">)"
      << eventLine(page) << "</font></td></tr>" << lineEnd
      << R"(<tr><td><table width="146" height="100%" border="0" align="center" cellspacing="0" cellpadding="0">)"
      << lineEnd;
}

void writeDescription(std::ostream& out, const std::string& description) {
  if (description.empty())
    return;
  out << R"(<tr><td height="32"></td></tr><tr><td valign="top" width="146" height="25"><i><font size="4" font color="#333333" font face="Verdana, Arial, Helvetica, sans-serif">)"
      << description << "</font></i></td></tr>" << lineEnd;
}

void writeSound(std::ostream& out, const SidePage& page) {
  if (page.soundExtension.empty())
    return;
  const std::string sound = "../audio/" + std::to_string(page.number) + page.soundExtension;
  out << R"(<bgsound loop="1" SRC=")" << sound << R"(">)" << lineEnd
      << R"(<script language="JavaScript">)" << lineEnd
      << R"(if (navigator.appName == "Netscape") {)" << lineEnd << R"(document.write('<embed src=")"
      << sound << R"(" hidden="TRUE" autostart="TRUE"  loop= "FALSE"></embed>');})" << lineEnd
      << "</script>" << lineEnd;
}

bool isBeyondAscii(char c) { return static_cast<unsigned char>(c) >= 0x80; }

} // namespace

ExportNames renamed(ExportNames names, std::string name) {
  names.lcname = beginningOf(lowerCase(name), longestName);
  names.name = std::move(name);
  return names;
}

ExportNames exportNames(std::string_view albumName, std::int64_t albumId) {
  std::string title = titleOf(albumName, albumId);
  std::string name = nameOf(title);
  if (name.empty()) // ".." would be the folder itself
    name = nameOf(titleOf({}, albumId));
  return renamed({.title = std::move(title), .name = {}, .lcname = {}},
                 std::string(beginningOf(name, longestName)));
}

std::span<const Optimization> optimizations() { return choices; }

PixelSize exportedSize(PixelSize photo, PixelSize limits) {
  const auto inProportion = [](int limit, int longer, int shorter) {
    return static_cast<int>(
        std::max<std::int64_t>(1, roundHalfEven(static_cast<double>(limit) * shorter / longer)));
  };
  const auto [width, height] = photo;
  if (width > limits.width && width > height)
    return {limits.width, inProportion(limits.width, width, height)};
  if (height > limits.height && height > width)
    return {inProportion(limits.height, height, width), limits.height};
  return photo;
}

void writeThumbnailTable(std::ostream& out, std::int64_t photos) {
  out << "<tr>";
  for (std::int64_t n = 1; n <= photos; ++n) {
    if (n > 1 && (n - 1) % thumbnailsInRow == 0)
      out << "</tr><tr>";
    out << cellStart << R"( bgcolor="#666699"><a href="frameset.htm?Page=)" << n
        << R"(" target="_blank"><img src="data\t)" << n << R"(.jpg" border="1"></a></td>)";
  }
  for (std::int64_t empty = photos; empty < thumbnailsInRow; ++empty)
    out << cellStart << ">&nbsp;</td>";
  out << "</tr>";
}

std::string yearLine(const SidePage& page) {
  return page.year.isNull() ? "----" : page.year.toText();
}

std::string eventLine(const SidePage& page) {
  return page.event.toText() + (page.place.isNull() ? "" : " in " + page.place.toText());
}

std::vector<std::string> namesOf(const SidePage& page, const NameOfPerson& nameOf) {
  std::vector<std::string> names;
  const std::string field = page.namesInPhoto.toText();
  if (namesNobody(field))
    return names;
  for (const std::string& id : namedIds(field))
    if (auto name = nameOf(leadingNumber(id)))
      names.push_back(std::move(*name));
  return names;
}

void writeSidePage(std::ostream& out, const SidePage& page, const NameOfPerson& nameOf) {
  writeHeading(out, page);
  writeNames(out, page, nameOf);
  writeDescription(out, page.description.toText());
  out << R"(<tr><td valign="bottom"><img src="../html/paperline.gif" border="0" width="146" height="2"></td></tr></table></td></tr></table>)"
      << lineEnd;
  writeSound(out, page);
  out << "</body></html>" << lineEnd;
}

void writeAutorun(std::ostream& out, std::string_view name) {
  out << "[autorun]" << lineEnd << "open=Autorun.exe " << name << ".htm" << lineEnd;
}

std::string withToken(std::string_view text, std::string_view token, std::string_view value) {
  std::string result;
  for (auto at = text.find(token); at != std::string_view::npos; at = text.find(token)) {
    result += text.substr(0, at);
    result += value;
    text.remove_prefix(at + token.size());
  }
  return result += text;
}

std::string markedAsUtf8(std::string page) {
  if (!page.starts_with(utf8Mark) && std::ranges::any_of(page, isBeyondAscii))
    page.insert(0, utf8Mark);
  return page;
}

} // namespace hearthbook
