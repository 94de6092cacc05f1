#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// A drive as the program knows it: by letter.
///
/// Letters are given by us: "c" is the file system's root, "d", "e", ... the optical drives in
/// the kernel's order, then the mounted removable media and the user's home as further fixed
/// drives. A path such as "d:\Photos\00012.jpg" is turned into a real path by realPath().
struct Drive {
  enum class Type { Unknown = 0, Removable = 1, Fixed = 2, Network = 3, CdRom = 4, RamDisk = 5 };

  char letter = 'c';
  Type type = Type::Fixed;
  bool ready = false;         ///< a medium is in it and mounted
  std::filesystem::path root; ///< where it is mounted; empty while it is not ready
  std::string name;           ///< what the user sees: volume or device name
};

/// Where the kernel tells of drives; tests put trees of their own here.
struct DriveRoots {
  std::filesystem::path proc = "/proc";
  std::filesystem::path sys = "/sys";
  std::filesystem::path mountinfo = "/proc/self/mountinfo";
};

/// The drives of this machine, probed anew at each call.
class Drives {
public:
  explicit Drives(DriveRoots roots = {});
  [[nodiscard]] std::vector<Drive> enumerate() const;

private:
  DriveRoots roots_;
};

/// True if the drive is ready, has room and can be written to.
bool takesFiles(const Drive& drive);

/// "d:\Photos\00012.jpg" as a path on this machine; a path that names no known, ready drive
/// gives one that does not exist.
std::filesystem::path realPath(const std::vector<Drive>& drives, std::string_view letterPath);

} // namespace hearthbook
