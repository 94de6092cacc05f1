#pragma once

#include <cstddef>
#include <filesystem>

namespace hearthbook::bench {

/// The resident memory of a process of its own that has opened the album and all its photos.
std::size_t residentWithOpened(const std::filesystem::path& album);

/// What that process runs: opens, and writes the number to the standard output.
int openAndTell(const char* album);

} // namespace hearthbook::bench
