#pragma once

#include <cstddef>
#include <vector>

namespace hearthbook {

/// Along one side of a picture: which of its pixels make each pixel of the new side, and with
/// what weight. The weights of one new pixel add up to 1.
///
/// Shrinking weighs by the area that a pixel covers, enlarging between the two nearest.
class AxisWeights {
public:
  struct Share {
    int first = 0; ///< the first pixel of the old side
    int count = 0;
    std::size_t weights = 0; ///< where their weights begin
  };

  AxisWeights(int oldSide, int newSide);

  [[nodiscard]] const Share& share(int newPixel) const {
    return shares_[static_cast<std::size_t>(newPixel)];
  }
  [[nodiscard]] const float* weights(const Share& share) const {
    return weights_.data() + share.weights;
  }

private:
  void addArea(int oldSide, int newSide, int newPixel);
  void addBetween(int oldSide, int newSide, int newPixel);

  std::vector<Share> shares_;
  std::vector<float> weights_;
};

} // namespace hearthbook
