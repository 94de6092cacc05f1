#include "PhotoRegion.h"

#include "Numbers.h"

#include <algorithm>
#include <cmath>

namespace hearthbook {

namespace {

constexpr double leastSide = 8; // pixels; less is a slip of the hand

double ratioOf(PixelSize box) { return static_cast<double>(box.width) / box.height; }

int rounded(double value) { return static_cast<int>(roundHalfEven(value)); }

PixelRect around(double middleX, double middleY, double width, PixelSize photo, PixelSize box) {
  const double widest = std::min<double>(photo.width, photo.height * ratioOf(box));
  const double fitting = std::clamp(width, std::min(leastSide, widest), widest);
  const int wide = std::max(1, rounded(fitting));
  const int high = std::clamp(rounded(fitting / ratioOf(box)), 1, photo.height);
  const PixelRect region{rounded(middleX - wide / 2.0), rounded(middleY - high / 2.0), wide, high};
  return movedRegion(region, 0, 0, photo);
}

} // namespace

PixelRect wholeRegion(PixelSize photo, PixelSize box) {
  return around(photo.width / 2.0, photo.height / 2.0, photo.width, photo, box);
}

PixelRect drawnRegion(PhotoPoint from, PhotoPoint to, PixelSize photo, PixelSize box) {
  const double right = to.x < from.x ? -1 : 1;
  const double down = to.y < from.y ? -1 : 1;
  const double startX = std::clamp<double>(from.x, 0, photo.width);
  const double startY = std::clamp<double>(from.y, 0, photo.height);
  const double roomX = right > 0 ? photo.width - startX : startX;
  const double roomY = down > 0 ? photo.height - startY : startY;
  const double ratio = ratioOf(box);
  const double wentX = std::max(0.0, (to.x - startX) * right);
  const double wentY = std::max(0.0, (to.y - startY) * down);
  const double drawn = std::max(wentX, wentY * ratio);
  const double width = std::min({drawn, roomX, roomY * ratio});
  if (width < leastSide)
    return {};
  return around(startX + right * width / 2, startY + down * width / ratio / 2, width, photo, box);
}

PixelRect movedRegion(PixelRect region, int right, int down, PixelSize photo) {
  region.left = std::clamp(region.left + right, 0, std::max(0, photo.width - region.width));
  region.top = std::clamp(region.top + down, 0, std::max(0, photo.height - region.height));
  return region;
}

PixelRect scaledRegion(const PixelRect& region, double factor, PixelSize photo, PixelSize box) {
  return around(region.left + region.width / 2.0, region.top + region.height / 2.0,
                region.width * factor, photo, box);
}

} // namespace hearthbook
