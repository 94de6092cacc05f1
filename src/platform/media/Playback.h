#pragma once

#include "SoundSource.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace hearthbook {

/// One sound on its way to the loudspeaker, from a position to its end, on a thread of its own.
/// It falls silent at once when this object goes, and tells nothing from then on.
///
/// A thread that hangs in a drive, or in the loading of instruments, is not waited for: it is
/// left behind and ends when it is let go.
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

  void pause(bool paused);
  [[nodiscard]] std::int64_t position() const; ///< milliseconds

private:
  struct Run;
  std::shared_ptr<Run> run_;
};

} // namespace hearthbook
