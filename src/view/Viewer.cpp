#include "Viewer.h"

#include "AudioFiles.h"
#include "BackgroundSound.h"
#include "ButtonFace.h"
#include "ClipPlayer.h"
#include "Command.h"
#include "CommentsBox.h"
#include "DBeditor.h"
#include "FilesBeside.h"
#include "Forms.h"
#include "Guard.h"
#include "HelpKeys.h"
#include "MarkerArrow.h"
#include "MsgBox.h"
#include "NamesCords.h"
#include "NamesGrid.h"
#include "PageCells.h"
#include "PagePictures.h"
#include "PhotoFiles.h"
#include "Pointer.h"
#include "Progress.h"
#include "Stage.h"
#include "Text.h"
#include "ui_Viewer.h"

#include <QKeyEvent>
#include <QPixmap>
#include <QScopeGuard>
#include <QTimer>

namespace hearthbook {

namespace {

constexpr TwipsSize commentsSize{2175, 2250};
constexpr int commentsSteps = 450;
constexpr double commentsStep = 5;

void tellNoMoreRecords() { MsgBox(QStringLiteral("No More Records!")); }

std::string isPhoto(const std::string& id) { return "PictureID = '" + id + "'"; }

/// Where the arrow keys go, counted over the cells; 0 for other keys.
int stepOf(int key) {
  switch (key) {
  case Qt::Key_Left:
    return -1;
  case Qt::Key_Right:
    return 1;
  case Qt::Key_Up:
    return -pageColumns;
  case Qt::Key_Down:
    return pageColumns;
  default:
    return 0;
  }
}

} // namespace

Viewer::Viewer(Album& album, PictureLoader& loader, WorkPool& pool, HoverHelp& help,
               ViewerWindows windows)
    : Form(QStringLiteral("Viewer"), Kind::Work), album_(album), pool_(pool), help_(help),
      windows_(std::move(windows)), stage_(new Stage(workFormSize, this)),
      ui(std::make_unique<Ui::Viewer>()), background_(new BackgroundSound(this)),
      clip_(new ClipPlayer(this)) {
  ui->setupUi(this);
  stage_->placeAsDrawn(this);
  cells_ = new PageCells(*stage_, this);
  pictures_ =
      new PagePictures(*stage_, cells_->photos(), loader, pool, notFoundPicture(album_), this);
  comments_ = new CommentsBox(commentsSize, QStringLiteral("Label2"), *stage_);
  arrow_ = new MarkerArrow(*stage_, *ui->Picture1, this);
  new HelpKeys(this, [this](const QString& key) { help_.show(key); });
  wireControls();
  wireCells();
  orderTabs();
}

Viewer::~Viewer() = default;

void Viewer::wireControls() {
  // Turning the pages
  onCommand(ui->Command7, this, &Viewer::firstPage);    // "|<<"
  onCommand(ui->Command2, this, &Viewer::previousPage); // "<<"
  onCommand(ui->Command1, this, &Viewer::nextPage);     // ">>"
  onCommand(ui->Command8, this, &Viewer::lastPage);     // ">>|"
  // The photos and the form
  onCommand(ui->Command3, this, &Viewer::edit);         // "Edit All"
  onCommand(ui->Command5, this, &Viewer::editSubAlbum); // "Edit Sub-Album"
  onCommand(ui->Command6, this, &Viewer::zoom);         // "Zoom"
  onCommand(ui->Command9, this, &Viewer::sendMail);     // "E-Mail"
  onCommand(ui->Command4, this, &Viewer::done);         // "Done"
}

void Viewer::wireCells() {
  const auto asCellCommand = [this](void (Viewer::*handler)(int)) {
    return [this, handler](int cell) { runCommand([&] { (this->*handler)(cell); }); };
  };
  connect(cells_, &PageCells::clicked, this, asCellCommand(&Viewer::toggleSelection));
  connect(cells_, &PageCells::opened, this, asCellCommand(&Viewer::zoomInto));
  connect(cells_, &PageCells::descriptionAsked, this, asCellCommand(&Viewer::readDescription));
  connect(cells_, &PageCells::soundAsked, this, asCellCommand(&Viewer::playSound));
  connect(cells_, &PageCells::nameChosen, this, asCellCommand(&Viewer::pointAtPerson));
  connect(pictures_, &PagePictures::placed, this, [this](int cell) {
    cells_->at(cell).frame->update();
    arrow_->photoMoved(*cells_->at(cell).photo, photoSide);
  });
  connect(clip_, &ClipPlayer::failed, this,
          [](const QString& why) { MsgBox(why, QStringLiteral("Sound"), MsgIcon::Exclamation); });
}

/// Photo by photo, and the commands behind them.
void Viewer::orderTabs() {
  QWidget* last = nullptr;
  const auto then = [&last](QWidget* next) {
    if (last)
      setTabOrder(last, next);
    last = next;
  };
  for (QWidget* control : cells_->tabOrder())
    then(control);
  for (QWidget* command : std::initializer_list<QWidget*>{ui->Command7, ui->Command2, ui->Command1,
                                                          ui->Command8, ui->Command3, ui->Command5,
                                                          ui->Command6, ui->Command9, ui->Command4})
    then(command);
}

void Viewer::load() {
  setFaces();
  Recordset& people = album_.data.rsAppearances;
  people.Close();
  people.Open(sources::appearances);
  if (album_.vars.CallerForm != "Viewer")
    beginWithSelection(album_.vars);
  ComposeAlbumPage();
  startBackground();
  cells_->at(0).photo->setFocus(Qt::MouseFocusReason); // the arrow keys work from the beginning
}

void Viewer::setFaces() {
  const std::filesystem::path media = album_.folder.path("\\Media");
  setFace(Face::Gry, media, {ui->Command1, ui->Command2, ui->Command7, ui->Command8});
  setFace(Face::Org, media, {ui->Command3, ui->Command5, ui->Command6, ui->Command9});
  setFace(Face::Brn, media, {ui->Command4});
  const QPixmap arrow(toQString(media / "Marker.png"));
  ui->Picture1->setPixmap(arrow);
  for (int cell = 0; cell < photosOnPage; ++cell)
    cells_->at(cell).facts->setArrow(arrow);
}

void Viewer::startBackground() {
  if (const auto sound = attachedAudio(album_, albumAudioName(album_.vars.chosenAlbum.id)))
    background_->start(*sound);
}

void Viewer::ComposeAlbumPage() {
  const Hourglass hourglass;
  arrow_->hide(); // what belongs to the photos of the last page goes with them
  comments_->putAway();
  for (int cell = 0; cell < photosOnPage; ++cell)
    composeCell(cell);
  passOver([&] { showPosition(); });
  updateEnabled();
  cells_->keepFocusOnPhotos();
  // The page on the screen comes first; its neighbours can wait for the next idle moment.
  QTimer::singleShot(0, this, &Viewer::decodeNeighbours);
}

void Viewer::composeCell(int cell) {
  if (photos().atEOF()) {
    pictures_->clear(cell);
    cells_->empty(cell);
  } else {
    fillCell(cell);
  }
  cells_->rest(cell);
}

/// The caption of "Edit" is chosen before the cell's frame is put to rest, so that a photo that
/// was selected in the last cell of the page before still tells.
void Viewer::fillCell(int cell) {
  std::string id;
  passOver([&] { id = photos().Collect("PictureID").toText(); });
  cells_->fill(cell, id);
  pictures_->show(cell, fileOf(id));
  showEditCaption();
  showFacts(cell);
  passOver([&] { photos().MoveNext(); });
  album_.vars.ViewPageCount = static_cast<std::int16_t>(cell + 1);
}

std::filesystem::path Viewer::fileOf(const std::string& id) {
  auto file = notFoundPicture(album_);
  passOver([&] {
    resolveImage(album_, id);
    file = album_.vars.ImagePicture.file;
  });
  return file;
}

void Viewer::showFacts(int cell) {
  const PhotoFacts facts = photoFacts(album_.data, photos(), namesInSight);
  album_.vars.PageMarkers[cell] = facts.markers;
  if (cell == 0)
    firstMarkers_ = facts.markers;
  cells_->showFacts(cell, facts);
  cells_->at(cell).facts->lookForSound(pool_, album_, cells_->at(cell).tag);
}

void Viewer::showEditCaption() {
  ui->Command3->setText(cells_->selected() ? QStringLiteral("Edit Selected")
                                           : QStringLiteral("Edit All"));
}

AlbumPaging Viewer::paging() const { return albumPaging(photos(), album_.vars.ViewPageCount); }

void Viewer::showPosition() { ui->PosLabel->setText(toQString(paging().label())); }

void Viewer::updateEnabled() {
  const bool hasPhotos = photos().RecordCount() > 0;
  ui->Command3->setEnabled(hasPhotos);
  ui->Command5->setEnabled(isSubAlbum_ && windows_.editSubAlbum);
  ui->Command6->setEnabled(hasPhotos && windows_.showZoom);
  ui->Command9->setEnabled(hasPhotos && windows_.sendMail);
}

void Viewer::allowSubAlbumEdit(bool allowed) {
  isSubAlbum_ = allowed;
  updateEnabled();
}

void Viewer::decodeNeighbours() {
  passOver([&] {
    auto neighbours = neighbourPages(photos(), album_.vars.ViewPageCount);
    std::vector<std::string> ids;
    ids.reserve(neighbours.size());
    for (const PlaceOnPage& neighbour : neighbours)
      ids.push_back(neighbour.id);
    findFilesBeside(pool_, this, album_, std::move(ids), imagePath,
                    [this, neighbours = std::move(neighbours)](const auto& files) {
                      std::vector<PagePictures::Neighbour> ahead;
                      ahead.reserve(files.size());
                      for (std::size_t photo = 0; photo < files.size(); ++photo)
                        ahead.push_back({files[photo], neighbours[photo].cell});
                      pictures_->decodeAhead(std::move(ahead));
                    });
  });
}

bool Viewer::isWaitingForPictures() const { return pictures_->isWaiting(); }

PrintPage Viewer::printPage() const {
  AlbumPrint page;
  for (int cell = 0; cell < photosOnPage; ++cell)
    if (pictures_->shown(cell) && cells_->at(cell).photo->hasPicture())
      page.cells.push_back(printCell(cell));
  return page;
}

AlbumPrintCell Viewer::printCell(int cell) const {
  const PageCells::Cell& shown = cells_->at(cell);
  AlbumPrintCell print;
  print.place = cell;
  print.photo = {stage_->rect(shown.photo), *pictures_->shown(cell), shown.photo->picture()};
  print.infoWidth = stage_->rect(shown.facts).width;
  print.gridSize = shown.facts->namesSize();
  print.grid = shown.facts->namesPicture();
  print.hasMoreNames = shown.facts->hasMoreNames();
  print.caption = shown.facts->heading();
  return print;
}

bool Viewer::isLookingForSounds() const {
  for (int cell = 0; cell < photosOnPage; ++cell)
    if (cells_->at(cell).facts->isLookingForSound())
      return true;
  return false;
}

void Viewer::nextPage() {
  if (paging().next())
    ComposeAlbumPage();
  else
    tellNoMoreRecords();
}

void Viewer::previousPage() {
  if (const auto first = paging().previous())
    composeFrom(*first);
  else
    tellNoMoreRecords();
}

void Viewer::firstPage() {
  composeFrom(1);
  ui->PosLabel->setText(toQString(paging().firstLabel()));
}

void Viewer::lastPage() { composeFrom(paging().last()); }

void Viewer::composeFrom(std::int64_t position) {
  if (photos().RecordCount() > 0)
    photos().Move(position - 1, Recordset::Start::First);
  ComposeAlbumPage();
}

bool Viewer::walkByArrow(int key) {
  const auto from = cells_->focused();
  const int step = stepOf(key);
  if (!from || step == 0)
    return false;
  const int to = *from + step;
  if (to >= 0 && to < photosOnPage)
    cells_->focus(to);
  else
    runCommand([&] { walkOffPage(to); });
  return true;
}

/// Walking on past the last photo, or before the first, turns the page.
void Viewer::walkOffPage(int to) {
  const bool forward = to >= photosOnPage;
  if (forward && paging().next())
    nextPage();
  else if (!forward && paging().previous())
    previousPage();
  else
    return;
  cells_->focus((to + photosOnPage) % photosOnPage);
}

void Viewer::rowsChanged(const RowsChanged& change) {
  switch (change.by) {
  case RowsChanged::By::EditorClosed:
    return returnTo(paging().returnRowOfEditor());
  case RowsChanged::By::BatchEdited:
    return returnTo(paging().returnRowOfBatch(), true);
  case RowsChanged::By::OrderWritten:
    return returnTo(0);
  }
}

void Viewer::composeUnderProgress() {
  auto& progress = Forms::get<Progress>();
  const auto unload = qScopeGuard([&progress] { progress.Unload(); });
  progress.setCaption(QStringLiteral("Updating Viewer, Please Wait"));
  progress.setRange(0, 1);
  progress.setValue(0);
  progress.Show();
  ComposeAlbumPage();
  progress.setValue(1);
}

/// Of a single photo the page is there at once: nobody is asked to wait for it.
void Viewer::returnTo(std::int64_t row, bool underProgress) {
  photos().Requery();
  const std::int64_t count = photos().RecordCount();
  if (count == 0) {
    Unload();
    return;
  }
  photos().Move(count > 1 ? row : 0, Recordset::Start::First);
  if (photos().atEOF())
    photos().MoveFirst();
  if (underProgress && count > 1)
    composeUnderProgress();
  else
    ComposeAlbumPage();
}

void Viewer::toggleSelection(int cell) {
  if (!cells_->at(cell).photo->hasSource())
    return;
  if (cells_->at(cell).frame->isSelected())
    cells_->rest(cell);
  else
    cells_->select(cell);
  showEditCaption();
}

void Viewer::pointAtPerson(int cell) {
  const PhotoMarkers& markers = album_.vars.PageMarkers[cell];
  if (!markers)
    return;
  const auto person = cells_->at(cell).facts->names().chosenPerson();
  const auto marker = person ? placeOfMarker(*markers, *person) : std::nullopt;
  if (marker)
    arrow_->pointAt(*cells_->at(cell).photo, *marker, photoSide);
  else
    arrow_->hide();
}

void Viewer::readDescription(int cell) {
  const auto photo = photos().Clone(); // the place of the pages stays
  photo->Find(isPhoto(cells_->at(cell).tag), Recordset::Start::First);
  if (photo->atEOF())
    return;
  const TwipsRect info = stage_->rect(cells_->at(cell).facts);
  comments_->slideUp(toQString(photo->Collect("Description").toText()),
                     {info.left, info.top + info.height, commentsSteps, commentsStep});
}

void Viewer::playSound(int cell) {
  if (const auto sound = attachedAudio(album_, photoAudioName(cells_->at(cell).tag)))
    clip_->play(*sound, background_);
}

void Viewer::edit() {
  clip_->close();
  background_->close();
  Recordset& edited = album_.data.rsPhotoAlbum;
  edited.Close();
  edited.Source(photos().Source());
  edited.Open();
  if (const auto cell = cells_->selected())
    edited.Find(isPhoto(cells_->at(*cell).tag), Recordset::Start::First);
  auto& editor = Forms::get<DBeditor>();
  const bool isAlbum = album_.vars.CallerForm == "Viewer";
  editor.setCaption(toQString(isAlbum
                                  ? "Editing Album: " + album_.vars.chosenAlbum.name
                                  : "Editing Search Results For: " + album_.vars.SearchSummary));
  editor.ComposeRecord();
  editor.Show();
}

void Viewer::editSubAlbum() {
  clip_->close();
  background_->close();
  windows_.editSubAlbum(Tag);
}

bool Viewer::standZoomOn(const std::string& id) {
  album_.vars.rsZoom = photos().Clone();
  album_.vars.rsZoom->Find(isPhoto(id), Recordset::Start::First);
  return !album_.vars.rsZoom->atEOF();
}

void Viewer::zoom() {
  if (standZoomOn(cells_->at(cells_->selected().value_or(0)).tag))
    showZoom();
}

/// An empty cell opens the photo that stood there on the page before.
void Viewer::zoomInto(int cell) {
  if (windows_.showZoom && standZoomOn(cells_->at(cell).tag))
    showZoom();
}

void Viewer::showZoom() {
  windows_.showZoom(toQString("Full Size View: " + album_.vars.chosenAlbum.name));
}

void Viewer::sendMail() { windows_.sendMail(); }

void Viewer::done() { Unload(); }

/// The zoom view keeps its photo's markers in the place of the first cell's.
void Viewer::activated() {
  help_.workFormActive(QStringLiteral("View Album"));
  album_.vars.PageMarkers[0] = firstMarkers_;
}

bool Viewer::unloading() {
  clip_->close();
  background_->open();
  return true;
}

void Viewer::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_PageDown:
    runCommand([this] { nextPage(); });
    return;
  case Qt::Key_PageUp:
    runCommand([this] { previousPage(); });
    return;
  case Qt::Key_Home:
    runCommand([this] { firstPage(); });
    return;
  case Qt::Key_End:
    runCommand([this] { lastPage(); });
    return;
  case Qt::Key_Escape:
    return comments_->isVisible() ? comments_->putAway() : clip_->end();
  default:
    if (!walkByArrow(event->key()))
      Form::keyPressEvent(event);
  }
}

} // namespace hearthbook
