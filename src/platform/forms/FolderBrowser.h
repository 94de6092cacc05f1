#pragma once

#include "Drives.h"
#include "FileBrowser.h"

#include <QObject>
#include <QString>

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QComboBox;
class QFileSystemModel;
class QLineEdit;
class QTreeView;

namespace hearthbook {

class WorkPool;

/// Lets the user go through the folders of the machine, by a list of drives, a tree of folders
/// and a line with the folder's path. Return in them presses no button of the form. What a folder
/// holds is read beside the window's thread.
class FolderBrowser : public QObject {
  Q_OBJECT
public:
  struct Parts {
    QComboBox* drives;
    QTreeView* folders;
    QLineEdit* path;
  };

  /// Shows files of the pattern; `title` is that of its messages.
  FolderBrowser(const Parts& parts, const Drives& machine, WorkPool& pool, std::string_view pattern,
                QString title, QObject* parent);

  /// Asked before a drive that the user chooses is gone to. One that says no has gone elsewhere.
  void setDriveTest(std::function<bool(const Drive& drive)> mayChoose);

  /// Reads the drives and goes to a folder, or to the nearest above it that is there.
  void start(const std::filesystem::path& folder);
  /// Goes to a folder, on the drive on which it lies.
  void showFolder(const std::filesystem::path& folder);
  void showHome();
  void refresh(); ///< reads the folder again

  [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }
  /// True while the folder is being read.
  [[nodiscard]] bool isReading() const { return reading_; }

Q_SIGNALS:
  void driveTouched();
  void reading(); ///< the files of the folder before are no longer to be shown
  void filesRead(const std::vector<std::filesystem::path>& files);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void wireParts();
  void wireTree();
  void keepFolderInSight();
  void keepFolderChosen();
  void showDrives();
  void chooseDrive(int index);
  [[nodiscard]] Drive driveNow(char letter) const;
  /// What was typed is meant with Return or without. False where there is no such folder.
  bool goWhereTyped();
  void openFolder(const std::filesystem::path& folder);
  void showContent(const std::filesystem::path& folder, const FolderContent& content);

  Parts parts_;
  const Drives& machine_;
  WorkPool& pool_;
  std::string pattern_;
  QString title_;
  QFileSystemModel* tree_;
  std::function<bool(const Drive& drive)> mayChoose_;
  std::vector<Drive> drives_;
  std::filesystem::path folder_;
  bool placing_ = false; ///< the program, not the user, goes to a folder
  bool seeking_ = false; ///< the tree is to stay where the folder is in sight
  bool reading_ = false;
};

/// Where the desktop keeps pictures, music, ...
std::filesystem::path picturesFolder();
std::filesystem::path musicFolder();

} // namespace hearthbook
