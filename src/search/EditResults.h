#pragma once

#include "Album.h"

namespace hearthbook {

/// Opens the editor on the photos of the search that rsPhotoAlbum shows, where it stands. New
/// photos are not added there: the editor allows that on the whole album only.
void editSearchResults(Album& album);

} // namespace hearthbook
