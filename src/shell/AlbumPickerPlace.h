#pragma once

#include <algorithm>

namespace hearthbook {

/// Where the album picker stands over its command, in twips: it keeps its foot and grows upward
/// with each album, until it is high enough and scrolls.
struct AlbumPickerPlace {
  double top = 0;
  double height = 0;
  bool scrolls = false;

  bool operator==(const AlbumPickerPlace&) const = default;
};

/// `albums` are the sub-albums; the heading and the Master Album take a row each.
constexpr AlbumPickerPlace albumPickerPlace(int albums, double rowHeight, double commandTop) {
  constexpr int most = 7; // that it grows for
  const double start = commandTop - 500;
  if (albums == 0)
    return {start - rowHeight, 40 + 2 * rowHeight, false};
  const int grown = std::min(albums, most);
  return {start - (grown + 1) * rowHeight, (grown + 2) * rowHeight, albums > most};
}

} // namespace hearthbook
