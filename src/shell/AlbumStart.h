#pragma once

#include "Album.h"

#include <functional>
#include <future>

namespace hearthbook {

/// How opening the album ended, where it did not fail.
enum class AlbumStart {
  Opened,       ///< both databases and all record sets stand open
  WithoutAlbum, ///< the database is missing and the user did not want the backup
};

/// Opens all that the program stands on: makes the backup folder, opens AlbumDB and checks it,
/// opens the help connection and the six record sets. False, and nothing but the backup folder,
/// where the album's database is missing.
///
/// Throws RunTimeError, naming the file and the cause.
bool openAlbumThatIsThere(Album& album);

/// The same, with what openAlbumThatIsThere() has given or thrown where it was `begun` on another
/// thread. A missing database is first made from the backup, if `wantsBackup` says so; it is not
/// asked otherwise. Nothing in Backup is ever changed here.
AlbumStart startAlbum(Album& album, const std::function<bool()>& wantsBackup,
                      std::future<bool> begun = {});

/// Removes what files cut short by a kill have left in the album's folders.
void tidyAlbumFolders(const ApplicationFolder& folder);

} // namespace hearthbook
