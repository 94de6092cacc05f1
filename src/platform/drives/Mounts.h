#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace hearthbook {

/// One mounted file system, as the kernel tells of it.
struct Mount {
  std::filesystem::path point;
  std::string type;   ///< "iso9660"
  std::string device; ///< "/dev/sr0"

  bool operator==(const Mount&) const = default;
};

/// The lines of a mountinfo file; lines that cannot be read are left out.
std::vector<Mount> readMounts(const std::filesystem::path& mountinfo);

} // namespace hearthbook
