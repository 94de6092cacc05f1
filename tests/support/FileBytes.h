#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook::test {

/// The whole content of a file; throws if it is not there.
std::string readBytes(const std::filesystem::path& file);

/// Writes a file, and the folders above it where they are missing.
void writeBytes(const std::filesystem::path& file, std::string_view bytes);

/// The names in a folder, sorted; none if there is no such folder.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

} // namespace hearthbook::test
