#pragma once

#include "PixelRect.h"

namespace hearthbook {

// The region of a photo that goes into a box of a page. It always lies within the photo and has the
// proportions of the box, so that nobody gets broader or thinner by it.

/// A place on a photo, in its pixels.
struct PhotoPoint {
  double x = 0;
  double y = 0;
};

/// As much of the photo as can be, from its middle.
PixelRect wholeRegion(PixelSize photo, PixelSize box);

/// What a mouse marks that was pressed at `from` and is at `to`: it goes as far as the mouse in the
/// direction in which that went further, counted from where it came onto the photo. Empty where it
/// did not go anywhere.
PixelRect drawnRegion(PhotoPoint from, PhotoPoint to, PixelSize photo, PixelSize box);

PixelRect movedRegion(PixelRect region, int right, int down, PixelSize photo);

/// Larger or smaller around its middle, as far as the photo reaches.
PixelRect scaledRegion(const PixelRect& region, double factor, PixelSize photo, PixelSize box);

} // namespace hearthbook
