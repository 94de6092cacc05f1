#include "ZoomPanel.h"

#include "Look.h"
#include "ZoomSteps.h"

#include <QPainter>

namespace hearthbook {

ZoomPanel::ZoomPanel(QWidget* parent) : Stage(ZoomSteps::area, parent) {
  setAttribute(Qt::WA_OpaquePaintEvent); // or all that lies behind is painted at each step
}

void ZoomPanel::placeDrawn() {
  for (QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    const QRect drawn = child->geometry();
    place(child, {static_cast<double>(drawn.x() * twipsPerPixel),
                  static_cast<double>(drawn.y() * twipsPerPixel),
                  static_cast<double>(drawn.width() * twipsPerPixel),
                  static_cast<double>(drawn.height() * twipsPerPixel)});
  }
}

void ZoomPanel::paintEvent(QPaintEvent*) { QPainter(this).fillRect(QWidget::rect(), look::desk); }

void ZoomPanel::wheelEvent(QWheelEvent* event) {
  const int steps = wheel_.take(*event);
  if (steps != 0)
    Q_EMIT wheelTurned(steps, event->position());
  event->accept();
}

} // namespace hearthbook
