#pragma once

#include <cstdint>

namespace hearthbook {

/// A pixel with straight alpha as it looks on white paper: the album's pictures are opaque.
inline std::uint32_t onWhitePaper(std::uint32_t pixel) {
  const std::uint32_t alpha = pixel >> 24;
  const auto channel = [&](int shift) {
    const std::uint32_t value = pixel >> shift & 0xffU;
    return (value * alpha + 255 * (255 - alpha) + 127) / 255 << shift;
  };
  return 0xff000000U | channel(16) | channel(8) | channel(0);
}

} // namespace hearthbook
