#include "DBeditor.h"

#include "AddAudio.h"
#include "AddSubAlbum.h"
#include "ButtonFace.h"
#include "Command.h"
#include "FilesBeside.h"
#include "Forms.h"
#include "Guard.h"
#include "HelpKeys.h"
#include "Look.h"
#include "MsgBox.h"
#include "NameFilter.h"
#include "NameList.h"
#include "NameListCommands.h"
#include "NameMarking.h"
#include "NameMarks.h"
#include "NamePicking.h"
#include "People.h"
#include "PeopleCommands.h"
#include "PeopleControls.h"
#include "PhotoDeletion.h"
#include "PhotoFiles.h"
#include "PickaPic.h"
#include "Pointer.h"
#include "Progress.h"
#include "RecordMoves.h"
#include "RecordPicture.h"
#include "ScanCommands.h"
#include "SoundIcon.h"
#include "Stage.h"
#include "Text.h"
#include "YearEntry.h"
#include "ui_DBeditor.h"

#include <QKeyEvent>
#include <QPixmap>
#include <QScopeGuard>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace hearthbook {

DBeditor::DBeditor(Album& album, PictureLoader& loader, WorkPool& pool, Navigator& navigator,
                   HoverHelp& help)
    : Form(QStringLiteral("DBeditor"), Kind::Work), album_(album), photos_(album.data.rsPhotoAlbum),
      pool_(pool), navigator_(navigator), help_(help), stage_(new Stage(workFormSize, this)),
      ui(std::make_unique<Ui::DBeditor>()), binding_(photos_) {
  ui->setupUi(this);
  stage_->placeAsDrawn(this);

  picture_ = new RecordPicture(*stage_, *ui->Image1, loader, pool, this);
  people_ = std::make_unique<PeopleControls>(PeopleControls::Parts{ui->Combo1, ui->DataList1,
                                                                   ui->List2, ui->PlacesDrp,
                                                                   ui->EventsDrp, ui->Year},
                                             [this] { return shownNames(); });
  peopleCommands_ = std::make_unique<PeopleCommands>(album_, *people_);
  marking_ = new NameMarking(photos_, album_.data.rsAppearances, *people_, *stage_,
                             {ui->List2, ui->markName, ui->Image1, ui->Shape1}, this);
  picking_ = std::make_unique<NamePicking>(
      album_.data.rsAppearances, *people_,
      NamePicking::Parts{ui->Combo1, ui->List2, ui->Command2, ui->Command3}, namesKeeper());
  new HelpKeys(this, [this](const QString& key) { help_.show(key); });
  wireControls();
  wireNames();

  Recordset& people = album_.data.rsAppearances;
  people.Open(sources::familyMembers);
  bindFields();
}

DBeditor::~DBeditor() = default;

void DBeditor::wireControls() {
  // Walking through the album
  onCommand(ui->Command6, this, &DBeditor::firstRecord);     // "|<<"
  onCommand(ui->PrevPhoto, this, &DBeditor::previousRecord); // "<<"
  onCommand(ui->NextPhoto, this, &DBeditor::nextRecord);     // ">>"
  onCommand(ui->Command8, this, &DBeditor::lastRecord);      // ">>|"
  onCommand(ui->Command7, this, &DBeditor::goToRecord);      // "Go To"
  onCommand(ui->FindPhoto, this, &DBeditor::findPhoto);      // "Find Photo"
  onCommand(ui->Command18, this, &DBeditor::findNextEmpty);  // "Find Next Empty"
  // Photos and the form
  onCommand(ui->Command1, this, &DBeditor::addFromFile);    // "Add From File"
  onCommand(ui->Command13, this, &DBeditor::scanPhotos);    // "Add From Scanner"
  onCommand(ui->Command14, this, &DBeditor::editPhoto);     // "Edit Image"
  onCommand(ui->Image2, this, &DBeditor::addAudio);         // "Add Audio", "Update Audio"
  ui->Label5->installEventFilter(this);                     // the same
  onCommand(ui->Command15, this, addEditedPhotoToSubAlbum); // "Add To Sub-Album"
  onCommand(ui->Command5, this, &DBeditor::deleteRecord);   // "Delete"
  onCommand(ui->Command4, this, &DBeditor::done);           // "Done"
  // Places and events
  AlbumData& data = album_.data;
  onCommand(ui->Command9, this,
            [&] { addToNameList(placeWords, data.rsPlaces, *ui->PlacesDrp); }); // "Add"
  onCommand(ui->Command17, this, [&] {
    deleteFromNameList(placeWords, photos_, data.rsPlaces, *ui->PlacesDrp);
  }); // "Delete"
  onCommand(ui->Command10, this,
            [&] { addToNameList(eventWords, data.rsEvents, *ui->EventsDrp); }); // "Add"
  onCommand(ui->Command16, this, [&] {
    deleteFromNameList(eventWords, photos_, data.rsEvents, *ui->EventsDrp);
  }); // "Delete"
  // People
  onCommand(ui->Command19, this, [this] { peopleCommands_->addName(); });    // "Add"
  onCommand(ui->Command11, this, [this] { peopleCommands_->updateName(); }); // "Update"
  onCommand(ui->Command12, this, [this] { peopleCommands_->findYear(); });   // "Find Year"
  // The photo
  connect(picture_, &RecordPicture::placed, this, &DBeditor::placeImagePath);
  setLostFocusRule(ui->Year, [this] {
    endYear();
    return true;
  });
}

void DBeditor::wireNames() {
  connect(ui->Combo1, &QComboBox::activated, this, asCommand([this] { picking_->filterPeople(); }));
  connect(ui->DataList1, &DataList::chosen, this, asCommand([this] { picking_->personChosen(); }));
  connect(ui->DataList1, &DataList::doubleClickedRow, this,
          asCommand([this] { picking_->putInByDoubleClick(); }));
  connect(ui->List2, &QListWidget::itemSelectionChanged, this, asCommand([this] {
            picking_->nameChosen();
            marking_->nameChosen();
          }));
  connect(ui->List2, &QListWidget::itemDoubleClicked, this,
          asCommand([this] { picking_->takeOut(); }));
  onCommand(ui->Command2, this, [this] { picking_->putIn(); });   // ">>"
  onCommand(ui->Command3, this, [this] { picking_->takeOut(); }); // "<<"
  onCommand(ui->markName, marking_, &NameMarking::startMarking);  // "Mark Names"
  connect(ui->Image1, &PictureBox::pressed, this, [this](QPointF position) {
    if (!isWaitingForPicture()) // the picture on the screen may be the last photo's
      runCommand([&] { marking_->press(position); });
  });
  connect(picture_, &RecordPicture::placed, marking_, &NameMarking::placeMarker);
}

NamePicking::Keeper DBeditor::namesKeeper() {
  return {[this](const std::vector<NameEntry>& names) { writeNames(photos_, names); },
          [this](const std::vector<NameEntry>& left, std::int64_t id) {
            takeNameOut(photos_, left, id);
            marking_->nameTakenOut();
          }};
}

void DBeditor::bindFields() {
  binding_.bind(ui->Year, "Year");
  binding_.bind(ui->Description, "Description");
  ui->PlacesDrp->setListSource({&album_.data.rsPlaces, "PlaceName", "PlaceID"});
  binding_.bind(ui->PlacesDrp, "PlaceID");
  ui->EventsDrp->setListSource({&album_.data.rsEvents, "EventName", "EventID"});
  binding_.bind(ui->EventsDrp, "EventID");
  ui->DataList1->setListSource({&album_.data.rsAppearances, "AppearancesNames", "AppearancesID"});
}

void DBeditor::load() {
  setFaces();
  colourLabels();
  binding_.show();
  ComposeRecord();
}

void DBeditor::setFaces() {
  const std::filesystem::path media = album_.folder.path("\\Media");
  setFace(Face::Gry, media,
          {ui->FindPhoto, ui->Command18, ui->Command7, ui->Command6, ui->Command8, ui->PrevPhoto,
           ui->NextPhoto});
  setFace(Face::Org, media,
          {ui->Command1, ui->Command5, ui->Command13, ui->Command14, ui->Command15});
  setFace(Face::Brn, media, {ui->Command4});
  setFace(Face::Red, media, {ui->Command16, ui->Command17});
  setFace(Face::Grn, media, {ui->Command9, ui->Command10, ui->Command11, ui->Command19});
  setFace(Face::Ylw, media, {ui->markName, ui->Command12});
  marking_->setPictures(QPixmap(toQString(media / "Marker.png")),
                        QPixmap(toQString(media / "MarkerIcon.ico")));
  ui->Image2->setIcon(soundIcon());
}

void DBeditor::colourLabels() {
  for (QLabel* label : {ui->placeLabel, ui->eventLabel, ui->yearLabel, ui->descriptionLabel,
                        ui->namesLabel, ui->NumRec}) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, look::darkRed);
    label->setPalette(palette);
  }
}

void DBeditor::updateEnabled() {
  const bool hasRecords = photos_.isOpen() && photos_.RecordCount() > 0;
  for (QWidget* walking : std::initializer_list<QWidget*>{
           ui->Command6, ui->PrevPhoto, ui->NextPhoto, ui->Command8, ui->Command7})
    walking->setEnabled(hasRecords);
  ui->FindPhoto->setEnabled(hasRecords && navigator_.canFindPhoto());

  ui->Command5->setEnabled(standsOnRow(photos_));
  ui->Command15->setEnabled(standsOnRow(photos_));
  ui->Image2->setEnabled(standsOnRow(photos_));
  ui->Label5->setEnabled(standsOnRow(photos_));
  ui->Command18->setEnabled(standsOnRow(photos_));
  ui->Command12->setEnabled(standsOnRow(photos_));
  ui->Command14->setEnabled(standsOnRow(photos_));
  ui->Command1->setEnabled(standsOnWholeAlbum(photos_));
  ui->Command13->setEnabled(standsOnWholeAlbum(photos_));
}

void DBeditor::ComposeRecord() {
  const Hourglass hourglass;
  passOver([&] { updateEnabled(); });
  marking_->clear();
  passOver([&] { showPosition(); });
  passOver([&] { resolveImage(album_, photos_.Collect("PictureID").toText()); });
  passOver([&] { picture_->show(album_.vars.ImagePicture.file); });
  placeImagePath();
  passOver([&] { marking_->showNames(); });
  passOver([&] { showAudio(); });
  passOver([&] { showNameFilter(); });
  composedId_ = currentId();
  // The photo on the screen comes first; its neighbours can wait for the next idle moment.
  QTimer::singleShot(0, this, &DBeditor::decodeNeighbours);
}

bool DBeditor::isWaitingForPicture() const { return picture_->isWaiting(); }

bool DBeditor::isLookingForSound() const { return soundOf_.has_value(); }

void DBeditor::showPosition() {
  ui->NumRec->setText(QString::number(photos_.AbsolutePosition()) + QStringLiteral(" of ") +
                      QString::number(photos_.RecordCount()));
}

void DBeditor::placeImagePath() {
  constexpr double overlap = 10;
  constexpr double leastWidth = 2400; // a narrow photo still has a readable path
  constexpr double border = 120;
  const TwipsRect image = stage_->rect(ui->Image1);
  TwipsRect label = stage_->rect(ui->Label4);
  label.width = std::max(image.width, leastWidth);
  label.left = image.left + (image.width - label.width) / 2;
  label.top = image.top - label.height + overlap;
  stage_->setRect(ui->Label4, label);
  stage_->setRect(ui->photoMount,
                  {label.left - border, label.top - border / 2, label.width + 2 * border,
                   label.height - overlap + image.height + 1.5 * border});
  ui->Label4->setText(QStringLiteral("Image: ") + toQString(album_.vars.ImagePath));
}

/// The folder of sounds may be long or on a slow disk: it is looked through beside the window's
/// thread, and until then the caption stays as it is.
void DBeditor::showAudio() {
  soundOf_.reset();
  const std::string id = photos_.Collect("PictureID").toText();
  soundOf_ = id;
  findSoundBeside(pool_, this, album_, id, [this, id](bool attached) {
    if (soundOf_ == id)
      soundChanged(attached);
  });
}

void DBeditor::soundChanged(bool attached) {
  soundOf_.reset(); // what is still on its way is older
  ui->Label5->setText(attached ? QStringLiteral("Update Audio") : QStringLiteral("Add Audio"));
  ui->Image2->setAccessibleName(ui->Label5->text());
}

void DBeditor::showNameFilter() {
  const std::string chosen = people_->filter().text;
  Recordset& people = album_.data.rsAppearances;
  openEverybody(people); // the filter may have left only one person's people in it
  people_->setFilter(nameFilterEntries(people), chosen.empty() ? familyMembersEntry : chosen);
}

void DBeditor::decodeNeighbours() {
  passOver([&] {
    findFilesBeside(pool_, this, album_, neighbourIds(photos_), imagePath,
                    [this](const auto& files) { picture_->decodeAhead(files); });
  });
}

PrintPage DBeditor::printPage() const {
  SinglePrint page;
  page.from = SinglePrint::From::Editor;
  if (!standsOnRow(photos_))
    return page;
  page.heading = printHeading(toUtf8(ui->Year->text()), toUtf8(ui->EventsDrp->Text()) + " in " +
                                                            toUtf8(ui->PlacesDrp->Text()));
  if (picture_->shown())
    page.photo = {stage_->rect(ui->Image1), *picture_->shown(), ui->Image1->picture()};
  for (int row = 0; row < ui->List2->count(); ++row)
    page.names.push_back(toUtf8(ui->List2->item(row)->text().trimmed()));
  return page;
}

std::string DBeditor::currentId() const {
  return standsOnRow(photos_) ? photos_.Collect("PictureID").toText() : std::string();
}

std::optional<PhotoNames> DBeditor::shownNames() const {
  if (!standsOnRow(photos_))
    return std::nullopt;
  return PhotoNames{photos_.Collect("NamesInPhoto").toText(),
                    photos_.Collect("NamesCords").toText()};
}

void DBeditor::firstRecord() {
  photos_.MoveFirst();
  ComposeRecord();
}

void DBeditor::lastRecord() {
  photos_.MoveLast();
  ComposeRecord();
}

void DBeditor::nextRecord() {
  if (photos_.AbsolutePosition() >= photos_.RecordCount()) {
    MsgBox(QStringLiteral("No More Records!"), QStringLiteral("Next Photo"));
    return;
  }
  photos_.MoveNext();
  ComposeRecord();
}

void DBeditor::previousRecord() {
  if (photos_.AbsolutePosition() < 2) {
    MsgBox(QStringLiteral("No More Records!"), QStringLiteral("Previous Photo"));
    return;
  }
  photos_.MovePrevious();
  ComposeRecord();
}

void DBeditor::goToRecord() {
  const QString title = QStringLiteral("Go To Record");
  const QString answer = InputBox(QStringLiteral("Enter Record Number:"), title);
  const auto offset = recordOffset(toUtf8(answer), photos_.RecordCount());
  if (!offset) {
    MsgBox(QStringLiteral("Please Enter A Valid Record."), title);
    return;
  }
  photos_.Move(*offset, Recordset::Start::First);
  ComposeRecord();
}

void DBeditor::findPhoto() { navigator_.findPhoto(); }

void DBeditor::findNextEmpty() {
  if (searchNextEmpty())
    ComposeRecord();
  else
    MsgBox(QStringLiteral("No photos found, try from first record"),
           QStringLiteral("Find Next Empty Field"));
}

bool DBeditor::searchNextEmpty() {
  auto& progress = Forms::get<Progress>();
  const auto unload = qScopeGuard([&progress] { progress.Unload(); });
  const auto position = static_cast<int>(photos_.AbsolutePosition());
  progress.setCaption(QStringLiteral("Please Wait, Searching For Next Empty Field"));
  progress.setRange(position - 1, static_cast<int>(photos_.RecordCount()));
  progress.setValue(position);
  progress.Show();
  const bool found =
      FindNextEmpty(photos_, [&](std::int64_t at) { progress.setValue(static_cast<int>(at)); });
  if (found)
    progress.setValue(progress.maximum());
  return found;
}

void DBeditor::addFromFile() {
  Forms::get<PickaPic>().ShowModal();
  ComposeRecord();
}

void DBeditor::scanPhotos() {
  addFromScanner(*this);
  ComposeRecord();
}

void DBeditor::editPhoto() {
  if (editImage(album_, *this))
    ComposeRecord();
}

void DBeditor::addAudio() {
  auto& dialog = Forms::get<AddAudio>();
  dialog.Tag = QStringLiteral("picture");
  dialog.setOwner(this);
  dialog.ShowModal();
}

void DBeditor::deleteRecord() {
  const QString title = QStringLiteral("Delete Record");
  if (isProtectedPhoto(currentId())) {
    MsgBox(QStringLiteral("Can't Delete First Record"), title, MsgIcon::Exclamation);
    return;
  }
  const MsgAnswer answer =
      MsgBox(QStringLiteral(
                 "Are you sure you want to delete this record?\nThe file will be deleted as well!"),
             title, MsgIcon::Exclamation, MsgButtons::YesNo);
  if (answer != MsgAnswer::Yes)
    return;
  deletePhoto(album_);
  ComposeRecord();
  MsgBox(QStringLiteral("Record Deleted!"));
}

// Not hidden first: a photo that cannot be stored keeps the editor open and in sight.
void DBeditor::done() { Unload(); }

void DBeditor::cancelEdits() {
  binding_.cancel();
  ComposeRecord();
}

void DBeditor::endYear() {
  if (!binding_.isChanged(ui->Year))
    return;
  if (const auto year = wholeYear(toUtf8(ui->Year->text())))
    return ui->Year->setText(QString::number(*year));
  binding_.markUnchanged(ui->Year);
  binding_.show();
}

void DBeditor::activated() {
  help_.workFormActive(QStringLiteral("Build Album"));
  if (currentId() != composedId_)
    ComposeRecord();
}

void DBeditor::rowsChanged(const RowsChanged& change) {
  if (change.by == RowsChanged::By::BatchEdited)
    ComposeRecord(); // its names may be old, and would be written back with the next one
}

/// Nobody is to be shut in where the album cannot be read any more.
bool DBeditor::unloading() {
  guarded([this] {
    photos_.Filter("");
    openEverybody(album_.data.rsAppearances);
    Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  });
  return true;
}

bool DBeditor::eventFilter(QObject* watched, QEvent* event) {
  if (watched == ui->Label5 && event->type() == QEvent::MouseButtonRelease &&
      ui->Label5->isEnabled())
    runCommand([this] { addAudio(); });
  return Form::eventFilter(watched, event);
}

void DBeditor::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && binding_.has(focusWidget())) {
    runCommand([this] { cancelEdits(); });
    return;
  }
  if (!photos_.isOpen() || photos_.RecordCount() == 0)
    return Form::keyPressEvent(event);
  switch (event->key()) {
  case Qt::Key_PageDown:
    runCommand([this] { nextRecord(); });
    return;
  case Qt::Key_PageUp:
    runCommand([this] { previousRecord(); });
    return;
  case Qt::Key_Home:
    runCommand([this] { firstRecord(); });
    return;
  case Qt::Key_End:
    runCommand([this] { lastRecord(); });
    return;
  default:
    Form::keyPressEvent(event);
  }
}

} // namespace hearthbook
