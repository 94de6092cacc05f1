#pragma once

#include "Picture.h"
#include "Twips.h"

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

namespace hearthbook {

/// A picture on a sheet, stretched over its place.
struct SheetPicture {
  TwipsRect place;
  std::filesystem::path file; ///< its pixels are printed; where it has none, those at hand
  Picture atHand;             ///< as the screen shows it
};

/// A line of text, told by its upper left corner.
struct SheetLine {
  TwipsPoint at;
  std::string text;
  bool overPicture = false; ///< it stands on a strip of paper, to be read there too
};

using PaintOperation = std::variant<SheetPicture, SheetLine>;

/// One sheet of paper, and what is painted on it, in this order. Places count in twips from
/// `origin`, which keeps off the edge that printers cannot reach.
struct PrintSheet {
  TwipsSize paper;
  TwipsPoint origin;
  std::vector<PaintOperation> operations;
};

/// The type on paper, in points.
inline constexpr double sheetPoints = 10;

} // namespace hearthbook
