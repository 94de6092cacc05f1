#pragma once

#include "FileDescriptor.h"

#include <cstddef>
#include <filesystem>

namespace hearthbook {

/// All bytes, however the system cuts them; false with errno set if it refuses.
bool writeAll(int file, const char* bytes, std::size_t count);

/// Throws UnreadableFile.
FileDescriptor openToRead(const std::filesystem::path& file);

/// Copies what an open file holds from where it stands on. The names are for the errors:
/// UnreadableFile for the source, a plain RunTimeError for the target.
void copyBytes(int source, const std::filesystem::path& sourceName, int target,
               const std::filesystem::path& targetName);

} // namespace hearthbook
