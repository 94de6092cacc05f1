#pragma once

#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QTimer>

#include <unistd.h>

namespace hearthbook::bench {

/// Ends the process, without its closing work, once a main window has been painted.
class EndAtFirstPaint : public QObject {
public:
  EndAtFirstPaint() { qApp->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && qobject_cast<QMainWindow*>(watched))
      QTimer::singleShot(0, [] { _exit(0); }); // when what was painted has been handed over
    return false;
  }
};

} // namespace hearthbook::bench
