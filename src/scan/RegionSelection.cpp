#include "RegionSelection.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace hearthbook {

namespace {

constexpr std::array handles{Handle::TopLeft,    Handle::TopRight, Handle::BottomRight,
                             Handle::BottomLeft, Handle::Top,      Handle::Right,
                             Handle::Bottom,     Handle::Left};

bool isOnLeft(Handle handle) {
  return handle == Handle::TopLeft || handle == Handle::Left || handle == Handle::BottomLeft;
}
bool isOnRight(Handle handle) {
  return handle == Handle::TopRight || handle == Handle::Right || handle == Handle::BottomRight;
}
bool isOnTop(Handle handle) {
  return handle == Handle::TopLeft || handle == Handle::Top || handle == Handle::TopRight;
}
bool isOnBottom(Handle handle) {
  return handle == Handle::BottomLeft || handle == Handle::Bottom || handle == Handle::BottomRight;
}

/// Whole pixels that an int holds, however far out the mouse was.
int wholePixel(double place) {
  constexpr double farOut = 1e9;
  return static_cast<int>(std::lround(std::clamp(place, -farOut, farOut)));
}

} // namespace

void RegionSelection::set(const PixelRect& rectangle) {
  begin({static_cast<double>(rectangle.left), static_cast<double>(rectangle.top)});
  pullTo({static_cast<double>(rectangle.left + rectangle.width),
          static_cast<double>(rectangle.top + rectangle.height)});
}

void RegionSelection::begin(PixelPoint corner) {
  isThere_ = true;
  pullsAcross_ = pullsDown_ = true;
  fixed_ = pulled_ = corner;
}

void RegionSelection::grab(Handle handle) {
  const PixelPoint first = topLeft();
  const PixelPoint last = bottomRight();
  fixed_ = {isOnLeft(handle) ? last.x : first.x, isOnTop(handle) ? last.y : first.y};
  pulled_ = {isOnLeft(handle) ? first.x : last.x, isOnTop(handle) ? first.y : last.y};
  pullsAcross_ = isOnLeft(handle) || isOnRight(handle);
  pullsDown_ = isOnTop(handle) || isOnBottom(handle);
}

void RegionSelection::pullTo(PixelPoint place) {
  if (pullsAcross_)
    pulled_.x = place.x;
  if (pullsDown_)
    pulled_.y = place.y;
}

void RegionSelection::moveBy(double right, double down) {
  for (PixelPoint* corner : {&fixed_, &pulled_}) {
    corner->x += right;
    corner->y += down;
  }
}

void RegionSelection::growBy(double right, double down) {
  grab(Handle::BottomRight);
  pullTo({std::max(fixed_.x + 1, pulled_.x + right), std::max(fixed_.y + 1, pulled_.y + down)});
}

PixelPoint RegionSelection::topLeft() const {
  return {std::min(fixed_.x, pulled_.x), std::min(fixed_.y, pulled_.y)};
}

PixelPoint RegionSelection::bottomRight() const {
  return {std::max(fixed_.x, pulled_.x), std::max(fixed_.y, pulled_.y)};
}

PixelPoint RegionSelection::placeOf(Handle handle) const {
  const PixelPoint first = topLeft();
  const PixelPoint last = bottomRight();
  const double x = isOnLeft(handle) ? first.x : isOnRight(handle) ? last.x : (first.x + last.x) / 2;
  const double y = isOnTop(handle) ? first.y : isOnBottom(handle) ? last.y : (first.y + last.y) / 2;
  return {x, y};
}

Handle RegionSelection::handleAt(PixelPoint place, double reach) const {
  Handle nearest = Handle::None;
  double least = reach;
  for (const Handle handle : handles) {
    if (!isThere_)
      break;
    const PixelPoint at = placeOf(handle);
    const double distance = std::max(std::abs(at.x - place.x), std::abs(at.y - place.y));
    if (distance <= least && (nearest == Handle::None || distance < least)) {
      least = distance;
      nearest = handle;
    }
  }
  return nearest;
}

PixelRect RegionSelection::mappedTo(PixelSize picture) const {
  if (!isThere_)
    return {};
  const PixelPoint first = topLeft();
  const PixelPoint last = bottomRight();
  const int left = wholePixel(first.x);
  const int top = wholePixel(first.y);
  return cutTo({left, top, wholePixel(last.x) - left, wholePixel(last.y) - top}, picture);
}

} // namespace hearthbook
