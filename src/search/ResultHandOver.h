#pragma once

#include "Album.h"

namespace hearthbook {

// How a result is handed to the forms that are opened from it. What is selected is told by
// positions in rsSearch, so that each of them reads the same statement first.

/// rsPhotoAlbum stands on the whole result, on its first photo or on the one that is selected;
/// or it holds those that are selected, where they are several.
void openResultForEditing(Album& album);

/// rsViewer is the result; the album pages make their choice themselves.
void openResultForViewing(Album& album);

/// rsZoom is the result, on the photo of the cell; false where there is none.
bool openResultForZoom(Album& album, int cell);

} // namespace hearthbook
