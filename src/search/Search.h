#pragma once

#include "Album.h"
#include "Form.h"
#include "Navigator.h"
#include "PictureLoader.h"
#include "PrintSource.h"
#include "SearchQuery.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Ui {
class Search;
}

namespace hearthbook {

class ResultSelection;
class Stage;
struct CriteriaLists;
struct ResultPhoto;

/// What opens over Search and is built elsewhere. The command of an empty one is there and
/// disabled.
struct SearchWindows {
  std::function<void()> unloadViewer;                     ///< before rsViewer becomes another set
  std::function<void(const QString& caption)> showViewer; ///< on rsViewer
  std::function<void(const QString& caption)> showZoom;   ///< on rsZoom
  std::function<void()> addToSubAlbum;                    ///< the selection, or all of rsSearch
};

/// Search Photos: choose places, events, people, years and words above, and look through what is
/// found below, 24 thumbnails to the page.
///
/// Any number of photos can be selected over all pages, and the selection or the whole result
/// viewed, edited, or put into a sub-album. The frame, the start screen and the editor's Find
/// Photo open it; they set rsSearch first.
class Search : public Form, public PrintSource {
  Q_OBJECT
public:
  Search(Album& album, PictureLoader& loader, WorkPool& pool, HoverHelp& help,
         SearchWindows windows);
  ~Search() override;

  /// Shows the 24 photos from the current row of rsSearch on, which then stands behind them.
  void ComposeResultPage();

  /// Fills the lists again; nothing is chosen in them then.
  void refillLists();

  /// rsSearch is another set than the page was read from: nothing is shown or selected any more.
  void startOver();

  void rowsChanged(const RowsChanged& change) override;

  [[nodiscard]] const char* printTag() const override { return "Search"; }
  [[nodiscard]] bool isReadyToPrint() const override { return !isWaitingForPictures(); }
  [[nodiscard]] PrintPage printPage() const override;

  [[nodiscard]] bool isWaitingForPictures() const;

protected:
  void load() override;
  void activated() override;
  bool unloading() override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void wireControls();
  void wireGrid();
  void setFaces();
  void colourLabels();
  [[nodiscard]] CriteriaLists lists() const;
  [[nodiscard]] SearchCriteria readCriteria() const;

  void RunSearch();
  void openResult(const std::string& sql);
  void noteSearch(const SearchCriteria& criteria, const std::string& summary);
  void showFound();
  void showNothingFound();
  void clearPage(const QString& position);

  void composePage(const QString& progressCaption);
  std::vector<ResultPhoto> readPage(const QString& progressCaption);
  void showPage(const std::vector<ResultPhoto>& page);
  void decodeNeighbours();
  void enableResultCommands(bool enabled);
  void returnToPage(std::int64_t row);

  void firstPage();
  void previousPage();
  void nextPage();
  void lastPage();
  void turnTo(std::int64_t first, const QString& progressCaption);

  void view();
  void edit();
  void batchEdit();
  void zoom(int cell);

  Album& album_;
  WorkPool& pool_;
  HoverHelp& help_;
  SearchWindows windows_;
  Stage* stage_;
  std::unique_ptr<Ui::Search> ui;
  ResultSelection* selection_;
  SearchCriteria searched_; ///< of the search whose result rsSearch is
};

} // namespace hearthbook
