#pragma once

#include "Album.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace hearthbook {

/// The positions without that of the album's first photo, which is never deleted.
std::vector<std::int64_t> deletablePositions(const Recordset& rsSearch,
                                             std::vector<std::int64_t> positions);

/// Deletes the photos at these positions of the result: the files of each in turn, which is told
/// with how many are done, then all rows with their places in sub-albums as one transaction.
/// Rows that went sooner would shift the positions behind them.
///
/// A step that fails stops it and throws, with how many were deleted; the rows of those go.
void deletePhotos(Album& album, Recordset& rsSearch, const std::vector<std::int64_t>& positions,
                  const std::function<void(std::size_t done)>& tell);

} // namespace hearthbook
