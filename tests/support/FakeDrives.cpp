#include "FakeDrives.h"

#include "FileBytes.h"

#include <fstream>

namespace hearthbook::test {
namespace fs = std::filesystem;
namespace {

std::string escaped(const std::string& path) {
  std::string text;
  for (const char c : path)
    text += c == ' ' ? "\\040" : std::string(1, c);
  return text;
}

} // namespace

FakeDrives::FakeDrives(fs::path folder) : folder_(std::move(folder)) { unmountAll(); }

DriveRoots FakeDrives::roots() const {
  return {folder_ / "proc", folder_ / "sys", folder_ / "mountinfo"};
}

void FakeDrives::listOptical(const std::vector<std::string>& names) const {
  std::string line = "drive name:\t";
  for (const std::string& name : names)
    line += "\t" + name;
  writeBytes(folder_ / "proc/sys/dev/cdrom/info",
             "CD-ROM information, Id: cdrom.c 3.20 2003/12/17\n\n" + line +
                 "\ndrive speed:\t\t24\nCan play audio:\t\t1\n");
}

void FakeDrives::addDisk(const std::string& name, bool removable) const {
  writeBytes(folder_ / "sys/block" / name / "removable", removable ? "1\n" : "0\n");
}

void FakeDrives::mount(const std::string& device, const fs::path& point,
                       const std::string& type) const {
  addMountLine("36 25 11:0 / " + escaped(point.string()) + " ro,relatime shared:1 - " + type + " " +
               device + " ro");
}

void FakeDrives::unmountAll() const {
  writeBytes(folder_ / "mountinfo", "25 1 254:1 / / rw,relatime - ext4 /dev/vda1 rw\n");
}

void FakeDrives::addMountLine(const std::string& line) const {
  std::ofstream(folder_ / "mountinfo", std::ios::app) << line << "\n";
}

void FakeDrives::insertDisc(const std::string& name, const fs::path& disc) const {
  addDisk(name, true);
  mount("/dev/" + name, disc);
}

} // namespace hearthbook::test
