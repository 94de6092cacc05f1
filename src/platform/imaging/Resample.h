#pragma once

#include "Picture.h"

namespace hearthbook {

class WorkPool;

/// The picture at another size: exact area average when shrinking, bilinear when enlarging.
/// Throws RunTimeError if there is no picture, a side is below 1 or the result would be over
/// maxPixels.
Picture resample(const Picture& picture, PixelSize size);

/// The picture put upright: `orientation` is the camera's, 1 to 8. With a pool, its free threads
/// help.
Picture uprighted(const Picture& picture, int orientation, WorkPool* pool = nullptr);

/// The size that fits a picture into a square of `longerSide` pixels: its longer side exactly
/// that, the other in proportion, rounded half to even and at least 1.
PixelSize sizeWithin(PixelSize full, int longerSide);

/// What is decoded of one photo at most to be shown or printed, in pixels: 200 MB, and more than
/// a screen or a sheet shows.
inline constexpr double mostDecoded = 50e6;

/// The size itself, or in its proportions the largest of no more than `pixels`; each side at least
/// 1.
PixelSize sizeOfAtMost(double pixels, PixelSize wanted);

/// The size of a stored picture once it is upright.
PixelSize uprightSize(PixelSize stored, int orientation);

} // namespace hearthbook
