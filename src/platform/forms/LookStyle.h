#pragma once

#include <QProxyStyle>

namespace hearthbook {

/// Draws what the palette alone cannot say, and lets small parts (ticks, arrows, scroll bars)
/// grow with the stage on which they stand.
class LookStyle : public QProxyStyle {
public:
  LookStyle();

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
};

} // namespace hearthbook
