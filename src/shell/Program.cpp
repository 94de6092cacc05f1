#include "Program.h"

#include "AlbumFiles.h"
#include "AlbumStart.h"
#include "EndSignals.h"
#include "FirstPaint.h"
#include "Forms.h"
#include "MDIForm1.h"
#include "MsgBox.h"
#include "SingleInstance.h"
#include "Text.h"
#include "Wiring.h"

#include <QApplication>
#include <QIcon>

namespace hearthbook {

namespace {

void tellStartFailure(const std::string& what) {
  MsgBox(toQString("Hearthbook cannot start.\n\n" + what), {}, MsgIcon::Critical);
}

/// True where this start is to go on.
bool claimAlbum(SingleInstance& instance, MDIForm1& frame, const ApplicationFolder& folder) {
  const auto claim = instance.claim();
  if (claim == SingleInstance::Claim::First)
    return true;
  // So that no one takes this window for the one that comes forward.
  frame.setWindowTitle(toQString("Hearthbook2"));
  if (claim == SingleInstance::Claim::Silent)
    tellStartFailure("It is running already on the album in " + folder.root().string() +
                     ", but does not answer. Wait a moment, or end it and start again.");
  if (claim == SingleInstance::Claim::Refused)
    tellStartFailure("The folder " + folder.root().string() + " cannot be written to.");
  return false;
}

bool wantsBackup() {
  return MsgBox(toQString("Your photo album database could not be found.\n"
                          "Would you like to restore the backup database?"),
                toQString("Database not found"), MsgIcon::None,
                MsgButtons::YesNo) == MsgAnswer::Yes;
}

/// What a start that failed has done to the album.
std::string whatBecameOfTheAlbum(const ApplicationFolder& folder, bool wasThere) {
  const bool isRestored = !wasThere && fileExists(folder.path(albumFile));
  return (isRestored ? "Your album was restored from the backup. It is in " +
                           folder.path(albumFile).string() + "."
                     : std::string("Nothing was changed.")) +
         " The copy of your album in " + folder.path("\\Backup").string() + " is as it was.";
}

/// True where the album stands open. Otherwise the user has been told.
bool openAlbumOrTell(Album& album, std::future<bool> begun) {
  const bool wasThere = fileExists(album.folder.path(albumFile));
  try {
    if (startAlbum(album, wantsBackup, std::move(begun)) == AlbumStart::Opened)
      return true;
    MsgBox(toQString("Hearthbook Could Not Continue!"), toQString("Database Not Found"),
           MsgIcon::Critical);
  } catch (const std::exception& failure) {
    tellStartFailure(std::string(failure.what()) + "\n\n" +
                     whatBecameOfTheAlbum(album.folder, wasThere));
  }
  return false;
}

void setProgramIcon(const ApplicationFolder& folder) {
  QGuiApplication::setWindowIcon(QIcon(toQString(folder.path("\\Media\\Hearthbook.png"))));
  QGuiApplication::setDesktopFileName(QStringLiteral("hearthbook"));
}

int runFrame(MDIForm1& frame, const ApplicationFolder& folder) {
  afterFirstPaint(frame, [&folder] {
    setProgramIcon(folder);
    tidyAlbumFolders(folder);
  });
  frame.open();
  return QApplication::exec();
}

} // namespace

int runHearthbook(EarlyStart& early, const ShellServices& services) {
  if (!early.failure().empty()) {
    tellStartFailure(early.failure());
    return 1;
  }
  Album& album = early.album();
  const ApplicationFolder& folder = album.folder;
  early.awaitFonts();
  MDIForm1 frame(album, services);
  SingleInstance instance(folder.root(), early.takeLock());
  if (!claimAlbum(instance, frame, folder))
    return 0;
  instance.setEnding([&frame] { return frame.isClosing(); });
  QObject::connect(&instance, &SingleInstance::raiseAsked, &frame, &MDIForm1::bringForward);
  if (!openAlbumOrTell(album, early.takeOpening()))
    return 1;

  const Wiring wiring(album, frame, services);
  const EndSignals endSignals;
  QObject::connect(&endSignals, &EndSignals::endAsked, &frame, &MDIForm1::closeWhenFree);
  return runFrame(frame, folder);
}

} // namespace hearthbook
