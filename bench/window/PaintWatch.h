#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QObject>

namespace hearthbook::bench {

/// Sees when a widget has been painted.
class PaintWatch : public QObject {
public:
  explicit PaintWatch(QObject* watched) { watched->installEventFilter(this); }
  bool painted = false;
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    painted = painted || event->type() == QEvent::Paint;
    return false;
  }
};

inline void runLoop(int milliseconds) {
  QElapsedTimer passed;
  passed.start();
  while (!passed.hasExpired(milliseconds))
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

} // namespace hearthbook::bench
