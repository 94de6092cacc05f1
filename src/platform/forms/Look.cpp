#include "Look.h"

#include "LookStyle.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace hearthbook {

namespace {

double linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

QPalette scrapbookPalette() {
  QPalette palette;
  palette.setColor(QPalette::Window, look::paper);
  palette.setColor(QPalette::WindowText, look::ink);
  palette.setColor(QPalette::Base, look::sheet);
  palette.setColor(QPalette::AlternateBase, look::paper);
  palette.setColor(QPalette::Text, look::ink);
  palette.setColor(QPalette::PlaceholderText, look::quietInk);
  palette.setColor(QPalette::Button, look::linen);
  palette.setColor(QPalette::ButtonText, look::ink);
  palette.setColor(QPalette::BrightText, look::darkRed);
  palette.setColor(QPalette::Highlight, look::darkRed);
  palette.setColor(QPalette::HighlightedText, look::onDark);
  palette.setColor(QPalette::Link, look::darkRed);
  palette.setColor(QPalette::LinkVisited, look::quietInk);
  palette.setColor(QPalette::ToolTipBase, look::panelYellow);
  palette.setColor(QPalette::ToolTipText, look::ink);
  palette.setColor(QPalette::Light, look::sheet);
  palette.setColor(QPalette::Midlight, look::paper);
  palette.setColor(QPalette::Mid, look::desk);
  palette.setColor(QPalette::Dark, look::edge);
  palette.setColor(QPalette::Shadow, look::ink);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, look::fadedInk);
  palette.setColor(QPalette::Disabled, QPalette::Base, look::paper);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, look::edge);
  return palette;
}

/// Narrow and friendly first, then what is on every machine; other scripts fall back by
/// themselves.
QFont bodyFont() {
  QFont font;
  font.setFamilies({QStringLiteral("Lato"), QStringLiteral("Liberation Sans"),
                    QStringLiteral("Nimbus Sans"), QStringLiteral("DejaVu Sans")});
  font.setPointSizeF(look::bodyPoints);
  return font;
}

} // namespace

double contrast(const QColor& text, const QColor& ground) {
  const auto [darker, lighter] = std::minmax({luminance(text), luminance(ground)});
  return (lighter + 0.05) / (darker + 0.05);
}

void applyLook(QApplication& application) {
  // The menus stand in the frame on every desktop; to ask for another place takes a round trip
  // through the desktop's bus.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  application.setStyle(new LookStyle);
  application.setPalette(scrapbookPalette());
  application.setFont(bodyFont());
  QToolTip::setPalette(scrapbookPalette());
}

} // namespace hearthbook
