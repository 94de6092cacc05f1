#include "WaveSound.h"

#include "RunTimeError.h"
#include "SafeFile.h"
#include "WaveFile.h"

#include <algorithm>
#include <ostream>
#include <system_error>
#include <vector>

namespace hearthbook {
namespace fs = std::filesystem;
namespace {

bool isSameFile(const fs::path& one, const fs::path& other) {
  std::error_code differs;
  return fs::equivalent(one, other, differs);
}

} // namespace

WaveSound::WaveSound(const fs::path& file) : name_(file), file_(openWave(file)) {}

std::int64_t WaveSound::length() const { return format().milliseconds(bytes()); }

std::int64_t WaveSound::roomToRecord() const { return mostWaveBytes(format()) - bytes(); }

void WaveSound::goTo(std::int64_t position) {
  next_ = std::min(format().byteAt(position), bytes());
}

std::size_t WaveSound::read(std::byte* into, std::size_t count) {
  const auto frame = static_cast<std::size_t>(format().frameBytes());
  const std::size_t got = readAt(next_, into, count - count % frame);
  next_ += static_cast<std::int64_t>(got);
  return got - got % frame;
}

std::size_t WaveSound::readAt(std::int64_t place, std::byte* into, std::size_t count) const {
  const std::int64_t inFile = std::max<std::int64_t>(0, file_->bytes() - place);
  const auto wanted = static_cast<std::size_t>(std::min(inFile, static_cast<std::int64_t>(count)));
  std::size_t got = wanted > 0 ? file_->readAt(place, into, wanted) : 0;
  if (got < wanted)
    return got; // cut off since it was opened
  place += static_cast<std::int64_t>(got);
  return got + recorded_.read(place - file_->bytes(), into + got, count - got);
}

void WaveSound::save(const fs::path& target, const std::function<void(const fs::path&)>& keepOld) {
  if (recorded_.size() == 0 && isSameFile(name_, target))
    return;
  const auto keep = [&] {
    if (keepOld)
      keepOld(target);
  };
  if (recorded_.size() == 0) {
    StagedCopy copy(name_, target.parent_path());
    keep();
    return copy.place(target);
  }
  const auto write = [&](std::ostream& file) {
    writeWaveHead(file, format(), bytes());
    const auto frame = static_cast<std::size_t>(format().frameBytes());
    std::vector<std::byte> piece(((std::size_t{1} << 16) / frame) * frame);
    for (std::int64_t place = 0; place < bytes();) {
      const std::size_t got = readAt(place, piece.data(), piece.size());
      if (got == 0)
        throw RunTimeError("Cannot read \"" + name_.string() + "\": it was cut off.");
      file.write(reinterpret_cast<const char*>(piece.data()), static_cast<std::streamsize>(got));
      place += static_cast<std::int64_t>(got);
    }
    if (bytes() % 2 != 0)
      file.put('\0');
  };
  replaceFile(target, write, keep);
}

} // namespace hearthbook
