#include "WaveSound.h"

#include "FileError.h"
#include "RunTimeError.h"
#include "SafeFile.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <ostream>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace hearthbook {
namespace fs = std::filesystem;
namespace {

WaveInfo infoOf(const fs::path& name) {
  std::ifstream file(name, std::ios::binary);
  if (!file)
    throwFileError("read", name, errno);
  try {
    return readWaveInfo(file);
  } catch (const RunTimeError& failure) {
    throw RunTimeError("Cannot play \"" + name.string() + "\": " + failure.what() + ".");
  }
}

bool isSameFile(const fs::path& one, const fs::path& other) {
  std::error_code differs;
  return fs::equivalent(one, other, differs);
}

} // namespace

WaveSound::WaveSound(const fs::path& file)
    : name_(file), file_(::open(file.c_str(), O_RDONLY | O_CLOEXEC)), info_(infoOf(file)) {}

std::int64_t WaveSound::length() const { return info_.format.milliseconds(bytes()); }

std::int64_t WaveSound::roomToRecord() const { return mostWaveBytes(info_.format) - bytes(); }

void WaveSound::goTo(std::int64_t position) {
  next_ = std::min(info_.format.byteAt(position), bytes());
}

std::size_t WaveSound::read(std::byte* into, std::size_t count) {
  const auto frame = static_cast<std::size_t>(info_.format.frameBytes());
  const std::size_t got = readAt(next_, into, count - count % frame);
  next_ += static_cast<std::int64_t>(got);
  return got - got % frame;
}

std::size_t WaveSound::readAt(std::int64_t place, std::byte* into, std::size_t count) const {
  std::size_t got = 0;
  while (got < count && place < info_.dataBytes) {
    const auto wanted =
        std::min<std::int64_t>(static_cast<std::int64_t>(count - got), info_.dataBytes - place);
    const ssize_t part = ::pread(file_.number(), into + got, static_cast<std::size_t>(wanted),
                                 info_.dataStart + place);
    if (part < 0 && errno == EINTR)
      continue;
    if (part < 0)
      throwFileError("read", name_, errno);
    if (part == 0)
      return got; // cut off since it was opened
    got += static_cast<std::size_t>(part);
    place += part;
  }
  return got + recorded_.read(place - info_.dataBytes, into + got, count - got);
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
    writeWaveHead(file, info_.format, bytes());
    std::vector<std::byte> piece(std::size_t{1} << 16);
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
