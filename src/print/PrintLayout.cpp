#include "PrintLayout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace hearthbook {

namespace {

constexpr TwipsSize letter{12240, 15840};
constexpr TwipsSize photoPaper{5760, 8640};
constexpr double letterLength = 15120; ///< 10.5 inches, the printable length of the sheet
constexpr double photoLength = 8064;   ///< 5.6 inches
constexpr double letterMargin = (letter.height - letterLength) / 2;
constexpr double photoMargin = (photoPaper.height - photoLength) / 2;
/// What hardly any printer reaches.
constexpr double deadEdge = 180;

// The side of the box in which each form shows its photo: fitted to the page, it fills the sheet.
constexpr double editorBox = 5760;
constexpr double zoomBox = 6960;

constexpr double textInset = 10;
constexpr double photoTop = 300;

constexpr double albumPhotoScale = 1.5;
// Photos that are half as large again move apart by these, so that the second column and row have
// room for their names and the line below the first.
constexpr double rightColumnScale = 1.2;
constexpr double upperRowScale = 1.2;
constexpr double lowerRowScale = 1.6;
constexpr double lowerRowShift = 300;

constexpr double contactScale = 1.4; ///< eight thumbnails across the sheet

TwipsSize turned(TwipsSize size) { return {size.height, size.width}; }

TwipsSize lying(TwipsSize upright, PaperOrientation orientation) {
  return orientation == PaperOrientation::Landscape ? turned(upright) : upright;
}

const SinglePrint* singleOf(const PrintPage& page) { return std::get_if<SinglePrint>(&page); }

bool fitsPhotoPaper(const PrintPage& page, const PrintChoices& choices) {
  return singleOf(page) && choices.paper == PaperSize::Photo &&
         choices.size == PrintSize::FitToPage;
}

/// For the record editor the photo paper always stands upright.
TwipsSize photoSheet(SinglePrint::From from, PaperOrientation orientation) {
  return from == SinglePrint::From::Editor ? photoPaper : lying(photoPaper, orientation);
}

/// Keeps the margin where there is room for it, and otherwise as much as is left on both sides.
double originAlong(double sheet, double content, double margin) {
  return std::clamp((sheet - content) / 2, deadEdge, margin);
}

/// One photo on its sheet: heading, photo, names.
class SingleLayout {
public:
  SingleLayout(const SinglePrint& page, double scale, const PrintPaper& paper,
               const PrintType& type)
      : page_(page), scale_(scale), type_(type) {
    sheet_.paper = paper.sheet;
    const double names = page.names.empty() ? 0 : type.lineHeight;
    sheet_.origin = {originAlong(paper.sheet.width, photoSize().width, paper.margin),
                     originAlong(paper.sheet.height, namesTop() + names, paper.margin)};
  }

  PrintSheet layOut() && {
    addHeading();
    addPhoto();
    addNames();
    return std::move(sheet_);
  }

private:
  [[nodiscard]] TwipsSize photoSize() const {
    const TwipsRect place = page_.photo ? page_.photo->place : TwipsRect{};
    return {place.width * scale_, place.height * scale_};
  }
  [[nodiscard]] double namesTop() const { return photoSize().height + photoTop; }
  [[nodiscard]] double textWidth() const {
    return sheet_.paper.width - 2 * sheet_.origin.x - 2 * textInset;
  }
  /// Where the last line has to end, counted from the origin.
  [[nodiscard]] double textBottom() const { return sheet_.paper.height - 2 * sheet_.origin.y; }

  void addHeading() {
    for (std::string& line : textLines(page_.heading, textWidth(), 1, type_))
      sheet_.operations.emplace_back(SheetLine{{textInset, textInset}, std::move(line)});
  }
  void addPhoto() {
    if (page_.photo)
      sheet_.operations.emplace_back(
          SheetPicture{{0, photoTop, photoSize().width, photoSize().height},
                       page_.photo->file,
                       page_.photo->shown});
  }
  void addNames() {
    const double lowest = textBottom() - type_.lineHeight;
    const bool overPhoto = namesTop() > lowest;
    double top = std::min(namesTop(), lowest);
    const int room = static_cast<int>((textBottom() - top) / type_.lineHeight);
    for (std::string& line : textLines(joinedNames(), textWidth(), std::max(room, 1), type_)) {
      sheet_.operations.emplace_back(SheetLine{{textInset, top}, std::move(line), overPhoto});
      top += type_.lineHeight;
    }
  }
  [[nodiscard]] std::string joinedNames() const {
    std::string joined;
    for (const std::string& name : page_.names)
      joined += (joined.empty() ? "" : ", ") + name;
    return joined;
  }

  const SinglePrint& page_;
  double scale_;
  const PrintType& type_;
  PrintSheet sheet_;
};

/// Four photos, each with its names beside it and its year and place below.
class AlbumLayout {
public:
  AlbumLayout(const AlbumPrint& page, const PrintPaper& paper, const PrintType& type)
      : page_(page), type_(type) {
    sheet_.paper = paper.sheet;
    sheet_.origin = {paper.margin, paper.margin};
  }

  PrintSheet layOut() && {
    for (const AlbumPrintCell& cell : page_.cells)
      addCell(cell);
    return std::move(sheet_);
  }

private:
  static bool isRight(const AlbumPrintCell& cell) { return cell.place % 2 == 1; }
  static bool isLower(const AlbumPrintCell& cell) { return cell.place >= 2; }

  static TwipsPoint cornerOf(const AlbumPrintCell& cell) {
    const TwipsRect& shown = cell.photo.place;
    return {isRight(cell) ? shown.left * rightColumnScale : shown.left,
            isLower(cell) ? shown.top * lowerRowScale + lowerRowShift : shown.top * upperRowScale};
  }

  /// Up to where a caption may run: to the next column's names, to the next row, or to the edge.
  [[nodiscard]] TwipsPoint limitOf(const AlbumPrintCell& cell) const {
    TwipsPoint limit{sheet_.paper.width - 2 * sheet_.origin.x,
                     sheet_.paper.height - 2 * sheet_.origin.y};
    for (const AlbumPrintCell& other : page_.cells) {
      const TwipsPoint corner = cornerOf(other);
      if (!isRight(cell) && isRight(other))
        limit.x = std::min(limit.x, corner.x - other.infoWidth);
      if (!isLower(cell) && isLower(other))
        limit.y = std::min(limit.y, corner.y);
    }
    return limit;
  }

  void addCell(const AlbumPrintCell& cell) {
    const TwipsPoint corner = cornerOf(cell);
    const TwipsSize size{cell.photo.place.width * albumPhotoScale,
                         cell.photo.place.height * albumPhotoScale};
    sheet_.operations.emplace_back(SheetPicture{
        {corner.x - cell.infoWidth, corner.y, cell.gridSize.width, cell.gridSize.height},
        {},
        cell.grid});
    sheet_.operations.emplace_back(SheetPicture{
        {corner.x, corner.y, size.width, size.height}, cell.photo.file, cell.photo.shown});
    addCaption(cell, {corner.x, corner.y + size.height});
  }

  void addCaption(const AlbumPrintCell& cell, TwipsPoint at) {
    const TwipsPoint limit = limitOf(cell);
    const int room = static_cast<int>((limit.y - at.y) / type_.lineHeight);
    for (std::string& line :
         textLines(cell.caption, limit.x - at.x - textInset, std::max(room, 1), type_)) {
      sheet_.operations.emplace_back(SheetLine{at, std::move(line)});
      at.y += type_.lineHeight;
    }
  }

  const AlbumPrint& page_;
  const PrintType& type_;
  PrintSheet sheet_;
};

PrintSheet layOutContact(const ContactPrint& page, const PrintPaper& paper) {
  PrintSheet sheet{paper.sheet, {paper.margin, paper.margin}, {}};
  for (const ContactPrint::Cell& cell : page.cells) {
    const TwipsRect& shown = cell.thumbnail.place;
    sheet.operations.emplace_back(
        SheetPicture{{shown.left * contactScale, shown.top * contactScale,
                      shown.width * contactScale, shown.height * contactScale},
                     cell.thumbnail.file,
                     cell.thumbnail.shown});
  }
  return sheet;
}

} // namespace

bool leavesPaper(const PrintPage& page, const PrintChoices& choices) {
  return singleOf(page) && choices.paper == PaperSize::Photo && choices.size == PrintSize::Original;
}

PrintPaper paperFor(const PrintPage& page, const PrintChoices& choices,
                    const std::optional<TwipsSize>& own) {
  if (fitsPhotoPaper(page, choices))
    return {photoSheet(singleOf(page)->from, choices.orientation), photoMargin,
            "na_index-4x6_4x6in"};
  if (leavesPaper(page, choices))
    return {lying(own.value_or(letter), choices.orientation), letterMargin, ""};
  return {lying(letter, choices.orientation), letterMargin, "na_letter_8.5x11in"};
}

double printScale(SinglePrint::From from, const PrintChoices& choices) {
  if (choices.size == PrintSize::Original)
    return 1;
  const double box = from == SinglePrint::From::Editor ? editorBox : zoomBox;
  return (choices.paper == PaperSize::Letter ? letterLength : photoLength) / box;
}

PrintSheet layOut(const PrintPage& page, const PrintChoices& choices, const PrintPaper& paper,
                  const PrintType& type) {
  if (const auto* single = singleOf(page))
    return SingleLayout(*single, printScale(single->from, choices), paper, type).layOut();
  if (const auto* album = std::get_if<AlbumPrint>(&page))
    return AlbumLayout(*album, paper, type).layOut();
  return layOutContact(std::get<ContactPrint>(page), paper);
}

} // namespace hearthbook
