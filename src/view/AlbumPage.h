#pragma once

#include "Twips.h"

namespace hearthbook {

// A page of the album: four cells, each a photo with a panel of what is known of it on its left.
// Sizes and places are told in twips, 15 to a pixel of the drawing.

inline constexpr int pageColumns = 2;
inline constexpr int pageRows = 2;
inline constexpr int photosOnPage = pageColumns * pageRows;

inline constexpr double photoSide = 3375;
inline constexpr TwipsSize infoSize{2175, 3375};
inline constexpr int namesInSight = 6; ///< rows of a cell's names grid

/// The box into which the cell's photo is fitted.
constexpr TwipsRect photoBox(int cell) {
  return {cell % pageColumns == 0 ? 2400.0 : 8280.0, cell / pageColumns == 0 ? 0.0 : 3480.0,
          photoSide, photoSide};
}

/// The cell's information panel. The upper ones begin a pixel above the form.
constexpr TwipsRect infoBox(int cell) {
  return {cell % pageColumns == 0 ? 105.0 : 6000.0, cell / pageColumns == 0 ? -15.0 : 3465.0,
          infoSize.width, infoSize.height};
}

} // namespace hearthbook
