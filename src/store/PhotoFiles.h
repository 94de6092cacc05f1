#pragma once

#include "Album.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace hearthbook {

/// The letter of the drive that holds the photo disc, probed anew at each call: the first
/// ready optical drive whose Photos folder holds anything, else the last ready one, else "c".
std::string findPhotoDrive(const std::vector<Drive>& drives);

/// "\Photos\00012.jpg" on the photo disc. Discs come and go: the drive is found at each call.
std::filesystem::path onPhotoDisc(const Album& album, const std::string& relative);

/// The photo's full image, whether it is there or not; nothing for an unknown prefix.
std::optional<std::filesystem::path> imagePath(const Album& album, std::string_view pictureId);
/// The photo's thumbnail, whether it is there or not; nothing for an unknown prefix.
std::optional<std::filesystem::path> ownThumbnailPath(const Album& album,
                                                      std::string_view pictureId);
/// Its thumbnail where that exists, else its full image.
std::optional<std::filesystem::path> thumbnailPath(const Album& album, std::string_view pictureId);

/// Sets ImagePath and ImagePicture for a photo. An unknown prefix leaves ImagePath as it was,
/// so that the previous photo's image is shown; a missing file shows the not-found picture.
void resolveImage(Album& album, std::string_view pictureId);
void resolveThumbnail(Album& album, std::string_view pictureId);

/// "\media\NotFound.gif" below the application folder.
std::filesystem::path notFoundPicture(const Album& album);

/// True if the photo has a sound: any file of its stem in Audio, on the hard disk for disc
/// photos too.
bool hasSound(const ApplicationFolder& folder, std::string_view pictureId);

} // namespace hearthbook
