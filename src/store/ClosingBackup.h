#pragma once

#include "ApplicationFolder.h"

#include <filesystem>
#include <functional>

namespace hearthbook {

/// Compacts the album into Backup and Backup into the album, at the end of the program.
/// AlbumDB must be closed. `bar` hears 25, 50 (only if there was an older backup), 75, 100.
/// Throws RunTimeError; at every instant either the live file or the backup is whole.
void compactAndBackUp(const ApplicationFolder& folder, const std::function<void(int)>& bar);

/// Makes the live file from the backup. Throws RunTimeError where there is none.
void restoreBackup(const ApplicationFolder& folder);

/// True where the file is there, can be opened and passes the database's check.
bool isWholeDatabase(const std::filesystem::path& database);

} // namespace hearthbook
