#pragma once

#include "AddPhotos.h"
#include "Album.h"
#include "Form.h"
#include "Pointer.h"

#include <QSize>

#include <filesystem>
#include <memory>
#include <optional>

namespace Ui {
class PickaPic;
}

namespace hearthbook {

class FileListModel;
class FolderBrowser;
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

  /// As drawn, and larger where the screen has room for more pictures at once.
  static QSize sizeOn(QSize screen, QSize drawn);

  /// Goes to a folder, on the drive on which it lies.
  void showFolder(const std::filesystem::path& folder);

  /// True while a folder is being read beside the window's thread.
  [[nodiscard]] bool isReading() const;

protected:
  void load() override;
  bool unloading() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void wireControls();
  void wireBrowser();
  void showOnPaper();

  void leaveFolder();

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
  FileListModel* files_;
  FolderBrowser* browser_ = nullptr;
  ModalHelp* modalHelp_ = nullptr;
  std::filesystem::path previewed_;     ///< the file whose preview is wanted
  std::optional<Hourglass> previewing_; ///< while a preview is on its way
  bool running_ = false;
};

} // namespace hearthbook
