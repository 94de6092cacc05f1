#include "PagePhoto.h"

#include "Look.h"
#include "Stage.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace hearthbook {

PagePhoto::PagePhoto(QWidget* parent) : PictureBox(parent) {}

void PagePhoto::setSource(bool isThere) {
  hasSource_ = isThere;
  setFocusPolicy(isThere ? Qt::StrongFocus : Qt::NoFocus);
}

/// Light within dark, so that the ring is seen on every photo.
void PagePhoto::paintEvent(QPaintEvent* event) {
  PictureBox::paintEvent(event);
  if (!showsFocus_)
    return;
  const double unit = Stage::scaleOf(this);
  QPainter painter(this);
  for (const auto& [width, colour] : {std::pair{5.0, look::darkRed}, {2.0, look::onDark}}) {
    painter.setPen(QPen(colour, width * unit, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(QRectF(rect()).adjusted(5 * unit, 5 * unit, -5 * unit, -5 * unit));
  }
}

void PagePhoto::mousePressEvent(QMouseEvent* event) {
  isPressed_ = event->button() == Qt::LeftButton;
  showsFocus_ = false;
  update();
  PictureBox::mousePressEvent(event);
}

void PagePhoto::mouseReleaseEvent(QMouseEvent* event) {
  const bool wasPressed = isPressed_ && event->button() == Qt::LeftButton;
  isPressed_ = false;
  if (wasPressed && rect().contains(event->position().toPoint()))
    Q_EMIT clicked();
}

// Its first click has been told; its second one belongs to it.
void PagePhoto::mouseDoubleClickEvent(QMouseEvent* event) {
  isPressed_ = false;
  if (event->button() == Qt::LeftButton)
    Q_EMIT opened();
}

void PagePhoto::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Space:
  case Qt::Key_Select:
    Q_EMIT clicked();
    return;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    Q_EMIT opened();
    return;
  default:
    PictureBox::keyPressEvent(event);
  }
}

void PagePhoto::focusInEvent(QFocusEvent* event) {
  const Qt::FocusReason reason = event->reason();
  if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
    showsFocus_ = reason != Qt::MouseFocusReason;
  PictureBox::focusInEvent(event);
  update();
}

void PagePhoto::focusOutEvent(QFocusEvent* event) {
  PictureBox::focusOutEvent(event);
  if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
    showsFocus_ = false;
  update();
}

} // namespace hearthbook
