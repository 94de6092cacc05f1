#pragma once

#include "Album.h"

#include <string_view>

namespace hearthbook {

/// The album's first photo is never deleted, wherever it stands.
bool isProtectedPhoto(std::string_view pictureId);

/// Deletes the photo on which rsPhotoAlbum stands: its files, then its row and its places in
/// all sub-albums. The set then stands on the photo that followed, or on the last.
///
/// The photo and its sound go to the desktop's trash. A file that cannot be deleted stops it
/// with a RunTimeError: the row stays. The files of a disc photo stay, but its sound lies on
/// the hard disk and goes.
void deletePhoto(Album& album);

} // namespace hearthbook
