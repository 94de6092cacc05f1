#include "LargePhoto.h"

#include "Look.h"
#include "PictureImage.h"
#include "ZoomSteps.h"

#include <QGestureEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPinchGesture>
#include <QTextOption>

namespace hearthbook {

namespace {

// Pixels that are stretched smoothly: well within a frame while others are being decoded, and
// as many as the zoom view has on the largest screens.
constexpr int smoothMeanwhile = 1'000'000;
constexpr int smoothForGood = 5'000'000;

} // namespace

LargePhoto::LargePhoto(QWidget* parent) : PictureBox(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  grabGesture(Qt::PinchGesture);
}

void LargePhoto::setNote(const QString& note) {
  if (note_ == note)
    return;
  note_ = note;
  setToolTip(note);
  update();
}

void LargePhoto::expectFiner(bool expected) {
  if (expectsFiner_ == expected)
    return;
  expectsFiner_ = expected;
  update();
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
  const int most = expectsFiner_ ? smoothMeanwhile : smoothForGood;
  painter.setRenderHint(QPainter::SmoothPixmapTransform, !isExact && pixels <= most);
  painter.drawImage(QRectF(seen), image, source);
  if (!note_.isEmpty())
    paintNote(painter);
}

void LargePhoto::paintNote(QPainter& painter) const {
  const double margin = painter.fontMetrics().height() / 2.0;
  QTextOption words(Qt::AlignHCenter | Qt::AlignBottom);
  words.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  const QRectF room = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
  const QRectF text = painter.boundingRect(room, note_, words);
  painter.fillRect(QRectF(rect()).adjusted(0, text.top() - margin, 0, 0), look::panelYellow);
  painter.setPen(look::ink);
  painter.drawText(room, note_, words);
}

void LargePhoto::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  PictureBox::mousePressEvent(event);
}

void LargePhoto::mouseMoveEvent(QMouseEvent* event) {
  Q_EMIT mouseMoved(event->position(), event->buttons().testFlag(Qt::LeftButton));
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
    spread_ = 1;
  spread_ *= gesture.scaleFactor();
  const QPointF middle = mapFromGlobal(gesture.centerPoint());
  if (spread_ >= ZoomSteps::step)
    Q_EMIT pinched(1, middle);
  else if (spread_ <= 1 / ZoomSteps::step)
    Q_EMIT pinched(-1, middle);
  else
    return;
  spread_ = 1;
}

} // namespace hearthbook
