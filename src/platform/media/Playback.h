#pragma once

#include "SoundSource.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace hearthbook {

/// One sound on its way to the loudspeaker, from a position to its end, on a thread of its own.
/// It falls silent at once when this object goes.
class Playback {
public:
  /// What may happen, told on that thread.
  struct Listener {
    std::function<void()> ended;
    /// There is nothing to hear it on, from now on: only the time is counted.
    std::function<void(const std::string& why)> unheard;
    /// The sound cannot be read any further; it stands where it is.
    std::function<void(const std::string& why)> broken;
  };

  Playback(std::shared_ptr<SoundSource> source, std::int64_t from, Listener listener);
  ~Playback();
  Playback(const Playback&) = delete;
  Playback& operator=(const Playback&) = delete;

  void pause(bool paused) { paused_ = paused; }
  [[nodiscard]] std::int64_t position() const { return position_; } ///< milliseconds

private:
  void run();
  void playAloud();
  void countTime();

  std::shared_ptr<SoundSource> source_;
  Listener listener_;
  std::atomic<std::int64_t> position_;
  std::atomic<bool> paused_ = false;
  std::atomic<bool> stopped_ = false;
  std::thread thread_; ///< last: it uses all of the above
};

} // namespace hearthbook
