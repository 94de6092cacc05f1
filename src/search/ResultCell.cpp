#include "ResultCell.h"

#include "Look.h"
#include "Stage.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <utility>

namespace hearthbook {

namespace {

/// A screen reader meets a list of photos, each selected or not, and can toggle them.
class AccessibleCell : public QAccessibleWidget {
public:
  explicit AccessibleCell(ResultCell* cell)
      : QAccessibleWidget(cell, QAccessible::ListItem), cell_(*cell) {}

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.selectable = cell_.hasPhoto();
    state.multiSelectable = cell_.hasPhoto();
    state.selected = cell_.isSelected();
    return state;
  }
  [[nodiscard]] QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (cell_.hasPhoto())
      names << toggleAction();
    return names;
  }
  void doAction(const QString& name) override {
    if (name == toggleAction())
      Q_EMIT cell_.clicked(Qt::NoModifier);
    else
      QAccessibleWidget::doAction(name);
  }

private:
  ResultCell& cell_;
};

QAccessibleInterface* makeAccessibleCell(const QString&, QObject* object) {
  auto* cell = qobject_cast<ResultCell*>(object);
  return cell ? new AccessibleCell(cell) : nullptr;
}

void installAccessibleCell() {
  static const bool installed = [] {
    QAccessible::installFactory(makeAccessibleCell);
    return true;
  }();
  static_cast<void>(installed);
}

void drawTick(QPainter& painter, double unit) {
  const QRectF badge(4 * unit, 4 * unit, 16 * unit, 16 * unit);
  painter.setPen(QPen(look::onDark, 1.2 * unit));
  painter.setBrush(look::darkRed);
  painter.drawEllipse(badge);
  QPainterPath tick(badge.topLeft() + QPointF(4.2, 8.3) * unit);
  tick.lineTo(badge.topLeft() + QPointF(7, 11.2) * unit);
  tick.lineTo(badge.topLeft() + QPointF(11.8, 5.2) * unit);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(look::onDark, 2 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(tick);
}

} // namespace

ResultCell::ResultCell(int index, QWidget* parent) : PictureBox(parent), index_(index) {
  installAccessibleCell();
}

void ResultCell::setHasPhoto(bool hasPhoto) {
  hasPhoto_ = hasPhoto;
  setCursor(hasPhoto ? Qt::PointingHandCursor : Qt::ArrowCursor);
  clear();
}

void ResultCell::setSelected(bool selected) {
  if (std::exchange(isSelected_, selected) == selected || !QAccessible::isActive())
    return;
  QAccessible::State changed;
  changed.selected = true;
  QAccessibleStateChangeEvent event(this, changed);
  QAccessible::updateAccessibility(&event);
}

void ResultCell::paintEvent(QPaintEvent* event) {
  if (hasPhoto_ && !hasPicture())
    QPainter(this).fillRect(rect(), look::linen);
  PictureBox::paintEvent(event);
}

void ResultCell::mousePressEvent(QMouseEvent*) {}

void ResultCell::mouseReleaseEvent(QMouseEvent* event) {
  const bool isSecondClick = std::exchange(isSecondClick_, false);
  if (!rect().contains(event->position().toPoint()))
    return;
  Q_EMIT clicked(event->modifiers());
  if (isSecondClick)
    Q_EMIT doubleClicked();
}

void ResultCell::mouseDoubleClickEvent(QMouseEvent*) { isSecondClick_ = true; }

void ResultCell::focusInEvent(QFocusEvent*) { Q_EMIT focusChanged(); }

void ResultCell::focusOutEvent(QFocusEvent*) { Q_EMIT focusChanged(); }

SelectionFrame::SelectionFrame(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
}

void SelectionFrame::paintEvent(QPaintEvent*) {
  const double unit = Stage::scaleOf(this);
  const double width = 3 * unit;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look::darkRed, width));
  painter.drawRoundedRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2),
                          4 * unit, 4 * unit);
  drawTick(painter, unit);
}

} // namespace hearthbook
