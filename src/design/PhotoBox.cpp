#include "PhotoBox.h"

#include "Look.h"
#include "PictureImage.h"

#include <QPainter>

#include <utility>

namespace hearthbook {

PhotoBox::PhotoBox(Fit fit, QString hint, QWidget* parent)
    : QAbstractButton(parent), fit_(fit), hint_(std::move(hint)) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
}

void PhotoBox::setPicture(const Picture& picture) {
  picture_ = picture;
  prepared_ = {};
  update();
}

QSize PhotoBox::sizeHint() const {
  constexpr int side = 60;
  return {side, side};
}

QRect PhotoBox::pictureRect() const {
  if (fit_ == Fit::Fills)
    return rect();
  constexpr int edge = 4;
  const QSize own(picture_.width(), picture_.height());
  QRect place(QPoint(), own.scaled(size() - QSize(2 * edge, 2 * edge), Qt::KeepAspectRatio));
  place.moveCenter(rect().center());
  return place;
}

void PhotoBox::paintPicture(QPainter& painter) {
  const QRect place = pictureRect();
  const QSize pixels = place.size() * devicePixelRatioF();
  if (prepared_.size() != pixels) {
    prepared_ = QPixmap::fromImage(
        toImage(picture_).scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    prepared_.setDevicePixelRatio(devicePixelRatioF());
  }
  painter.drawPixmap(place.topLeft(), prepared_);
}

void PhotoBox::paintEmpty(QPainter& painter) const {
  if (hint_.isEmpty())
    return;
  painter.fillRect(rect(), look::linen);
  painter.setPen(QPen(look::edge, 1, Qt::DashLine));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.setPen(look::quietInk);
  painter.drawText(rect().adjusted(6, 6, -6, -6), Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

void PhotoBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (picture_.isNull() || pictureRect().isEmpty())
    paintEmpty(painter);
  else
    paintPicture(painter);
  if (!isEnabled() || (!hasFocus() && !underMouse()))
    return;
  constexpr int thickness = 3;
  painter.setPen(QPen(look::darkRed, hasFocus() ? thickness : 1));
  painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

void PhotoBox::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void PhotoBox::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

} // namespace hearthbook
