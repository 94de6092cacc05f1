#include "Drives.h"

#include "Mounts.h"

#include "Spelling.h"
#include "Words.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <system_error>

#include <sys/statvfs.h>

namespace hearthbook {
namespace fs = std::filesystem;
namespace {

bool isOpticalName(const std::string& name) { return name.starts_with("sr"); }

void addUnique(std::vector<std::string>& names, const std::string& name) {
  if (std::ranges::find(names, name) == names.end())
    names.push_back(name);
}

/// The line "drive name:  sr1  sr0" of the kernel's list.
void addFromCdromInfo(const fs::path& proc, std::vector<std::string>& names) {
  std::ifstream info(proc / "sys" / "dev" / "cdrom" / "info");
  constexpr std::string_view title = "drive name:";
  for (std::string line; std::getline(info, line);) {
    if (!line.starts_with(title))
      continue;
    std::istringstream columns(line.substr(title.size()));
    for (std::string name; columns >> name;)
      addUnique(names, name);
  }
}

void addFromBlockDevices(const fs::path& sys, std::vector<std::string>& names) {
  std::error_code error;
  fs::directory_iterator device(sys / "block", error);
  for (; !error && device != fs::directory_iterator(); device.increment(error)) {
    if (const std::string name = device->path().filename().string(); isOpticalName(name))
      addUnique(names, name);
  }
}

/// sr0, sr1, ..., sr10: the order in which the kernel found them.
std::vector<std::string> opticalDevices(const DriveRoots& roots) {
  std::vector<std::string> names;
  addFromCdromInfo(roots.proc, names);
  addFromBlockDevices(roots.sys, names);
  std::ranges::sort(names, [](const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
  });
  return names;
}

bool isDiscFileSystem(const Mount& mount) {
  return mount.type == "iso9660" || mount.type == "udf" || mount.type == "fuse.fuseiso";
}

/// The kernel's mark on the disk that a device such as "/dev/sdb1" is a part of.
bool isMarkedRemovable(const fs::path& sys, const std::string& device) {
  const std::string name = fs::path(device).filename().string();
  std::error_code error;
  fs::directory_iterator disk(sys / "block", error);
  for (; !error && disk != fs::directory_iterator(); disk.increment(error)) {
    if (!name.starts_with(disk->path().filename().string()))
      continue;
    char mark = '0';
    std::ifstream(disk->path() / "removable") >> mark;
    return mark == '1';
  }
  return false;
}

bool isRemovable(const fs::path& sys, const Mount& mount) {
  const std::string point = mount.point.string();
  return mount.device.starts_with("/dev/") &&
         (point.starts_with("/media/") || point.starts_with("/run/media/") ||
          isMarkedRemovable(sys, mount.device));
}

std::string nameOf(const fs::path& point) { return point.filename().string(); }

/// Gives letters from "d" on, as long as there are any.
class LetterList {
public:
  void add(Drive drive) {
    if (next_ > 'z')
      return;
    drive.letter = next_++;
    drives_.push_back(std::move(drive));
  }
  void addMounted(Drive::Type type, const fs::path& point) {
    add({.type = type, .ready = true, .root = point, .name = nameOf(point)});
  }
  void addEmpty(const std::string& device) {
    add({.type = Drive::Type::CdRom, .ready = false, .root = {}, .name = device});
  }
  [[nodiscard]] std::vector<Drive> take() { return std::move(drives_); }

private:
  std::vector<Drive> drives_{
      {.letter = 'c', .type = Drive::Type::Fixed, .ready = true, .root = "/", .name = "/"}};
  char next_ = 'd';
};

void addOptical(const DriveRoots& roots, const std::vector<Mount>& mounts, LetterList& letters) {
  const auto devices = opticalDevices(roots);
  for (const std::string& device : devices) {
    const auto mount = std::ranges::find(mounts, "/dev/" + device, &Mount::device);
    if (mount == mounts.end())
      letters.addEmpty(device);
    else
      letters.addMounted(Drive::Type::CdRom, mount->point);
  }
  // An image of a disc that the family has mounted serves as the disc itself.
  for (const Mount& mount : mounts) {
    const std::string device = fs::path(mount.device).filename().string();
    if (isDiscFileSystem(mount) && std::ranges::find(devices, device) == devices.end())
      letters.addMounted(Drive::Type::CdRom, mount.point);
  }
}

void addRemovable(const DriveRoots& roots, const std::vector<Mount>& mounts, LetterList& letters) {
  for (const Mount& mount : mounts) {
    const bool optical =
        isDiscFileSystem(mount) || isOpticalName(fs::path(mount.device).filename().string());
    if (!optical && isRemovable(roots.sys, mount))
      letters.addMounted(Drive::Type::Removable, mount.point);
  }
}

void addHome(LetterList& letters) {
  const char* home = std::getenv("HOME");
  if (home && fs::path(home).is_absolute() && fs::path(home) != "/")
    letters.addMounted(Drive::Type::Fixed, home);
}

/// The path below `root`, each part in the spelling that is there: old discs shout.
fs::path spelledBelow(fs::path root, const std::string& rest) {
  std::istringstream parts(rest);
  for (std::string part; std::getline(parts, part, '/');) {
    if (!part.empty())
      root /= spellingIn(root, part);
  }
  return root;
}

} // namespace

Drives::Drives(DriveRoots roots) : roots_(std::move(roots)) {}

std::vector<Drive> Drives::enumerate() const {
  const std::vector<Mount> mounts = readMounts(roots_.mountinfo);
  LetterList letters;
  addOptical(roots_, mounts, letters);
  addRemovable(roots_, mounts, letters);
  addHome(letters);
  return letters.take();
}

bool takesFiles(const Drive& drive) {
  struct statvfs disk {};
  return drive.ready && ::statvfs(drive.root.c_str(), &disk) == 0 && disk.f_bavail > 0 &&
         disk.f_bfree > 0 && (disk.f_flag & ST_RDONLY) == 0;
}

fs::path realPath(const std::vector<Drive>& drives, std::string_view letterPath) {
  std::string text(letterPath);
  std::ranges::replace(text, '\\', '/');
  if (text.size() > 1 && text[1] == ':') {
    const auto drive = std::ranges::find_if(drives, [&](const Drive& candidate) {
      return candidate.ready && sameIgnoringCase({&candidate.letter, 1}, text.substr(0, 1));
    });
    if (drive != drives.end())
      return spelledBelow(drive->root, text.substr(2));
  }
  // Below a device nothing can ever exist or be made.
  return "/dev/null/" + text;
}

} // namespace hearthbook
