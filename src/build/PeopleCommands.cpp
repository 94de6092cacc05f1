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
  if (people.Collect("BirthYear").toText().empty() && !askBirthYear())
    return;
  people.MoveFirst();
  auto& wizard = Forms::get<YearWizard>();
  wizard.workOn(form_);
  wizard.ShowModal();
}

bool PeopleCommands::isReadyForYear() {
  const auto ask = [&](const QString& text, PeopleForm::Field field) {
    MsgBox(text);
    form_.focus(field);
    return false;
  };
  if (form_.event().text.empty())
    return ask(QStringLiteral("Please Choose Event"), PeopleForm::Field::Event);
  if (form_.place().text.empty())
    return ask(QStringLiteral("Please Choose Place"), PeopleForm::Field::Place);
  if (!form_.chosenName())
    return ask(QStringLiteral("Please Select Name"), PeopleForm::Field::Names);
  return true;
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
