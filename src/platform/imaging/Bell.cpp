#include "Bell.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace hearthbook {

namespace {

constexpr double widest = 40;      // pixels; beyond it the weights get too coarse
constexpr double tail = 2.2;       // deviations, behind which a neighbour no longer counts
constexpr std::size_t atOnce = 16; // bytes

// The compiler puts these into whatever registers the machine has.
using Bytes [[gnu::vector_size(atOnce)]] = std::uint8_t;
using Sums [[gnu::vector_size(2 * atOnce)]] = std::uint16_t;

void widen(const std::uint8_t* bytes, Sums& sums) {
  Bytes loaded;
  std::memcpy(&loaded, bytes, atOnce);
  sums = __builtin_convertvector(loaded, Sums);
}

void store(const Sums& sums, std::uint8_t* bytes) {
  const Bytes rounded = __builtin_convertvector((sums + 128) >> 8, Bytes);
  std::memcpy(bytes, &rounded, atOnce);
}

} // namespace

Bell::Bell(double deviation) {
  const double width = std::clamp(deviation, 0.05, widest);
  const int radius = static_cast<int>(std::ceil(width * tail - 0.5));
  std::vector<double> heights;
  double sum = 0;
  for (int i = 0; i <= radius; ++i) {
    heights.push_back(std::exp(-i * i / (2 * width * width)));
    sum += i == 0 ? heights.back() : 2 * heights.back();
  }
  weights_.resize(heights.size());
  int middle = 256;
  for (std::size_t i = 1; i < heights.size(); ++i) {
    weights_[i] = static_cast<std::uint16_t>(std::lround(256 * heights[i] / sum));
    middle -= 2 * weights_[i];
  }
  weights_[0] = static_cast<std::uint16_t>(middle);
}

void Bell::weigh(const std::uint8_t* const* places, std::uint8_t* result, std::size_t count) const {
  const std::uint8_t* const* middle = places + radius();
  std::size_t at = 0;
  for (; at + atOnce <= count; at += atOnce) {
    Sums sums;
    widen(*middle + at, sums);
    sums *= weights_[0];
    for (int i = 1; i <= radius(); ++i) {
      Sums before;
      Sums behind;
      widen(middle[-i] + at, before);
      widen(middle[i] + at, behind);
      sums += (before + behind) * weights_[static_cast<std::size_t>(i)];
    }
    store(sums, result + at);
  }
  for (; at < count; ++at)
    result[at] = weighOne(places, at);
}

std::uint8_t Bell::weighOne(const std::uint8_t* const* places, std::size_t at) const {
  const std::uint8_t* const* middle = places + radius();
  unsigned sum = 128U + weights_[0] * unsigned{(*middle)[at]};
  for (int i = 1; i <= radius(); ++i)
    sum += weights_[static_cast<std::size_t>(i)] *
           (unsigned{middle[-i][at]} + unsigned{middle[i][at]});
  return static_cast<std::uint8_t>(sum >> 8);
}

} // namespace hearthbook
