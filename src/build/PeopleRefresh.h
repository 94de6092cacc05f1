#pragma once

#include "PeopleForm.h"
#include "Recordset.h"

#include <cstdint>
#include <string>

namespace hearthbook {

/// Brings a form's filter, list of people and names of the photo up to date after people were
/// added, renamed or removed; `people` is rsAppearances, open on everybody. `filterText` is
/// then chosen in the filter (the family, where no entry has that text), and `personId` in the
/// list of people, unless it is 0.
void refreshPeople(PeopleForm& form, Recordset& people, const std::string& filterText,
                   std::int16_t personId);

/// Opens `people` as the form's filter asks, and fills the form's list from it.
void showFilteredPeople(PeopleForm& form, Recordset& people);

/// The filter's text after a relation was chosen for a person: people of that relation.
std::string filterForRelation(const std::string& relationText);

} // namespace hearthbook
