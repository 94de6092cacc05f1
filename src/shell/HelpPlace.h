#pragma once

#include "Twips.h"

#include <algorithm>

namespace hearthbook {

/// The help window, told in twips of the work form.
inline constexpr TwipsSize helpWindowSize{4515, 1860};
inline constexpr double helpWindowLift = 300; ///< between it and the bottom of the frame

/// How the help window shares the frame with the work form, so that it hides none of the form's
/// controls: it grows with the form, and the form leaves free either the foot of the frame or
/// its left side, whichever leaves the form larger.
struct HelpPlace {
  double scale = 1; ///< standard pixels to pixels of the help window
  double left = 0;  ///< pixels that the work form leaves free there
  double bottom = 0;

  bool operator==(const HelpPlace&) const = default;
};

/// `room` is what the work form would have without the help window, in pixels.
constexpr HelpPlace helpPlace(double roomWidth, double roomHeight) {
  const double width = roomWidth * twipsPerPixel;
  const double height = roomHeight * twipsPerPixel;
  const double foot = helpWindowSize.height + helpWindowLift;
  const double above = std::min(width / workFormSize.width, height / (workFormSize.height + foot));
  const double beside =
      std::min(width / (workFormSize.width + helpWindowSize.width), height / workFormSize.height);
  // In a small frame the words stay readable and the form gives way.
  const double scale = std::max({1.0, above, beside});
  if (beside > above)
    return {scale, helpWindowSize.width * scale / twipsPerPixel, 0};
  return {scale, 0, foot * scale / twipsPerPixel};
}

} // namespace hearthbook
