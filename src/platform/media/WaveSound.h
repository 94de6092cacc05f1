#pragma once

#include "RecordedSound.h"
#include "SoundSource.h"
#include "WaveData.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace hearthbook {

/// A wave: the sound of a file, read as it is played, and what was recorded behind it.
class WaveSound : public SoundSource {
public:
  /// Throws RunTimeError, naming the file, where it is no wave that can be read.
  explicit WaveSound(const std::filesystem::path& file);

  [[nodiscard]] SoundFormat format() const override { return file_->format(); }
  [[nodiscard]] std::int64_t length() const override;
  void goTo(std::int64_t position) override;
  std::size_t read(std::byte* into, std::size_t bytes) override;

  [[nodiscard]] RecordedSound& recorded() { return recorded_; }
  [[nodiscard]] std::int64_t roomToRecord() const; ///< bytes

  /// Writes all of it, whole or not at all. `keepOld` is called when only the renaming is left.
  /// A file that nothing was added to is copied as it is; onto itself, nothing is done.
  void save(const std::filesystem::path& target,
            const std::function<void(const std::filesystem::path&)>& keepOld);

private:
  [[nodiscard]] std::int64_t bytes() const { return file_->bytes() + recorded_.size(); }
  std::size_t readAt(std::int64_t place, std::byte* into, std::size_t count) const;

  std::filesystem::path name_;
  std::unique_ptr<WaveData> file_;
  RecordedSound recorded_;
  std::int64_t next_ = 0; ///< the byte that is read next
};

} // namespace hearthbook
