#include "PrivateMount.h"

#include <cerrno>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace hearthbook::test {
namespace fs = std::filesystem;
namespace {

void require(int result, const char* what) {
  if (result != 0)
    throw std::system_error(errno, std::generic_category(), what);
}

void writeLine(const char* file, const std::string& line) { std::ofstream(file) << line; }

/// A user without rights becomes root of a name space that holds only this process.
bool enterNameSpace() {
  const auto user = std::to_string(geteuid());
  const auto group = std::to_string(getegid());
  const bool root = geteuid() == 0;
  if (unshare(root ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) != 0)
    return false;
  if (!root) {
    writeLine("/proc/self/setgroups", "deny");
    writeLine("/proc/self/uid_map", "0 " + user + " 1");
    writeLine("/proc/self/gid_map", "0 " + group + " 1");
  }
  return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool canMountOn(const fs::path& folder) {
  if (mount("none", folder.c_str(), "tmpfs", 0, "size=64k") != 0)
    return false;
  return umount(folder.c_str()) == 0;
}

} // namespace

bool canMountPrivately() {
  static const bool possible = enterNameSpace() && canMountOn("/mnt");
  return possible;
}

ReadOnlyMount::ReadOnlyMount(const fs::path& folder) : folder_(folder) {
  require(mount(folder.c_str(), folder.c_str(), nullptr, MS_BIND, nullptr), "mount");
  require(mount("none", folder.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr),
          "mount");
}

ReadOnlyMount::~ReadOnlyMount() { umount2(folder_.c_str(), MNT_DETACH); }

SmallDisk::SmallDisk(const fs::path& folder, std::size_t bytes) : folder_(folder) {
  fs::create_directories(folder);
  const std::string options = "size=" + std::to_string(bytes);
  require(mount("none", folder.c_str(), "tmpfs", 0, options.c_str()), "mount");
}

SmallDisk::~SmallDisk() { umount2(folder_.c_str(), MNT_DETACH); }

void SmallDisk::fillUpTo(std::size_t bytesLeft) const {
  struct statvfs room {};
  require(statvfs(folder_.c_str(), &room), "statvfs");
  const std::size_t free = room.f_bavail * room.f_bsize;
  const std::string filling(free > bytesLeft ? free - bytesLeft : 0, 'x');
  std::ofstream(folder_ / ".filling", std::ios::binary) << filling;
}

void SmallDisk::makeRoom() const { fs::remove(folder_ / ".filling"); }

} // namespace hearthbook::test
