#include "CountingSound.h"

#include <array>
#include <cstring>

namespace hearthbook::test {

void CountingSound::goTo(std::int64_t position) {
  next_ = static_cast<std::uint32_t>(position * countingFormat.rate / 1000) + 1;
}

std::size_t CountingSound::read(std::byte* into, std::size_t bytes) {
  const auto end = static_cast<std::uint32_t>(length_ * countingFormat.rate / 1000);
  std::size_t done = 0;
  for (; done + sizeof(next_) <= bytes && next_ <= end; done += sizeof(next_), ++next_)
    std::memcpy(into + done, &next_, sizeof(next_));
  return done;
}

Counted count(const RecordedSound& recording) {
  Counted counted;
  std::uint32_t last = 0;
  std::int64_t silent = 0; // since the last that was heard
  std::array<std::uint32_t, 4096> moments{};
  for (std::int64_t place = 0; place < recording.size(); place += sizeof(moments)) {
    const std::size_t bytes =
        recording.read(place, reinterpret_cast<std::byte*>(moments.data()), sizeof(moments));
    for (std::size_t index = 0; index < bytes / sizeof(moments[0]); ++index) {
      const std::uint32_t moment = moments[index];
      if (moment == 0) {
        ++silent;
        continue;
      }
      if (last != 0) {
        counted.missing += std::int64_t{moment} - last - 1;
        counted.silent += silent;
      }
      ++counted.heard;
      last = moment;
      silent = 0;
    }
  }
  return counted;
}

} // namespace hearthbook::test
