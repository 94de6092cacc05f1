#include "PeopleCommands.h"

#include "Forms.h"
#include "MsgBox.h"
#include "NamesManager.h"
#include "Numbers.h"
#include "People.h"
#include "PeopleRefresh.h"
#include "RunTimeError.h"
#include "ScreenNames.h"
#include "Text.h"
#include "Words.h"
#include "YearWizard.h"

namespace hearthbook {

namespace {

const char* missing(PeopleForm::Field field) {
  switch (field) {
  case PeopleForm::Field::Place:
    return "Please Choose Place";
  case PeopleForm::Field::Event:
    return "Please Choose Event";
  case PeopleForm::Field::Names:
    break;
  }
  return "Please Select Name";
}

} // namespace

void PeopleCommands::addName() {
  Recordset& people = album_.data.rsAppearances;
  album_.vars.CurrentPersonID = 0;
  const auto answer = askScreenName(
      [](const std::string& typed) { return characterCount(trimmed(typed)) > longestScreenName; });
  if (!answer)
    return;
  const std::string name = trimmed(*answer);
  openEverybody(people);
  if (people.RecordCount() > 0 && personNamed(people, doubled(name, '\''))) {
    tellDuplicateName(people);
    return showFilteredPeople(form_, people);
  }
  album_.vars.CurrentPersonID = addPerson(people, name);
  auto& manager = Forms::get<NamesManager>();
  manager.workOn(form_);
  manager.beginAddition();
  manager.ShowModal();
}

void PeopleCommands::updateName() {
  Recordset& people = album_.data.rsAppearances;
  const Choice chosen = form_.person();
  if (chosen.text.empty()) {
    MsgBox(QStringLiteral("Please Select Name To Update"), QStringLiteral("Update Name"),
           MsgIcon::Exclamation);
    return;
  }
  openEverybody(people);
  if (!personById(people, chosen.id.toInteger()))
    throw RunTimeError("The album has nobody of the name " + chosen.text + " any more.");
  album_.vars.CurrentPersonID = shortNumber(people.Collect("AppearancesID").toInteger());
  auto& manager = Forms::get<NamesManager>();
  manager.workOn(form_);
  manager.beginUpdate();
  manager.ShowModal();
}

void PeopleCommands::findYear() {
  Recordset& people = album_.data.rsAppearances;
  openEverybody(people);
  if (!isReadyForYear())
    return;
  const auto name = form_.chosenName();
  if (!personById(people, name->id))
    throw RunTimeError("The album has nobody of the name " + name->text + " any more.");
  if (!hasBirthYear())
    return;
  people.MoveFirst();
  auto& wizard = Forms::get<YearWizard>();
  wizard.workOn(form_);
  wizard.ShowModal();
}

bool PeopleCommands::isReadyForYear() {
  using Field = PeopleForm::Field;
  const bool isEventFirst = manners_.askedFirst == Field::Event;
  for (const Field field : {isEventFirst ? Field::Event : Field::Place,
                            isEventFirst ? Field::Place : Field::Event, Field::Names}) {
    if (isChosen(field))
      continue;
    MsgBox(toQString(missing(field)));
    form_.focus(field);
    return false;
  }
  return true;
}

bool PeopleCommands::isChosen(PeopleForm::Field field) const {
  switch (field) {
  case PeopleForm::Field::Place:
    return !form_.place().text.empty();
  case PeopleForm::Field::Event:
    return !form_.event().text.empty();
  case PeopleForm::Field::Names:
    break;
  }
  return form_.chosenName().has_value();
}

bool PeopleCommands::hasBirthYear() {
  const Value year = album_.data.rsAppearances.Collect("BirthYear");
  if (manners_.asksBirthYear)
    return !year.toText().empty() || askBirthYear();
  if (!year.isNull())
    return true;
  openForBirthYear();
  return false;
}

void PeopleCommands::openForBirthYear() {
  MsgBox(QStringLiteral("Please Enter Year Of Birth"));
  const Value person = album_.data.rsAppearances.Collect("AppearancesID");
  album_.vars.CurrentPersonID = shortNumber(person.toInteger());
  // Cancelling there writes back whom the form's list shows, who must not be somebody else.
  form_.choosePerson(person);
  auto& manager = Forms::get<NamesManager>();
  manager.workOn(form_);
  manager.beginBirthYear();
  manager.ShowModal();
}

bool PeopleCommands::askBirthYear() {
  Recordset& people = album_.data.rsAppearances;
  const QString title = QStringLiteral("Find Year");
  const QString prompt = QStringLiteral("Please enter Year Of Birth for ") +
                         toQString(people.Collect("AppearancesNames").toText()) +
                         QStringLiteral(" (4 digits, i.e 1977)");
  const std::string answer = trimmed(toUtf8(InputBox(prompt, title)));
  if (answer.empty())
    return false;
  const auto year = askedBirthYear(answer);
  if (!year) {
    MsgBox(QStringLiteral("Invalid entry, please try again"), title, MsgIcon::Exclamation);
    return false;
  }
  people.Collect("BirthYear", static_cast<int>(*year));
  people.Update();
  return true;
}

} // namespace hearthbook
