#include "CopiesBox.h"

#include "PrintSettings.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>

namespace hearthbook {

CopiesBox::CopiesBox(QLineEdit& text, QScrollBar& arrows, QObject* parent) : QObject(parent) {
  // The upper arrow of a bar takes one off: counted below zero, that is one copy more.
  arrows.setRange(-mostCopies, -1);
  connect(&arrows, &QScrollBar::valueChanged, this,
          [&text](int value) { text.setText(QString::number(-value)); });
  connect(&text, &QLineEdit::textEdited, this, [&arrows](const QString& typed) {
    const QSignalBlocker quiet(&arrows);
    arrows.setValue(-typed.toInt());
  });
}

} // namespace hearthbook
