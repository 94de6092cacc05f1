#pragma once

#include "SoundFormat.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace hearthbook {

/// One stream to the desktop's loudspeaker or from its microphone, whichever they are now. The
/// desktop turns the format into the device's.
///
/// It is used by one thread, which lets it work by calling turn() again and again. All else
/// returns at once. Whatever fails throws RunTimeError; the stream is then of no more use.
class PulseStream {
public:
  enum class Direction { Play, Record };

  PulseStream(Direction direction, const SoundFormat& format);
  ~PulseStream(); ///< silent at once
  PulseStream(const PulseStream&) = delete;
  PulseStream& operator=(const PulseStream&) = delete;

  /// Waits for something to happen, for so many milliseconds at most, and sees to it.
  void turn(int milliseconds);
  [[nodiscard]] bool isReady() const;

  // For playing, once it is ready

  [[nodiscard]] std::size_t room() const; ///< bytes that can be written now
  void write(const std::byte* bytes, std::size_t count);
  void pause(bool paused);
  void endHere();                      ///< nothing more is written
  [[nodiscard]] bool isPlayed() const; ///< behind endHere(): all of it has been heard
  /// What has been heard, in milliseconds.
  [[nodiscard]] std::int64_t heard() const;

  // For recording, once it is ready

  using Take = std::function<void(const std::byte* bytes, std::size_t count)>;
  /// Hands over what has come, in order. Where something was lost, the bytes are null: so much
  /// of it.
  void takeRecorded(const Take& take);
  /// No more is recorded; what is on its way still comes.
  void stopRecording();
  [[nodiscard]] bool hasStopped() const;

private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

} // namespace hearthbook
