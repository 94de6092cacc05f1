#include "AxisWeights.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace hearthbook {

AxisWeights::AxisWeights(int oldSide, int newSide) {
  shares_.reserve(static_cast<std::size_t>(newSide));
  for (int i = 0; i < newSide; ++i)
    if (newSide <= oldSide)
      addArea(oldSide, newSide, i);
    else
      addBetween(oldSide, newSide, i);
}

/// In units of 1/newSide an old pixel is newSide wide and a new one oldSide, so that all is
/// whole numbers.
void AxisWeights::addArea(int oldSide, int newSide, int newPixel) {
  const std::int64_t begin = std::int64_t{newPixel} * oldSide;
  const std::int64_t end = begin + oldSide;
  Share share{static_cast<int>(begin / newSide), 0, weights_.size()};
  for (std::int64_t at = share.first; at * newSide < end; ++at) {
    const auto covered = std::min(end, (at + 1) * newSide) - std::max(begin, at * newSide);
    weights_.push_back(static_cast<float>(static_cast<double>(covered) / oldSide));
    ++share.count;
  }
  shares_.push_back(share);
}

void AxisWeights::addBetween(int oldSide, int newSide, int newPixel) {
  const double centre = (newPixel + 0.5) * oldSide / newSide - 0.5;
  const double at = std::clamp(centre, 0.0, oldSide - 1.0);
  const int first = static_cast<int>(std::floor(at));
  const auto second = static_cast<float>(at - first);
  shares_.push_back({first, first + 1 < oldSide ? 2 : 1, weights_.size()});
  weights_.insert(weights_.end(), {1.0F - second, second});
}

} // namespace hearthbook
