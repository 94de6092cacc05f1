#pragma once

#include "FileDescriptor.h"
#include "WaveData.h"
#include "WaveFile.h"

#include <filesystem>
#include <memory>
#include <mutex>

namespace hearthbook {

/// A wave whose sound takes less room than its moments one by one: ADPCM, GSM, MP3 inside a wave.
/// It is unpacked as it is read.
class PackedWave : public WaveData {
public:
  /// Throws RunTimeError, with the cause alone, where nobody here can unpack it.
  PackedWave(std::filesystem::path name, FileDescriptor file, const WaveInfo& info);
  ~PackedWave() override;

  [[nodiscard]] SoundFormat format() const override { return format_; }
  [[nodiscard]] std::int64_t bytes() const override { return bytes_; }
  std::size_t readAt(std::int64_t place, std::byte* into, std::size_t count) override;

private:
  struct Unpacker;

  std::filesystem::path name_;
  std::unique_ptr<Unpacker> unpacker_;
  std::mutex turn_; ///< it reads one place after the other
  SoundFormat format_;
  std::int64_t bytes_ = 0;
};

} // namespace hearthbook
