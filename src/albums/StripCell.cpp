#include "StripCell.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>

#include <utility>

namespace hearthbook {

StripCell::StripCell(QWidget* parent) : PictureBox(parent) {}

void StripCell::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton)
    pressedAt_ = event->globalPosition().toPoint();
}

void StripCell::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton))
    return event->ignore();
  const QPoint at = event->globalPosition().toPoint();
  isPulled_ = isPulled_ || (at - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
  if (isPulled_)
    Q_EMIT pulled(at);
}

void StripCell::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && std::exchange(isPulled_, false))
    Q_EMIT letGo(event->globalPosition().toPoint());
}

void StripCell::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
  Q_EMIT menuAsked(byKeyboard ? mapToGlobal(rect().center()) : event->globalPos());
}

void StripCell::focusInEvent(QFocusEvent*) { Q_EMIT focusChanged(); }

void StripCell::focusOutEvent(QFocusEvent*) { Q_EMIT focusChanged(); }

} // namespace hearthbook
