#include "AlbumStart.h"

#include "AlbumFiles.h"
#include "ClosingBackup.h"
#include "RunTimeError.h"
#include "SafeFile.h"

#include <system_error>

namespace hearthbook {

namespace {

void makeBackupFolder(const ApplicationFolder& folder) {
  const std::filesystem::path backup = folder.path("\\Backup");
  std::error_code failure;
  std::filesystem::create_directory(backup, failure);
  if (failure)
    throw RunTimeError("The folder " + backup.string() + " cannot be made: " + failure.message() +
                       ".");
}

void openAlbumDatabase(Album& album) {
  const std::filesystem::path file = album.folder.path(albumFile);
  album.data.AlbumDB.Open(file);
  if (!album.data.AlbumDB.passesQuickCheck())
    throw RunTimeError(file.string() + " is damaged: it does not pass the database's check.");
}

void openHelpDatabase(Album& album) {
  album.helpConnection.Open(album.folder.path(helpFile));
  album.vars.rsHelp = std::make_unique<Recordset>(album.helpConnection);
  album.vars.rsHelp->Open("SELECT * FROM Help");
}

} // namespace

bool openAlbumThatIsThere(Album& album) {
  makeBackupFolder(album.folder);
  if (!fileExists(album.folder.path(albumFile)))
    return false;
  openAlbumDatabase(album);
  openHelpDatabase(album);
  album.data.openRecordsets();
  return true;
}

AlbumStart startAlbum(Album& album, const std::function<bool()>& wantsBackup,
                      std::future<bool> begun) {
  if (begun.valid() ? begun.get() : openAlbumThatIsThere(album))
    return AlbumStart::Opened;
  if (!wantsBackup())
    return AlbumStart::WithoutAlbum;
  restoreBackup(album.folder);
  openAlbumThatIsThere(album);
  return AlbumStart::Opened;
}

void tidyAlbumFolders(const ApplicationFolder& folder) {
  for (const char* name : {"\\Data", "\\Backup", "\\Photos", "\\Thumbnails", "\\Audio"})
    if (const auto path = folder.path(name); std::filesystem::is_directory(path))
      removeLeftovers(path);
}

} // namespace hearthbook
