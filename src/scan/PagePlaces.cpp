#include "PagePlaces.h"

#include "Stage.h"

#include <algorithm>

namespace hearthbook {

PagePlaces::PagePlaces(const ImageEdit& edit, const QWidget& widget)
    : view_(edit.view()), pixelsPerTwip_(Stage::scaleOf(&widget) / twipsPerPixel) {}

double PagePlaces::perPixel() const {
  return std::max(0.0, view_.factor()) * twipsPerPixel * pixelsPerTwip_;
}

QPointF PagePlaces::toWidget(PixelPoint place) const {
  const TwipsPoint twips = view_.fromPicture(place);
  return {twips.x * pixelsPerTwip_, twips.y * pixelsPerTwip_};
}

QRectF PagePlaces::toWidget(const PixelRect& rect) const {
  const double left = rect.left;
  const double top = rect.top;
  return {toWidget(PixelPoint{left, top}),
          toWidget(PixelPoint{left + rect.width, top + rect.height})};
}

PixelPoint PagePlaces::toPage(QPointF place) const {
  return view_.toPicture({place.x() / pixelsPerTwip_, place.y() / pixelsPerTwip_});
}

} // namespace hearthbook
