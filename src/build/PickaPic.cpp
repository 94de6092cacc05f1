#include "PickaPic.h"

#include "Beside.h"
#include "Command.h"
#include "Decode.h"
#include "FileListModel.h"
#include "Guard.h"
#include "Look.h"
#include "ModalHelp.h"
#include "MsgBox.h"
#include "PictureBox.h"
#include "RunTimeError.h"
#include "Text.h"
#include "ui_PickaPic.h"

#include <QCoreApplication>
#include <QFileSystemModel>
#include <QKeyEvent>
#include <QResizeEvent>
#include <QScopeGuard>
#include <QSignalBlocker>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>

namespace hearthbook {

namespace {

const QString formTitle = QStringLiteral("Add From File");

std::filesystem::path standardFolder(QStandardPaths::StandardLocation location) {
  return toPath(QStandardPaths::writableLocation(location));
}

} // namespace

PickaPic::PickaPic(Album& album, WorkPool& pool)
    : Form(QStringLiteral("PickaPic"), Kind::Dialog), album_(album), pool_(pool),
      ui(std::make_unique<Ui::PickaPic>()), folders_(new QFileSystemModel(this)),
      files_(new FileListModel(pool, this)) {
  ui->setupUi(this);
  ui->frmProgress->hide();
  showOnPaper();
  ui->Preview->installEventFilter(this); // keeps the preview's proportions
  modalHelp_ = new ModalHelp(this, HelpPane(*ui->Help, *ui->Text1), album_.vars);
  wireBrowser();
  wireControls();
}

PickaPic::~PickaPic() = default;

void PickaPic::showOnPaper() {
  QPalette heading = ui->Label1->palette();
  heading.setColor(QPalette::WindowText, look::darkRed);
  ui->Label1->setPalette(heading);
}

void PickaPic::wireBrowser() {
  folders_->setFilter(QDir::Dirs | QDir::NoDotAndDotDot);
  folders_->setRootPath(QStringLiteral("/"));
  ui->Dir1->setModel(folders_);
  for (int column = 1; column < folders_->columnCount(); ++column)
    ui->Dir1->hideColumn(column);
  // The tree is read and sorted beside the window's thread: its rows move until it is. Once
  // the user has touched it, it stays where he left it.
  connect(folders_, &QFileSystemModel::directoryLoaded, this, &PickaPic::keepFolderInSight);
  connect(folders_, &QFileSystemModel::layoutChanged, this, &PickaPic::keepFolderInSight);
  ui->Dir1->installEventFilter(this);
  ui->Dir1->viewport()->installEventFilter(this);

  constexpr int side = FileListModel::pictureSide;
  ui->File1->setModel(files_);
  ui->File1->setIconSize({side, side});
  ui->File1->setGridSize({side + 24, side + 2 * fontMetrics().height() + 6});
}

void PickaPic::keepFolderInSight() {
  if (seeking_)
    ui->Dir1->scrollTo(ui->Dir1->currentIndex());
}

void PickaPic::wireControls() {
  connect(ui->Drive1, &QComboBox::activated, this,
          [this](int index) { runCommand([=, this] { chooseDrive(index); }); });
  onCommand(ui->homeButton, this,
            [this] { showFolder(standardFolder(QStandardPaths::HomeLocation)); });
  onCommand(ui->picturesButton, this,
            [this] { showFolder(standardFolder(QStandardPaths::PicturesLocation)); });
  connect(ui->Dir1->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& folder) {
            if (!placing_)
              runCommand([=, this] { openFolder(toPath(folders_->filePath(folder))); });
          });
  connect(ui->folderEdit, &QLineEdit::returnPressed, this,
          asCommand([this] { chooseTypedFolder(); }));
  connect(ui->File1->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &PickaPic::selectionChanged);
  onCommand(ui->OK, this, &PickaPic::addSelected); // "Insert Single", "Insert Multiple"
  onCommand(ui->Cancel, this, &PickaPic::Unload);  // "Cancel", "Done"
}

void PickaPic::load() {
  showDrives();
  const auto start = album_.vars.LastFolder.value_or(album_.folder.path("\\Photos"));
  showFolder(nearestFolder(start));
  modalHelp_->show(QStringLiteral("Add From File*Help"));
}

bool PickaPic::unloading() {
  if (running_)
    return false;
  previewing_.reset();
  return true;
}

void PickaPic::showDrives() {
  drives_ = album_.drives.enumerate();
  const QSignalBlocker quiet(ui->Drive1);
  ui->Drive1->clear();
  for (const Drive& drive : drives_)
    ui->Drive1->addItem(toQString(driveCaption(drive)));
}

void PickaPic::chooseDrive(int index) {
  modalHelp_->show(QStringLiteral("Add From File*Drive"));
  const char letter = drives_.at(static_cast<std::size_t>(index)).letter;
  showDrives();
  try {
    showFolder(driveRoot(drives_, letter));
  } catch (const RunTimeError& failure) {
    if (failure.number() == 68)
      MsgBox(QStringLiteral("Drive Does Not Exist"));
    showFolder(folder_);
  }
}

void PickaPic::chooseTypedFolder() {
  const auto folder = toPath(ui->folderEdit->text());
  std::error_code unknown;
  if (std::filesystem::is_directory(folder, unknown))
    return showFolder(folder);
  MsgBox(QStringLiteral("There is no folder ") + toQString(folder), formTitle,
         MsgIcon::Exclamation);
  ui->folderEdit->setText(toQString(folder_));
}

void PickaPic::showFolder(const std::filesystem::path& folder) {
  const auto drive = driveOf(drives_, folder);
  ui->Drive1->setCurrentIndex(drive ? static_cast<int>(*drive) : -1);
  const auto root = drive ? drives_[*drive].root : std::filesystem::path("/");
  ui->Dir1->setRootIndex(folders_->index(toQString(root)));
  placing_ = true;
  const QModelIndex index = folders_->index(toQString(folder));
  ui->Dir1->setCurrentIndex(index);
  ui->Dir1->expand(index);
  ui->Dir1->scrollTo(index);
  placing_ = false;
  seeking_ = true;
  openFolder(folder);
}

void PickaPic::openFolder(const std::filesystem::path& folder) {
  folder_ = folder;
  album_.vars.LastFolder = folder;
  ui->folderEdit->setText(toQString(folder));
  refreshFiles();
}

void PickaPic::refreshFiles() {
  reading_ = true;
  files_->setFiles({}); // what is chosen in the folder before is not to be added from now on
  ui->OK->setEnabled(false);
  runBeside(
      pool_, this, [folder = folder_] { return readFolder(folder); },
      [this, folder = folder_](const FolderContent& content) { showFiles(folder, content); }, true);
}

void PickaPic::showFiles(const std::filesystem::path& folder, const FolderContent& content) {
  if (folder != folder_)
    return;
  reading_ = false;
  files_->setFiles(content.pictures);
  if (!content.error.empty())
    MsgBox(toQString(content.error), formTitle, MsgIcon::Exclamation);
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
  const QRect room = ui->Preview->contentsRect().adjusted(border, border, -border, -border);
  const PixelSize picture = ui->ImgX1->picture().size();
  QSize size = QSize(picture.width, picture.height).scaled(room.size(), Qt::KeepAspectRatio);
  QRect place(QPoint(), size.expandedTo({1, 1}));
  place.moveCenter(room.center());
  ui->ImgX1->setGeometry(place);
}

void PickaPic::addSelected() {
  int added = 0;
  {
    const Hourglass hourglass;
    added = runAdding();
    refreshFiles();
    waitUntil([this] { return !reading_; });
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
  listener.wake = [] {
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] {}, Qt::QueuedConnection);
  };

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

void PickaPic::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const auto choosing = {static_cast<QWidget*>(ui->Drive1), static_cast<QWidget*>(ui->Dir1),
                         static_cast<QWidget*>(ui->folderEdit)};
  // Return there chooses a folder: the default button would add the files of the one before.
  if (isReturn && std::ranges::find(choosing, focusWidget()) != choosing.end())
    return;
  Form::keyPressEvent(event);
}

bool PickaPic::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::Resize:
    placePreview();
    break;
  case QEvent::KeyPress:
  case QEvent::MouseButtonPress:
  case QEvent::Wheel:
    seeking_ = false;
    break;
  default:
    break;
  }
  return Form::eventFilter(watched, event);
}

} // namespace hearthbook
