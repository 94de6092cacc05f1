#include "StripPointer.h"

#include "Look.h"

#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace hearthbook {

namespace {

constexpr double pointerSide = 40; // pixels, where the stage is not scaled
constexpr double largest = 3;

void paintArrow(QPainter& painter) {
  painter.setPen(QPen(look::ink, 1.2));
  painter.setBrush(look::sheet);
  painter.drawPolygon(QPolygonF(
      {{1, 1}, {1, 17}, {4.8, 13.4}, {7.6, 20}, {10.4, 18.8}, {7.6, 12.4}, {12.6, 12.2}}));
}

/// A hill under a sky, with a white edge.
void paintPrint(QPainter& painter) {
  const QRectF print(12, 15, 26, 21);
  const QRectF scene = print.adjusted(2.5, 2.5, -2.5, -2.5);
  painter.setPen(QPen(look::edge, 1));
  painter.setBrush(look::sheet);
  painter.drawRect(print);
  painter.setPen(Qt::NoPen);
  painter.fillRect(scene, QColor(0x9c, 0xc4, 0xdc));
  painter.setClipRect(scene);
  painter.setBrush(QColor(0x6d, 0x96, 0x55));
  painter.drawEllipse(QPointF(scene.left() + 6, scene.bottom() + 4), 13, 9);
  painter.drawEllipse(QPointF(scene.right() - 3, scene.bottom() + 5), 12, 9);
  painter.setClipping(false);
}

void paintBar(QPainter& painter) {
  const QPointF middle(25, 25.5);
  const double radius = 8;
  const double across = radius * std::sqrt(0.5);
  painter.setPen(QPen(look::darkRed, 3));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(middle, radius, radius);
  painter.drawLine(middle - QPointF(across, across), middle + QPointF(across, across));
}

} // namespace

QCursor stripPointer(StripPointer kind, double scale) {
  const double drawn = std::clamp(scale, 1.0, largest);
  const int side = static_cast<int>(std::lround(pointerSide * drawn));
  QPixmap pixels(side, side);
  pixels.fill(Qt::transparent);
  QPainter painter(&pixels);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(drawn, drawn);
  paintPrint(painter);
  if (kind == StripPointer::NoDrop)
    paintBar(painter);
  paintArrow(painter);
  painter.end();
  const int tip = static_cast<int>(std::lround(drawn));
  return QCursor(pixels, tip, tip);
}

} // namespace hearthbook
