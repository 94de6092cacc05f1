#include "TransportIcons.h"

#include "Look.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace hearthbook {

namespace {

// All in a square of 100 units.

QPainterPath polygon(const QPolygonF& corners) {
  QPainterPath path;
  path.addPolygon(corners);
  path.closeSubpath();
  return path;
}

QPainterPath bar(double left, double top, double width, double height) {
  QPainterPath path;
  path.addRect(QRectF(left, top, width, height));
  return path;
}

QPainterPath forward(double left) { return polygon({{left, 18}, {left + 50, 50}, {left, 82}}); }

QPainterPath mirrored(const QPainterPath& path) {
  return QTransform(-1, 0, 0, 1, 100, 0).map(path);
}

QPainterPath roundedBar(double left, double top, double width, double height) {
  QPainterPath path;
  path.addRoundedRect(QRectF(left, top, width, height), width / 2, width / 2);
  return path;
}

QPainterPath stroked(const QPainterPath& line) {
  QPainterPathStroker stroker;
  stroker.setWidth(8);
  stroker.setCapStyle(Qt::RoundCap);
  return stroker.createStroke(line);
}

QPainterPath arc(const QRectF& circle, double start, double sweep) {
  QPainterPath line;
  line.arcMoveTo(circle, start);
  line.arcTo(circle, start, sweep);
  return stroked(line);
}

QPainterPath loudspeaker() {
  return polygon({{10, 36}, {28, 36}, {52, 14}, {52, 86}, {28, 64}, {10, 64}}) +
         arc({30, 26, 48, 48}, -45, 90) + arc({16, 10, 80, 80}, -45, 90);
}

QPainterPath microphone() {
  return roundedBar(36, 8, 28, 50) + arc({24, 22, 52, 50}, 180, 180) + bar(46, 70, 8, 16) +
         bar(30, 84, 40, 8);
}

QPainterPath disc() {
  QPainterPath path;
  path.addEllipse(QPointF(50, 50), 34, 34);
  return path;
}

QPainterPath shapeOf(TransportSymbol symbol) {
  switch (symbol) {
  case TransportSymbol::ToStart:
    return mirrored(forward(26) + bar(76, 18, 10, 64));
  case TransportSymbol::Play:
    return polygon({{24, 12}, {86, 50}, {24, 88}});
  case TransportSymbol::Pause:
    return bar(24, 16, 18, 68) + bar(58, 16, 18, 68);
  case TransportSymbol::Stop:
    return bar(20, 20, 60, 60);
  case TransportSymbol::ToEnd:
    return forward(26) + bar(76, 18, 10, 64);
  case TransportSymbol::Record:
    return disc();
  case TransportSymbol::Eject:
    return polygon({{50, 16}, {86, 58}, {14, 58}}) + bar(14, 68, 72, 16);
  case TransportSymbol::Loudspeaker:
    return loudspeaker();
  case TransportSymbol::Microphone:
    return microphone();
  }
  return {};
}

QPixmap drawn(const QPainterPath& shape, const QColor& colour) {
  constexpr int side = 128; // large enough for the largest screen
  QPixmap paper(side, side);
  paper.fill(Qt::transparent);
  QPainter painter(&paper);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(side / 100.0, side / 100.0);
  painter.fillPath(shape, colour);
  return paper;
}

} // namespace

QIcon transportIcon(TransportSymbol symbol) {
  QPainterPath shape = shapeOf(symbol);
  shape.setFillRule(Qt::WindingFill);
  const bool isRecord = symbol == TransportSymbol::Record;
  QIcon icon(drawn(shape, isRecord ? QColor(0xb0, 0x1c, 0x14) : look::ink));
  QColor faded = look::fadedInk;
  faded.setAlphaF(0.5F);
  icon.addPixmap(drawn(shape, faded), QIcon::Disabled);
  return icon;
}

} // namespace hearthbook
