#pragma once

#include "AlbumData.h"
#include "Twips.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

/// One row of a grid of names; an empty one fills the grid up.
struct NamesRow {
  std::string text; ///< the screen name, three blanks behind it for each of the person's markers
  std::string id;   ///< empty in an empty row
  bool marked = false;

  bool operator==(const NamesRow&) const = default;
};

/// The markers of a photo, entry by entry; nothing where the photo has none.
using PhotoMarkers = std::optional<std::vector<std::string>>;

/// What the panel beside a photo tells of it.
struct PhotoFacts {
  std::string year;
  std::string place; ///< event and place: "Wedding in Lake"; "Wedding in " without a place
  bool hasDescription = false;
  std::vector<NamesRow> names;
  PhotoMarkers markers;

  bool operator==(const PhotoFacts&) const = default;
};

/// The facts of the row on which `photo` stands. A place, event or person who is gone is left
/// out; a fact that cannot be read stays empty and keeps no other from being told.
PhotoFacts photoFacts(AlbumData& data, const Recordset& photo, std::size_t leastRows);

/// The rows of the names of a photo, at least so many. Each name takes the place of an empty
/// row, at its own place in the field, so that somebody who is gone leaves his row empty.
std::vector<NamesRow> namesRows(Recordset& appearances, const std::string& namesInPhoto,
                                const PhotoMarkers& markers, std::size_t leastRows);

/// Where the arrow of a marker stands whose tip points at the person, on a photo that lies at
/// `image` and whose longer side is `side`, all in twips. The marker counts in the box in which it
/// was set, 5760 twips square.
TwipsRect arrowRect(TwipsRect image, TwipsPoint marker, double side);

} // namespace hearthbook
