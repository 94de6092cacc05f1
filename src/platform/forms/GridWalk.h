#pragma once

#include <Qt>

#include <algorithm>
#include <optional>

namespace hearthbook {

/// Where a key leads from one cell of a grid, whose rows have so many columns and whose cells end
/// with `last`: the arrows by a cell or a row, Home and End to the first and the last. Nothing for
/// another key.
inline std::optional<int> walkedTo(int from, int last, int columns, int key) {
  switch (key) {
  case Qt::Key_Left:
    return std::max(0, from - 1);
  case Qt::Key_Right:
    return std::min(last, from + 1);
  case Qt::Key_Up:
    return from < columns ? from : from - columns;
  case Qt::Key_Down:
    return from + columns > last ? from : from + columns;
  case Qt::Key_Home:
    return 0;
  case Qt::Key_End:
    return last;
  default:
    return std::nullopt;
  }
}

} // namespace hearthbook
