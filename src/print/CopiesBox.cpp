#include "CopiesBox.h"

#include "PrintSettings.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>

namespace hearthbook {

CopiesBox::CopiesBox(QLineEdit& text, QScrollBar& arrows, QObject* parent) : QObject(parent) {
  // The upper arrow of a bar takes one off: counted below zero, that is one copy more.
  arrows.setRange(-mostCopies, -1);
  connect(&arrows, &QScrollBar::valueChanged, this, [&text, &arrows](int value) {
    text.setText(QString::number(-value));
    arrows.setMaximum(-1);
  });
  connect(&text, &QLineEdit::textEdited, this, [&arrows](const QString& typed) {
    const QSignalBlocker quiet(&arrows);
    const int copies = typed.toInt();
    arrows.setMaximum(copies < 1 ? 0 : -1); // from nothing, one copy is one more
    arrows.setValue(-copies);
  });
}

} // namespace hearthbook
