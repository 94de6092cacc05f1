#include "CopyBytes.h"

#include "FileError.h"

#include <array>
#include <cerrno>

#include <fcntl.h>

namespace hearthbook {

namespace {

/// Lets the kernel copy as far as it can; what is left is for copyRest().
void copyInKernel(int source, int target) {
  constexpr std::size_t piece = std::size_t{1} << 30;
  while (::copy_file_range(source, nullptr, target, nullptr, piece, 0) > 0) {
  }
}

void copyRest(int source, const std::filesystem::path& sourceName, int target,
              const std::filesystem::path& targetName) {
  std::array<char, 65536> bytes;
  for (;;) {
    const ssize_t count = ::read(source, bytes.data(), bytes.size());
    if (count == 0)
      return;
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0)
      throwUnreadable(sourceName, errno);
    if (!writeAll(target, bytes.data(), static_cast<std::size_t>(count)))
      throwFileError("write", targetName, errno);
  }
}

} // namespace

bool writeAll(int file, const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t written = ::write(file, bytes, count);
    if (written < 0 && errno == EINTR)
      continue;
    if (written < 0)
      return false;
    bytes += written;
    count -= static_cast<std::size_t>(written);
  }
  return true;
}

FileDescriptor openToRead(const std::filesystem::path& file) {
  FileDescriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
  if (!opened.isOpen())
    throwUnreadable(file, errno);
  return opened;
}

void copyBytes(int source, const std::filesystem::path& sourceName, int target,
               const std::filesystem::path& targetName) {
  copyInKernel(source, target);
  copyRest(source, sourceName, target, targetName);
}

} // namespace hearthbook
