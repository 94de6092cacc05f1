#pragma once

#include "Drives.h"

#include <filesystem>
#include <string>
#include <vector>

namespace hearthbook::test {

/// What the kernel tells of drives, told by a test instead.
class FakeDrives {
public:
  /// Makes an empty machine in `folder`.
  explicit FakeDrives(std::filesystem::path folder);

  [[nodiscard]] DriveRoots roots() const;

  /// The kernel's list of optical drives, in the order of its columns.
  void listOptical(const std::vector<std::string>& names) const;
  /// A disk, as "sda", that can be taken out or not.
  void addDisk(const std::string& name, bool removable = false) const;
  void mount(const std::string& device, const std::filesystem::path& point,
             const std::string& type = "iso9660") const;
  void unmountAll() const;
  void addMountLine(const std::string& line) const;

  /// An optical drive with a disc that is the folder `disc`.
  void insertDisc(const std::string& name, const std::filesystem::path& disc) const;

private:
  std::filesystem::path folder_;
};

} // namespace hearthbook::test
