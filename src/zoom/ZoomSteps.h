#pragma once

#include "Twips.h"

namespace hearthbook {

/// A scroll bar of the viewing area, in twips. Its value outlives the photo: a step sets the
/// range alone.
struct ZoomBar {
  static constexpr double smallChange = 100;
  static constexpr double largeChange = 200;

  bool enabled = false;
  double maximum = 0;
  double value = 0;

  bool operator==(const ZoomBar&) const = default;
};

/// Where the photo of the zoom view lies in its viewing area, in twips from its corner, and how
/// one magnifies, reduces, scrolls and drags it.
struct ZoomSteps {
  static constexpr TwipsSize area{8535, 7215};
  static constexpr double barThickness = 255;
  /// For a photo that is too large for the area: what the bars leave of it, to some twips.
  static constexpr TwipsSize box{8285, 6960};
  static constexpr double step = 1.5;
  /// A wider photo cannot be magnified: places in twips are counted in 16 bits.
  static constexpr double widest = 32767 / step;
  static constexpr double narrowest = 1000;

  TwipsRect photo;
  ZoomBar across;
  ZoomBar down;
  bool canMagnify = true;
  bool canReduce = true;
  bool showsHand = false; ///< the pointer over the photo says that it can be moved

  /// A fresh photo of this size of its own; there is nothing to scroll.
  void show(TwipsSize own);

  /// False, and the command is disabled, where the photo is too large or too small.
  bool magnify();
  bool reduce();

  void scrollAcross(double value);
  void scrollDown(double value);

  /// The mouse is dragged over the photo, from one place in it to another.
  void drag(TwipsPoint from, TwipsPoint to);

  /// Scrolls so that a place in the photo, told as parts of its sides, lies under a point of the
  /// area, as far as there is something to scroll.
  void bring(TwipsPoint part, TwipsPoint under);

  /// The longer side of the photo, which the markers follow.
  [[nodiscard]] double longerSide() const;

  bool operator==(const ZoomSteps&) const = default;

private:
  void scaleBy(double factor);
  void fitBars();
};

} // namespace hearthbook
