#include "PlainFile.h"

#include "CopyBytes.h"
#include "FileError.h"

#include <array>
#include <cerrno>
#include <system_error>

#include <fcntl.h>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

FileDescriptor openToWrite(const fs::path& target) {
  FileDescriptor opened(
      ::open(target.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)); // NOLINT
  if (!opened.isOpen())
    throwFileError("write", target, errno);
  return opened;
}

void closeWritten(FileDescriptor& file, const fs::path& target) {
  if (!file.close())
    throwFileError("write", target, errno);
}

} // namespace

std::string readWholeFile(const fs::path& file) {
  const FileDescriptor opened = openToRead(file);
  std::string content;
  std::array<char, 65536> bytes;
  for (;;) {
    const ssize_t count = ::read(opened.number(), bytes.data(), bytes.size());
    if (count == 0)
      return content;
    if (count < 0 && errno != EINTR)
      throwUnreadable(file, errno);
    if (count > 0)
      content.append(bytes.data(), static_cast<std::size_t>(count));
  }
}

void writePlainFile(const fs::path& target, std::string_view bytes) {
  FileDescriptor file = openToWrite(target);
  if (!writeAll(file.number(), bytes.data(), bytes.size()))
    throwFileError("write", target, errno);
  closeWritten(file, target);
}

void copyPlainFile(const fs::path& source, const fs::path& target) {
  const FileDescriptor from = openToRead(source);
  FileDescriptor to = openToWrite(target);
  try {
    copyBytes(from.number(), source, to.number(), target);
  } catch (const UnreadableFile&) {
    ::unlink(target.c_str());
    throw;
  }
  closeWritten(to, target);
}

void copyPlainTree(const fs::path& source, const fs::path& target) {
  makePlainFolder(target);
  std::error_code error;
  fs::directory_iterator entry(source, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    if (std::error_code broken; entry->is_directory(broken)) // a broken link is told by the copying
      copyPlainTree(entry->path(), target / entry->path().filename());
    else
      copyPlainFile(entry->path(), target / entry->path().filename());
  }
  if (error)
    throwUnreadable(source, error.value());
}

void flushWholeDisk(const fs::path& fileOrFolder) {
  const FileDescriptor file = openToRead(fileOrFolder);
  if (::syncfs(file.number()) != 0)
    throwFileError("write", fileOrFolder, errno);
}

void makePlainFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directory(folder, error);
  if (error)
    throwFileError("make the folder", folder, error.value());
}

} // namespace hearthbook
