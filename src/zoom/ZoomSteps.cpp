#include "ZoomSteps.h"

#include "ImgRatio.h"

#include <algorithm>
#include <cmath>

namespace hearthbook {

namespace {

/// The bar of a photo side in a side of the area. It hides a strip of the photo, which the
/// other bar covers.
void fitBar(ZoomBar& bar, double photoSide, double areaSide) {
  bar.enabled = photoSide > areaSide;
  if (!bar.enabled)
    return;
  bar.maximum = std::abs(photoSide - areaSide) + ZoomSteps::barThickness;
  bar.value = std::min(bar.value, bar.maximum);
}

/// The bar's value behind a drag along its side; the bar goes the way of the mouse.
double dragged(const ZoomBar& bar, double from, double to) {
  if (to < from && bar.enabled && bar.value > ZoomBar::smallChange)
    return bar.value - ZoomBar::smallChange;
  if (to > from && bar.enabled && bar.value < bar.maximum - ZoomBar::smallChange)
    return bar.value + ZoomBar::smallChange;
  return bar.value;
}

} // namespace

void ZoomSteps::show(TwipsSize own) {
  const bool fits =
      own.width <= area.width - barThickness && own.height <= area.height - barThickness;
  photo = fits ? TwipsRect{0, 0, own.width, own.height}
               : FitImage({}, own.width, own.height, box.width, box.height);
  photo.left = 0;
  photo.top = 0;
  across.enabled = false;
  down.enabled = false;
  canMagnify = true;
  canReduce = true;
  showsHand = false;
}

bool ZoomSteps::magnify() {
  if (photo.width > widest) {
    canMagnify = false;
    return false;
  }
  scaleBy(step);
  showsHand = showsHand || across.enabled || down.enabled;
  canReduce = true;
  return true;
}

bool ZoomSteps::reduce() {
  if (photo.width <= narrowest) {
    canReduce = false;
    return false;
  }
  photo.left = 0;
  photo.top = 0;
  scaleBy(1 / step);
  canMagnify = true;
  return true;
}

void ZoomSteps::scaleBy(double factor) {
  photo.width *= factor;
  photo.height *= factor;
  fitBars();
}

void ZoomSteps::fitBars() {
  fitBar(across, photo.width, area.width);
  fitBar(down, photo.height, area.height);
}

void ZoomSteps::scrollAcross(double value) {
  across.value = std::clamp(value, 0.0, across.maximum);
  photo.left = -across.value;
}

void ZoomSteps::scrollDown(double value) {
  down.value = std::clamp(value, 0.0, down.maximum);
  photo.top = -down.value;
}

void ZoomSteps::drag(TwipsPoint from, TwipsPoint to) {
  if (const double value = dragged(across, from.x, to.x); value != across.value)
    scrollAcross(value);
  if (const double value = dragged(down, from.y, to.y); value != down.value)
    scrollDown(value);
}

void ZoomSteps::bring(TwipsPoint part, TwipsPoint under) {
  if (across.enabled)
    scrollAcross(part.x * photo.width - under.x);
  if (down.enabled)
    scrollDown(part.y * photo.height - under.y);
}

double ZoomSteps::longerSide() const { return std::max(photo.width, photo.height); }

} // namespace hearthbook
