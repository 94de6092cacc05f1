#include "BatchEdit.h"

#include "BatchDeletion.h"
#include "BatchWalk.h"
#include "BoundControls.h"
#include "ButtonFace.h"
#include "Command.h"
#include "EditResults.h"
#include "Forms.h"
#include "Guard.h"
#include "MsgBox.h"
#include "NameFilter.h"
#include "NameList.h"
#include "NameListCommands.h"
#include "NamePicking.h"
#include "People.h"
#include "PeopleCommands.h"
#include "PeopleControls.h"
#include "PeopleRefresh.h"
#include "PhotoIdentity.h"
#include "Pointer.h"
#include "Progress.h"
#include "Search.h"
#include "Text.h"
#include "YearEntry.h"
#include "ui_BatchEdit.h"

#include <QScopeGuard>

#include <utility>

namespace hearthbook {

namespace {

// So worded here.
constexpr const char* deleteNote = "It will removed from all photos.";
constexpr NameListWords batchPlaceWords = withDeleteNote(placeWords, deleteNote);
constexpr NameListWords batchEventWords = withDeleteNote(eventWords, deleteNote);

void refuseSearched(const char* text) {
  MsgBox(toQString(text), QStringLiteral("Delete Event")); // for places too
}

} // namespace

BatchEdit::BatchEdit(Album& album)
    : Form(QStringLiteral("BatchEdit"), Kind::Dialog), album_(album),
      ui(std::make_unique<Ui::BatchEdit>()) {
  ui->setupUi(this);
  // Without a photo on show, the list of names is this form's own.
  people_ = std::make_unique<PeopleControls>(PeopleControls::Parts{
      ui->Combo1, ui->DataList1, ui->List2, ui->PlacesDrp, ui->EventsDrp, ui->Year});
  peopleCommands_ = std::make_unique<PeopleCommands>(
      album_, *people_, PeopleCommands::YearManners{PeopleForm::Field::Place, false});
  picking_ = std::make_unique<NamePicking>(
      album_.data.rsAppearances, *people_,
      NamePicking::Parts{ui->Combo1, ui->List2, ui->Command2, ui->Command3});
  wireControls();
  wireNames();
}

BatchEdit::~BatchEdit() = default;

void BatchEdit::wireControls() {
  AlbumData& data = album_.data;
  // The selected photos
  onCommand(ui->Command4, this, &BatchEdit::updateSelected); // "Update"
  onCommand(ui->Command5, this, &BatchEdit::deleteSelected); // "Delete"
  onCommand(ui->Command1, this, &BatchEdit::cancel);         // "Cancel"
  // Places and events
  onCommand(ui->Command9, this,
            [&] { addToNameList(batchPlaceWords, data.rsPlaces, *ui->PlacesDrp); }); // "Add"
  onCommand(ui->Command13, this, &BatchEdit::deletePlace);                           // "Delete"
  onCommand(ui->Command10, this,
            [&] { addToNameList(batchEventWords, data.rsEvents, *ui->EventsDrp); }); // "Add"
  onCommand(ui->Command8, this, &BatchEdit::deleteEvent);                            // "Delete"
  // People
  onCommand(ui->Command19, this, [this] { peopleCommands_->addName(); });    // "Add"
  onCommand(ui->Command11, this, [this] { peopleCommands_->updateName(); }); // "Update"
  onCommand(ui->Command12, this, [this] { peopleCommands_->findYear(); });   // "Find Year"
  setLostFocusRule(ui->Year, [this] {
    tidyYear();
    return true;
  });
}

void BatchEdit::wireNames() {
  connect(ui->Combo1, &QComboBox::activated, this, asCommand([this] { picking_->filterPeople(); }));
  connect(ui->DataList1, &DataList::chosen, this, asCommand([this] { picking_->personChosen(); }));
  connect(ui->DataList1, &DataList::doubleClickedRow, this,
          asCommand([this] { picking_->putInByDoubleClick(); }));
  connect(ui->List2, &QListWidget::itemSelectionChanged, this,
          asCommand([this] { picking_->nameChosen(); }));
  connect(ui->List2, &QListWidget::itemDoubleClicked, this,
          asCommand([this] { picking_->takeOut(); }));
  onCommand(ui->Command2, this, [this] { picking_->putIn(); });   // ">>"
  onCommand(ui->Command3, this, [this] { picking_->takeOut(); }); // "<<"
}

void BatchEdit::load() {
  setFaces();
  showNote();
  album_.data.rsPhotoAlbum.MoveFirst();
  fillLists();
}

void BatchEdit::fillLists() {
  AlbumData& data = album_.data;
  ui->PlacesDrp->setListSource({&data.rsPlaces, "PlaceName", "PlaceID"});
  ui->EventsDrp->setListSource({&data.rsEvents, "EventName", "EventID"});
  ui->DataList1->setListSource({&data.rsAppearances, "AppearancesNames", "AppearancesID"});
  openEverybody(data.rsAppearances);
  refreshPeople(*people_, data.rsAppearances, familyMembersEntry, 0);
}

void BatchEdit::setFaces() {
  const std::filesystem::path media = album_.folder.path("\\Media");
  setFace(Face::Org, media, {ui->Command4, ui->Command5});
  setFace(Face::Brn, media, {ui->Command1});
  setFace(Face::Red, media, {ui->Command13, ui->Command8});
  setFace(Face::Grn, media, {ui->Command9, ui->Command10, ui->Command11, ui->Command19});
  setFace(Face::Ylw, media, {ui->Command12});
}

void BatchEdit::showNote() {
  const int count = selection().SelectedCount;
  ui->countLabel->setText(QString::number(count) +
                          (count == 1 ? QStringLiteral(" photo is selected.")
                                      : QStringLiteral(" photos are selected.")) +
                          QStringLiteral(" What you leave empty stays as it is in each of them."));
}

void BatchEdit::workOn(SearchCriteria searched) {
  searched_ = std::move(searched);
  ui->Command5->setEnabled(true);
}

BatchChanges BatchEdit::readChanges() const {
  BatchChanges changes;
  changes.placeId = people_->place().id;
  changes.eventId = people_->event().id;
  if (const auto year = wholeYear(toUtf8(ui->Year->text())))
    changes.year = *year;
  changes.description = toUtf8(ui->Description->toPlainText());
  for (const NameEntry& name : people_->namesInPhoto())
    changes.people.push_back(name.id);
  return changes;
}

void BatchEdit::updateSelected() {
  const QString question = QStringLiteral("Are you sure you want to Update ") +
                           QString::number(selection().SelectedCount) +
                           QStringLiteral(" selected records?");
  if (MsgBox(question, {}, MsgIcon::None, MsgButtons::YesNo) != MsgAnswer::Yes)
    return;
  const std::int16_t resultRow = batchReturnRow(results());
  const auto positions = takePositions(selection());
  const BatchReport run = updateUnderHourglass(positions);
  if (run.wasTakenBack) {
    guarded([&] { requireWhole(run.walk(), positions.size(), "changed"); });
    return refresh(resultRow); // read again, the positions may be those of other photos
  }
  requireWhole(run.walk(), positions.size(), "changed");
  offerSeparateEditing(run.ids);
  refresh(resultRow);
}

BatchReport BatchEdit::updateUnderHourglass(const std::vector<std::int64_t>& positions) {
  const Hourglass hourglass;
  return updatePhotos(results(), positions, readChanges());
}

void BatchEdit::offerSeparateEditing(const std::vector<std::string>& ids) {
  const MsgAnswer answer =
      MsgBox(QStringLiteral("Do you want to separately edit the selected photos?"),
             QStringLiteral("Batch Edit"), MsgIcon::Question, MsgButtons::YesNo);
  if (answer == MsgAnswer::Yes)
    guarded([&] { editSeparately(ids); });
}

void BatchEdit::editSeparately(const std::vector<std::string>& ids) {
  Recordset& photos = album_.data.rsPhotoAlbum;
  Unload();
  photos.Close();
  photos.Open("SELECT * FROM PhotoAlbum Order By PictureID");
  photos.Filter(photosCriterion("PictureID", ids)); // until the editor closes
  editSearchResults(album_);
}

void BatchEdit::deleteSelected() {
  const QString question = QStringLiteral("Are you sure you want to delete ") +
                           QString::number(selection().SelectedCount) +
                           QStringLiteral(" selected records?\nThe files will be deleted as well!");
  if (MsgBox(question, {}, MsgIcon::Exclamation, MsgButtons::YesNo) != MsgAnswer::Yes)
    return;
  const std::int16_t resultRow = batchReturnRow(results());
  const auto positions = takeDeletable();
  if (positions.empty())
    return;
  if (guarded([&] { deleteUnderProgress(positions); }))
    MsgBox(QStringLiteral("All Records Deleted!"));
  // Where it was stopped too: the positions of the selection are those of other photos now.
  refresh(resultRow);
}

std::vector<std::int64_t> BatchEdit::takeDeletable() {
  const auto positions = takePositions(selection());
  auto deletable = deletablePositions(results(), positions);
  if (deletable.size() < positions.size())
    MsgBox(QStringLiteral("Can't Delete First Record"), QStringLiteral("Delete Record"),
           MsgIcon::Exclamation);
  return deletable;
}

void BatchEdit::deleteUnderProgress(const std::vector<std::int64_t>& positions) {
  const Hourglass hourglass;
  auto& progress = Forms::get<Progress>();
  const auto unload = qScopeGuard([&progress] { progress.Unload(); });
  progress.setCaption(QStringLiteral("Deleting Photos, Please Wait"));
  progress.setRange(0, static_cast<int>(positions.size()));
  progress.setValue(0);
  progress.Show();
  deletePhotos(album_, results(), positions,
               [&progress](std::size_t done) { progress.setValue(static_cast<int>(done)); });
}

void BatchEdit::refresh(std::int16_t resultRow) {
  Recordset& photos = album_.data.rsPhotoAlbum;
  isTroubleTold_ = !guarded([&] {
    photos.Requery(); // on the first row, without the photos that are gone
    openEverybody(album_.data.rsAppearances);
    Forms::tellRowsChanged({RowsChanged::By::BatchEdited, resultRow});
  });
  Unload();
}

void BatchEdit::cancel() { Unload(); }

void BatchEdit::deletePlace() {
  const Choice place = people_->place();
  if (place.text.empty())
    return;
  if (searched_.hasPlace(place.id.toInteger()))
    return refuseSearched("Can't delete Place that is in the search criteria");
  deleteName(batchPlaceWords, album_.data.rsPlaces, *ui->PlacesDrp);
}

void BatchEdit::deleteEvent() {
  const Choice event = people_->event();
  if (event.text.empty())
    return;
  if (searched_.hasEvent(event.id.toInteger()))
    return refuseSearched("Can't delete Event that is in the search criteria");
  deleteName(batchEventWords, album_.data.rsEvents, *ui->EventsDrp);
}

/// Through a clone, which shares the rows of the editor and leaves it its place and its filter.
void BatchEdit::deleteName(const NameListWords& words, Recordset& list, DataCombo& dropDown) {
  Recordset& photos = album_.data.rsPhotoAlbum;
  try {
    deleteFromNameList(words, *photos.Clone(), list, dropDown);
  } catch (...) {
    photos.Requery(); // what was taken back is still to be seen in the shared rows
    throw;
  }
}

void BatchEdit::tidyYear() {
  const auto year = wholeYear(toUtf8(ui->Year->text()));
  ui->Year->setText(year ? QString::number(*year) : QString());
}

/// Nobody is to be shut in where the album cannot be read any more.
bool BatchEdit::unloading() {
  const auto showEverybody = [this] {
    openEverybody(album_.data.rsAppearances);
    if (auto* search = Forms::loaded<Search>())
      search->refillLists();
  };
  if (isTroubleTold_)
    passOver(showEverybody);
  else
    guarded(showEverybody);
  return true;
}

} // namespace hearthbook
