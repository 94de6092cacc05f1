#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace hearthbook {

/// What tells one state of a file from another.
struct FileStamp {
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;
  std::uint64_t bytes = 0;
  std::uint64_t node = 0; ///< a file put in another's place is a file of its own

  bool operator==(const FileStamp&) const = default;
};

/// Nothing where the file is not there.
std::optional<FileStamp> stampOf(const std::filesystem::path& file);

} // namespace hearthbook
