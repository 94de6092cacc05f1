#include "ApplicationFolder.h"

#include "FileError.h"
#include "SafeFile.h"
#include "Spelling.h"
#include "Words.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace hearthbook {
namespace fs = std::filesystem;
namespace {

constexpr std::array canonicalFolders = {"Data",  "Backup", "Photos", "Thumbnails",
                                         "Audio", "Media",  "help",   "export"};
/// What belongs to the program and is the same for every family.
constexpr std::array programFolders = {"Media", "help", "export"};
/// What belongs to the family. The databases come last: while they are missing, the folder
/// counts as not yet filled.
constexpr std::array albumFolders = {"Photos", "Thumbnails", "Audio", "Data"};
/// The program's too, but among the sounds of the family.
constexpr std::array programSounds = {"8Bit.wav", "16Bit.wav"};
constexpr const char* albumFile = "Photo_Album.mdb";
constexpr const char* helpFile = "Help.mdb";

std::string withSlashes(std::string_view relative) {
  std::string text(relative);
  std::ranges::replace(text, '\\', '/');
  const auto first = text.find_first_not_of('/');
  const auto last = text.find_last_not_of('/');
  return first == std::string::npos ? std::string() : text.substr(first, last - first + 1);
}

std::string canonicalSpelling(std::string_view name) {
  const auto* found = std::ranges::find_if(
      canonicalFolders, [&](const char* known) { return sameIgnoringCase(known, name); });
  return found == canonicalFolders.end() ? std::string(name) : std::string(*found);
}

bool isWritable(const fs::path& folder) { return access(folder.c_str(), W_OK | X_OK) == 0; }

bool isFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

/// By name as people read it; only where the case alone differs is that looked at.
std::pair<std::string, fs::path> orderOfNames(const fs::path& file) {
  return {asciiLower(file.filename().string()), file};
}

void makeFolders(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error)
    throwFileError("make the folder", folder, error.value());
}

void copyUnlessThere(const fs::path& source, const fs::path& copy) {
  std::error_code ignored;
  if (fileExists(source) && !fs::exists(fs::symlink_status(copy, ignored)))
    copyFileSafely(source, copy);
}

/// Copies what the target does not have yet, whole file by whole file.
void addMissing(const fs::path& source, const fs::path& target) {
  if (!isFolder(source))
    return;
  makeFolders(target);
  for (const auto& entry : fs::recursive_directory_iterator(source)) {
    const fs::path copy = target / entry.path().lexically_relative(source);
    if (entry.is_directory())
      makeFolders(copy);
    else
      copyUnlessThere(entry.path(), copy);
  }
}

bool holdsAlbum(const ApplicationFolder& folder) {
  return fileExists(folder.path("Data") / albumFile) ||
         fileExists(folder.path("Backup") / albumFile);
}

void fill(const ApplicationFolder& user, const ApplicationFolder& program) {
  for (const char* name : programFolders)
    addMissing(program.path(name), user.path(name));
  makeFolders(user.path("Data"));
  copyUnlessThere(program.path("Data") / helpFile, user.path("Data") / helpFile);
  makeFolders(user.path("Audio"));
  for (const char* name : programSounds)
    copyUnlessThere(program.path("Audio") / name, user.path("Audio") / name);
  if (holdsAlbum(user))
    return;
  for (const char* name : albumFolders)
    addMissing(program.path(name), user.path(name));
}

} // namespace

ApplicationFolder::ApplicationFolder(fs::path root) : root_(std::move(root)) {}

ApplicationFolder ApplicationFolder::forProgram(const fs::path& programFile,
                                                const fs::path& userFolder) {
  std::error_code error;
  const fs::path real = fs::canonical(programFile, error);
  ApplicationFolder program((error ? fs::absolute(programFile) : real).parent_path());
  if (isWritable(program.root()) && isFolder(program.path("Data")))
    return program;
  ApplicationFolder user(userFolder);
  try {
    fill(user, program);
  } catch (const fs::filesystem_error& failure) {
    throwFileError("read", failure.path1(), failure.code().value());
  }
  return user;
}

fs::path ApplicationFolder::path(std::string_view relative) const {
  const std::string text = withSlashes(relative);
  if (text.empty())
    return root_;
  const auto end = std::min(text.find('/'), text.size());
  const fs::path folder = root_ / spellingIn(root_, canonicalSpelling(text.substr(0, end)));
  return end == text.size() ? folder : folder / text.substr(end + 1);
}

std::vector<fs::path> ApplicationFolder::filesWithStem(std::string_view folder,
                                                       std::string_view stem) const {
  std::vector<fs::path> files;
  if (stem.empty())
    return files;
  const std::string start = std::string(stem) + ".";
  std::error_code error;
  fs::directory_iterator entry(path(folder), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (sameIgnoringCase(name.substr(0, start.size()), start) && fileExists(entry->path()))
      files.push_back(entry->path());
  }
  std::ranges::sort(files, {}, orderOfNames);
  return files;
}

bool fileExists(const fs::path& path) {
  std::error_code ignored;
  const auto status = fs::status(path, ignored);
  return fs::exists(status) && !fs::is_directory(status);
}

} // namespace hearthbook
