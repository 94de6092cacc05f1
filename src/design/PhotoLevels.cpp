#include "PhotoLevels.h"

#include "Resample.h"

#include <algorithm>
#include <utility>

namespace hearthbook {

namespace {

constexpr int leastLevelSide = 300; // less is painted from more pixels just as fast

} // namespace

PhotoLevels::PhotoLevels(Picture photo) : levels_{std::move(photo)} {
  for (PixelSize half{levels_.front().width() / 2, levels_.front().height() / 2};
       std::min(half.width, half.height) >= leastLevelSide;
       half = {half.width / 2, half.height / 2})
    levels_.push_back(resample(levels_.back(), half));
}

const Picture& PhotoLevels::atLeast(double width) const {
  const auto wideEnough = [width](const Picture& level) { return level.width() >= width; };
  const auto smallest = std::find_if(levels_.rbegin(), levels_.rend(), wideEnough);
  return smallest == levels_.rend() ? levels_.front() : *smallest;
}

} // namespace hearthbook
