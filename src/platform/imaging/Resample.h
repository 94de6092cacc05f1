#pragma once

#include "Picture.h"

namespace hearthbook {

/// The picture at another size: exact area average when shrinking, bilinear when enlarging.
/// Throws RunTimeError if a side is below 1 or the result would be over maxPixels.
Picture resample(const Picture& picture, PixelSize size);

/// The picture put upright: `orientation` is the camera's, 1 to 8.
Picture uprighted(const Picture& picture, int orientation);

} // namespace hearthbook
