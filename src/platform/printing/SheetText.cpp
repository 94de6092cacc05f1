#include "SheetText.h"

#include "PrintSheet.h"
#include "Text.h"

#include <QFontMetricsF>

namespace hearthbook {

QFont sheetFont() {
  constexpr double pointsPerInch = 72;
  QFont font;
  font.setPixelSize(qRound(sheetPoints / pointsPerInch * twipsPerInch));
  font.setHintingPreference(QFont::PreferNoHinting); // the same widths at every scale
  return font;
}

double sheetWidthOf(const std::string& text) {
  return QFontMetricsF(sheetFont()).horizontalAdvance(toQString(text));
}

double sheetLineHeight() { return QFontMetricsF(sheetFont()).lineSpacing(); }

} // namespace hearthbook
