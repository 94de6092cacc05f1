#include "SafeFile.h"

#include "CopyBytes.h"
#include "FileDescriptor.h"
#include "FileError.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <ostream>
#include <streambuf>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>

namespace hearthbook {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view partStart = ".hearthbook-";
constexpr std::string_view partEnd = ".part";

/// Lets a std::ostream write to an open file and remembers why the system refused.
class FileBuffer : public std::streambuf {
public:
  explicit FileBuffer(int file) : file_(file) { setp(buffer_.data(), buffer_.data() + size); }
  [[nodiscard]] int error() const { return error_; }

protected:
  int overflow(int character) override {
    if (sync() != 0)
      return traits_type::eof();
    if (traits_type::eq_int_type(character, traits_type::eof()))
      return traits_type::not_eof(character);
    return sputc(traits_type::to_char_type(character));
  }

  int sync() override {
    const auto waiting = static_cast<std::size_t>(pptr() - pbase());
    setp(buffer_.data(), buffer_.data() + size);
    return put(buffer_.data(), waiting) ? 0 : -1;
  }

  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    if (count <= epptr() - pptr()) {
      std::memcpy(pptr(), bytes, static_cast<std::size_t>(count));
      pbump(static_cast<int>(count));
      return count;
    }
    return sync() == 0 && put(bytes, static_cast<std::size_t>(count)) ? count : 0;
  }

private:
  static constexpr std::size_t size = 65536;

  bool put(const char* bytes, std::size_t count) {
    if (error_ == 0 && !writeAll(file_, bytes, count))
      error_ = errno;
    return error_ == 0;
  }

  int file_;
  int error_ = 0;
  std::array<char, size> buffer_{};
};

/// A name that no other write uses. It is made without the file's own name, so that a name as
/// long as the file system allows can be written too.
fs::path nextPartName(const fs::path& folder) {
  static std::atomic<unsigned> count{0};
  return folder / (std::string(partStart) + std::to_string(getpid()) + "-" +
                   std::to_string(++count) + std::string(partEnd));
}

/// The process that a temporary name belongs to; 0 if the name is not one of ours.
pid_t ownerOf(std::string_view name) {
  if (!name.starts_with(partStart) || !name.ends_with(partEnd))
    return 0;
  pid_t owner = 0;
  std::from_chars(name.data() + partStart.size(), name.data() + name.size(), owner);
  return owner;
}

/// Another running program may be writing in the folder at this moment.
bool isAbandoned(std::string_view name) {
  const pid_t owner = ownerOf(name);
  return owner > 0 && (owner == getpid() || (::kill(owner, 0) != 0 && errno == ESRCH));
}

} // namespace

/// The temporary file beside a target: removed unless it has taken the target's place.
class PartFile {
public:
  explicit PartFile(const fs::path& target) : target_(target), file_(create()) {}
  ~PartFile() {
    if (!placed_)
      ::unlink(part_.c_str());
  }
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;

  [[nodiscard]] int number() const { return file_.number(); }
  void copyFrom(const fs::path& source);

  /// All of it is on the disk, under its temporary name.
  void finish() {
    if (::fsync(file_.number()) != 0 || !file_.close())
      throwFileError("write", target_, errno);
  }

  void place(const fs::path& target) {
    if (::rename(part_.c_str(), target.c_str()) != 0)
      throwFileError("write", target, errno);
    placed_ = true;
    flushToDisk(folderOf(target));
  }

private:
  int create() {
    for (;;) {
      part_ = nextPartName(folderOf(target_));
      const int file = ::open(part_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
      if (file >= 0)
        return file;
      if (errno != EEXIST)
        throwFileError("write", target_, errno);
    }
  }

  fs::path target_;
  fs::path part_;
  bool placed_ = false;
  FileDescriptor file_;
};

void PartFile::copyFrom(const fs::path& source) {
  const FileDescriptor from = openToRead(source);
  copyBytes(from.number(), source, number(), target_);
}

void replaceFile(const fs::path& target, const std::function<void(std::ostream&)>& write,
                 const std::function<void()>& beforePlacing) {
  PartFile part(target);
  FileBuffer buffer(part.number());
  std::ostream stream(&buffer);
  write(stream);
  stream.flush();
  if (!stream)
    throwFileError("write", target, buffer.error() != 0 ? buffer.error() : EIO);
  part.finish();
  if (beforePlacing)
    beforePlacing();
  part.place(target);
}

void copyFileSafely(const fs::path& source, const fs::path& target) {
  PartFile part(target);
  part.copyFrom(source);
  part.finish();
  part.place(target);
}

StagedCopy::StagedCopy(const fs::path& source, const fs::path& folder)
    : part_(std::make_unique<PartFile>(folder / source.filename())) {
  part_->copyFrom(source);
  part_->finish();
}

StagedCopy::~StagedCopy() = default;

void StagedCopy::place(const fs::path& target) { part_->place(target); }

fs::path folderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

void deleteFile(const fs::path& file) {
  if (::unlink(file.c_str()) == 0)
    flushToDisk(folderOf(file));
  else if (errno != ENOENT)
    throwFileError("delete", file, errno);
}

void flushToDisk(const fs::path& fileOrFolder) {
  const FileDescriptor file(::open(fileOrFolder.c_str(), O_RDONLY | O_CLOEXEC));
  // Some file systems cannot flush a folder: they answer EINVAL and need no flush.
  if (!file.isOpen() || (::fsync(file.number()) != 0 && errno != EINVAL))
    throwFileError("flush", fileOrFolder, errno);
}

void removeLeftovers(const fs::path& folder) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    if (isAbandoned(entry->path().filename().string()))
      ::unlink(entry->path().c_str());
  }
}

} // namespace hearthbook
