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
    connect(bar, &QScrollBar::valueChanged, this, [this] {
      placeFrame();
      update();
    });
}

QSize RegionView::sizeHint() const {
  constexpr QSize comfortable(480, 400);
  return comfortable;
}

void RegionView::showPhoto(const Picture& photo, PixelSize box) { show(photo, box); }

void RegionView::showOnly(const Picture& picture) { show(picture, std::nullopt); }

void RegionView::clear() { show({}, std::nullopt); }

void RegionView::show(const Picture& picture, std::optional<PixelSize> box) {
  photo_ = picture;
  box_ = box;
  enlarged_ = 1;
  pressed_.reset();
  setCursor(box ? Qt::CrossCursor : Qt::ArrowCursor);
  layOut();
  setRegion(box ? wholeRegion(picture.size(), *box) : PixelRect{});
}

void RegionView::setRegion(const PixelRect& region) {
  region_ = region;
  placeFrame();
  update();
  Q_EMIT regionChanged();
}

double RegionView::scale() const {
  return enlarged_ * std::min(static_cast<double>(width()) / photo_.width(),
                              static_cast<double>(height()) / photo_.height());
}

QSizeF RegionView::shownSize() const { return QSizeF(photo_.width(), photo_.height()) * scale(); }

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
  const bool empty = photo_.isNull() || size().isEmpty();
  const QSizeF shown = empty ? QSizeF() : shownSize();
  const auto spread = [](QScrollBar* bar, double content, int room) {
    bar->setRange(0, std::max(0, static_cast<int>(std::ceil(content)) - room));
    bar->setPageStep(room);
    bar->setSingleStep(std::max(1, room / 20));
    bar->setEnabled(bar->maximum() > 0);
  };
  spread(across_, shown.width(), width());
  spread(down_, shown.height(), height());
  whole_ = empty ? QImage()
                 : toImage(photo_).scaled((shown / enlarged_ * devicePixelRatioF()).toSize(),
                                          Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  placeFrame();
  update();
}

void RegionView::placeFrame() {
  const bool marked = !photo_.isNull() && !region_.isEmpty();
  frame_->setVisible(marked);
  if (marked)
    frame_->setGeometry(regionInView().toAlignedRect());
}

void RegionView::enlarge(double factor) {
  if (photo_.isNull())
    return;
  const QPointF middle(width() / 2.0, height() / 2.0);
  const PhotoPoint kept = toPhoto(middle);
  enlarged_ = std::clamp(enlarged_ * factor, 1.0, mostEnlarged);
  layOut();
  across_->setValue(static_cast<int>(std::lround(kept.x * scale() - middle.x())));
  down_->setValue(static_cast<int>(std::lround(kept.y * scale() - middle.y())));
}

void RegionView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), look::desk);
  if (photo_.isNull())
    return;
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(corner(), shownSize()), enlarged_ > 1 ? toImage(photo_) : whole_);
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
  const PixelRect drawn = drawnRegion(*pressed_, toPhoto(event->position()), photo_.size(), *box_);
  if (!drawn.isEmpty())
    setRegion(drawn);
}

void RegionView::mouseReleaseEvent(QMouseEvent*) { pressed_.reset(); }

void RegionView::wheelEvent(QWheelEvent* event) {
  enlarge(event->angleDelta().y() > 0 ? growth : 1 / growth);
  event->accept();
}

void RegionView::keyPressEvent(QKeyEvent* event) {
  if (!box_)
    return QWidget::keyPressEvent(event);
  const int step =
      std::max(1, static_cast<int>(keyStep * std::max(photo_.width(), photo_.height())));
  switch (event->key()) {
  case Qt::Key_Left:
    return setRegion(movedRegion(region_, -step, 0, photo_.size()));
  case Qt::Key_Right:
    return setRegion(movedRegion(region_, step, 0, photo_.size()));
  case Qt::Key_Up:
    return setRegion(movedRegion(region_, 0, -step, photo_.size()));
  case Qt::Key_Down:
    return setRegion(movedRegion(region_, 0, step, photo_.size()));
  case Qt::Key_Plus:
    return setRegion(scaledRegion(region_, growth, photo_.size(), *box_));
  case Qt::Key_Minus:
    return setRegion(scaledRegion(region_, 1 / growth, photo_.size(), *box_));
  default:
    return QWidget::keyPressEvent(event);
  }
}

} // namespace hearthbook
