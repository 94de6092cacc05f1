#pragma once

#include <cstdint>
#include <span>

namespace hearthbook {

/// How the camera was held, 1 to 8, from the content of a JPEG's APP1 segment; 1 where it does
/// not say, or says nonsense.
int exifOrientation(std::span<const std::uint8_t> segment);

} // namespace hearthbook
