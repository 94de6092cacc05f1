#include "PhotoFiles.h"

#include "PhotoIdentity.h"

#include <algorithm>
#include <system_error>

namespace hearthbook {
namespace fs = std::filesystem;
namespace {

/// "\Photos\00012.jpg".
std::string inFolder(std::string_view folder, std::string_view pictureId) {
  return "\\" + std::string(folder) + "\\" + stemOf(pictureId) + ".jpg";
}

bool holdsAFile(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    if (fileExists(entry->path()))
      return true;
  }
  return false;
}

std::optional<fs::path> fileIn(std::string_view folder, const Album& album,
                               std::string_view pictureId) {
  switch (originOf(pictureId)) {
  case PhotoOrigin::HardDisk:
    return album.folder.path(inFolder(folder, pictureId));
  case PhotoOrigin::Disc:
    return onPhotoDisc(album, inFolder(folder, pictureId));
  case PhotoOrigin::Other:
    break;
  }
  return std::nullopt;
}

void show(Album& album, const std::optional<fs::path>& file) {
  if (file)
    album.vars.ImagePath = *file;
  const bool found = fileExists(album.vars.ImagePath);
  album.vars.ImagePicture = {found ? album.vars.ImagePath : notFoundPicture(album), found};
}

} // namespace

std::string findPhotoDrive(const std::vector<Drive>& drives) {
  std::string letter = "c";
  for (const Drive& drive : drives) {
    if (drive.type != Drive::Type::CdRom || drive.letter == 'a' || !drive.ready)
      continue;
    letter = std::string(1, drive.letter);
    if (holdsAFile(realPath(drives, letter + ":\\Photos\\")))
      break;
  }
  return letter;
}

fs::path onPhotoDisc(const Album& album, const std::string& relative) {
  const std::vector<Drive> drives = album.drives.enumerate();
  return realPath(drives, findPhotoDrive(drives) + ":" + relative);
}

std::optional<fs::path> imagePath(const Album& album, std::string_view pictureId) {
  return fileIn("Photos", album, pictureId);
}

std::optional<fs::path> ownThumbnailPath(const Album& album, std::string_view pictureId) {
  return fileIn("Thumbnails", album, pictureId);
}

std::optional<fs::path> thumbnailPath(const Album& album, std::string_view pictureId) {
  const auto thumbnail = ownThumbnailPath(album, pictureId);
  return thumbnail && fileExists(*thumbnail) ? thumbnail : imagePath(album, pictureId);
}

void resolveImage(Album& album, std::string_view pictureId) {
  show(album, imagePath(album, pictureId));
}

void resolveThumbnail(Album& album, std::string_view pictureId) {
  show(album, thumbnailPath(album, pictureId));
}

fs::path notFoundPicture(const Album& album) { return album.folder.path("\\media\\NotFound.gif"); }

bool hasSound(const ApplicationFolder& folder, std::string_view pictureId) {
  return !folder.filesWithStem("\\Audio\\", stemOf(pictureId)).empty();
}

} // namespace hearthbook
