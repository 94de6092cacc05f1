#pragma once

#include <QObject>

class QLineEdit;
class QScrollBar;

namespace hearthbook {

/// The number of copies: a text, and arrows that write their number into it and go on from what
/// was typed.
class CopiesBox : public QObject {
  Q_OBJECT
public:
  CopiesBox(QLineEdit& text, QScrollBar& arrows, QObject* parent);
};

} // namespace hearthbook
