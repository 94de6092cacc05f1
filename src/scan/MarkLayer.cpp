#include "MarkLayer.h"

#include "PagePlaces.h"
#include "RegionButtons.h"
#include "Stage.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <array>

namespace hearthbook {

namespace {

const QColor selectionRed{255, 0, 0};
constexpr double handleSide = 8; // standard pixels
constexpr double handleReach = 7;
constexpr double leastPull = 3; // pixels; below it a press was no drawing
constexpr int wheelStep = 120;
constexpr double scrollStep = 600; // twips to a step of the wheel or an arrow

Qt::CursorShape shapeOf(Handle handle) {
  switch (handle) {
  case Handle::TopLeft:
  case Handle::BottomRight:
    return Qt::SizeFDiagCursor;
  case Handle::TopRight:
  case Handle::BottomLeft:
    return Qt::SizeBDiagCursor;
  case Handle::Top:
  case Handle::Bottom:
    return Qt::SizeVerCursor;
  case Handle::Left:
  case Handle::Right:
    return Qt::SizeHorCursor;
  case Handle::None:
    break;
  }
  return Qt::CrossCursor;
}

QPointF directionOf(int key) {
  switch (key) {
  case Qt::Key_Left:
    return {-1, 0};
  case Qt::Key_Right:
    return {1, 0};
  case Qt::Key_Up:
    return {0, -1};
  case Qt::Key_Down:
    return {0, 1};
  default:
    return {};
  }
}

/// A screen reader meets a picture, not a pane.
QAccessibleInterface* makeAccessiblePage(const QString&, QObject* object) {
  auto* layer = qobject_cast<MarkLayer*>(object);
  return layer ? new QAccessibleWidget(layer, QAccessible::Graphic) : nullptr;
}

void installAccessiblePage() {
  static const bool installed = [] {
    QAccessible::installFactory(makeAccessiblePage);
    return true;
  }();
  static_cast<void>(installed);
}

} // namespace

MarkLayer::MarkLayer(QWidget* parent) : QWidget(parent), buttons_(new RegionButtons(*this)) {
  installAccessiblePage();
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::CrossCursor);
}

bool MarkLayer::hasPage() const { return edit_ && isUsable_ && !edit_->isEmpty(); }

void MarkLayer::setUsable(bool usable) {
  isUsable_ = usable;
  if (!usable)
    isPulling_ = false;
  buttons_->setUsable(usable);
}

void MarkLayer::setPage(ImageEdit& edit) {
  edit_ = &edit;
  connect(buttons_, &RegionButtons::pressed, this, &MarkLayer::buttonPressed);
}

void MarkLayer::showChanged() {
  if (edit_)
    buttons_->show(*edit_);
  update();
}

void MarkLayer::changed() {
  showChanged();
  Q_EMIT selecting();
}

double MarkLayer::reach() const {
  const PagePlaces places(*edit_, *this);
  return handleReach * Stage::scaleOf(this) / std::max(places.perPixel(), 1e-9);
}

// ---- the mouse

void MarkLayer::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  if (!edit_ || edit_->isEmpty() || edit_->view().factor() <= 0 ||
      event->button() != Qt::LeftButton)
    return;
  if (!isUsable_) { // who is quick has begun the next rectangle while the last one is saved
    pressedAt_ = event->position();
    return;
  }
  const PixelPoint place = PagePlaces(*edit_, *this).toPage(event->position());
  const Handle handle = edit_->selection().handleAt(place, reach());
  if (handle == Handle::None) {
    pressedAt_ = event->position();
    return;
  }
  edit_->selection().grab(handle);
  isPulling_ = true;
}

void MarkLayer::mouseMoveEvent(QMouseEvent* event) {
  if (!hasPage())
    return;
  if (!event->buttons().testFlag(Qt::LeftButton))
    pressedAt_.reset(); // a box has taken the release
  if (pressedAt_ && (event->position() - *pressedAt_).manhattanLength() >= leastPull) {
    edit_->selection().begin(PagePlaces(*edit_, *this).toPage(*pressedAt_));
    pressedAt_.reset();
    isPulling_ = true;
  }
  if (isPulling_)
    pull(event->position());
  else
    showPointer(event->position());
}

void MarkLayer::pull(QPointF position) {
  showMore(position);
  edit_->selection().pullTo(PagePlaces(*edit_, *this).toPage(position));
  changed();
}

/// What is pulled beyond the edge of a page that goes on there takes the page along.
void MarkLayer::showMore(QPointF position) {
  const auto beyond = [](double at, int end) { return at - std::clamp<double>(at, 0, end); };
  const QPointF way(beyond(position.x(), width()), beyond(position.y(), height()));
  const double toTwips = twipsPerPixel / Stage::scaleOf(this);
  if (!way.isNull())
    Q_EMIT scrollAsked(way.x() * toTwips, way.y() * toTwips);
}

void MarkLayer::mouseReleaseEvent(QMouseEvent* event) {
  pressedAt_.reset();
  if (!isPulling_ || event->button() != Qt::LeftButton)
    return;
  isPulling_ = false;
  pull(event->position());
  edit_->endSelecting();
  showWhollyOnPage();
  changed();
}

/// Sides beyond the page could be neither seen nor taken hold of.
void MarkLayer::showWhollyOnPage() {
  if (edit_->selection().isThere())
    edit_->selection().set(edit_->selected());
}

void MarkLayer::showPointer(QPointF position) {
  const PixelPoint place = PagePlaces(*edit_, *this).toPage(position);
  setCursor(shapeOf(edit_->selection().handleAt(place, reach())));
}

void MarkLayer::wheelEvent(QWheelEvent* event) {
  event->accept();
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    const int zoomSteps = hasPage() ? wheelSteps_.take(*event) : 0;
    if (zoomSteps != 0)
      Q_EMIT zoomAsked(zoomSteps);
    return;
  }
  const double steps = event->angleDelta().y() / static_cast<double>(wheelStep);
  const double across = event->angleDelta().x() / static_cast<double>(wheelStep);
  const bool sideways = event->modifiers().testFlag(Qt::ShiftModifier);
  Q_EMIT scrollAsked(-(sideways ? steps : across) * scrollStep, sideways ? 0 : -steps * scrollStep);
}

// ---- the keyboard

void MarkLayer::keyPressEvent(QKeyEvent* event) {
  const bool isAll = event->matches(QKeySequence::SelectAll);
  if (!hasPage())
    return QWidget::keyPressEvent(event);
  if (isAll)
    return selectAll();
  if (pressArrow(event->key(), event->modifiers()))
    return;
  switch (event->key()) {
  case Qt::Key_Plus:
  case Qt::Key_Equal: // the same key, where + needs Shift
    Q_EMIT zoomAsked(1);
    return;
  case Qt::Key_Minus:
    Q_EMIT zoomAsked(-1);
    return;
  case Qt::Key_Escape:
  case Qt::Key_Delete:
    if (removeSelection())
      return;
    break;
  default:
    break;
  }
  QWidget::keyPressEvent(event);
}

/// Arrows move the rectangle, with Shift its right and lower side, with Control by ten at once;
/// without a rectangle they scroll.
bool MarkLayer::pressArrow(int key, Qt::KeyboardModifiers held) {
  const QPointF direction = directionOf(key);
  if (direction.isNull())
    return false;
  if (!edit_->selection().isThere()) {
    Q_EMIT scrollAsked(direction.x() * scrollStep, direction.y() * scrollStep);
    return true;
  }
  const QPointF way = direction * (held.testFlag(Qt::ControlModifier) ? 10 : 1);
  if (held.testFlag(Qt::ShiftModifier))
    edit_->selection().growBy(way.x(), way.y());
  else
    edit_->selection().moveBy(way.x(), way.y());
  edit_->endSelecting();
  changed();
  return true;
}

bool MarkLayer::removeSelection() {
  if (!edit_->selection().isThere())
    return false;
  edit_->selection().clear();
  changed();
  return true;
}

void MarkLayer::selectAll() {
  const PixelSize page = edit_->picture().size();
  edit_->selection().set({0, 0, page.width, page.height});
  changed();
}

/// The arrows are the rectangle's, not the dialog's.
bool MarkLayer::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && hasPage()) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (!directionOf(key->key()).isNull() || key->matches(QKeySequence::SelectAll)) {
      event->accept();
      return true;
    }
  }
  return QWidget::event(event);
}

// ---- painting

void MarkLayer::paintHandles(QPainter& painter, const QRectF& rect, double scale) {
  const double side = handleSide * scale;
  const QPointF middle = rect.center();
  const std::array<double, 3> across{rect.left(), middle.x(), rect.right()};
  const std::array<double, 3> down{rect.top(), middle.y(), rect.bottom()};
  painter.setPen(QPen(selectionRed, scale));
  painter.setBrush(Qt::white);
  for (const double x : across)
    for (const double y : down)
      if (QPointF(x, y) != middle)
        painter.drawRect(QRectF(x - side / 2, y - side / 2, side, side));
}

void MarkLayer::paintEvent(QPaintEvent*) {
  if (!edit_ || edit_->isEmpty() || edit_->view().factor() <= 0)
    return;
  const PagePlaces places(*edit_, *this);
  const double scale = Stage::scaleOf(this);
  QPainter painter(this);
  painter.setPen(QPen(selectionRed, 2 * scale));
  for (const PixelRect& mark : edit_->savedMarks())
    painter.drawRect(places.toWidget(mark));
  for (const EditElement& element : edit_->elements())
    painter.drawRect(places.toWidget(element.place));
  if (!edit_->selection().isThere())
    return;
  const QRectF rect(places.toWidget(edit_->selection().topLeft()),
                    places.toWidget(edit_->selection().bottomRight()));
  painter.drawRect(rect);
  if (!isPulling_)
    paintHandles(painter, rect, scale);
}

void MarkLayer::resizeEvent(QResizeEvent*) { showChanged(); }

} // namespace hearthbook
