#include "PhotoFrame.h"

#include "Look.h"
#include "PictureBox.h"
#include "Stage.h"

#include <QPainter>

namespace hearthbook {

PhotoFrame::PhotoFrame(const PictureBox* photo, QWidget* parent) : QWidget(parent), photo_(photo) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  rest();
}

void PhotoFrame::rest() { take(1, Qt::black, look::titleBar); }

void PhotoFrame::select() { take(selectedWidth, QColor(255, 0, 0), QColor(255, 255, 0)); }

void PhotoFrame::take(int borderWidth, const QColor& border, const QColor& fill) {
  borderWidth_ = borderWidth;
  border_ = border;
  fill_ = fill;
  update();
}

void PhotoFrame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect hole = photo_->hasPicture() ? photo_->geometry().translated(-pos()) : QRect();
  for (const QRect& strip : QRegion(rect()) - hole)
    painter.fillRect(strip, fill_);
  const int width = qMax(1, qRound(borderWidth_ * Stage::scaleOf(this)));
  const QRect inside = rect().adjusted(width, width, -width, -width);
  for (const QRect& strip : QRegion(rect()) - inside)
    painter.fillRect(strip, border_);
}

} // namespace hearthbook
