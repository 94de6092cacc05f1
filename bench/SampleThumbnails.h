#pragma once

#include <filesystem>

namespace hearthbook::bench {

/// "00012.jpg" in that folder.
std::filesystem::path numbered(const std::filesystem::path& folder, int number);

/// Writes a thumbnail for each of so many photos, some of them the same.
void writeThumbnails(const std::filesystem::path& folder, int count);

} // namespace hearthbook::bench
