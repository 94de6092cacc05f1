#include "FileError.h"

#include <cerrno>
#include <system_error>

namespace hearthbook {

std::string causeOf(int error) {
  switch (error) {
  case ENOSPC:
  case EDQUOT:
    return "the disk is full";
  case EROFS:
    return "the disk can only be read";
  case EACCES:
  case EPERM:
    return "access is not allowed";
  case ENOENT:
    return "it is not there";
  case EIO:
    return "the disk failed";
  case EISDIR:
    return "it is a folder";
  case ENOTDIR:
    return "a part of its path is not a folder";
  case ENAMETOOLONG:
    return "its name is too long";
  default:
    return std::generic_category().message(error);
  }
}

namespace {

std::string failureText(const std::string& action, const std::filesystem::path& file, int error) {
  return "Cannot " + action + " \"" + file.string() + "\": " + causeOf(error) + ".";
}

} // namespace

void throwFileError(const std::string& action, const std::filesystem::path& file, int error) {
  throw RunTimeError(failureText(action, file, error));
}

void throwUnreadable(const std::filesystem::path& file, int error) {
  throw UnreadableFile(failureText("read", file, error));
}

} // namespace hearthbook
