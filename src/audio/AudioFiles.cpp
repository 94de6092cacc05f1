#include "AudioFiles.h"

#include "PhotoIdentity.h"
#include "SafeFile.h"
#include "Spelling.h"
#include "Trash.h"

#include <algorithm>
#include <vector>

namespace hearthbook {

namespace {

constexpr const char* audioFolder = "\\Audio\\";
constexpr std::size_t extensionLength = 4; // ".wav", ".mid"

std::vector<std::filesystem::path> soundsOf(const Album& album, std::string_view name) {
  return album.folder.filesWithStem(audioFolder, name);
}

} // namespace

std::string photoAudioName(std::string_view pictureId) { return stemOf(pictureId); }

std::string albumAudioName(std::int64_t albumId) { return "A" + std::to_string(albumId); }

std::string soundExtension(const std::filesystem::path& file) {
  const std::string name = file.filename().string();
  return name.substr(name.size() - std::min(name.size(), extensionLength));
}

std::optional<std::filesystem::path> attachedAudio(const Album& album, std::string_view name) {
  const auto sounds = soundsOf(album, name);
  return sounds.empty() ? std::nullopt : std::optional(sounds.front());
}

void attachAudio(const Album& album, std::string_view name, const std::filesystem::path& source) {
  const auto folder = album.folder.path(audioFolder);
  const std::string target = std::string(name) + soundExtension(source);
  StagedCopy copy(source, folder); // first: the source may be one of those that go
  removeAudio(album, name);
  copy.place(folder / target);
}

void removeAudio(const Album& album, std::string_view name) {
  for (const auto& sound : soundsOf(album, name))
    putAwayAudio(album, sound);
}

std::filesystem::path recordingFile(const Album& album, std::string_view name) {
  const auto folder = album.folder.path(audioFolder);
  return folder / spellingIn(folder, std::string(name) + ".wav");
}

void putAwayAudio(const Album& album, const std::filesystem::path& file) {
  if (fileExists(file))
    moveToTrash(file, album.folder.path("\\Backup"));
}

} // namespace hearthbook
