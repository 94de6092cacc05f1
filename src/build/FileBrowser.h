#pragma once

#include "Drives.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

// What the browser of Add From File shows, as values.

/// The files that can be added.
inline constexpr std::string_view picturePattern = "*.jpg;*.bmp;*.tif;*.ico;*.png;*.pcx;*.tga";

/// True if the file's name ends as one of the pattern's, without regard to case.
bool isPictureName(std::string_view fileName);

/// What a folder holds for the file list.
struct FolderContent {
  std::vector<std::filesystem::path> pictures; ///< by name, without regard to case
  std::string error;                           ///< why the folder cannot be read; empty if it can

  bool operator==(const FolderContent&) const = default;
};

/// Reads a folder. Never throws, so that it can run beside the window's thread.
FolderContent readFolder(const std::filesystem::path& folder);

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

/// What the command to add reads for a number of selected files; nothing changes it for none.
std::optional<std::string_view> insertCaption(std::size_t selected);

} // namespace hearthbook
