#pragma once

#include <cstdint>

namespace hearthbook {

/// How bright a pixel looks, 0 to 255: the luma of ITU-R BT.601, as in a JPEG, in 256ths.
constexpr std::uint8_t brightnessOf(std::uint32_t pixel) {
  constexpr std::uint32_t red = 77;
  constexpr std::uint32_t green = 150;
  constexpr std::uint32_t blue = 29;
  return static_cast<std::uint8_t>(
      (red * (pixel >> 16 & 0xffU) + green * (pixel >> 8 & 0xffU) + blue * (pixel & 0xffU) + 128) >>
      8);
}

} // namespace hearthbook
