#include "NamesManager.h"

#include "ButtonFace.h"
#include "Command.h"
#include "Guard.h"
#include "ModalHelp.h"
#include "MsgBox.h"
#include "NameItems.h"
#include "People.h"
#include "PeopleRefresh.h"
#include "ScreenNames.h"
#include "Text.h"
#include "Words.h"
#include "ui_NamesManager.h"

#include <QCloseEvent>

namespace hearthbook {

namespace {

const QString additionCaption = QStringLiteral("Add New Name");
constexpr int separatorIndex = 1; // of the relations

} // namespace

NamesManager::NamesManager(Album& album)
    : Form(QStringLiteral("NamesManager"), Kind::Dialog), album_(album),
      people_(album.data.rsAppearances), ui(std::make_unique<Ui::NamesManager>()),
      binding_(people_) {
  ui->setupUi(this);
  ui->Command1->hide();
  modalHelp_ = new ModalHelp(this, HelpPane(*ui->Help, *ui->Text1), album_.vars);
  wireControls();
  bindFields();
}

NamesManager::~NamesManager() = default;

void NamesManager::wireControls() {
  connect(ui->NamesList, &DataList::chosen, this, [this] {
    runCommand([this] { chooseName(); });
    showCurrent(); // where the choice was refused, the row is still the former one
  });
  connect(ui->Combo1, &QComboBox::activated, this, [this] {
    if (!runCommand([this] { chooseRelation(); }))
      showRelation(separatorIndex);
  });
  onCommand(ui->Command1, this, &NamesManager::addAnother); // "Add New"
  onCommand(ui->OKButton, this, &NamesManager::done);       // "Done"
  onCommand(ui->Command2, this, &NamesManager::giveUp);     // "Cancel"
  setLostFocusRule(ui->txtAppearancesNames, [this] { return endScreenName(); });
  setLostFocusRule(ui->txtBirthDate, [this] { return endBirthday(); });
  setLostFocusRule(ui->txtBirthYear, [this] { return endBirthYear(); });
}

void NamesManager::bindFields() {
  binding_.bind(ui->txtAppearancesNames, "AppearancesNames");
  binding_.bind(ui->txtAFirstName, "AFirstName");
  binding_.bind(ui->txtALastName, "ALastName");
  binding_.bind(ui->txtBirthDate, "BirthDate");
  binding_.bind(ui->txtBirthYear, "BirthYear");
  ui->NamesList->setListSource({&people_, "AppearancesNames", "AppearancesID"});
}

void NamesManager::load() {
  setFaces();
  binding_.show();
  rebuildRelations();
  showCurrent();
  modalHelp_->show(QStringLiteral("Name Properties*Help"));
}

void NamesManager::setFaces() {
  const std::filesystem::path media = album_.folder.path("\\Media");
  setFace(Face::Grn, media, {ui->Command1});
  setFace(Face::Brn, media, {ui->OKButton});
  setFace(Face::Gry, media, {ui->Command2});
}

void NamesManager::workOn(PeopleForm& caller) { caller_ = &caller; }

void NamesManager::beginAddition() {
  ui->Combo1->setCurrentIndex(0);
  ui->OKButton->setEnabled(true);
  ui->Command1->show();
  rebuildRelations();
  setCaption(additionCaption);
}

void NamesManager::beginUpdate() { setCaption(QStringLiteral("Update Selected Name")); }

void NamesManager::beginBirthYear() { ui->txtBirthYear->setFocus(); }

std::string NamesManager::screenName() const { return toUtf8(ui->txtAppearancesNames->text()); }

void NamesManager::showCurrent() {
  ui->NamesList->setBoundText(standsOnRow(people_) ? people_.Collect("AppearancesID") : Value());
}

void NamesManager::rebuildRelations() {
  setEntries(*ui->Combo1, relationEntries(people_));
  showRelation(-1);
}

void NamesManager::showRelation(int indexIfUnknown) {
  ui->Combo1->setPlaceholderText({});
  const auto relation = relationOf(people_);
  if (!relation)
    return ui->Combo1->setCurrentIndex(indexIfUnknown);
  ui->Combo1->setCurrentIndex(ui->Combo1->findData(QVariant::fromValue<qlonglong>(*relation)));
  if (ui->Combo1->currentIndex() >= 0)
    return;
  // Somebody who is not of the family: shown, though not among the choices.
  const auto others = people_.Clone();
  if (personById(*others, *relation))
    ui->Combo1->setPlaceholderText(toQString(others->Collect("AppearancesNames").toText()));
}

void NamesManager::chooseName() {
  const Value chosen = ui->NamesList->BoundText();
  if (chosen.toText().empty())
    return;
  people_.MoveFirst();
  people_.Find("AppearancesID = '" + chosen.toText() + "'");
  showRelation(separatorIndex);
}

void NamesManager::chooseRelation() {
  if (ui->Combo1->currentIndex() == separatorIndex)
    ui->Combo1->setCurrentIndex(0);
  if (!standsOnRow(people_))
    return;
  auto relation = chosenEntry(*ui->Combo1)->id;
  if (relation == people_.Collect("AppearancesID").toInteger()) {
    MsgBox(QStringLiteral("Please choose a relation other then the selected name!"),
           QStringLiteral("Relation"));
    ui->Combo1->setCurrentIndex(0);
    relation = 0;
  }
  people_.Collect("relationID", relation);
}

void NamesManager::addAnother() {
  // What is measured is the name on show, not the answer.
  const auto answer = askScreenName(
      [this](const std::string&) { return characterCount(screenName()) > longestScreenName; });
  if (!answer)
    return;
  const auto others = people_.Clone();
  if (others->RecordCount() > 0 && personNamed(*others, *answer))
    return tellDuplicateName(*others);
  album_.vars.CurrentPersonID = addPerson(people_, *answer);
  binding_.show();
  ui->NamesList->ReFill();
  showCurrent();
  beginAddition();
  ui->txtAppearancesNames->setFocus();
}

void NamesManager::done() {
  if (trimmed(screenName()).empty()) {
    MsgBox(QStringLiteral("Please fill the screen name"), {}, MsgIcon::Exclamation);
    return;
  }
  if (const auto relation = chosenEntry(*ui->Combo1))
    people_.Collect("relationID", relation->id);
  people_.Update();
  people_.Requery();
  const std::string filter = filterForRelation(toUtf8(ui->Combo1->currentText()));
  Unload();
  refreshPeople(*caller_, people_, filter, album_.vars.CurrentPersonID);
}

void NamesManager::giveUp() {
  const bool isAddition = caption() == additionCaption;
  const Choice person = caller_->person();
  const NameEntry filter = caller_->filter();
  people_.CancelUpdate(); // before unloading, which stores what is entered
  Unload();
  guarded([&] { undo(person, filter, isAddition); });
  refreshPeople(*caller_, people_, filter.text, album_.vars.CurrentPersonID);
}

void NamesManager::undo(const Choice& person, const NameEntry& filter, bool isAddition) {
  if (isAddition)
    removePerson(people_, album_.vars.CurrentPersonID);
  else if (!person.text.empty())
    writeBackPerson(people_, album_.vars.CurrentPersonID, person.text, filter.id);
}

bool NamesManager::endScreenName() {
  bool isDone = true;
  const std::size_t length = characterCount(screenName());
  if (trimmed(screenName()).empty()) {
    ui->OKButton->setEnabled(false);
    people_.CancelUpdate();
    ui->txtAppearancesNames->clear(); // stays in sight as empty, without being an edit
    binding_.markUnchanged(ui->txtAppearancesNames);
  } else if (length > longestScreenName) {
    isDone = refuseLongName();
  } else {
    passOver([this] { people_.Update(); });
    ui->OKButton->setEnabled(true);
    ui->Command1->setEnabled(true);
    ui->NamesList->ReFill();
  }
  rebuildRelations();
  return isDone;
}

bool NamesManager::refuseLongName() {
  MsgBox(QStringLiteral("Please Type No More Then 20 Charaters"), QStringLiteral("Add Name"));
  ui->txtAppearancesNames->setFocus();
  ui->txtAppearancesNames->clear();
  return false;
}

bool NamesManager::endBirthday() {
  const std::string typed = toUtf8(ui->txtBirthDate->text());
  const EndedBirthday ended = hearthbook::endBirthday(typed);
  if (ended.text != typed)
    ui->txtBirthDate->setText(toQString(ended.text));
  if (!ended.isAccepted)
    MsgBox(QStringLiteral("Please enter valid date: 'MM/DD'"), QStringLiteral("Birth Date"),
           MsgIcon::Critical);
  return ended.isAccepted;
}

bool NamesManager::endBirthYear() {
  const bool isAccepted = acceptsBirthYear(toUtf8(ui->txtBirthYear->text()));
  if (!isAccepted)
    MsgBox(QStringLiteral("Invalid entry, please type 4 digit year (i.e 1977)"),
           QStringLiteral("Year"), MsgIcon::Exclamation);
  return isAccepted;
}

void NamesManager::closeEvent(QCloseEvent* event) {
  event->ignore(); // Cancel unloads the form itself
  runCommand([this] { giveUp(); });
}

} // namespace hearthbook
