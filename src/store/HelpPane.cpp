#include "HelpPane.h"

#include "HelpEntry.h"
#include "Look.h"
#include "Text.h"

#include <QGroupBox>
#include <QPlainTextEdit>

namespace hearthbook {

HelpPane::HelpPane(QGroupBox& frame, QPlainTextEdit& text) : frame_(frame), text_(text) {
  QPalette hint = text_.palette();
  hint.setColor(QPalette::Base, look::panelYellow);
  text_.setPalette(hint);
}

void HelpPane::write(const QString& caption, const QString& text) {
  frame_.setTitle(caption);
  text_.setPlainText(text);
}

void HelpPane::explain(const QString& key, QString& shown, Recordset& rsHelp) {
  if (key == shown)
    return;
  const HelpEntry entry = findHelp(rsHelp, toUtf8(key));
  write(toQString(entry.caption), toQString(entry.text));
  shown = key;
}

} // namespace hearthbook
