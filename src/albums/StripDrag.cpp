#include "StripDrag.h"

#include "StripCell.h"
#include "StripGeometry.h"
#include "StripPage.h"

#include <QScrollBar>

#include <utility>

namespace hearthbook {

namespace {

constexpr int rowInterval = 200; // milliseconds
constexpr double markWidth = 45;

QTimer* makeTimer(const char* name, QObject* parent) {
  auto* timer = new QTimer(parent);
  timer->setObjectName(QString::fromLatin1(name));
  timer->setInterval(rowInterval);
  return timer;
}

bool lies(QPoint globalPosition, const QWidget& over) {
  return over.rect().contains(over.mapFromGlobal(globalPosition));
}

} // namespace

StripDrag::StripDrag(Parts parts, QObject* parent)
    : QObject(parent), parts_(std::move(parts)), timer1_(makeTimer("Timer1", this)),
      timer2_(makeTimer("Timer2", this)) {
  connect(timer1_, &QTimer::timeout, this,
          [this] { parts_.scroll->setValue(parts_.scroll->value() + 1); });
  connect(timer2_, &QTimer::timeout, this,
          [this] { parts_.scroll->setValue(parts_.scroll->value() - 1); });
}

void StripDrag::pull(StripCell& cell, std::size_t source, QPoint globalPosition) {
  if (isCancelled_)
    return;
  if (!isActive()) {
    cell_ = &cell;
    source_ = source;
  }
  goOver(globalPosition);
}

void StripDrag::goOver(QPoint globalPosition) {
  if (const auto target = parts_.photoAt(globalPosition))
    return overPhoto(*target);
  setPointer(*parts_.noDrop);
  parts_.mark->hide();
  if (lies(globalPosition, *parts_.zoneAbove))
    scrollUp();
  else if (lies(globalPosition, *parts_.zoneBelow))
    scrollDown();
  else if (lies(globalPosition, *parts_.scroll))
    overScrollBar(globalPosition);
}

void StripDrag::overPhoto(std::size_t target) {
  setPointer(*parts_.canDrop);
  const TwipsPoint corner = insertionMark(target, source_);
  const double scrolled = parts_.scroll->value() * stripRowStep;
  parts_.page->setRect(parts_.mark, {corner.x, corner.y - scrolled, markWidth, stripCellSide});
  parts_.mark->show();
  parts_.mark->raise();
}

void StripDrag::overScrollBar(QPoint globalPosition) {
  constexpr double lowerPart = 3000;
  constexpr double upperPart = 1000;
  const QPoint inside = parts_.scroll->mapFromGlobal(globalPosition);
  const double twips = inside.y() * twipsPerPixel / Stage::scaleOf(parts_.scroll);
  if (twips > lowerPart)
    scrollDown();
  else if (twips < upperPart)
    scrollUp();
}

void StripDrag::scrollUp() {
  if (parts_.scroll->value() > parts_.scroll->minimum() && !timer2_->isActive())
    timer2_->start();
}

void StripDrag::scrollDown() {
  if (parts_.scroll->value() < parts_.scroll->maximum() && !timer1_->isActive())
    timer1_->start();
}

void StripDrag::stopScrolling() {
  timer1_->stop();
  timer2_->stop();
}

void StripDrag::letGo(QPoint globalPosition) {
  const bool wasActive = isActive();
  const auto target = parts_.photoAt(globalPosition);
  cancel();
  isCancelled_ = false;
  if (wasActive && target)
    Q_EMIT dropped(source_, *target);
}

void StripDrag::cancel() {
  stopScrolling();
  parts_.mark->hide();
  isCancelled_ = isActive();
  if (StripCell* cell = std::exchange(cell_, nullptr)) {
    cell->unsetCursor();
    Q_EMIT ended();
  }
}

void StripDrag::setPointer(const QWidget& icon) {
  if (cell_->cursor() != icon.cursor())
    cell_->setCursor(icon.cursor());
}

} // namespace hearthbook
