#pragma once

#include <cstdint>

namespace hearthbook {

/// How one moment of sound is written down.
struct SoundFormat {
  enum class Sample { U8, S16, S24, S32, Float32, ALaw, MuLaw };

  Sample sample = Sample::U8;
  int channels = 1;
  int rate = 11025; ///< moments in a second

  bool operator==(const SoundFormat&) const = default;

  [[nodiscard]] constexpr int sampleBytes() const {
    switch (sample) {
    case Sample::S16:
      return 2;
    case Sample::S24:
      return 3;
    case Sample::S32:
    case Sample::Float32:
      return 4;
    default:
      return 1;
    }
  }
  [[nodiscard]] constexpr int frameBytes() const { return sampleBytes() * channels; }
  [[nodiscard]] constexpr std::int64_t bytesPerSecond() const {
    return std::int64_t{rate} * frameBytes();
  }

  /// The byte of which silence is made.
  [[nodiscard]] constexpr unsigned char silence() const {
    switch (sample) {
    case Sample::U8:
      return 0x80;
    case Sample::ALaw:
      return 0xD5;
    case Sample::MuLaw:
      return 0xFF;
    default:
      return 0;
    }
  }

  /// How long so many bytes sound, in whole milliseconds.
  [[nodiscard]] constexpr std::int64_t milliseconds(std::int64_t bytes) const {
    return bytes / frameBytes() * 1000 / rate;
  }
  /// The byte with which the moment begins that sounds at a position.
  [[nodiscard]] constexpr std::int64_t byteAt(std::int64_t position) const {
    return position * rate / 1000 * frameBytes();
  }
};

} // namespace hearthbook
