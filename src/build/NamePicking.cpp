#include "NamePicking.h"

#include "NameFilter.h"
#include "NameItems.h"
#include "NameMarks.h"
#include "PeopleRefresh.h"
#include "Text.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

#include <utility>

namespace hearthbook {

NamePicking::NamePicking(Recordset& people, PeopleForm& form, Parts parts, Keeper keeper)
    : people_(people), form_(form), parts_(parts), keeper_(std::move(keeper)) {}

void NamePicking::filterPeople() {
  if (form_.filter().text == separatorEntry)
    parts_.filter->setCurrentIndex(parts_.filter->findText(toQString(familyMembersEntry)));
  showFilteredPeople(form_, people_);
}

bool NamePicking::mayPutInNow() const {
  return mayPutIn(!form_.person().id.isNull(), form_.namesInPhoto().size());
}

void NamePicking::personChosen() {
  if (mayPutInNow())
    parts_.putIn->setEnabled(true);
}

void NamePicking::putIn() {
  if (mayPutInNow())
    addChosenPerson();
}

void NamePicking::putInByDoubleClick() {
  if (!form_.person().id.isNull())
    addChosenPerson();
}

void NamePicking::addChosenPerson() {
  const Choice person = form_.person();
  auto names = form_.namesInPhoto();
  if (ChkList(names, person.id.toInteger()))
    return;
  names.push_back({person.text, person.id.toInteger()});
  if (keeper_.added)
    keeper_.added(names);
  const QSignalBlocker quiet(parts_.names);
  const int chosen = chosenRow(*parts_.names);
  form_.setNamesInPhoto(names);
  parts_.names->setCurrentRow(chosen);
}

void NamePicking::nameChosen() {
  if (form_.chosenName())
    parts_.takeOut->setEnabled(true);
}

void NamePicking::takeOut() {
  const auto chosen = form_.chosenName();
  if (!chosen)
    return;
  auto names = form_.namesInPhoto();
  names.erase(names.begin() + chosenRow(*parts_.names));
  if (keeper_.takenOut)
    keeper_.takenOut(names, chosen->id);
  const QSignalBlocker quiet(parts_.names);
  form_.setNamesInPhoto(names);
}

} // namespace hearthbook
