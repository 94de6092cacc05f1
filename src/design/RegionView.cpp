#include "RegionView.h"

#include "Look.h"
#include "PictureImage.h"

#include <QFrame>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace hearthbook {

namespace {

constexpr double mostEnlarged = 8;
constexpr double keyStep = 0.02; // of the photo's longer side
constexpr double growth = 1.1;

} // namespace

RegionView::RegionView(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void RegionView::setParts(QScrollBar* across, QScrollBar* down, QFrame* frame) {
  across_ = across;
  down_ = down;
  frame_ = frame;
  frame_->setAttribute(Qt::WA_TransparentForMouseEvents);
  frame_->hide();
  for (QScrollBar* bar : {across_, down_})
    connect(bar, &QScrollBar::valueChanged, this, &RegionView::photoMoved);
}

QSize RegionView::sizeHint() const {
  constexpr QSize comfortable(480, 400);
  return comfortable;
}

void RegionView::showPhoto(const PhotoLevels& photo, PixelSize box) { take(photo, box); }

void RegionView::showOnly(const Picture& picture) { take(PhotoLevels(picture), std::nullopt); }

void RegionView::clear() { take({}, std::nullopt); }

void RegionView::take(const PhotoLevels& photo, std::optional<PixelSize> box) {
  levels_ = photo;
  box_ = box;
  enlarged_ = 1;
  pressed_.reset();
  setCursor(box ? Qt::CrossCursor : Qt::ArrowCursor);
  layOut();
  setRegion(box ? wholeRegion(photo.photo().size(), *box) : PixelRect{});
}

void RegionView::setRegion(const PixelRect& region) {
  region_ = region;
  placeFrame();
  update();
  Q_EMIT regionChanged();
}

double RegionView::scale() const {
  return enlarged_ * std::min(static_cast<double>(width()) / photo().width(),
                              static_cast<double>(height()) / photo().height());
}

QSizeF RegionView::shownSize() const { return QSizeF(photo().width(), photo().height()) * scale(); }

/// Where the photo begins: in the middle where it is smaller than the view.
QPointF RegionView::corner() const {
  const QSizeF shown = shownSize();
  return {shown.width() <= width() ? (width() - shown.width()) / 2 : -across_->value(),
          shown.height() <= height() ? (height() - shown.height()) / 2 : -down_->value()};
}

PhotoPoint RegionView::toPhoto(QPointF position) const {
  const QPointF inside = (position - corner()) / scale();
  return {inside.x(), inside.y()};
}

QPointF RegionView::toView(PhotoPoint point) const {
  return corner() + QPointF(point.x, point.y) * scale();
}

QRectF RegionView::regionInView() const {
  return {toView({static_cast<double>(region_.left), static_cast<double>(region_.top)}),
          QSizeF(region_.width, region_.height) * scale()};
}

void RegionView::layOut() {
  const QSizeF shown = photo().isNull() ? QSizeF(0, 0) : shownSize();
  const auto spread = [](QScrollBar* bar, double content, int room) {
    bar->setRange(0, std::max(0, static_cast<int>(std::ceil(content)) - room));
    bar->setPageStep(room);
    bar->setSingleStep(std::max(1, room / 20));
    bar->setEnabled(bar->maximum() > 0);
  };
  spread(across_, shown.width(), width());
  spread(down_, shown.height(), height());
  photoMoved();
}

void RegionView::photoMoved() {
  seen_ = {};
  placeFrame();
  update();
}

void RegionView::placeFrame() {
  const bool marked = !photo().isNull() && !region_.isEmpty();
  frame_->setVisible(marked);
  if (marked)
    frame_->setGeometry(regionInView().toAlignedRect());
}

void RegionView::enlarge(double factor, QPointF kept) {
  if (photo().isNull())
    return;
  const PhotoPoint there = toPhoto(kept);
  enlarged_ = std::clamp(enlarged_ * factor, 1.0, mostEnlarged);
  layOut();
  across_->setValue(static_cast<int>(std::lround(there.x * scale() - kept.x())));
  down_->setValue(static_cast<int>(std::lround(there.y * scale() - kept.y())));
}

/// From the pixels that there are for this size, as many of them as are in sight.
void RegionView::paintPhoto() {
  seen_ = QPixmap(size() * devicePixelRatioF());
  seen_.setDevicePixelRatio(devicePixelRatioF());
  seen_.fill(look::desk);
  const QRectF shown(corner(), shownSize());
  const QRectF inSight = shown & QRectF(rect());
  const QImage image = toImage(levels_.atLeast(shown.width() * devicePixelRatioF()));
  const double across = image.width() / shown.width();
  const double down = image.height() / shown.height();
  QPainter painter(&seen_);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(inSight, image,
                    QRectF((inSight.left() - shown.left()) * across,
                           (inSight.top() - shown.top()) * down, inSight.width() * across,
                           inSight.height() * down));
}

void RegionView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (photo().isNull())
    return painter.fillRect(rect(), look::desk);
  if (seen_.isNull())
    paintPhoto();
  painter.drawPixmap(0, 0, seen_);
  if (region_.isEmpty())
    return;
  QPainterPath left; // what does not go into the box is dimmed
  left.addRect(QRectF(corner(), shownSize()));
  left.addRect(regionInView());
  painter.fillPath(left, QColor(0, 0, 0, 110));
}

void RegionView::resizeEvent(QResizeEvent*) {
  if (frame_)
    layOut();
}

void RegionView::mousePressEvent(QMouseEvent* event) {
  if (box_ && event->button() == Qt::LeftButton)
    pressed_ = toPhoto(event->position());
}

void RegionView::mouseMoveEvent(QMouseEvent* event) {
  if (!pressed_)
    return;
  const PixelRect drawn = drawnRegion(*pressed_, toPhoto(event->position()), photo().size(), *box_);
  if (!drawn.isEmpty())
    setRegion(drawn);
}

void RegionView::mouseReleaseEvent(QMouseEvent*) { pressed_.reset(); }

void RegionView::wheelEvent(QWheelEvent* event) {
  const double notches =
      event->angleDelta().y() / static_cast<double>(QWheelEvent::DefaultDeltasPerStep);
  enlarge(std::pow(growth, notches), event->position()); // a touch pad tells parts of a notch
  event->accept();
}

bool RegionView::enlargeByKey(const QKeyEvent& event) {
  const bool larger = event.key() == Qt::Key_Plus || event.key() == Qt::Key_Equal;
  if (!event.modifiers().testFlag(Qt::ControlModifier) || (!larger && event.key() != Qt::Key_Minus))
    return false;
  enlarge(larger ? growth : 1 / growth, QRectF(rect()).center());
  return true;
}

void RegionView::keyPressEvent(QKeyEvent* event) {
  if (enlargeByKey(*event))
    return;
  if (!box_)
    return QWidget::keyPressEvent(event);
  const int step =
      std::max(1, static_cast<int>(keyStep * std::max(photo().width(), photo().height())));
  switch (event->key()) {
  case Qt::Key_Left:
    return setRegion(movedRegion(region_, -step, 0, photo().size()));
  case Qt::Key_Right:
    return setRegion(movedRegion(region_, step, 0, photo().size()));
  case Qt::Key_Up:
    return setRegion(movedRegion(region_, 0, -step, photo().size()));
  case Qt::Key_Down:
    return setRegion(movedRegion(region_, 0, step, photo().size()));
  case Qt::Key_Plus:
    return setRegion(scaledRegion(region_, growth, photo().size(), *box_));
  case Qt::Key_Minus:
    return setRegion(scaledRegion(region_, 1 / growth, photo().size(), *box_));
  default:
    return QWidget::keyPressEvent(event);
  }
}

} // namespace hearthbook
