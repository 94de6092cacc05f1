#pragma once

#include "NamesInPhoto.h"
#include "Recordset.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

// The people who can be named in photos: the rows of Appearances. `people` is always a record
// set of that table.

inline constexpr std::size_t longestScreenName = 20;
inline constexpr const char* familyMemberEntry = "Family Member";

/// Opens the set again on everybody, by name.
void openEverybody(Recordset& people);

/// Goes to the person; false, at the end of the set, if there is no such row.
bool personById(Recordset& people, std::int64_t id);

/// Goes to the person of that screen name. An apostrophe in it must be doubled, or the search
/// fails.
bool personNamed(Recordset& people, std::string_view name);

/// Stores a family member of that screen name and stands on the new row. Returns its id.
std::int16_t addPerson(Recordset& people, std::string_view name);

/// Removes the person's row, if it is there, and stands on the first.
void removePerson(Recordset& people, std::int64_t id);

/// Gives the person a name and a relation, if the row is there.
void writeBackPerson(Recordset& people, std::int64_t id, const std::string& name,
                     std::int64_t relationId);

/// Why a name is refused, told of the person on whom the set stands.
std::string duplicateNameMessage(const Recordset& people);

/// The entries of the list of relations: the family, a line, each family member by name.
std::vector<NameEntry> relationEntries(const Recordset& people);

/// To whom the person on whom the set stands belongs: 0 for a family member, nothing where
/// that is unknown or there is no person.
std::optional<std::int64_t> relationOf(const Recordset& people);

/// What becomes of a birthday when its field is left.
struct EndedBirthday {
  std::string text;
  bool isAccepted = true;
};
EndedBirthday endBirthday(std::string_view typed);

/// Only a text that is neither a number nor of four characters is refused: "77" and "abcd"
/// pass.
bool acceptsBirthYear(std::string_view typed);

/// The year of birth as a number, if the answer is one of four characters.
std::optional<std::int16_t> askedBirthYear(std::string_view answer);

} // namespace hearthbook
