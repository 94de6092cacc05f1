#include "InputFile.h"

#include "FileError.h"
#include "RunTimeError.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hearthbook {

namespace {

/// Like read(2) and pread(2) until all is there, the end is reached or the disk fails.
template <class Read> std::size_t readFully(std::size_t count, Read readSome) {
  std::size_t done = 0;
  while (done < count) {
    const ssize_t got = readSome(done, count - done);
    if (got < 0 && errno == EINTR)
      continue;
    if (got <= 0)
      break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

std::uintmax_t sizeOfContent(const std::filesystem::path& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0)
    cannotReadPicture(path, causeOf(errno));
  if (!S_ISREG(status.st_mode))
    cannotReadPicture(path, S_ISDIR(status.st_mode) ? "it is a folder" : "it is not a file");
  if (status.st_size == 0)
    cannotReadPicture(path, "the file is empty");
  return static_cast<std::uintmax_t>(status.st_size);
}

int openToRead(const std::filesystem::path& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0)
    cannotReadPicture(path, causeOf(errno));
  return file;
}

} // namespace

void cannotReadPicture(const std::filesystem::path& path, const std::string& cause) {
  throw RunTimeError("The picture " + path.string() + " cannot be read: " + cause + ".");
}

InputFile::InputFile(const std::filesystem::path& path)
    : path_(path), size_(sizeOfContent(path)), file_(openToRead(path)) {}

std::size_t InputFile::read(std::uint8_t* into, std::size_t count) {
  return readFully(count, [&](std::size_t done, std::size_t left) {
    return ::read(file_.number(), into + done, left);
  });
}

std::vector<std::uint8_t> InputFile::bytesAt(std::uintmax_t offset, std::size_t count) const {
  std::vector<std::uint8_t> bytes(count);
  bytes.resize(readFully(count, [&](std::size_t done, std::size_t left) {
    return pread(file_.number(), bytes.data() + done, left, static_cast<off_t>(offset + done));
  }));
  return bytes;
}

} // namespace hearthbook
