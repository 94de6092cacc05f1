#include "ElidedLabel.h"

#include <QPainter>

namespace hearthbook {

QSize ElidedLabel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect room = contentsRect();
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width());
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(room, static_cast<int>(alignment()), shown);
}

} // namespace hearthbook
