#pragma once

#include "PrintSettings.h"
#include "PrintSheet.h"

namespace hearthbook {

/// The pixels worth decoding for a place on paper: so many to the inch, and never more than the
/// file has.
PixelSize printedPixels(TwipsRect place, PixelSize full, int dotsPerInch);

/// The pixels of a picture for its place. A file that cannot be read is stood in for by what the
/// screen shows; none where that has nothing either.
Picture pixelsForPrint(const SheetPicture& picture, const PrintSettings& settings);

/// The picture without its colours.
Picture greyed(Picture picture);

} // namespace hearthbook
