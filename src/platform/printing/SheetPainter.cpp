#include "SheetPainter.h"

#include "SheetText.h"
#include "Text.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

namespace hearthbook {

namespace {

QRectF rectOf(TwipsRect place) { return {place.left, place.top, place.width, place.height}; }

void paintPicture(QPainter& painter, TwipsRect place, const QImage& pixels) {
  if (!pixels.isNull() && place.width > 0 && place.height > 0)
    painter.drawImage(rectOf(place), pixels);
}

void paintLine(QPainter& painter, const SheetLine& line) {
  const QString text = toQString(line.text);
  const QFontMetricsF metrics(painter.font());
  if (line.overPicture)
    painter.fillRect(
        QRectF(line.at.x, line.at.y, metrics.horizontalAdvance(text), metrics.height()), Qt::white);
  painter.drawText(QPointF(line.at.x, line.at.y + metrics.ascent()), text);
}

} // namespace

void paintSheet(QPainter& painter, const PrintSheet& sheet,
                const std::function<QImage(std::size_t picture)>& pixelsOf) {
  painter.save();
  painter.translate(sheet.origin.x, sheet.origin.y);
  painter.setFont(sheetFont());
  painter.setPen(Qt::black);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  std::size_t pictures = 0;
  for (const PaintOperation& operation : sheet.operations) {
    if (const auto* line = std::get_if<SheetLine>(&operation)) {
      paintLine(painter, *line);
      continue;
    }
    paintPicture(painter, std::get<SheetPicture>(operation).place, pixelsOf(pictures++));
  }
  painter.restore();
}

} // namespace hearthbook
