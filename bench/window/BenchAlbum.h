#pragma once

#include "BigAlbum.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace hearthbook::bench {

/// An application folder with so many rows and the program's own pictures, gone with the
/// measurement.
class BenchAlbum {
public:
  explicit BenchAlbum(int photos) {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "hearthbook-window-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
      throw std::runtime_error("cannot make a temporary folder");
    path_ = pattern;
    makeBigAlbum(path_, {HEARTHBOOK_SCHEMA, HEARTHBOOK_HELP_ROWS, photos});
    std::filesystem::copy(std::filesystem::path(HEARTHBOOK_STAGED) / "Media", path_ / "Media",
                          std::filesystem::copy_options::recursive);
  }
  ~BenchAlbum() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  BenchAlbum(const BenchAlbum&) = delete;
  BenchAlbum& operator=(const BenchAlbum&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
  std::filesystem::path path_;
};

} // namespace hearthbook::bench
