#pragma once

#include "Picture.h"

#include <iosfwd>
#include <string>

namespace hearthbook {

/// Writes a JPEG. The compression factor runs from 0 (best) up: factor f is quality 95 - f.
/// Baseline, 4:4:4 at factor 0 and 4:2:0 above. Throws RunTimeError if the stream fails.
void writeJpeg(std::ostream& out, const Picture& picture, int factor);

/// The same, in memory.
std::string jpegBytes(const Picture& picture, int factor);

inline constexpr int photoFactor = 0;
inline constexpr int thumbnailFactor = 15;
inline constexpr int thumbnailSide = 73; ///< pixels of a thumbnail's longer side

} // namespace hearthbook
