#include "SoundShelf.h"

#include "ApplicationFolder.h"
#include "Words.h"

#include <system_error>
#include <utility>

namespace hearthbook {

namespace fs = std::filesystem;

SoundShelf::SoundShelf(fs::path folder) : folder_(std::move(folder)) {
  std::error_code error;
  fs::directory_iterator entry(folder_, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    const auto dot = name.find('.');
    if (dot == std::string::npos || !fileExists(entry->path()))
      continue;
    auto& sound = sounds_[asciiLower(name.substr(0, dot))];
    if (sound.empty() || entry->path() < sound)
      sound = entry->path();
  }
  isUnreadable_ = error && error != std::errc::no_such_file_or_directory &&
                  error != std::errc::not_a_directory; // below a drive that is not there
}

std::optional<fs::path> SoundShelf::find(std::string_view name) const {
  const auto found = sounds_.find(asciiLower(name));
  return found == sounds_.end() ? std::nullopt : std::optional(found->second);
}

} // namespace hearthbook
