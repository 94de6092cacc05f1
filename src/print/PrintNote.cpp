#include "PrintNote.h"

#include "PrintLayout.h"

#include <algorithm>

namespace hearthbook {

namespace {

/// What the sheet has no room for.
struct Missing {
  bool right = false;
  bool below = false;
  bool endOfText = false; ///< of the last line
};

Missing missingOn(const PrintSheet& sheet) {
  constexpr double hair = 1; // nobody sees a twip
  Missing missing;
  for (const PaintOperation& operation : sheet.operations) {
    if (const auto* line = std::get_if<SheetLine>(&operation)) {
      missing.endOfText = line->text.ends_with("…");
      continue;
    }
    const TwipsRect& place = std::get<SheetPicture>(operation).place;
    missing.right |= sheet.origin.x + place.left + place.width > sheet.paper.width + hair;
    missing.below |= sheet.origin.y + place.top + place.height > sheet.paper.height + hair;
  }
  return missing;
}

std::string cutEdges(const Missing& missing) {
  if (missing.right && missing.below)
    return "its right and lower edges are cut off.";
  return missing.right ? "its right edge is cut off." : "its lower edge is cut off.";
}

std::string wordsFor(const PrintChoices& instead, const PrintChoices& now) {
  std::string words = instead.orientation == now.orientation               ? ""
                      : instead.orientation == PaperOrientation::Landscape ? "Landscape"
                                                                           : "Portrait";
  if (instead.size != now.size)
    words += words.empty() ? "Original" : " and Original";
  return words;
}

PrintChoices turned(PrintChoices choices) {
  choices.orientation = choices.orientation == PaperOrientation::Landscape
                            ? PaperOrientation::Portrait
                            : PaperOrientation::Landscape;
  return choices;
}

/// How a single photo lies on its sheet, and how it might.
class SinglePhoto {
public:
  SinglePhoto(const SinglePrint& photo, const std::optional<TwipsSize>& own, const PrintType& type)
      : page_(photo), own_(own), type_(type) {}

  [[nodiscard]] std::string noteFor(const PrintChoices& choices) const {
    const Missing missing = missingWith(choices);
    if (missing.right || missing.below)
      return "The photo is larger than the paper: " + cutEdges(missing) + adviceFor(choices);
    const bool hasNames = !std::get<SinglePrint>(page_).names.empty(); // they come last
    return hasNames && missing.endOfText ? "Not all of the names have room on the paper." : "";
  }

private:
  [[nodiscard]] Missing missingWith(const PrintChoices& choices) const {
    return missingOn(layOut(page_, choices, paperFor(page_, choices, own_), type_));
  }

  /// The least change by which all of the photo is printed.
  [[nodiscard]] std::string adviceFor(const PrintChoices& now) const {
    PrintChoices original = now;
    original.size = PrintSize::Original;
    for (const PrintChoices& instead : {turned(now), original, turned(original)})
      if (const Missing missing = missingWith(instead); !missing.right && !missing.below)
        return " Choose " + wordsFor(instead, now) + " to print all of it.";
    return {};
  }

  PrintPage page_;
  const std::optional<TwipsSize>& own_;
  const PrintType& type_;
};

} // namespace

std::string printNote(const PrintPage& page, const PrintChoices& choices,
                      const std::optional<TwipsSize>& own, const PrintType& type) {
  if (const auto* single = std::get_if<SinglePrint>(&page))
    return SinglePhoto(*single, own, type).noteFor(choices);
  const auto* album = std::get_if<AlbumPrint>(&page);
  if (album && std::ranges::any_of(album->cells, &AlbumPrintCell::hasMoreNames))
    return "Of a long list of names, those in sight on the album page are printed.";
  return {};
}

} // namespace hearthbook
