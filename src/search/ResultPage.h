#pragma once

#include "Album.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace hearthbook {

/// What one cell of a result page shows.
struct ResultPhoto {
  std::int64_t position = 0; ///< in rsSearch, 1-based
  std::string id;
  PictureSource picture;
  std::string toolTip; ///< "1994 - Lake - Wedding"
  bool isSelected = false;
};

/// The photos of the page that begins with the current row of rsSearch, which then stands behind
/// the last of them. Notes their positions in PagePositions and their number in PageThumbCount;
/// on an empty page both stay as they were. What cannot be read of a photo is left out, and where
/// its thumbnail cannot be found the not-found picture stands: a position never stands under the
/// picture of another photo. `filled` hears how many are read.
std::vector<ResultPhoto> readResultPage(Album& album, const std::function<void(int)>& filled);

/// The photos of the pages behind and before the one that was read, the next one first.
std::vector<std::string> neighbourIdsOfPage(const PublicVar& vars);

} // namespace hearthbook
