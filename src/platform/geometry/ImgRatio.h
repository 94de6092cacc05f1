#pragma once

#include "Twips.h"

namespace hearthbook {

/// The fit-to-box geometry by which all forms show a picture.
///
/// `control` is the image control's present place, taken to be centred in its box by an
/// earlier fit; the result is its new place. Only the ratio of the picture's sides counts.
/// The picture's own orientation alone decides which side fills the box, so that in a box that
/// is not square a nearly square landscape picture stands taller than the box. Smaller
/// pictures are enlarged.
TwipsRect FitImage(TwipsRect control, double pictureWidth, double pictureHeight, double boxWidth,
                   double boxHeight);

} // namespace hearthbook
