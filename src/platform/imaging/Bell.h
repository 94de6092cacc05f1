#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace hearthbook {

/// The weights with which a pixel and its neighbours on both sides make a softer one. They add up
/// to 256 exactly, so that a plain picture stays as it is.
class Bell {
public:
  /// `deviation` in pixels; one too small to reach the neighbours gives a bell of one pixel.
  explicit Bell(double deviation);

  [[nodiscard]] int radius() const { return static_cast<int>(weights_.size()) - 1; }

  /// Bytes made of the same number of bytes at each of 2 * radius + 1 places, the middle one of
  /// which stands in the middle.
  void weigh(const std::uint8_t* const* places, std::uint8_t* result, std::size_t count) const;

private:
  [[nodiscard]] std::uint8_t weighOne(const std::uint8_t* const* places, std::size_t at) const;

  std::vector<std::uint16_t> weights_; ///< of the middle, then of those ever further away
};

} // namespace hearthbook
