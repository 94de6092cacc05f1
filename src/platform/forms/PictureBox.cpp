#include "PictureBox.h"

#include "PictureImage.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>

namespace hearthbook {

namespace {

/// A screen reader meets a picture, not a pane.
QAccessibleInterface* makeAccessiblePicture(const QString&, QObject* object) {
  auto* box = qobject_cast<PictureBox*>(object);
  return box ? new QAccessibleWidget(box, QAccessible::Graphic) : nullptr;
}

void installAccessiblePicture() {
  static const bool installed = [] {
    QAccessible::installFactory(makeAccessiblePicture);
    return true;
  }();
  static_cast<void>(installed);
}

} // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) { installAccessiblePicture(); }

void PictureBox::setPicture(const Picture& picture) {
  picture_ = picture;
  prepared_ = {};
  update();
}

void PictureBox::clear() { setPicture({}); }

void PictureBox::placeIn(QRect room) {
  const QSize size =
      QSize(picture_.width(), picture_.height()).scaled(room.size(), Qt::KeepAspectRatio);
  QRect place(QPoint(), size.expandedTo({1, 1}));
  place.moveCenter(room.center());
  setGeometry(place);
}

PixelSize PictureBox::wantedSize() const {
  const QSizeF pixels = QSizeF(size()) * devicePixelRatioF();
  return {qRound(pixels.width()), qRound(pixels.height())};
}

void PictureBox::prepare() {
  const QSize wanted(wantedSize().width, wantedSize().height);
  if (prepared_.size() == wanted)
    return;
  QImage image = toImage(picture_);
  if (image.size() != wanted)
    image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  prepared_ = QPixmap::fromImage(image);
  prepared_.setDevicePixelRatio(devicePixelRatioF());
}

void PictureBox::paintEvent(QPaintEvent*) {
  if (!hasPicture() || size().isEmpty())
    return;
  prepare();
  QPainter(this).drawPixmap(0, 0, prepared_);
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
  Q_EMIT pressed(event->position(), event->button());
}

} // namespace hearthbook
