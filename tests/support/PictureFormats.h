#pragma once

#include "Picture.h"

#include <string>

namespace hearthbook::test {

// Files of the rarer kinds, laid out so that a test knows what is lost where one is cut.

/// A TIFF whose directory stands before its pixels, as cameras write it; 8 or 16 bits a channel.
std::string tiffOf(const Picture& picture, int bitsPerChannel);

std::string pngIconOf(const Picture& picture);
std::string bitmapIconOf(const Picture& picture);

/// All red, each row packed by itself, from the foot upwards.
std::string packedBmp(PixelSize size);

/// All red.
std::string gifOf(PixelSize size);

} // namespace hearthbook::test
