#include "People.h"

#include "AlbumData.h"
#include "CalendarDate.h"
#include "NameFilter.h"
#include "Numbers.h"
#include "Words.h"

namespace hearthbook {

namespace {

/// A refused row must not stay pending in a set that others share.
void storeOrDrop(Recordset& people) {
  try {
    people.Update();
  } catch (...) {
    people.CancelUpdate();
    throw;
  }
}

/// The line of a relation, with the blank line in front of it; nothing for an unknown person.
std::string relationLine(const Recordset& people) {
  const auto relation = relationOf(people);
  if (!relation)
    return {};
  if (*relation == 0)
    return "\nRelation: Family Member\n";
  const auto others = people.Clone();
  if (!personById(*others, *relation))
    return {};
  return "\nRelation: " + others->Collect("AppearancesNames").toText() + "\n";
}

} // namespace

void openEverybody(Recordset& people) { people.Open(sources::appearances); }

bool personById(Recordset& people, std::int64_t id) {
  people.Find("AppearancesID = " + std::to_string(id), Recordset::Start::First);
  return !people.atEOF();
}

bool personNamed(Recordset& people, std::string_view name) {
  people.Find("AppearancesNames = '" + std::string(name) + "'", Recordset::Start::First);
  return !people.atEOF();
}

std::int16_t addPerson(Recordset& people, std::string_view name) {
  people.AddNew();
  people.Collect("AppearancesNames", name);
  people.Collect("relationID", 0);
  storeOrDrop(people);
  return shortNumber(people.Collect("AppearancesID").toInteger());
}

void writeBackPerson(Recordset& people, std::int64_t id, const std::string& name,
                     std::int64_t relationId) {
  if (!personById(people, id))
    return;
  people.Collect("AppearancesNames", name);
  people.Collect("relationID", relationId);
  storeOrDrop(people);
}

void removePerson(Recordset& people, std::int64_t id) {
  if (personById(people, id)) {
    people.Delete();
    people.UpdateBatch();
  }
  if (people.RecordCount() > 0)
    people.MoveFirst();
}

std::string duplicateNameMessage(const Recordset& people) {
  const auto field = [&](const char* name) { return people.Collect(name).toText(); };
  return "Screen Name Already Used With The Following Info.\n\n"
         "Screen Name: " +
         field("AppearancesNames") + "\n\nFirst Name: " + field("AFirstName") +
         "\n\nLast Name: " + field("ALastName") + "\n\nBirthday: " + field("BirthDate") + "/" +
         field("BirthYear") + "\n" + relationLine(people) +
         "\nPlease try to add a different Screen Name";
}

std::vector<NameEntry> relationEntries(const Recordset& people) {
  const auto family = people.Clone();
  family->Filter("RelationID = 0");
  family->Sort("AppearancesNames");
  std::vector<NameEntry> entries = {{familyMemberEntry, 0}, {separatorEntry, 0}};
  for (; !family->atEOF(); family->MoveNext())
    entries.push_back({family->Collect("AppearancesNames").toText(),
                       family->Collect("AppearancesID").toInteger()});
  return entries;
}

std::optional<std::int64_t> relationOf(const Recordset& people) {
  if (!standsOnRow(people))
    return std::nullopt;
  const Value relation = people.Collect("relationID");
  return relation.isNull() ? std::nullopt : std::optional(relation.toInteger());
}

EndedBirthday endBirthday(std::string_view typed) {
  if (typed.empty())
    return {};
  if (const auto date = calendarDate(typed))
    return {monthDayText(*date), true};
  return {trimmed(typed), false};
}

bool acceptsBirthYear(std::string_view typed) {
  constexpr std::size_t yearLength = 4;
  return typed.empty() || isNumeric(typed) || characterCount(typed) == yearLength;
}

std::optional<std::int16_t> askedBirthYear(std::string_view answer) {
  constexpr std::size_t yearLength = 4;
  const auto number = numericValue(answer);
  if (!number || characterCount(answer) != yearLength)
    return std::nullopt;
  return shortNumber(roundHalfEven(*number));
}

} // namespace hearthbook
