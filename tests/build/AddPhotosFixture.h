#pragma once

#include "AddPhotos.h"

#include "AlbumFixture.h"
#include "Decode.h"
#include "FileBytes.h"
#include "TestPictures.h"

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace hearthbook::test {

/// An album of its own, a folder with the family's files, and all that is told while they come in.
class AddPhotosFixture : public AlbumFixture {
protected:
  AddPhotosFixture() {
    listener_.atIndex = [this](int index) { indexes_.push_back(index); };
    listener_.showing = [this](const Picture& picture) { shown_.push_back(picture.size()); };
    listener_.failed = [this](const std::filesystem::path& source, const std::exception& cause) {
      failures_.push_back(source.filename().string());
      causes_.emplace_back(cause.what());
    };
    listener_.kept = [this](const std::filesystem::path& original,
                            const std::filesystem::path& keptAs) {
      kept_.emplace_back(original, keptAs);
    };
  }

  std::filesystem::path source(const std::string& name, const std::string& bytes) {
    const auto file = folder_.root().parent_path() / "Camera" / name;
    writeBytes(file, bytes);
    return file;
  }

  /// Adds them all.
  int add(std::initializer_list<std::filesystem::path> files) {
    request_.list = files;
    request_.selected.assign(request_.list.size(), true);
    return addPhotos(album(), pool_, request_, listener_);
  }

  std::vector<std::string> ids() {
    std::vector<std::string> result;
    const auto rows = data().rsPhotoAlbum.Clone();
    for (; !rows->atEOF(); rows->MoveNext())
      result.push_back(rows->Collect("PictureID").toText());
    return result;
  }

  void emptyAlbum() {
    data().AlbumDB.execute("DELETE FROM PhotoAlbum");
    data().rsPhotoAlbum.Requery();
    std::filesystem::remove(at("Photos/00001.jpg"));
    std::filesystem::remove(at("Thumbnails/00001.jpg"));
  }

  [[nodiscard]] PixelSize sizeOf(const std::string& relative) const {
    return readPictureInfo(at(relative)).size;
  }
  [[nodiscard]] std::vector<std::string> trashed() const { return namesIn(folder_.trash()); }

  WorkPool pool_{2};
  AddPhotosRequest request_;
  AddPhotosListener listener_;
  std::vector<int> indexes_;
  std::vector<PixelSize> shown_;
  std::vector<std::string> failures_; ///< name of the file, once for each step that failed
  std::vector<std::string> causes_;
  std::vector<std::pair<std::filesystem::path, std::filesystem::path>> kept_;
};

inline std::string photoJpeg(unsigned seed = 1, PixelSize size = {320, 240}) {
  return jpegOf(grainy(size, seed), 15);
}

inline const std::string letter = "Dear grandmother, here are the photos of the summer.";

} // namespace hearthbook::test
