#pragma once

#include "Album.h"

namespace hearthbook {

class Form;

/// "Add From Scanner" of the editor: pages become photos of the album, behind the last of
/// rsPhotoAlbum, which must stand on the whole of it.
void addFromScanner(Form& editor);

/// "Edit Image" of the editor: the photo on which rsPhotoAlbum stands is put right. False, and the
/// user told, for one on a disc.
bool editImage(Album& album, Form& editor);

} // namespace hearthbook
