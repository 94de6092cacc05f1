#pragma once

#include <SDL_rwops.h>

#include <cstdint>
#include <vector>

namespace hearthbook {

/// The bytes of a picture file for SDL, and behind them what a cut file lacks at most.
///
/// A zero stands for at least one pixel in PCX and TGA alike. Behind the zeros follows a grey
/// palette, for the PCX files that look for theirs at the end.
class PaddedStream {
public:
  PaddedStream(std::vector<std::uint8_t> bytes, std::size_t zeros);
  PaddedStream(const PaddedStream&) = delete;
  PaddedStream& operator=(const PaddedStream&) = delete;

  [[nodiscard]] SDL_RWops* operations() { return &operations_; }
  /// True once more was read than the file has.
  [[nodiscard]] bool ranOut() const { return ranOut_; }

private:
  static Sint64 size(SDL_RWops* operations);
  static Sint64 seek(SDL_RWops* operations, Sint64 offset, int from);
  static size_t read(SDL_RWops* operations, void* into, size_t size, size_t count);

  static PaddedStream& of(SDL_RWops* operations);
  [[nodiscard]] std::size_t length() const;
  [[nodiscard]] std::uint8_t at(std::size_t position) const;

  std::vector<std::uint8_t> bytes_;
  std::size_t zeros_;
  std::size_t position_ = 0;
  bool ranOut_ = false;
  SDL_RWops operations_{};
};

} // namespace hearthbook
