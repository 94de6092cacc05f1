#pragma once

#include "NamesInPhoto.h"
#include "Recordset.h"

#include <string>
#include <vector>

namespace hearthbook {

/// The entries of the filter over the list of people: all, the family, a line, and each
/// family member with the id. Leaves `appearances` without a filter, sorted by name.
std::vector<NameEntry> nameFilterEntries(Recordset& appearances);

/// The statement for a choice in that filter: everybody, or the people who belong to the
/// entry's person (to nobody, for the family itself).
std::string nameFilterStatement(const NameEntry& chosen);

/// What the filter shows before anyone has chosen; the line is no choice and means the same.
inline constexpr const char* familyMembersEntry = "Family Members";
inline constexpr const char* showAllEntry = "Show All";
inline constexpr const char* separatorEntry = "-------------------";

} // namespace hearthbook
