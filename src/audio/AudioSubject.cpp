#include "AudioSubject.h"

namespace hearthbook {

std::string AudioSubject::pictureId() const {
  return album_.data.rsPhotoAlbum.Collect("PictureID").toText();
}

std::string AudioSubject::title() const {
  return isPhoto() ? std::string() : album_.data.rsSubAlbums.Collect("AlbumName").toText();
}

std::string AudioSubject::audioName() const {
  return isPhoto() ? photoAudioName(pictureId())
                   : albumAudioName(album_.data.rsSubAlbums.Collect("AlbumID").toInteger());
}

std::optional<std::filesystem::path> AudioSubject::attached() const {
  return attachedAudio(album_, audioName());
}

void AudioSubject::attach(const std::filesystem::path& source) const {
  attachAudio(album_, audioName(), source);
}

void AudioSubject::remove() const { removeAudio(album_, audioName()); }

std::filesystem::path AudioSubject::recordingFile() const {
  return hearthbook::recordingFile(album_, audioName());
}

} // namespace hearthbook
