#pragma once

#include "OpenAlbum.h"

class QString;

namespace hearthbook {

/// Closes the album pages if they are open, before rsViewer becomes another set.
void closeAlbumPages();

/// Opens them on the album that was opened.
void showAlbumPages(const OpenedAlbum& opened);

/// They bear the new name, if they show that sub-album.
void renameAlbumPages(int albumId, const QString& name);

/// Opens them on what Search has found.
void showResultPages(const QString& caption);

} // namespace hearthbook
