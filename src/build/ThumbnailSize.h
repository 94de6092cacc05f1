#pragma once

#include "Picture.h"

#include <cstdint>

namespace hearthbook {

inline constexpr std::uintmax_t reductionLimit =
    300000; ///< bytes; larger photos are reduced on wish

/// A thumbnail's size: the longer side exactly 73, the other rounded half to even and at least 1.
PixelSize thumbnailSize(PixelSize photo);

/// The size of a photo reduced because its file has `bytes` bytes, which is over the limit:
/// one pixel of width less for each 1000 bytes above it, the height in proportion. Zero or
/// negative sides where the file is too large for its width: such a resampling must fail.
PixelSize reducedSize(PixelSize photo, std::uintmax_t bytes);

} // namespace hearthbook
