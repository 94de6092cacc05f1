#pragma once

#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QTimer>

#include <unistd.h>

namespace hearthbook::bench {

/// Tells on its output that a main window has been painted, and ends the process without its
/// closing work.
class EndAtFirstPaint : public QObject {
public:
  EndAtFirstPaint() { qApp->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && qobject_cast<QMainWindow*>(watched))
      QTimer::singleShot(0, [] { // when what was painted has been handed over
        _exit(write(STDOUT_FILENO, "!", 1) == 1 ? 0 : 1);
      });
    return false;
  }
};

} // namespace hearthbook::bench
