#include "StripPage.h"

#include "Look.h"
#include "StripCell.h"
#include "StripGeometry.h"

#include <QPainter>

#include <algorithm>

namespace hearthbook {

StripPage::StripPage(QWidget* parent) : Stage({stripWidth, stripViewHeight}, parent) {}

void StripPage::setView(std::size_t first, std::size_t count) {
  first_ = first;
  count_ = count;
  update();
}

void StripPage::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(QWidget::rect(), look::sheet);
  const std::size_t shown = std::min(stripInView, count_ - std::min(first_, count_));
  for (std::size_t cell = 0; cell < shown; ++cell)
    painter.fillRect(toPixels(stripCell(cell)), QColor::fromRgb(stripBand(first_ + cell)));
  painter.setPen(QPen(look::edge, 1));
  painter.drawRect(QWidget::rect().adjusted(0, 0, -1, -1));
  paintFocus(painter);
}

void StripPage::paintFocus(QPainter& painter) const {
  const auto* cell = dynamic_cast<StripCell*>(focusWidget());
  if (!cell || !cell->hasFocus())
    return;
  const auto index = static_cast<std::size_t>(cell->property("cell").toInt());
  const double width = 3 * scale();
  const double gap = 1.5 * scale();
  painter.setPen(QPen(look::darkRed, width));
  painter.drawRect(QRectF(toPixels(stripCell(index))).adjusted(-gap, -gap, gap, gap));
}

} // namespace hearthbook
