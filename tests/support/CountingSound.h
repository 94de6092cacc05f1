#pragma once

#include "RecordedSound.h"
#include "SoundSource.h"

#include <cstdint>

namespace hearthbook::test {

/// Sound whose every moment says its number, so that one can see of a recording whether a
/// moment is missing.
class CountingSound : public SoundSource {
public:
  static constexpr SoundFormat countingFormat{SoundFormat::Sample::S16, 2, 22050};

  explicit CountingSound(std::int64_t length) : length_(length) {}

  [[nodiscard]] SoundFormat format() const override { return countingFormat; }
  [[nodiscard]] std::int64_t length() const override { return length_; }
  void goTo(std::int64_t position) override;
  std::size_t read(std::byte* into, std::size_t bytes) override;

private:
  std::int64_t length_;
  std::uint32_t next_ = 1; ///< 0 is what silence says
};

/// What a recording of it holds.
struct Counted {
  std::int64_t heard = 0;   ///< moments
  std::int64_t missing = 0; ///< moments between the first and the last that were played
  std::int64_t silent = 0;  ///< moments of silence between them

  bool operator==(const Counted&) const = default;
};
Counted count(const RecordedSound& recording);

} // namespace hearthbook::test
