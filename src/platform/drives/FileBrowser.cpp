#include "FileBrowser.h"

#include "FileError.h"
#include "RunTimeError.h"
#include "Words.h"

#include <algorithm>

namespace hearthbook {

namespace {

bool endsAs(std::string_view name, std::string_view wildcard) {
  return !wildcard.empty() && name.ends_with(wildcard.substr(1)); // behind the star
}

bool nameBefore(const std::filesystem::path& left, const std::filesystem::path& right) {
  const std::string leftName = left.filename().string();
  const std::string rightName = right.filename().string();
  const std::string leftLower = asciiLower(leftName);
  const std::string rightLower = asciiLower(rightName);
  return leftLower != rightLower ? leftLower < rightLower : leftName < rightName;
}

bool liesBelow(const std::filesystem::path& folder, const std::filesystem::path& root) {
  const auto end = std::mismatch(root.begin(), root.end(), folder.begin(), folder.end()).first;
  return end == root.end() || (end->empty() && std::next(end) == root.end());
}

} // namespace

bool matchesPattern(std::string_view fileName, std::string_view pattern) {
  const std::string name = asciiLower(fileName);
  std::string_view rest = pattern;
  while (true) {
    const std::size_t end = rest.find(';');
    if (endsAs(name, rest.substr(0, end)))
      return true;
    if (end == std::string_view::npos)
      return false;
    rest.remove_prefix(end + 1);
  }
}

FolderContent readFolder(const std::filesystem::path& folder, std::string_view pattern) {
  FolderContent content;
  std::error_code failure;
  std::filesystem::directory_iterator entry(folder, failure);
  const std::filesystem::directory_iterator end;
  while (!failure && entry != end) {
    std::error_code unknown; // a dangling link is no file
    if (matchesPattern(entry->path().filename().string(), pattern) &&
        entry->is_regular_file(unknown))
      content.files.push_back(entry->path());
    entry.increment(failure);
  }
  if (failure)
    content.error =
        "The folder " + folder.string() + " cannot be read: " + causeOf(failure.value()) + ".";
  std::sort(content.files.begin(), content.files.end(), nameBefore);
  return content;
}

std::optional<std::size_t> driveOf(const std::vector<Drive>& drives,
                                   const std::filesystem::path& folder) {
  std::optional<std::size_t> best;
  for (std::size_t index = 0; index < drives.size(); ++index) {
    const std::filesystem::path& root = drives[index].root;
    if (root.empty() || !liesBelow(folder, root))
      continue;
    if (!best || root.string().size() > drives[*best].root.string().size())
      best = index;
  }
  return best;
}

std::filesystem::path driveRoot(const std::vector<Drive>& drives, char letter) {
  const auto drive = std::find_if(drives.begin(), drives.end(), [letter](const Drive& candidate) {
    return candidate.letter == letter;
  });
  std::error_code unknown;
  if (drive == drives.end() || !drive->ready ||
      !std::filesystem::is_directory(drive->root, unknown))
    throw RunTimeError(std::string("Drive ") + letter + ": is not there", 68);
  return drive->root;
}

std::string driveCaption(const Drive& drive) {
  std::string caption = {drive.letter, ':'};
  if (!drive.name.empty())
    caption += " [" + drive.name + "]";
  return caption;
}

std::filesystem::path nearestFolder(std::filesystem::path folder) {
  std::error_code unknown;
  while (!std::filesystem::is_directory(folder, unknown) && folder.has_relative_path())
    folder = folder.parent_path();
  return folder;
}

} // namespace hearthbook
