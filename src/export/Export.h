#pragma once

#include "Album.h"
#include "AlbumExport.h"
#include "Form.h"
#include "HyperlinkControl.h"

#include <QPointer>
#include <QSize>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Ui {
class Export;
}

namespace hearthbook {

class FolderBrowser;

/// Export Sub-Album: the family chooses one of its albums, for which screens, and a folder; the
/// album is then written there as pages that every browser shows.
///
/// Opened from the menu and the start screen. It changes nothing of the album.
class Export : public Form {
  Q_OBJECT
public:
  Export(Album& album, WorkPool& pool, HyperlinkControl::Opener openPage);
  ~Export() override;

  /// As drawn, and larger where the screen has room for the photos.
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

  bool mayChooseDrive(const Drive& drive);
  [[nodiscard]] std::filesystem::path ownFolder() const;

  void exportChosen();
  void storePendingEdits();
  std::optional<ExportOutcome> runExport(const ExportRequest& request);
  [[nodiscard]] ExportRequest readRequest() const;
  [[nodiscard]] ExportListener listener();
  static bool mayDelete(const std::filesystem::path& folder, const std::vector<std::string>& names);
  static void tellTroubles(const ExportOutcome& outcome);
  void offerToView(const ExportOutcome& outcome);

  void showRunning(bool running);
  void updateEnabled();
  void showProgress(std::int64_t number, std::int64_t count, const std::string& file);
  void showPhoto(const Picture& picture);
  void placePhoto();
  [[nodiscard]] int previewSide() const;

  Album& album_;
  WorkPool& pool_;
  std::unique_ptr<Ui::Export> ui;
  FolderBrowser* browser_ = nullptr;
  bool running_ = false;
  QPointer<QWidget> focusOf_; ///< where the focus was when the export began
};

} // namespace hearthbook
