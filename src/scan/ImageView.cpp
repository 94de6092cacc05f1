#include "ImageView.h"

#include <algorithm>

namespace hearthbook {

namespace {

constexpr double mostFactor = 4.0;
constexpr double leastFactor = 0.1;

TwipsSize inTwips(PixelSize picture) {
  return {static_cast<double>(picture.width) * twipsPerPixel,
          static_cast<double>(picture.height) * twipsPerPixel};
}

double fittingFactor(PixelSize picture) {
  const TwipsSize whole = inTwips(picture);
  if (whole.width <= 0 || whole.height <= 0)
    return 1;
  return std::min({1.0, ImageView::box.width / whole.width, ImageView::box.height / whole.height});
}

ScrollBars barsFor(bool across, bool down) {
  return static_cast<ScrollBars>((across ? 1 : 0) + (down ? 2 : 0));
}

} // namespace

void ImageView::fit(PixelSize picture) {
  picture_ = picture;
  factor_ = fittingFactor(picture);
  showWhole();
}

/// What was fitted before it was turned is fitted again when it is turned back.
void ImageView::resize(PixelSize picture) {
  picture_ = picture;
  if (factor_ == fittingFactor(picture))
    showWhole();
  else
    setView();
}

void ImageView::showWhole() {
  size_ = pictureSize();
  scrollBars_ = ScrollBars::None;
  scroll_ = {};
}

bool ImageView::zoomIn() {
  if (factor_ >= mostFactor)
    return false;
  zoomTo(factor_ + step);
  return true;
}

bool ImageView::zoomOut() {
  if (factor_ <= leastFactor)
    return false;
  zoomTo(factor_ - step);
  return true;
}

void ImageView::originalSize() {
  const PixelPoint kept = middle();
  factor_ = 1;
  size_ = box;
  scrollBars_ = ScrollBars::Both;
  scrollToMiddle(kept);
}

void ImageView::zoomTo(double factor) {
  const PixelPoint kept = middle();
  factor_ = factor;
  setView();
  scrollToMiddle(kept);
}

void ImageView::setView() {
  const TwipsSize magnified = pictureSize();
  const bool across = magnified.width >= box.width;
  const bool down = magnified.height >= box.height;
  size_ = {across ? box.width : magnified.width, down ? box.height : magnified.height};
  scrollBars_ = barsFor(across, down);
  scrollTo(scroll_);
}

TwipsSize ImageView::pictureSize() const {
  const TwipsSize whole = inTwips(picture_);
  const double shown = std::max(0.0, factor_);
  return {whole.width * shown, whole.height * shown};
}

bool ImageView::isNothingInSight() const { return factor_ <= 0 && picture_.width > 0; }

TwipsPoint ImageView::mostScroll() const {
  const TwipsSize magnified = pictureSize();
  return {std::max(0.0, magnified.width - size_.width),
          std::max(0.0, magnified.height - size_.height)};
}

void ImageView::scrollTo(TwipsPoint place) {
  const TwipsPoint most = mostScroll();
  scroll_ = {std::clamp(place.x, 0.0, most.x), std::clamp(place.y, 0.0, most.y)};
}

PixelPoint ImageView::toPicture(TwipsPoint place) const {
  if (factor_ <= 0)
    return {};
  return {(place.x + scroll_.x) / factor_ / twipsPerPixel,
          (place.y + scroll_.y) / factor_ / twipsPerPixel};
}

TwipsPoint ImageView::fromPicture(PixelPoint pixel) const {
  const double shown = std::max(0.0, factor_);
  return {pixel.x * shown * twipsPerPixel - scroll_.x, pixel.y * shown * twipsPerPixel - scroll_.y};
}

/// What is in the middle stays there while one zooms.
PixelPoint ImageView::middle() const {
  if (factor_ <= 0)
    return {picture_.width / 2.0, picture_.height / 2.0};
  return toPicture({size_.width / 2, size_.height / 2});
}

void ImageView::scrollToMiddle(PixelPoint pixel) {
  const TwipsPoint place = fromPicture(pixel);
  scrollTo({scroll_.x + place.x - size_.width / 2, scroll_.y + place.y - size_.height / 2});
}

} // namespace hearthbook
