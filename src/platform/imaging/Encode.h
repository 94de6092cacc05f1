#pragma once

#include "Picture.h"

#include <iosfwd>

namespace hearthbook {

/// Writes a JPEG. The compression factor runs from 0 (best) up: factor f is quality 95 - f.
/// Baseline, 4:4:4 at factor 0 and 4:2:0 above. Throws RunTimeError if the stream fails.
void writeJpeg(std::ostream& out, const Picture& picture, int factor);

inline constexpr int photoFactor = 0;
inline constexpr int thumbnailFactor = 15;

} // namespace hearthbook
