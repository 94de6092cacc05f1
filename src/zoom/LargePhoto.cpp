#include "LargePhoto.h"

#include "PictureImage.h"
#include "ZoomSteps.h"

#include <QGestureEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPinchGesture>
#include <QWheelEvent>

#include <cstdlib>
#include <utility>

namespace hearthbook {

namespace {

constexpr int wheelStep = 120;
constexpr int smoothlyPainted = 1'000'000; // pixels that are stretched well within a frame

} // namespace

LargePhoto::LargePhoto(QWidget* parent) : PictureBox(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  grabGesture(Qt::PinchGesture);
}

void LargePhoto::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRect seen = event->rect();
  if (!hasPicture() || size().isEmpty()) {
    painter.fillRect(seen, palette().window());
    return;
  }
  const QImage image = toImage(picture());
  const double across = image.width() / static_cast<double>(width());
  const double down = image.height() / static_cast<double>(height());
  const QRectF source(seen.left() * across, seen.top() * down, seen.width() * across,
                      seen.height() * down);
  const bool isExact = picture().size() == wantedSize();
  const int pixels = seen.width() * seen.height();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, !isExact && pixels <= smoothlyPainted);
  painter.drawImage(QRectF(seen), image, source);
}

void LargePhoto::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  PictureBox::mousePressEvent(event);
}

void LargePhoto::mouseMoveEvent(QMouseEvent* event) {
  Q_EMIT mouseMoved(event->position(), event->buttons().testFlag(Qt::LeftButton));
}

void LargePhoto::wheelEvent(QWheelEvent* event) {
  turned_ += event->angleDelta().y();
  const int steps = turned_ / wheelStep;
  turned_ -= steps * wheelStep;
  if (steps != 0)
    Q_EMIT stepAsked(steps, event->position());
  event->accept();
}

bool LargePhoto::event(QEvent* event) {
  if (event->type() != QEvent::Gesture)
    return PictureBox::event(event);
  if (auto* gesture = static_cast<QGestureEvent*>(event)->gesture(Qt::PinchGesture))
    pinch(*static_cast<QPinchGesture*>(gesture));
  return true;
}

void LargePhoto::pinch(QPinchGesture& gesture) {
  if (gesture.state() == Qt::GestureStarted)
    pinched_ = 1;
  pinched_ *= gesture.scaleFactor();
  const QPointF middle = mapFromGlobal(gesture.centerPoint());
  if (pinched_ >= ZoomSteps::step)
    Q_EMIT stepAsked(1, middle);
  else if (pinched_ <= 1 / ZoomSteps::step)
    Q_EMIT stepAsked(-1, middle);
  else
    return;
  pinched_ = 1;
}

} // namespace hearthbook
