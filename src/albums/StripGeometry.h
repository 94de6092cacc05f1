#pragma once

#include "Twips.h"

#include <cstddef>
#include <cstdint>

namespace hearthbook {

// The strip on which a sub-album is put in order: six thumbnails to the row, three rows in view.

inline constexpr std::size_t stripColumns = 6;
inline constexpr std::size_t stripRowsInView = 3;
inline constexpr std::size_t stripInView = stripColumns * stripRowsInView;
inline constexpr double stripGap = 120;       ///< between cells, both ways
inline constexpr double stripCellSide = 1155; ///< of a cell
inline constexpr double stripRowStep = stripGap + stripCellSide;
inline constexpr double stripWidth = stripColumns * stripRowStep + stripGap;
inline constexpr double stripViewHeight = stripRowsInView * stripRowStep + stripGap;

TwipsRect stripCell(std::size_t position);
/// A picture of that size in the middle of its cell.
TwipsRect placeInStripCell(std::size_t position, TwipsSize picture);

std::size_t stripRows(std::size_t photos);
double stripHeight(std::size_t photos);
std::size_t lastStripScroll(std::size_t photos); ///< the greatest scroll value, in rows

/// The grey behind a cell, as 0xRRGGBB: bands of four photos, which make a page of the album.
std::uint32_t stripBand(std::size_t position);

/// Positions from `first` up to, not including, `end`.
struct StripRange {
  std::size_t first = 0;
  std::size_t end = 0;
  bool operator==(const StripRange&) const = default;
};

/// What leaves the view and what comes into it, in whole rows; either may reach behind the last
/// photo.
struct StripScroll {
  StripRange blank;
  StripRange load;
  bool operator==(const StripScroll&) const = default;
};
StripScroll stripScroll(std::size_t from, std::size_t to);

/// Where the mark stands that shows between which cells a photo would land: in front of a cell
/// for a photo that comes from behind it, else behind it. Its corner is told.
TwipsPoint insertionMark(std::size_t target, std::size_t source);

} // namespace hearthbook
