#pragma once

#include <QObject>

class QSocketNotifier;

namespace hearthbook {

/// Turns the system's wish that the program end (SIGTERM, SIGINT, SIGHUP, the end of the
/// session) into one signal of the event loop.
class EndSignals : public QObject {
  Q_OBJECT
public:
  EndSignals();
  ~EndSignals() override;

Q_SIGNALS:
  void endAsked();

private:
  void drain();

  QSocketNotifier* notifier_;
};

} // namespace hearthbook
