#include "PhotoSaving.h"

#include "AlbumFiles.h"
#include "Encode.h"
#include "FileError.h"
#include "PhotoFiles.h"
#include "PhotoIdentity.h"
#include "Resample.h"
#include "RunTimeError.h"
#include "SafeFile.h"
#include "Trash.h"

#include <functional>
#include <ostream>
#include <string_view>
#include <system_error>
#include <utility>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

constexpr const char* backupFolder = "\\Backup";

void makeFolders(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error)
    throwFileError("make the folder", folder, error.value());
}

void replaceWith(const fs::path& target, std::string_view bytes,
                 const std::function<void()>& beforePlacing = {}) {
  makeFolders(target.parent_path());
  replaceFile(
      target, [&](std::ostream& out) { out << bytes; }, beforePlacing);
}

} // namespace

PhotoPlaces addPhotoRow(Album& album, Recordset& photos) {
  album.vars.NextPhotoNumber = nextPhotoNumber(photos);
  const std::string id = hardDiskId(album.vars.NextPhotoNumber);
  photos.AddNew({"PictureID"}, {Value(id)});
  return {*imagePath(album, id), *ownThumbnailPath(album, id), album.folder.path(backupFolder)};
}

OwnPhotoTable::OwnPhotoTable(const Album& album) {
  connection_.Open(album.folder.path(albumFile));
  rows_.Open("SELECT * FROM PhotoAlbum Order By PictureID");
}

PhotoPlaces placesOfCurrentPhoto(Album& album) {
  const Recordset& photos = album.data.rsPhotoAlbum;
  if (!standsOnRow(photos))
    throw RunTimeError("There is no photo to update.");
  const std::string id = photos.Collect("PictureID").toText();
  if (originOf(id) != PhotoOrigin::HardDisk)
    throw RunTimeError("The photo " + id + " does not lie on the hard disk.");
  resolveImage(album, id);
  return {album.vars.ImagePath, *ownThumbnailPath(album, id), album.folder.path(backupFolder)};
}

void writePhoto(const Picture& picture, const PhotoPlaces& places) {
  const std::string photo = jpegBytes(picture, photoFactor);
  const PixelSize small = sizeWithin(picture.size(), thumbnailSide);
  const std::string thumbnail = jpegBytes(resample(picture, small), thumbnailFactor);
  const auto keepOld = [&] {
    if (fileExists(places.photo))
      copyToTrash(places.photo, places.backup);
  };
  bool isPhotoWritten = false;
  const auto writeFull = [&] {
    replaceWith(places.photo, photo, keepOld);
    isPhotoWritten = true;
  };
  try { // Both are on the disk before either takes its place: a disk that is full changes neither.
    replaceWith(places.thumbnail, thumbnail, writeFull);
  } catch (const RunTimeError& failure) {
    if (!isPhotoWritten)
      throw;
    throw ThumbnailFailure(std::string("The photo is saved, but its thumbnail is not. ") +
                           failure.what());
  }
}

KeptPage::KeptPage(const ApplicationFolder& folder)
    : file_(folder.path(backupFolder) / "Scanned page.jpg"), isLeftBehind_(fileExists(file_)) {}

void KeptPage::keep(const Picture& page, int turn) {
  const std::string bytes = jpegBytes(page, photoFactor);
  const std::scoped_lock lock(mutex_);
  if (isForgotten_ || turn < newest_)
    return;
  newest_ = turn;
  if (std::exchange(isLeftBehind_, false))
    moveToTrash(file_, file_.parent_path());
  replaceWith(file_, bytes);
}

void KeptPage::forget() {
  const std::scoped_lock lock(mutex_);
  isForgotten_ = true;
  if (isLeftBehind_)
    moveToTrash(file_, file_.parent_path());
  else
    deleteFile(file_);
}

} // namespace hearthbook
