#pragma once

#include "RecordedSound.h"
#include "SoundFormat.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>

namespace hearthbook {

class PulseStream;

/// Sound on its way from the microphone into memory, on a thread of its own. It ends when this
/// object goes; what was heard until then has been recorded.
class Recording {
public:
  /// Why it has ended by itself, told on that thread; what was recorded stays.
  using Ended = std::function<void(const std::string& why)>;

  /// Appends at most `room` bytes.
  Recording(const SoundFormat& format, RecordedSound& into, std::int64_t room, Ended ended);
  ~Recording();
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  /// Bytes in whose place there is silence, because the desktop had lost them.
  [[nodiscard]] std::int64_t lost() const { return lost_; }

private:
  void run();
  void record();
  void takeLast(PulseStream& in);
  void take(const std::byte* bytes, std::size_t count);
  void takeSilence(std::size_t count);

  SoundFormat format_;
  RecordedSound& into_;
  std::int64_t room_;
  Ended ended_;
  std::atomic<std::int64_t> lost_ = 0;
  std::atomic<bool> stopped_ = false;
  std::thread thread_; ///< last: it uses all of the above
};

} // namespace hearthbook
