#include "WaveData.h"

#include "FileDescriptor.h"
#include "FileError.h"
#include "PackedWave.h"
#include "RunTimeError.h"
#include "WaveFile.h"

#include <algorithm>
#include <cerrno>
#include <fstream>

#include <fcntl.h>
#include <unistd.h>

namespace hearthbook {

namespace {

/// Written down moment by moment.
class PlainWave : public WaveData {
public:
  PlainWave(std::filesystem::path name, FileDescriptor file, const WaveInfo& info)
      : name_(std::move(name)), file_(std::move(file)), info_(info) {}

  [[nodiscard]] SoundFormat format() const override { return info_.format; }
  [[nodiscard]] std::int64_t bytes() const override { return info_.dataBytes; }
  std::size_t readAt(std::int64_t place, std::byte* into, std::size_t count) override;

private:
  std::filesystem::path name_;
  FileDescriptor file_;
  WaveInfo info_;
};

std::size_t PlainWave::readAt(std::int64_t place, std::byte* into, std::size_t count) {
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
      break;
    got += static_cast<std::size_t>(part);
    place += part;
  }
  return got;
}

} // namespace

std::unique_ptr<WaveData> openWave(const std::filesystem::path& name) {
  std::ifstream head(name, std::ios::binary);
  FileDescriptor file(::open(name.c_str(), O_RDONLY | O_CLOEXEC));
  if (!head || !file.isOpen())
    throwFileError("read", name, errno);
  try {
    const WaveInfo info = readWaveInfo(head);
    if (info.packing)
      return std::make_unique<PackedWave>(name, std::move(file), info);
    return std::make_unique<PlainWave>(name, std::move(file), info);
  } catch (const RunTimeError& failure) {
    throw RunTimeError("Cannot play \"" + name.string() + "\": " + failure.what() + ".");
  }
}

} // namespace hearthbook
