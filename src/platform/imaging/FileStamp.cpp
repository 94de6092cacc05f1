#include "FileStamp.h"

#include <sys/stat.h>

namespace hearthbook {

std::optional<FileStamp> stampOf(const std::filesystem::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0)
    return {};
  return FileStamp{status.st_mtim.tv_sec, status.st_mtim.tv_nsec,
                   static_cast<std::uint64_t>(status.st_size), status.st_ino};
}

} // namespace hearthbook
