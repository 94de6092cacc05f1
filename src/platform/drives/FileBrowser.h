#pragma once

#include "Drives.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

// What one sees who goes through the folders of the machine, as values.

/// True if the file's name ends as one of the pattern's ("*.wav;*.mid"), without regard to case.
/// An empty pattern is nobody's.
bool matchesPattern(std::string_view fileName, std::string_view pattern);

/// What a folder holds for the file list.
struct FolderContent {
  std::vector<std::filesystem::path> files; ///< by name, without regard to case
  std::string error;                        ///< why the folder cannot be read; empty if it can

  bool operator==(const FolderContent&) const = default;
};

/// Reads which files of the pattern a folder holds. Never throws, so that it can run beside the
/// window's thread.
FolderContent readFolder(const std::filesystem::path& folder, std::string_view pattern);

/// The index of the drive on which the folder lies: the ready one with the longest root that
/// the folder begins with.
std::optional<std::size_t> driveOf(const std::vector<Drive>& drives,
                                   const std::filesystem::path& folder);

/// The drive's root folder. Throws RunTimeError 68 where there is no such drive now.
std::filesystem::path driveRoot(const std::vector<Drive>& drives, char letter);

/// How the drive reads in the list: "c: [Computer]".
std::string driveCaption(const Drive& drive);

/// The folder itself, or the nearest one above it that is there.
std::filesystem::path nearestFolder(std::filesystem::path folder);

} // namespace hearthbook
