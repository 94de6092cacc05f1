#pragma once

#include "NamesInPhoto.h"
#include "Recordset.h"

#include <vector>

namespace hearthbook {

/// The entries of the filter over the list of people: all, the family, a line, and each
/// family member with the id. Leaves `appearances` without a filter, sorted by name.
std::vector<NameEntry> nameFilterEntries(Recordset& appearances);

/// What the filter shows before anyone has chosen.
inline constexpr const char* familyMembersEntry = "Family Members";

} // namespace hearthbook
