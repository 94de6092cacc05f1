#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// The folder in which the album lives: `Data`, `Backup`, `Photos`, `Thumbnails`, `Audio`,
/// `Media`, `help`, `export`.
///
/// The program's texts name files as "\Thumbnails\00012.jpg", in varying case. Each of those
/// folders has one spelling on the disk; path() maps every spelling to the folder that is
/// there, or to the canonical spelling where none is.
class ApplicationFolder {
public:
  explicit ApplicationFolder(std::filesystem::path root);

  /// The folder for a program file at `programFile`: its own folder where that can be written
  /// to and holds `Data`; otherwise `userFolder`, which is filled from the program's folder at
  /// the first start (databases, pictures, help; existing files are never touched).
  static ApplicationFolder forProgram(const std::filesystem::path& programFile,
                                      const std::filesystem::path& userFolder);

  [[nodiscard]] const std::filesystem::path& root() const { return root_; }

  /// "\Photos\00012.jpg" or "/photos/00012.jpg" below this folder. The first component is
  /// matched without regard to case; what follows is taken as it stands.
  [[nodiscard]] std::filesystem::path path(std::string_view relative) const;

  /// Files of one folder whose name matches `stem` and ".*" ("00012.*"), by name.
  [[nodiscard]] std::vector<std::filesystem::path> filesWithStem(std::string_view folder,
                                                                 std::string_view stem) const;

private:
  std::filesystem::path root_;
};

/// True if `path` names a file that is there. Never throws.
bool fileExists(const std::filesystem::path& path);

} // namespace hearthbook
