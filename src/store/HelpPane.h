#pragma once

#include "Recordset.h"

#include <QString>

class QGroupBox;
class QPlainTextEdit;

namespace hearthbook {

/// Where a screen explains its controls: a frame, captioned with the item, and a text. The help
/// window is one, and each dialog has one of its own.
class HelpPane {
public:
  /// Lays both on paper.
  HelpPane(QGroupBox& frame, QPlainTextEdit& text);

  void write(const QString& caption, const QString& text);
  /// Explains the control with that key. `shown` is the key that the pane explains now: while
  /// the mouse stays over the same control, nothing is looked up. A key without a row fails.
  void explain(const QString& key, QString& shown, Recordset& rsHelp);

private:
  QGroupBox& frame_;
  QPlainTextEdit& text_;
};

} // namespace hearthbook
