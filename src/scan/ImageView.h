#pragma once

#include "Picture.h"
#include "RegionSelection.h"
#include "Twips.h"

namespace hearthbook {

/// Which scroll bars stand beside the picture.
enum class ScrollBars { None = 0, Horizontal = 1, Vertical = 2, Both = 3 };

/// How the page or photo stands in its box: magnified by a factor, cut to the box, scrolled.
///
/// The picture counts 15 twips to its pixel, whatever the screen. A step that leads to no size
/// at all is taken like any other: nothing is to be seen then until one zooms in again.
class ImageView {
public:
  static constexpr TwipsSize box{10215, 6735};
  static constexpr double step = 0.25;

  void fit(PixelSize picture);    ///< another picture, as large as it is wholly in sight
  void resize(PixelSize picture); ///< it has other sides now; the factor stays

  /// False where the factor stays as it is: up from 4, down from 0.1.
  bool zoomIn();
  bool zoomOut();
  void originalSize(); ///< factor 1 in the whole box, whatever the picture measures

  [[nodiscard]] double factor() const { return factor_; }
  [[nodiscard]] TwipsSize size() const { return size_; } ///< of what shows the picture
  [[nodiscard]] ScrollBars scrollBars() const { return scrollBars_; }
  [[nodiscard]] TwipsSize pictureSize() const; ///< magnified
  [[nodiscard]] bool isNothingInSight() const;

  [[nodiscard]] TwipsPoint scroll() const { return scroll_; }
  [[nodiscard]] TwipsPoint mostScroll() const;
  void scrollTo(TwipsPoint place);

  /// From what shows the picture to the picture's pixels, and back.
  [[nodiscard]] PixelPoint toPicture(TwipsPoint place) const;
  [[nodiscard]] TwipsPoint fromPicture(PixelPoint pixel) const;

private:
  void zoomTo(double factor);
  void setView();
  void showWhole();
  [[nodiscard]] PixelPoint middle() const;
  void scrollToMiddle(PixelPoint pixel);

  PixelSize picture_;
  double factor_ = 1;
  TwipsSize size_;
  ScrollBars scrollBars_ = ScrollBars::None;
  TwipsPoint scroll_;
};

} // namespace hearthbook
