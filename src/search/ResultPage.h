#pragma once

#include "Album.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace hearthbook {

/// What one cell of a result page shows.
struct ResultPhoto {
  std::int64_t position = 0; ///< in rsSearch, 1-based
  PictureSource picture;
  std::string toolTip; ///< "1994 - Lake - Wedding"
  bool isSelected = false;
};

/// The photos of the page that begins with the current row of rsSearch, which then stands behind
/// the last of them. Notes their positions in PagePositions and their number in PageThumbCount;
/// on an empty page both stay as they were. `filled` hears how many are read.
std::vector<ResultPhoto> readResultPage(Album& album, const std::function<void(int)>& filled);

/// The files of the pages behind and before the one that was read, the next one first.
std::vector<std::filesystem::path> neighbourThumbnails(const Album& album);

} // namespace hearthbook
