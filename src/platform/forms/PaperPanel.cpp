#include "PaperPanel.h"

#include "Look.h"
#include "Stage.h"

#include <QPainter>
#include <QPainterPath>
#include <QVariant>

namespace hearthbook {

namespace {

constexpr int shadowSteps = 4;

void drawShadow(QPainter& painter, const QRectF& sheet, double radius, double unit) {
  for (int step = shadowSteps; step > 0; --step) {
    const double spread = step * unit * 0.5;
    painter.setBrush(QColor(70, 45, 20, 11));
    painter.drawRoundedRect(sheet.adjusted(-spread, -spread * 0.3, spread, spread * 1.2),
                            radius + spread, radius + spread);
  }
}

} // namespace

PaperPanel::PaperPanel(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PaperPanel::paintEvent(QPaintEvent*) {
  const bool isPrint = property("paper").toString() == QStringLiteral("print");
  const double unit = qMax(1.0, Stage::scaleOf(this));
  const double margin = 2.5 * unit;
  const double radius = isPrint ? 1.5 * unit : 7 * unit;
  const QRectF sheet = QRectF(rect()).adjusted(margin, margin, -margin, -margin);

  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  drawShadow(painter, sheet, radius, unit);
  painter.setPen(QPen(isPrint ? QColor(224, 214, 196) : look::panelYellow.darker(118), unit * 0.7));
  painter.setBrush(isPrint ? QColor(Qt::white) : look::panelYellow);
  painter.drawRoundedRect(sheet, radius, radius);
}

} // namespace hearthbook
