#pragma once

#include "SoundFormat.h"

#include <cstdint>
#include <iosfwd>
#include <optional>

namespace hearthbook {

/// What the head of a wave file tells.
struct WaveInfo {
  SoundFormat format;
  std::int64_t dataStart = 0; ///< where in the file the sound begins
  std::int64_t dataBytes = 0; ///< what is there of it: whole moments
  /// How it is packed, by the number that waves have for that, where it is not written down moment
  /// by moment. Nothing is known of its format then.
  std::optional<unsigned> packing = std::nullopt;

  bool operator==(const WaveInfo&) const = default;

  [[nodiscard]] std::int64_t length() const { return format.milliseconds(dataBytes); }
};

/// Reads the head. Of a file that is cut off, what is there counts. Throws RunTimeError, with
/// the cause alone, for what is no wave.
WaveInfo readWaveInfo(std::istream& file);

/// The most bytes of sound that the head of a wave can tell of.
std::int64_t mostWaveBytes(const SoundFormat& format);

/// Writes the head of a wave with so many bytes of sound, which are to follow; behind an odd
/// number of them a byte of 0.
void writeWaveHead(std::ostream& file, const SoundFormat& format, std::int64_t dataBytes);

} // namespace hearthbook
