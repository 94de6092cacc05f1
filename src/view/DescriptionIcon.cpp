#include "DescriptionIcon.h"

#include "Look.h"

#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

namespace hearthbook {

// In a square of 100 units: a sheet with a turned corner, and lines of writing on it.
QIcon descriptionIcon() {
  constexpr int side = 128; // large enough for the largest screen
  QPixmap paper(side, side);
  paper.fill(Qt::transparent);
  QPainter painter(&paper);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(side / 100.0, side / 100.0);
  painter.setPen(QPen(look::darkRed, 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(look::sheet);
  painter.drawPolygon(QPolygonF({{18, 8}, {62, 8}, {84, 30}, {84, 92}, {18, 92}}));
  painter.drawPolyline(QPolygonF({{62, 8}, {62, 30}, {84, 30}}));
  for (const double y : {47.0, 61.0, 75.0})
    painter.drawLine(QPointF(33, y), QPointF(y > 70 ? 55 : 69, y));
  return {paper};
}

} // namespace hearthbook
