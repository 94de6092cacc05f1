#pragma once

#include <QElapsedTimer>
#include <QTimer>

namespace hearthbook::test {

/// Records how late a timer of the window's thread comes: how long that thread was blocked.
/// For benchmarks and traces, not for asserts.
class StallWatch {
public:
  StallWatch();

  [[nodiscard]] double longestMs() const { return longestMs_; }
  void restart(); ///< forgets what was seen

private:
  void tick();

  QTimer timer_;
  QElapsedTimer sinceTick_;
  double longestMs_ = 0;
};

} // namespace hearthbook::test
