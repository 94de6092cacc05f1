#pragma once

#include "SoundFormat.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>

namespace hearthbook {

/// The sound of a wave file, moment by moment, however it is packed there. It is read from the
/// thread that plays it and from the one that saves it.
class WaveData {
public:
  WaveData() = default;
  virtual ~WaveData() = default;
  WaveData(const WaveData&) = delete;
  WaveData& operator=(const WaveData&) = delete;

  [[nodiscard]] virtual SoundFormat format() const = 0;
  [[nodiscard]] virtual std::int64_t bytes() const = 0;
  /// Reads what there is from a place on; fewer bytes only where the file was cut off since it
  /// was opened. Place and count are whole moments.
  virtual std::size_t readAt(std::int64_t place, std::byte* into, std::size_t count) = 0;
};

/// Throws RunTimeError, naming the file, where it is no wave that can be read.
std::unique_ptr<WaveData> openWave(const std::filesystem::path& file);

} // namespace hearthbook
