#pragma once

#include "SoundFormat.h"

#include <cstddef>
#include <cstdint>
#include <mutex>

namespace hearthbook {

/// What can be played: sound that is handed out piece by piece, from any position on. The window
/// asks how long it is; all else happens on the thread that plays it.
class SoundSource {
public:
  SoundSource() = default;
  virtual ~SoundSource() = default;
  SoundSource(const SoundSource&) = delete;
  SoundSource& operator=(const SoundSource&) = delete;

  [[nodiscard]] virtual SoundFormat format() const = 0;
  [[nodiscard]] virtual std::int64_t length() const = 0; ///< milliseconds

  /// Makes ready to be read from a position on. Throws RunTimeError where it cannot be heard.
  virtual void goTo(std::int64_t position) = 0;
  /// The next bytes, whole moments; how many there were, 0 at the end. Throws RunTimeError
  /// where they cannot be read.
  virtual std::size_t read(std::byte* into, std::size_t bytes) = 0;

  /// Held by the thread that plays it: a stopped one may hang in it for a while.
  std::mutex inUse;
};

} // namespace hearthbook
