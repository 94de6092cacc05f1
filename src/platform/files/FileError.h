#pragma once

#include <filesystem>
#include <string>

namespace hearthbook {

/// What the system's error number says, in words that a user can read.
std::string causeOf(int error);

/// Throws RunTimeError: `Cannot write "/home/ann/00012.jpg": the disk is full.`
[[noreturn]] void throwFileError(const std::string& action, const std::filesystem::path& file,
                                 int error);

} // namespace hearthbook
