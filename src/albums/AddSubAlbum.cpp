#include "AddSubAlbum.h"

#include "AddAudio.h"
#include "ButtonFace.h"
#include "Command.h"
#include "Forms.h"
#include "Guard.h"
#include "Look.h"
#include "ModalHelp.h"
#include "MsgBox.h"
#include "PhotoFiles.h"
#include "Pointer.h"
#include "SubAlbums.h"
#include "Text.h"
#include "Words.h"
#include "ui_AddSubAlbum.h"

#include <QScreen>

namespace hearthbook {

namespace {

const QString viewerTask = QStringLiteral("Viewer");
const QString searchTask = QStringLiteral("Search");
const QString editorTask = QStringLiteral("DBeditor");
const QString additionTitle = QStringLiteral("Add To Sub-Album");

QString countText(std::size_t photos) {
  return QStringLiteral("%1 photos in sub-album").arg(photos);
}

/// As drawn, and larger where the screen has room for larger thumbnails: what grows is the strip.
QSize sizeOn(QSize screen, QSize drawn) {
  const QSize strip(682, 382);
  const QSize around = drawn - strip;
  const QSize grown = strip.scaled(screen * 7 / 10 - around, Qt::KeepAspectRatio);
  return drawn.expandedTo(around + grown).boundedTo(screen);
}

} // namespace

AddSubAlbum::AddSubAlbum(Album& album, PictureLoader& loader, WorkPool& pool, Navigator& navigator)
    : Form(QStringLiteral("AddSubAlbum"), Kind::Dialog), album_(album),
      albums_(album.data.rsSubAlbums), members_(album.data.rsSubAlbumPhotos), navigator_(navigator),
      ui(std::make_unique<Ui::AddSubAlbum>()), binding_(albums_) {
  ui->setupUi(this);
  resize(sizeOn(screen()->availableSize(), size()));
  showOnPaper();
  ui->strip->setSource({loader, pool,
                        [&album](const std::string& id) { return ownThumbnailPath(album, id); },
                        notFoundPicture(album)},
                       order_);
  modalHelp_ = new ModalHelp(this, HelpPane(*ui->Help, *ui->Text1), album_.vars);
  wireControls();
  wireStrip();
  binding_.bind(ui->txtAlbumName, "AlbumName");
  binding_.bind(ui->txtDescription, "Description");
  ui->SubAlbumList->setListSource({&albums_, "AlbumName", "AlbumID"});
}

AddSubAlbum::~AddSubAlbum() = default;

void AddSubAlbum::wireControls() {
  connect(ui->SubAlbumList, &DataList::chosen, this, asCommand([this] { chooseAlbum(); }));
  onCommand(ui->Command1, this, &AddSubAlbum::createAlbum); // "Create Sub-Album"
  onCommand(ui->Command2, this, &AddSubAlbum::deleteAlbum); // "Delete"
  onCommand(ui->Command3, this, &AddSubAlbum::addAudio);    // "Add Background Audio"
  onCommand(ui->OKButton, this, &AddSubAlbum::addPhotos);   // "Add Photos To ..."
  onCommand(ui->CancelButton, this, [this] { Unload(); });  // "Done"
  connect(ui->Combo1, &QComboBox::activated, this, asCommand([this] { arrange(); }));
  setLostFocusRule(ui->txtAlbumName, [this] { return endName(); });
}

void AddSubAlbum::wireStrip() {
  connect(ui->strip, &SubAlbumStrip::moveAsked, this,
          [this](std::size_t from, std::size_t to) { runCommand([&] { movePhoto(from, to); }); });
  connect(ui->strip, &SubAlbumStrip::removeAsked, this,
          [this](std::size_t position) { runCommand([&] { removeAt(position); }); });
  connect(ui->strip, &SubAlbumStrip::menuAsked, this, &AddSubAlbum::popUpMenu);
}

void AddSubAlbum::load() {
  setFaces();
  ui->Combo1->addItem(toQString(autoArrangeTitle));
  for (const char* choice : arrangements)
    ui->Combo1->addItem(toQString(choice));
  showProperties(false);
  ui->listSpace->hide();
  ui->lblWait->clear();
  ui->strip->showOrder();
  modalHelp_->show(QStringLiteral("Sub-Album Editor*Help"));
}

void AddSubAlbum::setFaces() {
  const std::filesystem::path media = album_.folder.path("\\Media");
  setFace(Face::Grn, media, {ui->Command1});
  setFace(Face::Red, media, {ui->Command2});
  setFace(Face::Org, media, {ui->OKButton, ui->Command3});
  setFace(Face::Brn, media, {ui->CancelButton});
}

void AddSubAlbum::showOnPaper() {
  for (QLabel* heading : {ui->Label1, ui->lblWait}) {
    QPalette palette = heading->palette();
    palette.setColor(QPalette::WindowText, look::darkRed);
    heading->setPalette(palette);
  }
}

void AddSubAlbum::workOnAlbum(const QString& albumId) {
  Tag = viewerTask;
  viewedId_ = albumId;
  ui->Command1->hide();
  ui->Command2->hide();
  ui->OKButton->hide();
  ui->Label2->hide(); // it tells how to choose one
}

void AddSubAlbum::takeResult() { Tag = searchTask; }

void AddSubAlbum::takeEditedPhoto() { Tag = editorTask; }

void AddSubAlbum::activated() {
  if (Tag == viewerTask)
    openViewedAlbum();
  showTask();
}

/// Also when a dialog over it has gone: what is already open is not read again then.
void AddSubAlbum::openViewedAlbum() {
  if (ui->SubAlbumList->BoundText().isNull()) {
    ui->SubAlbumList->setBoundText(Value(toUtf8(viewedId_)));
    chooseAlbum();
  }
  showViewedName();
  ui->SubAlbumList->hide();
  ui->listSpace->show();
  showProperties(true);
  showAudio();
}

void AddSubAlbum::showViewedName() {
  ui->Label1->setBuddy(nullptr); // or an & in the name would be the mark of a key, and not shown
  ui->Label1->setText(QStringLiteral("Editing ") + chosenName());
}

void AddSubAlbum::showTask() {
  const PublicVar& vars = album_.vars;
  if (Tag == searchTask && vars.selection.SelectedCount > 0)
    ui->lblWait->setText(QString::number(vars.selection.SelectedCount) +
                         QStringLiteral(" Photos are selected from search results."));
  else if (Tag == searchTask)
    ui->lblWait->setText(QString::number(vars.rsSearch->RecordCount()) +
                         QStringLiteral(" Photos are in search results."));
  else if (Tag == editorTask)
    ui->lblWait->setText(QStringLiteral("Add photo from       Build Album"));
  ui->lblWait->setVisible(Tag != viewerTask);
}

void AddSubAlbum::showProperties(bool shown) {
  ui->frmProperties->setVisible(shown);
  ui->propertiesSpace->setVisible(!shown);
}

void AddSubAlbum::showCount() { ui->lblCount->setText(countText(order_.count())); }

void AddSubAlbum::showFirstChoice() { ui->Combo1->setCurrentIndex(0); }

void AddSubAlbum::showAudio() { soundChanged(hasAlbumSound(album_, chosenId())); }

void AddSubAlbum::soundChanged(bool attached) {
  ui->Command3->setText(attached ? QStringLiteral("Update Background Audio")
                                 : QStringLiteral("Add Background Audio"));
}

std::string AddSubAlbum::chosenId() const { return ui->SubAlbumList->BoundText().toText(); }

QString AddSubAlbum::chosenName() const { return ui->SubAlbumList->Text(); }

bool AddSubAlbum::isWaitingForPictures() const { return ui->strip->isWaiting(); }

void AddSubAlbum::chooseAlbum() {
  const std::string id = chosenId();
  if (chosenName().isEmpty() || id.empty())
    return;
  UpdateAlbum();
  if (!findSubAlbum(albums_, id))
    return;
  openAlbum(id);
  showProperties(true);
  showAudio();
  showFirstChoice();
  setThumbs();
  order_.markAsStored();
}

void AddSubAlbum::openAlbum(const std::string& albumId) { members_.Open(stripQuery(albumId)); }

void AddSubAlbum::setThumbs() {
  ui->lblWait->setText(QStringLiteral("Generate Preview, Please Wait..."));
  ui->lblWait->show();
  ui->lblWait->repaint();
  order_.read(members_);
  ui->strip->showOrder();
  showCount();
  showTask();
}

void AddSubAlbum::clearStrip() {
  order_.clear();
  ui->strip->showOrder();
  showCount();
}

void AddSubAlbum::UpdateAlbum() {
  if (!order_.isDirty())
    return;
  const Hourglass hourglass;
  order_.writeBack(members_);
}

std::optional<std::string> askSubAlbumName() {
  while (true) {
    const auto name = trimmed(
        toUtf8(InputBox(QStringLiteral("Please Enter Sub-Album Name (up to 20 characters):"),
                        QStringLiteral("Add New Sub-Album"))));
    if (name.empty())
      return std::nullopt;
    if (characterCount(name) <= longestSubAlbumName)
      return name;
    MsgBox(QStringLiteral("Please Enter No More Then 20 Character"),
           QStringLiteral("Add Sub-Album"));
  }
}

void AddSubAlbum::createAlbum() {
  const auto name = askSubAlbumName();
  if (!name)
    return;
  UpdateAlbum();
  const std::int64_t albumId = createSubAlbum(albums_, *name);
  navigator_.addAlbumEntry(static_cast<int>(albumId), toQString(*name));
  refillList();
  clearStrip();
  showProperties(true);
  openAlbum(chosenId());
  showAudio();
  showFirstChoice();
}

/// The list shows the stored names again, and the sub-album on which the set stands.
void AddSubAlbum::refillList() {
  ui->SubAlbumList->ReFill();
  ui->SubAlbumList->setBoundText(standsOnRow(albums_) ? albums_.Collect("AlbumID") : Value());
}

void AddSubAlbum::deleteAlbum() {
  const QString title = QStringLiteral("Delete Selected Sub-Album");
  const auto answer = MsgBox(QStringLiteral("Are you sure you want to delete \"") + chosenName() +
                                 QStringLiteral("\"?"),
                             title, MsgIcon::None, MsgButtons::OkCancel);
  if (answer != MsgAnswer::Ok || chosenName().isEmpty())
    return;
  const Hourglass hourglass;
  const std::string id = chosenId();
  deleteSubAlbum(album_, id);
  navigator_.removeAlbumEntry(std::stoi(id));
  ui->SubAlbumList->ReFill();
  clearStrip();
  showProperties(false);
  showFirstChoice();
  MsgBox(QStringLiteral("Sub-Album Was Successfully Deleted"), title);
}

void AddSubAlbum::addAudio() {
  auto& dialog = Forms::get<AddAudio>();
  dialog.Tag = QStringLiteral("album");
  dialog.setOwner(this);
  dialog.ShowModal();
}

/// An emptied name is no edit; no photos are added until one is given.
bool AddSubAlbum::endName() {
  if (albums_.RecordCount() == 0 || chosenId().empty())
    return true;
  if (trimmed(toUtf8(ui->txtAlbumName->text())).empty()) {
    ui->OKButton->setEnabled(false);
    albums_.CancelUpdate("AlbumName");
    binding_.markUnchanged(ui->txtAlbumName);
    binding_.show();
    refillList();
    return true;
  }
  binding_.write();
  albums_.UpdateBatch();
  ui->OKButton->setEnabled(true);
  ui->Command1->setEnabled(true);
  refillList();
  if (Tag == viewerTask)
    showViewedName();
  navigator_.renameAlbumEntry(std::stoi(chosenId()),
                              toQString(albums_.Collect("AlbumName").toText()));
  return true;
}

void AddSubAlbum::arrange() {
  const std::string choice = toUtf8(ui->Combo1->currentText());
  if (chosenName().isEmpty()) {
    if (ui->Combo1->currentIndex() != 0)
      MsgBox(QStringLiteral("Please select sub-album first"), QStringLiteral("Arrange Sub-Album"),
             MsgIcon::Exclamation);
    return showFirstChoice();
  }
  const auto clause = arrangeClause(choice);
  if (!clause)
    return;
  const auto answer =
      MsgBox(QStringLiteral("Are you sure you want to auto-arrange this sub-album?\r\nThis will "
                            "override any manual arrangement you made!"),
             QStringLiteral("Auto-Arrange Sub-Album"), MsgIcon::None, MsgButtons::OkCancel);
  if (answer != MsgAnswer::Ok)
    return;
  const Hourglass hourglass;
  members_.Open(stripQuery(albums_.Collect("AlbumID").toText(), *clause));
  setThumbs();
}

void AddSubAlbum::movePhoto(std::size_t from, std::size_t to) {
  if (!order_.move(from, to))
    return;
  ui->strip->showMove(from, to);
  ui->Combo1->setCurrentText(toQString(manually));
}

void AddSubAlbum::popUpMenu(std::size_t position, QPoint globalPosition) {
  if (position >= order_.count())
    return;
  album_.vars.ContextPhotoID = order_.photos()[position].id;
  navigator_.popUpEdit(globalPosition);
}

void AddSubAlbum::removeAt(std::size_t position) {
  album_.vars.ContextPhotoID = order_.photos().at(position).id;
  removePhoto();
}

void AddSubAlbum::removePhoto() {
  if (chosenId().empty())
    return;
  try {
    album_.data.AlbumDB.transaction([this] {
      removeMember(members_, chosenId(), album_.vars.ContextPhotoID);
      UpdateAlbum();
    });
  } catch (...) {
    members_.Requery(); // it was read without the photo, which is back
    throw;
  }
  setThumbs();
}

void AddSubAlbum::addPhotos() {
  if (chosenId().empty()) {
    MsgBox(QStringLiteral("Please Select A Sub-Album From The List."), additionTitle);
    return;
  }
  if (Tag == editorTask)
    addEditedPhoto();
  else
    addResult();
}

void AddSubAlbum::addEditedPhoto() {
  const std::string photo = album_.data.rsPhotoAlbum.Collect("PictureID").toText();
  if (!addMember(members_, chosenId(), photo)) {
    MsgBox(QStringLiteral("This Photo Is Already In This Sub-Album."), additionTitle);
    return;
  }
  showAdded();
  MsgBox(QStringLiteral("Photo Was Successfully Added to ") + chosenName() +
             QStringLiteral(" Sub-Album"),
         additionTitle);
}

void AddSubAlbum::addResult() {
  {
    const Hourglass hourglass;
    UpdateAlbum();
    addMembers(members_, chosenId(), photosOfResult(album_.vars));
    showAdded();
  }
  MsgBox(QStringLiteral("Selected Photos Were Successfully Added to ") + chosenName() +
             QStringLiteral(" Sub-Album"),
         additionTitle);
}

/// The new photos are in view, behind the others.
void AddSubAlbum::showAdded() {
  showProperties(true);
  UpdateAlbum();
  members_.Requery();
  setThumbs();
  ui->strip->scrollToEnd();
}

bool AddSubAlbum::unloading() {
  UpdateAlbum();
  if (Tag == viewerTask && order_.isDirty())
    guarded([] { Forms::tellRowsChanged({RowsChanged::By::OrderWritten}); });
  return true;
}

void editSubAlbum(const QString& albumId) {
  auto& editor = Forms::get<AddSubAlbum>();
  editor.workOnAlbum(albumId);
  editor.ShowModal();
}

void addResultToSubAlbum() {
  auto& editor = Forms::get<AddSubAlbum>();
  editor.takeResult();
  editor.ShowModal();
}

void addEditedPhotoToSubAlbum() {
  auto& editor = Forms::get<AddSubAlbum>();
  editor.takeEditedPhoto();
  editor.ShowModal();
}

} // namespace hearthbook
