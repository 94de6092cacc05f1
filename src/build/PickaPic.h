#pragma once

#include "AddPhotos.h"
#include "Album.h"
#include "Drives.h"
#include "FileBrowser.h"
#include "Form.h"
#include "Pointer.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

class QFileSystemModel;

namespace Ui {
class PickaPic;
}

namespace hearthbook {

class FileListModel;
class ModalHelp;

/// Add From File: the family looks through the folders of the machine, marks pictures and has
/// them added to the album, copied or moved.
///
/// Opened by DBeditor. It adds rows to rsPhotoAlbum and writes photos and thumbnails; it stays
/// open behind a run, so that more can be added from elsewhere.
class PickaPic : public Form {
  Q_OBJECT
public:
  PickaPic(Album& album, WorkPool& pool);
  ~PickaPic() override;

  /// Goes to a folder, on the drive on which it lies.
  void showFolder(const std::filesystem::path& folder);

  /// True while a folder is being read beside the window's thread.
  [[nodiscard]] bool isReading() const { return reading_; }

protected:
  void load() override;
  bool unloading() override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void wireControls();
  void wireBrowser();
  void keepFolderInSight();
  void showOnPaper();

  void showDrives();
  void chooseDrive(int index);
  void chooseTypedFolder();
  void openFolder(const std::filesystem::path& folder);
  void refreshFiles();
  void showFiles(const std::filesystem::path& folder, const FolderContent& content);

  void selectionChanged();
  void showFocusedFile();
  void previewArrived(const std::filesystem::path& file, const Picture& picture);
  void showPreview(const Picture& picture);
  void placePreview();
  [[nodiscard]] int previewSide() const;

  void addSelected();
  int runAdding();
  [[nodiscard]] AddPhotosRequest readRequest() const;
  void showRunning(bool running);

  Album& album_;
  WorkPool& pool_;
  std::unique_ptr<Ui::PickaPic> ui;
  QFileSystemModel* folders_;
  FileListModel* files_;
  ModalHelp* modalHelp_ = nullptr;
  std::vector<Drive> drives_;
  std::filesystem::path folder_;        ///< whose files the list shows
  std::filesystem::path previewed_;     ///< the file whose preview is wanted
  std::optional<Hourglass> previewing_; ///< while a preview is on its way
  bool placing_ = false;                ///< the program, not the user, goes to a folder
  bool seeking_ = false;                ///< the folder list is to stay where the folder is in sight
  bool reading_ = false;
  bool running_ = false;
};

} // namespace hearthbook
