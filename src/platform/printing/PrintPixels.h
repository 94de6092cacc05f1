#pragma once

#include "PrintSettings.h"
#include "PrintSheet.h"

namespace hearthbook {

/// The pixels worth decoding for a place on paper: so many to the inch, and never more than the
/// file has.
PixelSize printedPixels(TwipsRect place, PixelSize full, int dotsPerInch);

struct PrintedPixels {
  Picture pixels;
  bool isStandIn = false; ///< the file cannot be read: they are what the screen shows
};

/// The pixels of a picture for its place. None where the file cannot be read and the screen has
/// nothing to stand in for it either.
PrintedPixels pixelsForPrint(const SheetPicture& picture, const PrintSettings& settings);

/// The picture without its colours.
Picture greyed(Picture picture);

} // namespace hearthbook
