#include "FullScreenPlace.h"

#include <cmath>

namespace hearthbook {

namespace {

double centred(double photo, double form) { return std::trunc(form / 2) - std::trunc(photo / 2); }

/// The edge of a photo side that is longer than the screen's, with no gap at either end.
double covering(double edge, double photo, double screen) {
  if (edge > 0)
    return 0;
  return edge < screen - photo ? screen - photo : edge;
}

} // namespace

void FullScreenPlace::makeFull(TwipsSize form) {
  const bool isWider = photo.width > form.width;
  const bool isHigher = photo.height > form.height;
  if (isWider && isHigher) {
    pointer = DragPointer::Both;
    photo.left = covering(photo.left, photo.width, form.width);
    photo.top = covering(photo.top, photo.height, form.height);
    return;
  }
  photo.left = isWider ? 0 : centred(photo.width, form.width);
  photo.top = isHigher ? 0 : centred(photo.height, form.height);
  if (isHigher)
    pointer = DragPointer::UpAndDown;
  else
    pointer = isWider ? DragPointer::Sideways : DragPointer::None;
}

void FullScreenPlace::drag(TwipsPoint by, TwipsSize screen) {
  if (pointer == DragPointer::Sideways || pointer == DragPointer::Both)
    photo.left = covering(photo.left + by.x, photo.width, screen.width);
  if (pointer == DragPointer::UpAndDown || pointer == DragPointer::Both)
    photo.top = covering(photo.top + by.y, photo.height, screen.height);
}

} // namespace hearthbook
