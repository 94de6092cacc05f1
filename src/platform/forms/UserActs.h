#pragma once

#include "NestedLoop.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <functional>

namespace hearthbook {

// Inside a handler that takes its time the user may act all the same, and even close the form in
// which the handler runs.

inline void letUserAct() {
  const UserTurn turn;
  QCoreApplication::processEvents();
}

/// Until `done` holds. Who makes it hold must send an event.
inline void letUserActUntil(const std::function<bool()>& done) {
  const UserTurn turn;
  while (!done())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// Such an event, from any thread: the window's one then looks whether what it waits for has come.
inline void wakeWindow() {
  QMetaObject::invokeMethod(
      QCoreApplication::instance(), [] {}, Qt::QueuedConnection);
}

} // namespace hearthbook
