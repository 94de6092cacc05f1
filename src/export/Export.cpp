#include "Export.h"

#include "Command.h"
#include "ExportPages.h"
#include "ExportReport.h"
#include "ExportTarget.h"
#include "FolderBrowser.h"
#include "Guard.h"
#include "MsgBox.h"
#include "Pointer.h"
#include "Text.h"
#include "UserActs.h"
#include "ui_Export.h"

#include <QScopeGuard>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace hearthbook {

namespace {

const QString exportTitle = QStringLiteral("Export Sub-Album");

} // namespace

Export::Export(Album& album, WorkPool& pool, HyperlinkControl::Opener openPage)
    : Form(QStringLiteral("Export"), Kind::Dialog), album_(album), pool_(pool),
      ui(std::make_unique<Ui::Export>()) {
  ui->setupUi(this);
  resize(sizeOn(screen()->availableSize(), size()));
  ui->ImgX1->hide();
  ui->UserControl11->setOpener(std::move(openPage));
  ui->Preview->installEventFilter(this); // keeps the photo's proportions
  wireBrowser();
  wireControls();
}

Export::~Export() = default;

QSize Export::sizeOn(QSize screen, QSize drawn) { return drawn.expandedTo(screen * 2 / 5); }

void Export::wireControls() {
  for (const Optimization& choice : optimizations())
    ui->Combo1->addItem(toQString(choice.text));
  ui->SubAlbumList->setListSource({&album_.data.rsSubAlbums, "albumName", "AlbumID"});
  onCommand(ui->homeButton, this, [this] { browser_->showHome(); });
  onCommand(ui->Command1, this, &Export::exportChosen); // "Export"
  onCommand(ui->Command2, this, &Export::Unload);       // "Close"
}

void Export::wireBrowser() {
  browser_ = new FolderBrowser({ui->Drive1, ui->Dir1, ui->folderEdit}, album_.drives, pool_, "",
                               exportTitle, this);
  browser_->setDriveTest([this](const Drive& drive) { return mayChooseDrive(drive); });
}

void Export::load() {
  ui->Combo1->setCurrentIndex(0);
  browser_->start(ownFolder());
}

bool Export::unloading() { return !running_; }

void Export::showFolder(const std::filesystem::path& folder) { browser_->showFolder(folder); }

bool Export::isReading() const { return browser_->isReading(); }

std::filesystem::path Export::ownFolder() const { return album_.folder.path("\\Export\\"); }

bool Export::mayChooseDrive(const Drive& drive) {
  if (takesFiles(drive))
    return true;
  MsgBox(QStringLiteral("Sorry, drive is read-only or not ready. Please selcet a different one"));
  browser_->start(ownFolder());
  return false;
}

void Export::exportChosen() {
  if (ui->SubAlbumList->BoundText().toText().empty()) {
    MsgBox(QStringLiteral("Please select Sub-Album to export from the list"), exportTitle,
           MsgIcon::Exclamation);
    return;
  }
  if (!hasTemplate(album_.folder)) {
    MsgBox(toQString(noExportSource), exportTitle, MsgIcon::Exclamation);
    return;
  }
  const Hourglass hourglass;
  storePendingEdits();
  const auto outcome = runExport(readRequest());
  if (!outcome)
    return;
  tellTroubles(*outcome);
  offerToView(*outcome);
}

/// The export reads the album through a connection of its own, which sees what is stored.
void Export::storePendingEdits() {
  if (standsOnRow(album_.data.rsPhotoAlbum))
    album_.data.rsPhotoAlbum.Update();
}

ExportRequest Export::readRequest() const {
  ExportRequest request;
  request.albumId = ui->SubAlbumList->BoundText().toInteger();
  request.albumName = toUtf8(ui->SubAlbumList->Text());
  request.base = browser_->folder();
  request.optimization = static_cast<std::size_t>(std::max(0, ui->Combo1->currentIndex()));
  request.previewSide = previewSide();
  return request;
}

std::optional<ExportOutcome> Export::runExport(const ExportRequest& request) {
  showRunning(true);
  const auto ended = qScopeGuard([this] { showRunning(false); });
  return exportSubAlbum(album_, pool_, request, listener());
}

ExportListener Export::listener() {
  ExportListener listener;
  listener.atPhoto = [this](std::int64_t number, std::int64_t count, const std::string& file) {
    showProgress(number, count, file);
  };
  listener.showing = [this](const Picture& picture) { showPhoto(picture); };
  listener.mayDelete = mayDelete;
  listener.wait = waitUntil;
  listener.wake = wakeWindow;
  return listener;
}

bool Export::mayDelete(const std::filesystem::path& folder, const std::vector<std::string>& names) {
  return MsgBox(toQString(deletionQuestion(folder, names)), exportTitle, MsgIcon::Exclamation,
                MsgButtons::YesNo) == MsgAnswer::Yes;
}

void Export::tellTroubles(const ExportOutcome& outcome) {
  const std::string report = troubleReport(outcome);
  if (!report.empty())
    MsgBox(toQString(report), exportTitle, MsgIcon::Exclamation);
}

void Export::offerToView(const ExportOutcome& outcome) {
  if (MsgBox(toQString(closingQuestion(outcome)), exportTitle, MsgIcon::Question,
             MsgButtons::YesNo) != MsgAnswer::Yes)
    return;
  openOrTell([this](const auto& page) { return ui->UserControl11->nav(page); }, outcome.startPage,
             exportTitle);
}

void Export::showRunning(bool running) {
  running_ = running;
  ui->Label1->clear();
  ui->ProgressBar1->setValue(0);
  ui->hint->setVisible(!running);
  ui->ImgX1->clear();
  ui->ImgX1->setVisible(running);
  updateEnabled();
  repaint();
}

/// Nothing can be chosen while it runs, and it cannot be stopped. The focus is kept.
void Export::updateEnabled() {
  QWidget* focused = running_ ? nullptr : focusOf_.data();
  if (running_)
    focusOf_ = focusWidget();
  for (QWidget* part : std::initializer_list<QWidget*>{
           ui->albumFrame, ui->optimizationFrame, ui->destinationFrame, ui->Command1, ui->Command2})
    part->setEnabled(!running_);
  if (focused)
    focused->setFocus();
}

void Export::showProgress(std::int64_t number, std::int64_t count, const std::string& file) {
  ui->ProgressBar1->setRange(0, static_cast<int>(std::max<std::int64_t>(1, count)));
  ui->ProgressBar1->setValue(static_cast<int>(number));
  ui->Label1->setText(toQString(savingCaption(number, count, file)));
  ui->Label1->repaint();
}

void Export::showPhoto(const Picture& picture) {
  ui->ImgX1->setPicture(picture);
  placePhoto();
  ui->ImgX1->repaint();
}

void Export::placePhoto() { ui->ImgX1->placeIn(ui->Preview->contentsRect()); }

int Export::previewSide() const {
  const QSize room = ui->Preview->contentsRect().size();
  const double side = std::max(room.width(), room.height()) * devicePixelRatioF();
  return std::max(64, static_cast<int>(std::lround(side)));
}

bool Export::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize)
    placePhoto();
  return Form::eventFilter(watched, event);
}

} // namespace hearthbook
