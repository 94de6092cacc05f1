#pragma once

#include "Drives.h"
#include "Recordset.h"

#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// Where a photo's files lie: "HD" ids on the hard disk, "CD" ids on a disc.
enum class PhotoOrigin { HardDisk, Disc, Other };

PhotoOrigin originOf(std::string_view pictureId);

/// "00012" of "HD00012": what all of the photo's files are called.
std::string stemOf(std::string_view pictureId);

/// The number of the next photo, made from the last row of the set, which must be in the order
/// of PictureID. Moves the set to its last row. The first digit behind the prefix is left out
/// of the sum, so that 1 follows HD10000.
std::int16_t nextPhotoNumber(Recordset& photoAlbum);

/// "HD" and the number in five digits.
std::string hardDiskId(std::int16_t number);

/// The criterion for the photos of these ids, empty for none: "PictureID = 'HD00001' Or PictureID =
/// 'HD00002'".
std::string photosCriterion(std::string_view field, const std::vector<std::string>& pictureIds);

} // namespace hearthbook
