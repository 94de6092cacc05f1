#pragma once

#include "Album.h"
#include "AudioFiles.h"

#include <filesystem>
#include <optional>
#include <string>

namespace hearthbook {

/// The photo or the sub-album on which its record set stands at the moment of each question, and
/// its sound.
class AudioSubject {
public:
  enum class Kind { Photo, SubAlbum };

  AudioSubject(Album& album, Kind kind) : album_(album), kind_(kind) {}

  [[nodiscard]] bool isPhoto() const { return kind_ == Kind::Photo; }
  [[nodiscard]] std::string pictureId() const; ///< of a photo
  [[nodiscard]] std::string title() const;     ///< of a sub-album its name, of a photo nothing

  [[nodiscard]] std::optional<std::filesystem::path> attached() const;
  void attach(const std::filesystem::path& source) const;
  void remove() const;
  [[nodiscard]] std::filesystem::path recordingFile() const;

private:
  [[nodiscard]] std::string audioName() const;

  Album& album_;
  Kind kind_;
};

} // namespace hearthbook
