#pragma once

#include "ApplicationFolder.h"

#include <QString>

#include <functional>

namespace hearthbook {

class AlbumData;

/// Closes AlbumDB and makes the closing backup beside the window's thread, under Progress.
/// A failure is told in a message that says where the album stands whole.
void closeAlbum(AlbumData& data, const ApplicationFolder& folder);

} // namespace hearthbook
