#include "LookStyle.h"

#include "Stage.h"

#include <QStyleFactory>

#include <algorithm>

namespace hearthbook {

namespace {

bool growsWithTheStage(QStyle::PixelMetric metric) {
  switch (metric) {
  case QStyle::PM_IndicatorWidth:
  case QStyle::PM_IndicatorHeight:
  case QStyle::PM_ExclusiveIndicatorWidth:
  case QStyle::PM_ExclusiveIndicatorHeight:
  case QStyle::PM_CheckBoxLabelSpacing:
  case QStyle::PM_RadioButtonLabelSpacing:
  case QStyle::PM_ScrollBarExtent:
  case QStyle::PM_ScrollBarSliderMin:
  case QStyle::PM_SpinBoxSliderHeight:
  case QStyle::PM_SliderThickness:
  case QStyle::PM_SliderControlThickness:
  case QStyle::PM_SliderLength:
    return true;
  default:
    return false;
  }
}

} // namespace

LookStyle::LookStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
  const int standard = QProxyStyle::pixelMetric(metric, option, widget);
  if (!widget || !growsWithTheStage(metric))
    return standard;
  return std::max(qRound(standard * Stage::scaleOf(widget)), std::min(standard, 6));
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* more) const {
  if (hint == SH_ItemView_ActivateItemOnSingleClick)
    return 0; // whatever the desktop says: a click chooses, a double click does
  return QProxyStyle::styleHint(hint, option, widget, more);
}

} // namespace hearthbook
