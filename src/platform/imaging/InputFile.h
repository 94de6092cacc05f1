#pragma once

#include "FileDescriptor.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace hearthbook {

/// A picture file open for reading. Folders, pipes and empty files are refused.
class InputFile {
public:
  explicit InputFile(const std::filesystem::path& path); ///< throws RunTimeError

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  [[nodiscard]] std::uintmax_t size() const { return size_; }
  [[nodiscard]] int descriptor() const { return file_.number(); }

  /// The next bytes, fewer at the end of the file or where the disk fails.
  std::size_t read(std::uint8_t* into, std::size_t count);
  /// Bytes from a place of the file; does not move the reading.
  [[nodiscard]] std::vector<std::uint8_t> bytesAt(std::uintmax_t offset, std::size_t count) const;

private:
  std::filesystem::path path_;
  std::uintmax_t size_; // asked before opening, which would wait for the other end of a pipe
  FileDescriptor file_;
};

/// Throws the RunTimeError of a picture file that cannot be shown.
[[noreturn]] void cannotReadPicture(const std::filesystem::path& path, const std::string& cause);

} // namespace hearthbook
