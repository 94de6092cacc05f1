#pragma once

#include "Album.h"
#include "OpenAlbum.h"

#include <QObject>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

class QMainWindow;

namespace hearthbook {

/// What the shell is given from outside. An empty member means that the program does not have
/// it: the commands that need it are there and disabled.
struct ShellServices {
  std::function<bool(const std::filesystem::path&)> openDocument; ///< in the desktop's viewer
};

/// The commands of the menu and of the start screen.
class FrameCommands : public QObject {
  Q_OBJECT
public:
  FrameCommands(Album& album, ShellServices services, QMainWindow& frame);

  void print(); ///< what the form in front shows
  void quit();
  void buildFromMenu();  ///< on the first photo without a year
  void buildFromStart(); ///< on the first photo
  void searchFromMenu();
  void searchFromStart();
  /// For the record editor, which stays the owner of the working set.
  void findPhoto();
  void viewAlbum(int albumId, const QString& name);
  /// From the album picker, whose caption is the picker's text for the Master Album, too.
  /// `aboutToShow` runs where there are photos, before the pages appear.
  void viewFromStart(int albumId, const QString& name, const std::function<void()>& aboutToShow);
  void exportAlbum();
  void designExport();
  void gettingStarted();
  void switchHelp(); ///< the check mark of "Show Help" has changed
  void about();
  void removeFromSubAlbum(); ///< from the pop-up of a photo in the sub-album editor

Q_SIGNALS:
  void helpSwitched();

private:
  std::optional<OpenedAlbum> openAlbumInSight(int albumId, const std::string& name);

  Album& album_;
  ShellServices services_;
  QMainWindow& frame_;
};

/// The guide of Getting Started. The desktop reads pages, so that of "\help\help.hlp" stands
/// for the whole guide.
std::filesystem::path guideFile(const ApplicationFolder& folder);

} // namespace hearthbook
