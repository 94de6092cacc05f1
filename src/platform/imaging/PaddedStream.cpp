#include "PaddedStream.h"

#include <algorithm>
#include <utility>

namespace hearthbook {

namespace {

constexpr std::uint8_t paletteMark = 12;
constexpr std::size_t paletteBytes = std::size_t{256} * 3;

} // namespace

PaddedStream::PaddedStream(std::vector<std::uint8_t> bytes, std::size_t zeros)
    : bytes_(std::move(bytes)), zeros_(zeros) {
  operations_.type = SDL_RWOPS_UNKNOWN;
  operations_.size = size;
  operations_.seek = seek;
  operations_.read = read;
  operations_.hidden.unknown.data1 = this;
}

PaddedStream& PaddedStream::of(SDL_RWops* operations) {
  return *static_cast<PaddedStream*>(operations->hidden.unknown.data1);
}

std::size_t PaddedStream::length() const { return bytes_.size() + zeros_ + 1 + paletteBytes; }

std::uint8_t PaddedStream::at(std::size_t position) const {
  if (position < bytes_.size())
    return bytes_[position];
  const std::size_t behind = position - bytes_.size();
  if (behind <= zeros_)
    return behind == zeros_ ? paletteMark : 0;
  return static_cast<std::uint8_t>((behind - zeros_ - 1) / 3);
}

Sint64 PaddedStream::size(SDL_RWops* operations) {
  return static_cast<Sint64>(of(operations).length());
}

Sint64 PaddedStream::seek(SDL_RWops* operations, Sint64 offset, int from) {
  PaddedStream& stream = of(operations);
  const auto length = static_cast<Sint64>(stream.length());
  const Sint64 start = from == RW_SEEK_CUR   ? static_cast<Sint64>(stream.position_)
                       : from == RW_SEEK_END ? length
                                             : 0;
  stream.position_ = static_cast<std::size_t>(std::clamp<Sint64>(start + offset, 0, length));
  return static_cast<Sint64>(stream.position_);
}

size_t PaddedStream::read(SDL_RWops* operations, void* into, size_t size, size_t count) {
  PaddedStream& stream = of(operations);
  const std::size_t left = stream.length() - stream.position_;
  const std::size_t whole = size == 0 ? 0 : std::min(count, left / size);
  auto* bytes = static_cast<std::uint8_t*>(into);
  for (std::size_t i = 0; i < whole * size; ++i)
    bytes[i] = stream.at(stream.position_++);
  stream.ranOut_ = stream.ranOut_ || stream.position_ > stream.bytes_.size();
  return whole;
}

} // namespace hearthbook
