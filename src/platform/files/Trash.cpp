#include "Trash.h"

#include "FileDescriptor.h"
#include "FileError.h"
#include "SafeFile.h"
#include "Words.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hearthbook {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view infoSuffix = ".trashinfo";
constexpr std::size_t longestName = 255; // bytes, on the file systems that matter

struct TrashCan {
  fs::path folder;
  fs::path namedFrom; ///< paths are noted relative to this; empty: absolute
};

fs::path absoluteFolder(const char* variable) {
  const char* value = std::getenv(variable);
  const fs::path folder = value ? value : "";
  return folder.is_absolute() ? folder : fs::path();
}

/// Empty where the session has no home: then there is no desktop either.
fs::path homeTrash() {
  if (const fs::path data = absoluteFolder("XDG_DATA_HOME"); !data.empty())
    return data / "Trash";
  const fs::path home = absoluteFolder("HOME");
  return home.empty() ? fs::path() : home / ".local" / "share" / "Trash";
}

std::optional<struct stat> statusOf(const fs::path& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

/// The device of the path, or of the nearest folder above that is there.
std::optional<dev_t> deviceOf(fs::path path) {
  struct stat status {};
  while (::stat(path.c_str(), &status) != 0) {
    if (path == path.parent_path())
      return std::nullopt;
    path = path.parent_path();
  }
  return status.st_dev;
}

/// The top folder of the file system that holds `folder`.
fs::path topFolder(fs::path folder) {
  const auto device = deviceOf(folder);
  while (folder != folder.parent_path() && deviceOf(folder.parent_path()) == device)
    folder = folder.parent_path();
  return folder;
}

/// A shared trash is to be used only if it is a real folder with the sticky bit.
bool isSharedTrash(const fs::path& folder) {
  const auto status = statusOf(folder);
  return status && S_ISDIR(status->st_mode) && (status->st_mode & S_ISVTX) != 0;
}

std::vector<TrashCan> cansFor(const fs::path& file) {
  std::vector<TrashCan> cans;
  const fs::path home = homeTrash();
  if (home.empty())
    return cans;
  if (deviceOf(home) == deviceOf(file.parent_path()))
    return {{home, {}}};
  const fs::path top = topFolder(file.parent_path());
  const std::string user = std::to_string(getuid());
  if (isSharedTrash(top / ".Trash"))
    cans.push_back({top / ".Trash" / user, top});
  cans.push_back({top / (".Trash-" + user), top});
  return cans;
}

bool makePrivateFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder.parent_path(), error);
  if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
    return false;
  const auto status = statusOf(folder);
  return status && S_ISDIR(status->st_mode) && status->st_uid == getuid();
}

bool prepare(const TrashCan& can) {
  return makePrivateFolder(can.folder) && makePrivateFolder(can.folder / "files") &&
         makePrivateFolder(can.folder / "info");
}

std::string percentEncoded(const std::string& path) {
  constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                     "0123456789-._~/";
  std::string text;
  for (const char c : path) {
    if (plain.find(c) != std::string_view::npos) {
      text += c;
      continue;
    }
    std::array<char, 4> code{};
    std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned char>(c));
    text += code.data();
  }
  return text;
}

std::string timeNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &local);
  return text.data();
}

std::string infoText(const TrashCan& can, const fs::path& file) {
  const fs::path named = can.namedFrom.empty() ? file : file.lexically_relative(can.namedFrom);
  return "[Trash Info]\nPath=" + percentEncoded(named.string()) + "\nDeletionDate=" + timeNow() +
         "\n";
}

/// "00012.jpg", "00012 (2).jpg", "00012 (3).jpg", ..., short enough for `room` more bytes.
std::string numberedName(const fs::path& file, int number, std::size_t room) {
  const std::string ending =
      (number == 1 ? "" : " (" + std::to_string(number) + ")") + file.extension().string();
  const std::size_t taken = room + ending.size();
  if (taken >= longestName)
    return std::string(beginningOf(file.filename().string(), longestName - room));
  return std::string(beginningOf(file.stem().string(), longestName - taken)) + ending;
}

/// Notes where the file came from; false if that name is taken. The note is made before the
/// file moves, so that no file lies in the trash without one.
bool makeInfo(const fs::path& info, const std::string& text) {
  FileDescriptor file(::open(info.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (!file.isOpen() && errno == EEXIST)
    return false;
  if (!file.isOpen())
    throwFileError("write", info, errno);
  const bool written =
      ::write(file.number(), text.data(), text.size()) == static_cast<ssize_t>(text.size()) &&
      ::fsync(file.number()) == 0;
  if (written)
    return true;
  const int cause = errno;
  ::unlink(info.c_str());
  throwFileError("write", info, cause);
}

/// Moves a file to a name that nothing has; errno tells why it could not.
bool moveToFreeName(const fs::path& file, const fs::path& target) {
  if (::renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0)
    return true;
  if (errno != EINVAL && errno != ENOSYS)
    return false;
  // The file system cannot promise it: look, then move.
  if (statusOf(target)) {
    errno = EEXIST;
    return false;
  }
  return ::rename(file.c_str(), target.c_str()) == 0;
}

/// A second name for the file, which what takes its place later leaves alone; else a copy.
bool copyToFreeName(const fs::path& file, const fs::path& target) {
  if (::link(file.c_str(), target.c_str()) == 0)
    return true;
  if (errno == EEXIST || statusOf(target)) {
    errno = EEXIST;
    return false;
  }
  copyFileSafely(file, target);
  return true;
}

/// Brings a file to a name that nothing has; false, with errno, where it cannot.
using Bring = bool (*)(const fs::path& file, const fs::path& target);

/// The note of a file that is not in the trash goes with the attempt.
class TrashNote {
public:
  explicit TrashNote(fs::path info) : info_(std::move(info)) {}
  ~TrashNote() {
    if (!isKept_)
      ::unlink(info_.c_str());
  }
  TrashNote(const TrashNote&) = delete;
  TrashNote& operator=(const TrashNote&) = delete;
  void keep() { isKept_ = true; }

private:
  fs::path info_;
  bool isKept_ = false;
};

/// One try under one name; false if the name is taken.
bool putInto(const TrashCan& can, const fs::path& file, const std::string& name, Bring bring) {
  const fs::path info = can.folder / "info" / (name + std::string(infoSuffix));
  if (!makeInfo(info, infoText(can, file)))
    return false;
  TrashNote note(info);
  flushToDisk(info.parent_path());
  if (bring(file, can.folder / "files" / name)) {
    note.keep();
    flushToDisk(can.folder / "files");
    flushToDisk(file.parent_path());
    return true;
  }
  if (errno == EEXIST)
    return false;
  throwFileError("move to the trash", file, errno);
}

bool tryTrash(const TrashCan& can, const fs::path& file, Bring bring) {
  if (!prepare(can))
    return false;
  for (int number = 1;; ++number) {
    if (putInto(can, file, numberedName(file, number, infoSuffix.size()), bring))
      return true;
  }
}

/// A trash that refuses is passed over: the file is then kept elsewhere.
bool tryTrashes(const fs::path& file, Bring bring) {
  for (const TrashCan& can : cansFor(file)) {
    try {
      if (tryTrash(can, file, bring))
        return true;
    } catch (const std::runtime_error&) {
      if (!statusOf(file))
        throw;
    }
  }
  return false;
}

fs::path freeName(const fs::path& file, const fs::path& folder) {
  for (int number = 1;; ++number) {
    fs::path target = folder / numberedName(file, number, 0);
    if (!statusOf(target))
      return target;
  }
}

bool moveOverDisks(const fs::path& file, const fs::path& target) {
  if (moveToFreeName(file, target))
    return true;
  if (errno != EXDEV)
    return false;
  copyFileSafely(file, target);
  deleteFile(file);
  return true;
}

void keepIn(const fs::path& folder, const fs::path& file, Bring bring) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (!bring(file, freeName(file, folder)))
    throwFileError("keep a copy of", file, errno);
  flushToDisk(folder);
  flushToDisk(file.parent_path());
}

/// The file by the true name of its folder; throws where it is not there.
fs::path trueName(const fs::path& file) {
  std::error_code error;
  const fs::path folder = fs::canonical(fs::absolute(file).parent_path(), error);
  fs::path place = folder / file.filename();
  if (error || !statusOf(place))
    throwFileError("delete", file, ENOENT);
  return place;
}

} // namespace

void moveToTrash(const fs::path& file, const fs::path& fallbackFolder) {
  const fs::path place = trueName(file);
  if (!tryTrashes(place, moveToFreeName))
    keepIn(fallbackFolder, place, moveOverDisks);
}

void copyToTrash(const fs::path& file, const fs::path& fallbackFolder) {
  const fs::path place = trueName(file);
  if (!tryTrashes(place, copyToFreeName))
    keepIn(fallbackFolder, place, copyToFreeName);
}

} // namespace hearthbook
