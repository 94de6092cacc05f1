#include "Closing.h"

#include "AlbumData.h"
#include "AlbumFiles.h"
#include "ClosingBackup.h"
#include "Forms.h"
#include "Guard.h"
#include "MsgBox.h"
#include "Progress.h"
#include "Text.h"

#include <QMetaObject>

#include <thread>

namespace hearthbook {

namespace {

/// Runs the closing backup on a thread of its own; what it tells arrives on this one.
std::exception_ptr backUpAside(const ApplicationFolder& folder, Progress& progress) {
  std::exception_ptr failure;
  bool done = false;
  const auto here = [&progress](auto work) {
    QMetaObject::invokeMethod(&progress, work, Qt::QueuedConnection);
  };
  const std::jthread worker([&] {
    std::exception_ptr caught;
    try {
      compactAndBackUp(folder,
                       [&](int value) { here([&progress, value] { progress.setValue(value); }); });
    } catch (...) {
      caught = std::current_exception();
    }
    here([&failure, &done, caught] {
      failure = caught;
      done = true;
    });
  });
  waitUntil([&done] { return done; });
  return failure;
}

/// Only what has just been checked is called whole: the user may delete a copy for this word.
std::string whereTheAlbumIs(const ApplicationFolder& folder) {
  const auto live = folder.path(albumFile);
  const auto backup = folder.path(backupFile);
  if (isWholeDatabase(live))
    return "Your album is whole. It is in " + live.string() + ".";
  const std::string trouble =
      live.string() + (fileExists(live) ? " is damaged or cannot be read." : " is missing.");
  if (!isWholeDatabase(backup))
    return trouble + " There is no whole copy in " + backup.string() +
           " either. Leave both as they are and look for a copy of your own.";
  if (!fileExists(live))
    return "Your album is whole in " + backup.string() +
           ". At the next start Hearthbook offers to restore it: answer Yes.";
  return trouble + " The backup in " + backup.string() +
         " is whole; what is newer than it is not in it. To return to it, move the damaged file "
         "to another folder and start Hearthbook: it offers to restore the backup.";
}

void tellFailure(const std::exception& failure, const ApplicationFolder& folder) {
  MsgBox(toQString("The album could not be compacted and backed up.\n\n" +
                   std::string(failure.what()) + "\n\n" + whereTheAlbumIs(folder)),
         {}, MsgIcon::Critical);
}

} // namespace

void closeAlbum(AlbumData& data, const ApplicationFolder& folder) {
  auto& progress = Forms::get<Progress>();
  progress.setCaption(toQString("Compact & Backup Database, Please Wait"));
  progress.Show();
  std::exception_ptr failure;
  try {
    data.AlbumDB.Close();
    failure = backUpAside(folder, progress);
  } catch (const std::exception&) {
    failure = std::current_exception();
  }
  progress.Unload();
  try {
    if (failure)
      std::rethrow_exception(failure);
  } catch (const std::exception& cause) {
    tellFailure(cause, folder);
  }
}

} // namespace hearthbook
