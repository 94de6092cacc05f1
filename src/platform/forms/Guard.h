#pragma once

#include "PassOver.h"

#include <QApplication>

#include <exception>
#include <functional>

namespace hearthbook {

/// Tells the user of a failed command: what failed, in plain words, with file or statement.
void reportFailure(const std::exception& failure);

/// Runs the step; a failure is reported. True if there was none.
bool guarded(const std::function<void()>& step);

/// The application with the one guard around event delivery: a handler that throws ends in
/// the error report and the program goes on.
class GuardedApplication : public QApplication {
public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
};

/// Lets the event loop run until `done` holds, with the user's commands blocked. For waiting
/// on work that other threads do.
void waitUntil(const std::function<bool()>& done);

} // namespace hearthbook
