#include "SoundIcon.h"

#include "Look.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace hearthbook {

namespace {

/// In a square of 100 units: two heads, two stems and the beam that joins them.
QPainterPath twoQuavers() {
  QPainterPath note;
  note.setFillRule(Qt::WindingFill);
  note.addEllipse(QPointF(27, 76), 15, 11);
  note.addEllipse(QPointF(73, 68), 15, 11);
  note.addRect(QRectF(35, 22, 7, 54));
  note.addRect(QRectF(81, 14, 7, 54));
  note.addPolygon(QPolygonF({{35, 22}, {88, 12}, {88, 28}, {35, 38}, {35, 22}}));
  return note;
}

} // namespace

QIcon soundIcon() {
  constexpr int side = 128; // large enough for the largest screen
  QPixmap paper(side, side);
  paper.fill(Qt::transparent);
  QPainter painter(&paper);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(side / 100.0, side / 100.0);
  painter.fillPath(twoQuavers(), look::darkRed);
  return {paper};
}

} // namespace hearthbook
