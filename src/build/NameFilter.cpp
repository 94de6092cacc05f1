#include "NameFilter.h"

#include "AlbumData.h"

namespace hearthbook {

std::vector<NameEntry> nameFilterEntries(Recordset& appearances) {
  appearances.Filter("RelationID = 0");
  appearances.Sort("AppearancesNames");
  std::vector<NameEntry> entries = {
      {showAllEntry, 0}, {familyMembersEntry, 0}, {separatorEntry, 0}};
  for (; !appearances.atEOF(); appearances.MoveNext())
    entries.push_back({appearances.Collect("AppearancesNames").toText(),
                       appearances.Collect("AppearancesID").toInteger()});
  appearances.Filter("");
  return entries;
}

std::string nameFilterStatement(const NameEntry& chosen) {
  if (chosen.text == showAllEntry)
    return sources::appearances;
  return "Select * From Appearances where RelationID = " + std::to_string(chosen.id) +
         " Order By AppearancesNames";
}

} // namespace hearthbook
