#include "StallWatch.h"

#include <algorithm>

namespace hearthbook::test {

namespace {

constexpr int tickMs = 5;

} // namespace

StallWatch::StallWatch() {
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { tick(); });
  restart();
  timer_.start(tickMs);
}

void StallWatch::restart() {
  longestMs_ = 0;
  sinceTick_.start();
}

void StallWatch::tick() {
  const double lateMs = static_cast<double>(sinceTick_.nsecsElapsed()) / 1e6 - tickMs;
  longestMs_ = std::max(longestMs_, lateMs);
  sinceTick_.start();
}

} // namespace hearthbook::test
