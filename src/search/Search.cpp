#include "Search.h"

#include "BatchEdit.h"
#include "ButtonFace.h"
#include "Command.h"
#include "CriteriaLists.h"
#include "EditResults.h"
#include "FilesBeside.h"
#include "Forms.h"
#include "Guard.h"
#include "HelpKeys.h"
#include "Look.h"
#include "MsgBox.h"
#include "Numbers.h"
#include "PassOver.h"
#include "People.h"
#include "PhotoFiles.h"
#include "Pointer.h"
#include "Progress.h"
#include "ResultGrid.h"
#include "ResultHandOver.h"
#include "ResultPage.h"
#include "ResultPaging.h"
#include "ResultSelection.h"
#include "Stage.h"
#include "Text.h"
#include "ui_Search.h"

#include <QKeyEvent>
#include <QScopeGuard>
#include <QTimer>

#include <algorithm>

namespace hearthbook {

namespace {

const QString searchInProgress = QStringLiteral("Search In Progress");

void tellNoMoreRecords() { MsgBox(QStringLiteral("No More Records!")); }

} // namespace

Search::Search(Album& album, PictureLoader& loader, WorkPool& pool, HoverHelp& help,
               SearchWindows windows)
    : Form(QStringLiteral("Search"), Kind::Work), album_(album), pool_(pool), help_(help),
      windows_(std::move(windows)), stage_(new Stage(workFormSize, this)),
      ui(std::make_unique<Ui::Search>()) {
  ui->setupUi(this);
  stage_->placeAsDrawn(this);
  ui->resultGrid->setSource(loader, pool, notFoundPicture(album_));
  selection_ = new ResultSelection(album_.vars, *ui->resultGrid,
                                   {ui->Command10, ui->Command11, ui->Command14}, this);
  new HelpKeys(this, [this](const QString& key) { help_.show(key); });
  wireControls();
  wireGrid();
}

Search::~Search() = default;

void Search::wireControls() {
  // The criteria
  onCommand(ui->Command6, this, [this] { ClearListSelection(*ui->List1); }); // "Clear Selection"
  onCommand(ui->Command7, this, [this] { ClearListSelection(*ui->List2); }); // "Clear Selection"
  onCommand(ui->Command8, this, [this] { ClearListSelection(*ui->List3); }); // "Clear Selection"
  onCommand(ui->Command1, this, &Search::RunSearch);                         // "Search"
  for (QLineEdit* year : {ui->FromYear, ui->ToYear})
    setLostFocusRule(year, [year] {
      if (!isNumeric(toUtf8(year->text())))
        year->clear();
      return true;
    });
  // The pages
  onCommand(ui->Command12, this, &Search::firstPage);   // "|<<"
  onCommand(ui->Command3, this, &Search::previousPage); // "<<"
  onCommand(ui->Command2, this, &Search::nextPage);     // ">>"
  onCommand(ui->Command13, this, &Search::lastPage);    // ">>|"
  // What becomes of the result
  onCommand(ui->Command4, this, &Search::view);                         // "View"
  onCommand(ui->Command5, this, &Search::edit);                         // "Edit"
  onCommand(ui->Command10, this, [this] { windows_.addToSubAlbum(); }); // "Add ... To Sub-Album"
  onCommand(ui->Command11, this, &Search::batchEdit);                   // "Batch Edit"
  onCommand(ui->Command14, selection_, &ResultSelection::clear);        // "Clear Selection (3)"
  onCommand(ui->Command9, this, [this] { Unload(); });                  // "Done"
}

void Search::wireGrid() {
  const auto onCell = [this](void (ResultGrid::*asked)(int), auto command) {
    connect(ui->resultGrid, asked, this,
            [command](int cell) { runCommand([&] { command(cell); }); });
  };
  onCell(&ResultGrid::toggleAsked, [this](int cell) { selection_->toggle(cell); });
  onCell(&ResultGrid::rangeAsked, [this](int cell) { selection_->selectUpTo(cell); });
  onCell(&ResultGrid::zoomAsked, [this](int cell) { zoom(cell); });
  connect(ui->resultGrid, &ResultGrid::allAsked, this,
          asCommand([this] { selection_->selectPage(); }));
  connect(ui->resultGrid, &ResultGrid::moved, selection_, &ResultSelection::extendFrom);
}

void Search::load() {
  setFaces();
  colourLabels();
  openEverybody(album_.data.rsAppearances);
  album_.vars.AtFirstPage = true;
  refillLists();
  for (const char* entry : sortEntries)
    ui->SortBy->addItem(toQString(entry));
  ui->SortBy->setCurrentText(QStringLiteral("Year"));
}

void Search::setFaces() {
  const std::filesystem::path media = album_.folder.path("\\Media");
  setFace(Face::Grn, media, {ui->Command1});
  setFace(Face::Gry, media, {ui->Command2, ui->Command3, ui->Command12, ui->Command13});
  setFace(Face::Org, media,
          {ui->Command4, ui->Command5, ui->Command10, ui->Command11, ui->Command14});
  setFace(Face::Brn, media, {ui->Command9});
}

void Search::colourLabels() {
  for (QLabel* label :
       {ui->placesLabel, ui->eventsLabel, ui->namesLabel, ui->yearsLabel, ui->fromLabel,
        ui->toLabel, ui->descriptionLabel, ui->sortLabel, ui->PosLabel}) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, look::darkRed);
    label->setPalette(palette);
  }
}

CriteriaLists Search::lists() const { return {ui->List1, ui->List2, ui->List3}; }

void Search::refillLists() { lists().fill(album_.data); }

SearchCriteria Search::readCriteria() const {
  SearchCriteria criteria;
  lists().read(criteria);
  criteria.fromYear = toUtf8(ui->FromYear->text());
  criteria.toYear = toUtf8(ui->ToYear->text());
  criteria.description = toUtf8(ui->Description->text());
  criteria.sort = toUtf8(ui->SortBy->currentText());
  return criteria;
}

void Search::RunSearch() {
  const SearchCriteria criteria = readCriteria();
  const SearchQuery query = BuildSearchQuery(criteria);
  openResult(query.sql);
  noteSearch(criteria, query.summary);
  if (album_.vars.rsSearch->RecordCount() > 0)
    showFound();
  else
    showNothingFound();
}

void Search::noteSearch(const SearchCriteria& criteria, const std::string& summary) {
  searched_ = criteria;
  Tag = toQString(summary);
  album_.vars.SearchSummary = summary;
}

/// A statement that the database refuses leaves the result that was there, and what is shown and
/// selected of it.
void Search::openResult(const std::string& sql) {
  Recordset& result = *album_.vars.rsSearch;
  const std::string former = result.Source();
  const std::int64_t row = result.atEOF() ? result.RecordCount() : result.AbsolutePosition() - 1;
  result.Close();
  try {
    result.Open(sql);
  } catch (const std::exception&) {
    result.Open(former);
    result.Move(row, Recordset::Start::First);
    throw;
  }
}

void Search::showFound() {
  album_.vars.selection.clear();
  selection_->forgetWhereToExtendFrom();
  album_.vars.rsSearch->MoveFirst();
  composePage(searchInProgress);
  selection_->disableClear();
  setCaption(QStringLiteral("Search Results For: ") + Tag);
}

void Search::showNothingFound() {
  clearPage(QStringLiteral("No Records"));
  MsgBox(QStringLiteral("No Records Found!"));
  setCaption(QStringLiteral("No Results For: ") + Tag);
}

/// The selection stays as it was, and so does the command that edits it.
void Search::clearPage(const QString& position) {
  showPage({});
  ui->PosLabel->setText(position);
  enableResultCommands(false);
  selection_->disableClear();
}

void Search::startOver() {
  selection_->clear();
  clearPage({});
  ui->startHint->show();
  noteSearch({}, {});
  album_.vars.AtFirstPage = true;
  setCaption(QStringLiteral("Search Photos"));
}

void Search::ComposeResultPage() { composePage(searchInProgress); }

void Search::composePage(const QString& progressCaption) {
  const Hourglass hourglass;
  passOver([&] { showPage(readPage(progressCaption)); });
  passOver([&] { enableResultCommands(album_.vars.rsSearch->RecordCount() > 0); });
  passOver([&] { selection_->enableBatchEdit(); });
  passOver([&] {
    ui->PosLabel->setText(toQString(resultPaging(*album_.vars.rsSearch, album_.vars).label()));
  });
  // What is on the screen comes first; its neighbours can wait for the next idle moment.
  QTimer::singleShot(0, this, &Search::decodeNeighbours);
}

std::vector<ResultPhoto> Search::readPage(const QString& progressCaption) {
  auto& progress = Forms::get<Progress>();
  const auto unload = qScopeGuard([&progress] { progress.Unload(); });
  const auto count =
      static_cast<int>(std::min<std::int64_t>(resultsPerPage, album_.vars.rsSearch->RecordCount()));
  progress.setCaption(progressCaption);
  progress.setRange(0, count + 1);
  progress.setValue(0);
  progress.Show();
  return readResultPage(album_, [&](int filled) { progress.setValue(filled); });
}

void Search::showPage(const std::vector<ResultPhoto>& page) {
  ui->startHint->hide();
  for (int cell = 0; cell < resultsPerPage; ++cell)
    if (const auto at = static_cast<std::size_t>(cell); at < page.size())
      ui->resultGrid->showPhoto(cell, page[at]);
    else
      ui->resultGrid->clearPhoto(cell);
}

void Search::decodeNeighbours() {
  passOver([&] {
    findFilesBeside(pool_, this, album_, neighbourIdsOfPage(album_.vars), thumbnailPath,
                    [this](const auto& files) { ui->resultGrid->decodeAhead(files); });
  });
}

bool Search::isWaitingForPictures() const { return ui->resultGrid->isWaiting(); }

/// The thumbnails have too few pixels for paper.
PrintPage Search::printPage() const {
  return ui->resultGrid->printPage([this](const std::string& id) { return imagePath(album_, id); });
}

void Search::enableResultCommands(bool enabled) {
  for (QWidget* paging : {ui->Command3, ui->Command2, ui->Command12, ui->Command13, ui->Command5})
    paging->setEnabled(enabled);
  ui->Command4->setEnabled(enabled && windows_.showViewer);
  ui->Command10->setEnabled(enabled && windows_.addToSubAlbum);
}

void Search::firstPage() {
  turnTo(1, searchInProgress);
  album_.vars.AtFirstPage = true;
}

void Search::lastPage() {
  turnTo(resultPaging(*album_.vars.rsSearch, album_.vars).last(), searchInProgress);
  album_.vars.AtFirstPage = false;
}

void Search::nextPage() {
  const auto first = resultPaging(*album_.vars.rsSearch, album_.vars).next();
  if (!first)
    return tellNoMoreRecords();
  turnTo(*first, QStringLiteral("Processing Next Page, Please Wait"));
  album_.vars.AtFirstPage = false;
}

void Search::previousPage() {
  const auto first = resultPaging(*album_.vars.rsSearch, album_.vars).previous();
  if (!first)
    return tellNoMoreRecords();
  turnTo(*first, QStringLiteral("Processing Previouse Page, Please Wait"));
  if (*first == 1)
    album_.vars.AtFirstPage = true;
}

void Search::turnTo(std::int64_t first, const QString& progressCaption) {
  album_.vars.rsSearch->Move(first - 1, Recordset::Start::First);
  composePage(progressCaption);
}

void Search::rowsChanged(const RowsChanged& change) {
  using By = RowsChanged::By;
  if (!album_.vars.rsSearch || change.by == By::OrderWritten)
    return;
  if (change.by == By::EditorClosed)
    refillLists();
  returnToPage(change.by == By::BatchEdited
                   ? change.resultRow
                   : resultPaging(*album_.vars.rsSearch, album_.vars).returnRow());
}

/// With one photo left the selection stays as it was.
void Search::returnToPage(std::int64_t row) {
  Recordset& result = *album_.vars.rsSearch;
  result.Requery();
  const QString updating = QStringLiteral("Updating Search Results, Please Wait");
  if (result.RecordCount() < 1) {
    composePage(updating);
    return showNothingFound();
  }
  if (result.RecordCount() == 1) {
    result.MoveFirst();
    composePage(searchInProgress);
  } else {
    album_.vars.selection.clear();
    selection_->forgetWhereToExtendFrom();
    result.Move(row, Recordset::Start::First);
    if (result.atEOF())
      result.MoveFirst();
    composePage(updating);
  }
  selection_->disableClear();
}

void Search::view() {
  if (windows_.unloadViewer)
    windows_.unloadViewer();
  openResultForViewing(album_);
  windows_.showViewer(QStringLiteral("Viewing Search Results For: ") + Tag);
}

void Search::edit() {
  openResultForEditing(album_);
  editSearchResults(album_);
}

void Search::batchEdit() {
  auto& batch = Forms::get<BatchEdit>();
  batch.workOn(searched_);
  batch.ShowModal();
}

void Search::zoom(int cell) {
  if (windows_.showZoom && openResultForZoom(album_, cell))
    windows_.showZoom(QStringLiteral("Full Size Results For: ") + Tag);
}

void Search::activated() { help_.workFormActive(QStringLiteral("Search Album")); }

bool Search::unloading() {
  album_.vars.SearchSummary.clear();
  return true;
}

void Search::keyPressEvent(QKeyEvent* event) {
  const auto press = [](QAbstractButton* button) {
    if (button->isEnabled())
      button->click();
  };
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  switch (event->key()) {
  case Qt::Key_PageDown:
    return press(ui->Command2);
  case Qt::Key_PageUp:
    return press(ui->Command3);
  case Qt::Key_Home:
    return control ? press(ui->Command12) : Form::keyPressEvent(event);
  case Qt::Key_End:
    return control ? press(ui->Command13) : Form::keyPressEvent(event);
  default:
    Form::keyPressEvent(event);
  }
}

} // namespace hearthbook
