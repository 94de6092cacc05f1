#include "FolderBrowser.h"

#include "Beside.h"
#include "Command.h"
#include "MsgBox.h"
#include "RunTimeError.h"
#include "Text.h"

#include <QComboBox>
#include <QEvent>
#include <QFileSystemModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStandardPaths>
#include <QTreeView>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace hearthbook {

namespace {

bool isReturn(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// As the tree spells it.
std::filesystem::path withoutEndSlash(const std::filesystem::path& folder) {
  return folder.has_relative_path() && !folder.has_filename() ? folder.parent_path() : folder;
}

std::filesystem::path standardFolder(QStandardPaths::StandardLocation location) {
  return toPath(QStandardPaths::writableLocation(location));
}

} // namespace

std::filesystem::path picturesFolder() { return standardFolder(QStandardPaths::PicturesLocation); }

std::filesystem::path musicFolder() { return standardFolder(QStandardPaths::MusicLocation); }

FolderBrowser::FolderBrowser(const Parts& parts, const Drives& machine, WorkPool& pool,
                             std::string_view pattern, QString title, QObject* parent)
    : QObject(parent), parts_(parts), machine_(machine), pool_(pool), pattern_(pattern),
      title_(std::move(title)), tree_(new QFileSystemModel(this)) {
  wireTree();
  wireParts();
}

void FolderBrowser::wireTree() {
  tree_->setFilter(QDir::Dirs | QDir::NoDotAndDotDot);
  tree_->setRootPath(QStringLiteral("/"));
  // The tree makes a neighbour of a folder that vanishes its current one: nobody has chosen that.
  connect(tree_, &QFileSystemModel::rowsAboutToBeRemoved, this, [this] { placing_ = true; });
  parts_.folders->setModel(tree_);
  connect(tree_, &QFileSystemModel::rowsRemoved, this, &FolderBrowser::keepFolderChosen);
  for (int column = 1; column < tree_->columnCount(); ++column)
    parts_.folders->hideColumn(column);
  // The tree is read and sorted beside the window's thread: its rows move until it is. Once
  // the user has touched it, it stays where he left it.
  connect(tree_, &QFileSystemModel::directoryLoaded, this, &FolderBrowser::keepFolderInSight);
  connect(tree_, &QFileSystemModel::layoutChanged, this, &FolderBrowser::keepFolderInSight);
  parts_.folders->viewport()->installEventFilter(this);
}

void FolderBrowser::wireParts() {
  // A disk with a long name would make the dialog wider than a small screen.
  parts_.drives->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  connect(parts_.drives, &QComboBox::activated, this,
          [this](int index) { runCommand([=, this] { chooseDrive(index); }); });
  connect(parts_.folders->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& folder) {
            if (!placing_)
              runCommand([=, this] { openFolder(toPath(tree_->filePath(folder))); });
          });
  setLostFocusRule(parts_.path, [this] { return goWhereTyped(); });
  // Return chooses a folder here. It goes no further: after a message about a folder that is not
  // there the focus is nowhere, and a dialog's default button would work on the folder before.
  for (QWidget* part : std::initializer_list<QWidget*>{parts_.drives, parts_.folders, parts_.path})
    part->installEventFilter(this);
}

void FolderBrowser::keepFolderInSight() {
  if (seeking_)
    parts_.folders->scrollTo(parts_.folders->currentIndex());
}

void FolderBrowser::keepFolderChosen() {
  const QModelIndex current = parts_.folders->currentIndex();
  if (current.isValid() && toPath(tree_->filePath(current)) != folder_)
    parts_.folders->setCurrentIndex({});
  placing_ = false;
}

void FolderBrowser::setDriveTest(std::function<bool(const Drive& drive)> mayChoose) {
  mayChoose_ = std::move(mayChoose);
}

void FolderBrowser::start(const std::filesystem::path& folder) {
  showDrives();
  showFolder(nearestFolder(folder));
}

void FolderBrowser::showHome() { showFolder(standardFolder(QStandardPaths::HomeLocation)); }

void FolderBrowser::showDrives() {
  drives_ = machine_.enumerate();
  const QSignalBlocker quiet(parts_.drives);
  parts_.drives->clear();
  for (const Drive& drive : drives_)
    parts_.drives->addItem(toQString(driveCaption(drive)));
}

void FolderBrowser::chooseDrive(int index) {
  Q_EMIT driveTouched();
  const char letter = drives_.at(static_cast<std::size_t>(index)).letter;
  showDrives();
  if (mayChoose_ && !mayChoose_(driveNow(letter)))
    return;
  try {
    showFolder(driveRoot(drives_, letter));
  } catch (const RunTimeError& failure) {
    if (failure.number() == 68)
      MsgBox(QStringLiteral("Drive Does Not Exist"));
    showFolder(folder_);
  }
}

/// One that has gone meanwhile is not ready.
Drive FolderBrowser::driveNow(char letter) const {
  const auto found = std::find_if(drives_.begin(), drives_.end(),
                                  [letter](const Drive& drive) { return drive.letter == letter; });
  return found == drives_.end() ? Drive{.letter = letter, .root = {}, .name = {}} : *found;
}

bool FolderBrowser::goWhereTyped() {
  const auto folder = withoutEndSlash(toPath(parts_.path->text()));
  if (folder == folder_)
    return true;
  std::error_code unknown;
  if (std::filesystem::is_directory(folder, unknown)) {
    showFolder(folder);
    return true;
  }
  MsgBox(QStringLiteral("There is no folder ") + toQString(folder), title_, MsgIcon::Exclamation);
  parts_.path->setText(toQString(folder_));
  return false;
}

void FolderBrowser::showFolder(const std::filesystem::path& folder) {
  const auto drive = driveOf(drives_, folder);
  parts_.drives->setCurrentIndex(drive ? static_cast<int>(*drive) : -1);
  const auto root = drive ? drives_[*drive].root : std::filesystem::path("/");
  parts_.folders->setRootIndex(tree_->index(toQString(root)));
  placing_ = true;
  const QModelIndex index = tree_->index(toQString(folder));
  parts_.folders->setCurrentIndex(index);
  parts_.folders->expand(index);
  parts_.folders->scrollTo(index);
  placing_ = false;
  seeking_ = true;
  openFolder(folder);
}

void FolderBrowser::openFolder(const std::filesystem::path& folder) {
  folder_ = folder;
  parts_.path->setText(toQString(folder));
  refresh();
}

void FolderBrowser::refresh() {
  reading_ = true;
  Q_EMIT reading();
  runBeside(
      pool_, this, [folder = folder_, pattern = pattern_] { return readFolder(folder, pattern); },
      [this, folder = folder_](const FolderContent& content) { showContent(folder, content); },
      true);
}

void FolderBrowser::showContent(const std::filesystem::path& folder, const FolderContent& content) {
  if (folder != folder_)
    return;
  reading_ = false;
  Q_EMIT filesRead(content.files);
  if (!content.error.empty())
    MsgBox(toQString(content.error), title_, MsgIcon::Exclamation);
}

bool FolderBrowser::eventFilter(QObject* watched, QEvent* event) {
  const auto kind = event->type();
  const bool isInTree = watched != parts_.path && watched != parts_.drives;
  if (isInTree &&
      (kind == QEvent::KeyPress || kind == QEvent::MouseButtonPress || kind == QEvent::Wheel))
    seeking_ = false;
  if (kind != QEvent::KeyPress || !isReturn(*static_cast<QKeyEvent*>(event)))
    return QObject::eventFilter(watched, event);
  if (watched == parts_.path)
    runCommand([this] { goWhereTyped(); });
  return true;
}

} // namespace hearthbook
