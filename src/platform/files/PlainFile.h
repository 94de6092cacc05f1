#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace hearthbook {

// Files of a tree that can be made again: written in place, and not flushed one by one.

/// Throws UnreadableFile.
std::string readWholeFile(const std::filesystem::path& file);

/// Throws RunTimeError, with the file and the cause in its text.
void writePlainFile(const std::filesystem::path& target, std::string_view bytes);

/// Throws UnreadableFile where the source cannot be read, and leaves no target then; another
/// RunTimeError where the target cannot be written.
void copyPlainFile(const std::filesystem::path& source, const std::filesystem::path& target);

/// Copies a folder's files and folders into one that is there or is made; the folder above it
/// must be there.
void copyPlainTree(const std::filesystem::path& source, const std::filesystem::path& target);

/// Flushes all that was written to the disk on which the file or folder lies. Throws RunTimeError.
void flushWholeDisk(const std::filesystem::path& fileOrFolder);

/// Makes one folder, unless it is there. Throws RunTimeError where the folder above it is not.
void makePlainFolder(const std::filesystem::path& folder);

} // namespace hearthbook
