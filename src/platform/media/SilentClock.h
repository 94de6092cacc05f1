#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace hearthbook {

/// Where a sound would stand that nobody hears, in milliseconds.
class SilentClock {
public:
  SilentClock(std::int64_t from, std::int64_t length) : from_(from), length_(length) {}

  void pause(bool paused) {
    if (paused == paused_)
      return;
    from_ = position();
    since_ = Clock::now();
    paused_ = paused;
  }
  [[nodiscard]] std::int64_t position() const {
    using std::chrono::duration_cast, std::chrono::milliseconds;
    const auto passed = duration_cast<milliseconds>(Clock::now() - since_).count();
    return std::min(paused_ ? from_ : from_ + passed, length_);
  }
  [[nodiscard]] bool isAtEnd() const { return position() >= length_; }

private:
  using Clock = std::chrono::steady_clock;

  std::int64_t from_;
  std::int64_t length_;
  Clock::time_point since_ = Clock::now();
  bool paused_ = false;
};

} // namespace hearthbook
