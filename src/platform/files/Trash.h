#pragma once

#include <filesystem>

namespace hearthbook {

/// Moves a file to the desktop's trash (the freedesktop layout: `$XDG_DATA_HOME/Trash`, or
/// `.Trash-uid` at the top of another file system). Where there is none, keeps it in
/// `fallbackFolder` under its own name, numbered if that is taken. Throws RunTimeError and
/// leaves the file where it is if neither can be done.
void moveToTrash(const std::filesystem::path& file, const std::filesystem::path& fallbackFolder);

/// Keeps a copy of a file in the same manner, while the file stays in its place until another is
/// put there: at no moment is it in neither. Throws RunTimeError if the copy can be kept nowhere.
void copyToTrash(const std::filesystem::path& file, const std::filesystem::path& fallbackFolder);

} // namespace hearthbook
