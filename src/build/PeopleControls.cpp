#include "PeopleControls.h"

#include "BoundControls.h"
#include "NameItems.h"
#include "Text.h"

#include <QSignalBlocker>

#include <utility>

namespace hearthbook {

PeopleControls::PeopleControls(Parts parts, ShownPhoto shownPhoto)
    : parts_(parts), shownPhoto_(std::move(shownPhoto)) {}

NameEntry PeopleControls::filter() const {
  return chosenEntry(*parts_.filter).value_or(NameEntry{});
}

void PeopleControls::setFilter(const std::vector<NameEntry>& entries, const std::string& chosen) {
  const QSignalBlocker quiet(parts_.filter);
  setEntries(*parts_.filter, entries);
  parts_.filter->setCurrentIndex(
      parts_.filter->findText(toQString(chosen), Qt::MatchExactly | Qt::MatchCaseSensitive));
}

Choice PeopleControls::person() const {
  return {parts_.people->BoundText(), toUtf8(parts_.people->Text())};
}

void PeopleControls::refillPeople() { parts_.people->ReFill(); }

void PeopleControls::choosePerson(const Value& id) { parts_.people->setBoundText(id); }

std::vector<NameEntry> PeopleControls::namesInPhoto() const { return entriesOf(*parts_.names); }

void PeopleControls::setNamesInPhoto(const std::vector<NameEntry>& names) {
  setEntries(*parts_.names, names);
}

std::optional<NameEntry> PeopleControls::chosenName() const { return chosenEntry(*parts_.names); }

std::optional<PhotoNames> PeopleControls::photoNames() const {
  return shownPhoto_ ? shownPhoto_() : std::nullopt;
}

Choice PeopleControls::place() const {
  return {parts_.places->BoundText(), toUtf8(parts_.places->Text())};
}

Choice PeopleControls::event() const {
  return {parts_.events->BoundText(), toUtf8(parts_.events->Text())};
}

void PeopleControls::setYear(const std::string& year) { parts_.year->setText(toQString(year)); }

void PeopleControls::focus(Field field) {
  switch (field) {
  case Field::Place:
    return parts_.places->setFocus();
  case Field::Event:
    return parts_.events->setFocus();
  case Field::Names:
    return parts_.names->setFocus();
  }
}

} // namespace hearthbook
