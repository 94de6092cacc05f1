#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace hearthbook {

/// Sound as it is being recorded. It lies in pieces that never move: hours of it can be added
/// without a pause in which sound would be lost.
///
/// One thread appends, others may ask for size() meanwhile; they read when it has ended.
class RecordedSound {
public:
  RecordedSound() = default;
  virtual ~RecordedSound() = default;
  RecordedSound(const RecordedSound&) = delete;
  RecordedSound& operator=(const RecordedSound&) = delete;

  /// Throws std::bad_alloc where the memory has run out; what was appended before stays.
  virtual void append(const std::byte* bytes, std::size_t count);
  [[nodiscard]] std::int64_t size() const { return size_; }
  /// Copies bytes from a place on; how many there were.
  std::size_t read(std::int64_t from, std::byte* into, std::size_t count) const;

private:
  static constexpr std::size_t pieceBytes = std::size_t{1} << 20;

  std::vector<std::unique_ptr<std::byte[]>> pieces_;
  std::atomic<std::int64_t> size_ = 0;
};

} // namespace hearthbook
