#pragma once

#include "ImageEdit.h"

#include <QPointF>
#include <QRectF>

class QWidget;

namespace hearthbook {

/// Where the pixels of a page are in a widget of the form that shows it.
class PagePlaces {
public:
  PagePlaces(const ImageEdit& edit, const QWidget& widget);

  [[nodiscard]] double perPixel() const; ///< the widget's pixels to one of the page; perhaps 0
  [[nodiscard]] QPointF toWidget(PixelPoint place) const;
  [[nodiscard]] QRectF toWidget(const PixelRect& rect) const;
  [[nodiscard]] PixelPoint toPage(QPointF place) const;

private:
  const ImageView& view_;
  double pixelsPerTwip_;
};

} // namespace hearthbook
