#pragma once

#include "Album.h"

#include <string>
#include <string_view>
#include <vector>

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

// Its two steps, for who deletes many.

void deletePhotoFiles(const Album& album, const std::string& pictureId);

/// The current row of `photos`, or all that it shows, and the places of those photos in all
/// sub-albums, as one transaction. Where that fails `photos` has let go of rows that are still
/// there: the caller reads them again.
void deletePhotoRows(Album& album, Recordset& photos, Recordset::Affect affect,
                     const std::vector<std::string>& pictureIds);

} // namespace hearthbook
