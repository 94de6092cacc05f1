#include "PickaPic.h"

#include "Beside.h"
#include "Command.h"
#include "Decode.h"
#include "FileListModel.h"
#include "FolderBrowser.h"
#include "Guard.h"
#include "Look.h"
#include "ModalHelp.h"
#include "MsgBox.h"
#include "PictureBox.h"
#include "PictureChoice.h"
#include "Text.h"
#include "UserActs.h"
#include "ui_PickaPic.h"

#include <QResizeEvent>
#include <QScopeGuard>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace hearthbook {

namespace {

const QString formTitle = QStringLiteral("Add From File");

} // namespace

PickaPic::PickaPic(Album& album, WorkPool& pool)
    : Form(QStringLiteral("PickaPic"), Kind::Dialog), album_(album), pool_(pool),
      ui(std::make_unique<Ui::PickaPic>()), files_(new FileListModel(pool, this)) {
  ui->setupUi(this);
  resize(sizeOn(screen()->availableSize(), size()));
  ui->frmProgress->hide();
  showOnPaper();
  ui->Preview->installEventFilter(this); // keeps the preview's proportions
  modalHelp_ = new ModalHelp(this, HelpPane(*ui->Help, *ui->Text1), album_.vars);
  wireBrowser();
  wireControls();
}

PickaPic::~PickaPic() = default;

QSize PickaPic::sizeOn(QSize screen, QSize drawn) { return drawn.expandedTo(screen * 3 / 5); }

void PickaPic::showOnPaper() {
  QPalette heading = ui->Label1->palette();
  heading.setColor(QPalette::WindowText, look::darkRed);
  ui->Label1->setPalette(heading);
}

void PickaPic::wireBrowser() {
  browser_ = new FolderBrowser({ui->Drive1, ui->Dir1, ui->folderEdit}, album_.drives, pool_,
                               picturePattern, formTitle, this);
  connect(browser_, &FolderBrowser::driveTouched, modalHelp_,
          [this] { modalHelp_->show(QStringLiteral("Add From File*Drive")); });
  connect(browser_, &FolderBrowser::reading, this, &PickaPic::leaveFolder);
  connect(browser_, &FolderBrowser::filesRead, files_, &FileListModel::setFiles);

  constexpr int side = FileListModel::pictureSide;
  ui->File1->setModel(files_);
  ui->File1->setIconSize({side, side});
  constexpr int roomForNames = 40;
  const QSize place(side + roomForNames, side + 2 * fontMetrics().height() + 6);
  ui->File1->setGridSize(place);
  files_->setPlaceSize(place);
}

void PickaPic::wireControls() {
  onCommand(ui->homeButton, this, [this] { browser_->showHome(); });
  onCommand(ui->picturesButton, this, [this] { showFolder(picturesFolder()); });
  connect(ui->File1->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &PickaPic::selectionChanged);
  onCommand(ui->OK, this, &PickaPic::addSelected); // "Insert Single", "Insert Multiple"
  onCommand(ui->Cancel, this, &PickaPic::Unload);  // "Cancel", "Done"
}

void PickaPic::load() {
  browser_->start(album_.vars.LastFolder.value_or(album_.folder.path("\\Photos")));
  modalHelp_->show(QStringLiteral("Add From File*Help"));
}

bool PickaPic::unloading() {
  if (running_)
    return false;
  previewing_.reset();
  return true;
}

void PickaPic::showFolder(const std::filesystem::path& folder) { browser_->showFolder(folder); }

bool PickaPic::isReading() const { return browser_->isReading(); }

/// What is chosen in it is not to be added from now on.
void PickaPic::leaveFolder() {
  album_.vars.LastFolder = browser_->folder();
  files_->setFiles({});
  ui->OK->setEnabled(false);
}

void PickaPic::selectionChanged() {
  ui->OK->setEnabled(true);
  const auto selected = ui->File1->selectionModel()->selectedIndexes().size();
  if (const auto caption = insertCaption(static_cast<std::size_t>(selected)))
    ui->OK->setText(toQString(*caption));
  // The file with the focus changes behind the selection.
  QMetaObject::invokeMethod(this, &PickaPic::showFocusedFile, Qt::QueuedConnection);
}

void PickaPic::showFocusedFile() {
  const QModelIndex focused = ui->File1->currentIndex();
  if (running_ || !focused.isValid())
    return;
  const auto file = files_->files()[static_cast<std::size_t>(focused.row())];
  album_.vars.ImagePath = file;
  if (file == previewed_)
    return;
  previewed_ = file;
  if (!previewing_)
    previewing_.emplace();
  runBeside(
      pool_, this, [file, side = previewSide()] { return pictureWithinOrNone(file, side); },
      [this, file](const Picture& picture) { previewArrived(file, picture); }, true);
}

void PickaPic::previewArrived(const std::filesystem::path& file, const Picture& picture) {
  if (file != previewed_)
    return;
  previewing_.reset();
  showPreview(picture);
}

void PickaPic::showPreview(const Picture& picture) {
  ui->ImgX1->setPicture(picture);
  placePreview();
}

int PickaPic::previewSide() const {
  const QSize room = ui->Preview->contentsRect().size();
  const double side = std::max(room.width(), room.height()) * devicePixelRatioF();
  return std::max(64, static_cast<int>(std::lround(side)));
}

void PickaPic::placePreview() {
  constexpr int border = 4;
  ui->ImgX1->placeIn(ui->Preview->contentsRect().adjusted(border, border, -border, -border));
}

void PickaPic::addSelected() {
  int added = 0;
  {
    const Hourglass hourglass;
    added = runAdding();
    browser_->refresh();
    waitUntil([this] { return !isReading(); });
  }
  ui->Cancel->setText(QStringLiteral("Done"));
  MsgBox(QString::number(added) + QStringLiteral(" Files added to album."), formTitle,
         MsgIcon::Information);
  ui->File1->setFocus();
}

int PickaPic::runAdding() {
  const AddPhotosRequest request = readRequest();
  AddPhotosListener listener;
  listener.atIndex = [this](int index) { ui->ProgressBar1->setValue(index); };
  listener.showing = [this](const Picture& picture) { showPreview(picture); };
  listener.failed = [](const std::filesystem::path& source, const std::exception&) {
    MsgBox(QStringLiteral("An error occurred while inserting file: ") + toQString(source),
           QStringLiteral("Error"), MsgIcon::Critical);
  };
  listener.kept = [](const std::filesystem::path& original, const std::filesystem::path& keptAs) {
    MsgBox(QStringLiteral("The file ") + toQString(original) +
               QStringLiteral(" was in the way of a new one. It is kept as ") + toQString(keptAs),
           formTitle, MsgIcon::Exclamation);
  };
  listener.wait = waitUntil;
  listener.wake = wakeWindow;

  previewed_.clear(); // the run shows pictures of its own
  previewing_.reset();
  ui->ProgressBar1->setRange(0, std::max(1, static_cast<int>(request.list.size())));
  ui->ProgressBar1->setValue(0);
  showRunning(true);
  const auto ended = qScopeGuard([this] { showRunning(false); });
  return addPhotos(album_, pool_, request, listener);
}

AddPhotosRequest PickaPic::readRequest() const {
  AddPhotosRequest request;
  request.list = files_->files();
  request.selected.resize(request.list.size());
  for (const QModelIndex& index : ui->File1->selectionModel()->selectedIndexes())
    request.selected[static_cast<std::size_t>(index.row())] = true;
  request.move = ui->Option2->isChecked();
  request.reduce = ui->chkSize->isChecked();
  request.preview = ui->ImgX1->picture();
  return request;
}

void PickaPic::showRunning(bool running) {
  running_ = running;
  ui->frmProgress->setVisible(running);
  ui->frmProgress->repaint();
}

bool PickaPic::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize)
    placePreview();
  return Form::eventFilter(watched, event);
}

} // namespace hearthbook
