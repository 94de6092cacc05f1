#include "ScanArea.h"

#include "Look.h"
#include "MarkLayer.h"
#include "PageView.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace hearthbook {

namespace {

constexpr int lineTwips = 300;

bool has(ScrollBars bars, ScrollBars bar) {
  return (static_cast<int>(bars) & static_cast<int>(bar)) != 0;
}

void showBar(QScrollBar& bar, bool isThere, double most, double page, double value) {
  const QSignalBlocker quiet(bar);
  bar.setVisible(isThere);
  bar.setRange(0, qRound(most));
  bar.setPageStep(qRound(page));
  bar.setSingleStep(lineTwips);
  bar.setValue(qRound(value));
}

} // namespace

ScanArea::ScanArea(QWidget* parent) : Stage(ImageView::box, parent) {}

void ScanArea::setParts(const Parts& parts, ImageEdit& edit, WorkPool& pool) {
  parts_ = parts;
  edit_ = &edit;
  place(parts_.page, {0, 0, 0, 0});
  place(parts_.marks, {0, 0, 0, 0});
  parts_.page->setPage(edit, pool);
  parts_.marks->setPage(edit);
  for (const QScrollBar* bar : {parts_.across, parts_.down})
    connect(bar, &QScrollBar::valueChanged, this, &ScanArea::scrolled);
  connect(parts_.marks, &MarkLayer::scrollAsked, this, &ScanArea::scrollBy);
  connect(this, &Stage::scaled, this, &ScanArea::showChanged);
  showChanged();
}

void ScanArea::showChanged() {
  const TwipsSize size = edit_->isEmpty() ? TwipsSize() : edit_->view().size();
  const TwipsRect rect{(ImageView::box.width - size.width) / 2,
                       (ImageView::box.height - size.height) / 2, size.width, size.height};
  for (QWidget* layer : {static_cast<QWidget*>(parts_.page), static_cast<QWidget*>(parts_.marks)})
    setRect(layer, rect);
  showBars();
  parts_.page->showChanged();
  parts_.marks->showChanged();
}

void ScanArea::showBars() {
  const ImageView& view = edit_->view();
  const ScrollBars bars = edit_->isEmpty() ? ScrollBars::None : view.scrollBars();
  const TwipsPoint most = view.mostScroll();
  showBar(*parts_.across, has(bars, ScrollBars::Horizontal), most.x, view.size().width,
          view.scroll().x);
  showBar(*parts_.down, has(bars, ScrollBars::Vertical), most.y, view.size().height,
          view.scroll().y);
}

void ScanArea::scrolled() {
  edit_->view().scrollTo(
      {static_cast<double>(parts_.across->value()), static_cast<double>(parts_.down->value())});
  showChanged();
}

void ScanArea::scrollBy(double right, double down) {
  const TwipsPoint at = edit_->view().scroll();
  edit_->view().scrollTo({at.x + right, at.y + down});
  showChanged();
}

// A rectangle around something at the page's edge begins beside the page.

void ScanArea::mousePressEvent(QMouseEvent* event) { handOn(*event); }

void ScanArea::mouseMoveEvent(QMouseEvent* event) { handOn(*event); }

void ScanArea::mouseReleaseEvent(QMouseEvent* event) { handOn(*event); }

void ScanArea::handOn(const QMouseEvent& event) {
  QMouseEvent there(event.type(), parts_.marks->mapFromParent(event.position()),
                    event.scenePosition(), event.globalPosition(), event.button(), event.buttons(),
                    event.modifiers());
  QCoreApplication::sendEvent(parts_.marks, &there);
}

void ScanArea::wheelEvent(QWheelEvent* event) { QCoreApplication::sendEvent(parts_.marks, event); }

void ScanArea::paintEvent(QPaintEvent*) { QPainter(this).fillRect(QWidget::rect(), look::desk); }

} // namespace hearthbook
