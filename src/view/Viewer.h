#pragma once

#include "Album.h"
#include "AlbumPaging.h"
#include "Form.h"
#include "Navigator.h"
#include "PhotoFacts.h"
#include "PictureLoader.h"
#include "PrintSource.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Ui {
class Viewer;
}

namespace hearthbook {

class BackgroundSound;
class ClipPlayer;
class CommentsBox;
class MarkerArrow;
class PageCells;
class PagePictures;
class Stage;

/// What opens over the album pages and is built elsewhere. The command of an empty one is there
/// and disabled.
struct ViewerWindows {
  std::function<void(const QString& caption)> showZoom; ///< on rsZoom
  std::function<void()> sendMail;                       ///< with the photos of the page
  std::function<void(const QString& albumId)> editSubAlbum;
};

/// View Albums: the album as a book, four photos to the page, each with what is known of it.
///
/// One looks and listens here; a photo can be selected, to be edited, seen large or mailed. The
/// frame, the start screen and Search open it; they set rsViewer and CallerForm first.
class Viewer : public Form, public PrintSource {
  Q_OBJECT
public:
  Viewer(Album& album, PictureLoader& loader, WorkPool& pool, HoverHelp& help,
         ViewerWindows windows);
  ~Viewer() override;

  /// Shows the four photos from the current row of rsViewer on, which then stands behind them.
  /// A step that fails does not stop those behind it.
  void ComposeAlbumPage();

  /// The album is a sub-album, which may be edited as one.
  void allowSubAlbumEdit(bool allowed);

  void rowsChanged(const RowsChanged& change) override;

  [[nodiscard]] const char* printTag() const override { return "Viewer"; }
  [[nodiscard]] bool isReadyToPrint() const override { return !isWaitingForPictures(); }
  [[nodiscard]] PrintPage printPage() const override;

  /// What stands on the page, for printing and mail.
  [[nodiscard]] const PageCells& cells() const { return *cells_; }
  [[nodiscard]] BackgroundSound& background() const { return *background_; }
  /// True while pixels of the page are on their way.
  [[nodiscard]] bool isWaitingForPictures() const;
  [[nodiscard]] bool isLookingForSounds() const;

protected:
  void load() override;
  void activated() override;
  bool unloading() override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void wireControls();
  void wireCells();
  void setFaces();
  void orderTabs();
  void updateEnabled();

  void composeCell(int cell);
  void fillCell(int cell);
  std::filesystem::path fileOf(const std::string& id);
  void showFacts(int cell);
  void showEditCaption();
  void showPosition();
  void decodeNeighbours();
  void startBackground();
  [[nodiscard]] Recordset& photos() const { return *album_.vars.rsViewer; }
  [[nodiscard]] AlbumPaging paging() const;
  [[nodiscard]] AlbumPrintCell printCell(int cell) const;

  void nextPage();
  void previousPage();
  void firstPage();
  void lastPage();
  void composeFrom(std::int64_t position);
  void composeUnderProgress();
  void returnTo(std::int64_t row, bool underProgress = false);
  bool walkByArrow(int key);
  void walkOffPage(int to);

  void toggleSelection(int cell);
  void pointAtPerson(int cell);
  void readDescription(int cell);
  void playSound(int cell);
  void edit();
  void editSubAlbum();
  void zoom();
  void zoomInto(int cell);
  bool standZoomOn(const std::string& id);
  void showZoom();
  void sendMail();
  void done();

  Album& album_;
  WorkPool& pool_;
  HoverHelp& help_;
  ViewerWindows windows_;
  bool isSubAlbum_ = false;
  PhotoMarkers firstMarkers_;
  Stage* stage_;
  std::unique_ptr<Ui::Viewer> ui;
  PageCells* cells_;
  PagePictures* pictures_;
  CommentsBox* comments_;
  MarkerArrow* arrow_;
  BackgroundSound* background_;
  ClipPlayer* clip_;
};

} // namespace hearthbook
