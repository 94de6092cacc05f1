#include "RecordedSound.h"

#include <algorithm>
#include <cstring>

namespace hearthbook {

void RecordedSound::append(const std::byte* bytes, std::size_t count) {
  while (count > 0) {
    const auto place = static_cast<std::size_t>(size_) % pieceBytes;
    if (static_cast<std::size_t>(size_) == pieces_.size() * pieceBytes)
      pieces_.push_back(std::make_unique_for_overwrite<std::byte[]>(pieceBytes));
    const std::size_t part = std::min(count, pieceBytes - place);
    std::memcpy(pieces_.back().get() + place, bytes, part);
    bytes += part;
    count -= part;
    size_ += static_cast<std::int64_t>(part);
  }
}

std::size_t RecordedSound::read(std::int64_t from, std::byte* into, std::size_t count) const {
  const auto left = static_cast<std::size_t>(std::max<std::int64_t>(0, size_ - from));
  count = std::min(count, left);
  auto place = static_cast<std::size_t>(from);
  for (std::size_t done = 0; done < count;) {
    const std::size_t part = std::min(count - done, pieceBytes - place % pieceBytes);
    std::memcpy(into + done, pieces_[place / pieceBytes].get() + place % pieceBytes, part);
    done += part;
    place += part;
  }
  return count;
}

} // namespace hearthbook
