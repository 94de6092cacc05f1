#pragma once

#include "Album.h"
#include "Picture.h"
#include "RunTimeError.h"

#include <filesystem>
#include <mutex>
#include <string>

namespace hearthbook {

/// Where the files of one photo go.
struct PhotoPlaces {
  std::filesystem::path photo;
  std::filesystem::path thumbnail;
  std::filesystem::path backup; ///< where a photo is kept that has no trash to go to
};

/// Gives the album a row with the next number; the set must be in the order of PictureID. The
/// files come later: until then the row is a photo whose picture is missing.
PhotoPlaces addPhotoRow(Album& album, Recordset& photos);

/// The album's photos over a connection of its own, so that rsPhotoAlbum stays where it stands.
class OwnPhotoTable {
public:
  explicit OwnPhotoTable(const Album& album);
  [[nodiscard]] Recordset& rows() { return rows_; }

private:
  Connection connection_;
  Recordset rows_{connection_};
};

/// The files of the photo on which rsPhotoAlbum stands now; also sets ImagePath. Throws where
/// there is none, or none that may be written.
PhotoPlaces placesOfCurrentPhoto(Album& album);

/// The photo is written, its thumbnail is not.
class ThumbnailFailure : public RunTimeError {
public:
  using RunTimeError::RunTimeError;
};

/// Writes the photo and its thumbnail, on any thread. At any instant each of the two is the old one
/// or the new one, whole; a photo that was there goes to the trash. Throws RunTimeError.
void writePhoto(const Picture& picture, const PhotoPlaces& places);

/// The last page of the scanner, on the disk until the form that shows it is closed, so that a
/// crash does not cost a page. May be used from any thread. A page that a crash has left behind
/// goes to the trash when another one takes its place, or when it is forgotten.
class KeptPage {
public:
  explicit KeptPage(const ApplicationFolder& folder);

  [[nodiscard]] const std::filesystem::path& file() const { return file_; }
  /// Does nothing once it was forgotten, or where a page with a later turn is kept: of two that are
  /// written at the same time, the first may be ready last.
  void keep(const Picture& page, int turn = 0);
  void forget();

private:
  std::filesystem::path file_;
  std::mutex mutex_;
  int newest_ = 0;
  bool isForgotten_ = false;
  bool isLeftBehind_;
};

} // namespace hearthbook
