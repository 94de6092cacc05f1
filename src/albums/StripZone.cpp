#include "StripZone.h"

#include "Look.h"

#include <QPainter>
#include <QPolygonF>

namespace hearthbook {

StripZone::StripZone(Way way, QWidget* parent) : QWidget(parent), way_(way) {}

void StripZone::setMore(bool isMore) {
  isMore_ = isMore;
  update();
}

void StripZone::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), look::linen);
  if (!isMore_)
    return;
  const double half = height() * 0.28;
  const double tip = way_ == Way::Up ? -half : half;
  const QPointF middle = QRectF(rect()).center();
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::edge);
  painter.drawPolygon(QPolygonF({middle + QPointF(-2 * half, -tip), middle + QPointF(0, tip),
                                 middle + QPointF(2 * half, -tip)}));
}

} // namespace hearthbook
