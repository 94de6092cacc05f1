#include "PeopleRefresh.h"

#include "NameFilter.h"
#include "People.h"

#include <algorithm>

namespace hearthbook {

namespace {

bool isChoice(const std::vector<NameEntry>& entries, const std::string& text) {
  return text != separatorEntry &&
         std::ranges::find(entries, text, &NameEntry::text) != entries.end();
}

/// The list with the names that the people have now; who has no row any more keeps the old.
std::vector<NameEntry> renamed(std::vector<NameEntry> names, Recordset& people) {
  for (const NameEntry& stored : PopList(people, namesInPhotoText(names).toText(), ""))
    for (NameEntry& entry : names)
      if (entry.id == stored.id)
        entry.text = stored.text;
  return names;
}

void refreshNames(PeopleForm& form, Recordset& people) {
  const auto photo = form.photoNames();
  if (!photo)
    form.setNamesInPhoto(renamed(form.namesInPhoto(), people));
  else if (!photo->namesInPhoto.empty())
    form.setNamesInPhoto(PopList(people, photo->namesInPhoto, photo->namesCords));
}

} // namespace

void refreshPeople(PeopleForm& form, Recordset& people, const std::string& filterText,
                   std::int16_t personId) {
  const auto entries = nameFilterEntries(people);
  form.setFilter(entries, isChoice(entries, filterText) ? filterText : familyMembersEntry);
  refreshNames(form, people);
  showFilteredPeople(form, people);
  if (personId != 0)
    form.choosePerson(static_cast<int>(personId));
}

void showFilteredPeople(PeopleForm& form, Recordset& people) {
  people.Open(nameFilterStatement(form.filter()));
  form.refillPeople();
}

std::string filterForRelation(const std::string& relationText) {
  const bool isFamily = relationText.empty() || relationText == familyMemberEntry;
  return isFamily ? familyMembersEntry : relationText;
}

} // namespace hearthbook
