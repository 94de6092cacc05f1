#include "StripGeometry.h"

#include <algorithm>

namespace hearthbook {

namespace {

StripRange rowsFrom(std::size_t row, std::size_t rows) {
  return {row * stripColumns, (row + rows) * stripColumns};
}

} // namespace

TwipsRect stripCell(std::size_t position) {
  const std::size_t columnsLeft = position % stripColumns;
  const std::size_t rowsAbove = position / stripColumns;
  const auto column = static_cast<double>(columnsLeft);
  const auto row = static_cast<double>(rowsAbove);
  return {stripGap + column * stripRowStep, (row + 1) * stripGap + row * stripCellSide,
          stripCellSide, stripCellSide};
}

TwipsRect placeInStripCell(std::size_t position, TwipsSize picture) {
  const TwipsRect cell = stripCell(position);
  return {cell.left + (cell.width - picture.width) / 2,
          cell.top + (cell.height - picture.height) / 2, picture.width, picture.height};
}

std::size_t stripRows(std::size_t photos) { return (photos + stripColumns - 1) / stripColumns; }

double stripHeight(std::size_t photos) {
  return static_cast<double>(stripRows(photos)) * stripRowStep + stripGap;
}

std::size_t lastStripScroll(std::size_t photos) {
  return std::max(stripRows(photos), stripRowsInView) - stripRowsInView;
}

std::uint32_t stripBand(std::size_t position) {
  constexpr std::size_t photosPerPage = 4;
  return position / photosPerPage % 2 == 0 ? 0xE0E0E0 : 0x808080;
}

StripScroll stripScroll(std::size_t from, std::size_t to) {
  if (std::max(from, to) - std::min(from, to) > 1)
    return {rowsFrom(from, stripRowsInView), rowsFrom(to, stripRowsInView)};
  if (from < to)
    return {rowsFrom(to - 1, 1), rowsFrom(to + 2, 1)};
  return {rowsFrom(to + 3, 1), rowsFrom(to, 1)};
}

TwipsPoint insertionMark(std::size_t target, std::size_t source) {
  constexpr double halfGap = stripGap / 2;
  const TwipsRect cell = stripCell(target);
  return {target < source ? cell.left - halfGap : cell.left + cell.width + halfGap, cell.top};
}

} // namespace hearthbook
