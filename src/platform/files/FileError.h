#pragma once

#include "RunTimeError.h"

#include <filesystem>
#include <string>

namespace hearthbook {

/// What the system's error number says, in words that a user can read.
std::string causeOf(int error);

/// Throws RunTimeError: `Cannot write "/home/ann/00012.jpg": the disk is full.`
[[noreturn]] void throwFileError(const std::string& action, const std::filesystem::path& file,
                                 int error);

/// A file that was to be copied cannot be read: for those who go on without it.
class UnreadableFile : public RunTimeError {
public:
  using RunTimeError::RunTimeError;
};

/// Throws UnreadableFile.
[[noreturn]] void throwUnreadable(const std::filesystem::path& file, int error);

} // namespace hearthbook
