#include "ImgRatio.h"

namespace hearthbook {

namespace {

/// The box's corner: the control stands centred in it, perhaps beyond its edges.
TwipsPoint boxCorner(const TwipsRect& control, double boxWidth, double boxHeight) {
  return {control.left - (boxWidth - control.width) / 2,
          control.top - (boxHeight - control.height) / 2};
}

} // namespace

TwipsRect FitImage(TwipsRect control, double pictureWidth, double pictureHeight, double boxWidth,
                   double boxHeight) {
  const TwipsPoint corner = boxCorner(control, boxWidth, boxHeight);
  if (pictureWidth <= pictureHeight) {
    const double ratio = (pictureHeight - boxHeight) / pictureHeight;
    const double width = pictureWidth - ratio * pictureWidth;
    return {corner.x + (boxWidth - width) / 2, corner.y, width, boxHeight};
  }
  const double ratio = (pictureWidth - boxWidth) / pictureWidth;
  const double height = pictureHeight - ratio * pictureHeight;
  return {corner.x, corner.y + (boxHeight - height) / 2, boxWidth, height};
}

} // namespace hearthbook
