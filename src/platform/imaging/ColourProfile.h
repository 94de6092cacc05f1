#pragma once

#include "Picture.h"

#include <cstdint>
#include <span>

namespace hearthbook {

/// Turns the pixels from the colours of an ICC profile into sRGB. A profile that is broken, or
/// not for red, green and blue, changes nothing.
void convertToSrgb(Picture& picture, std::span<const std::uint8_t> profile);

} // namespace hearthbook
