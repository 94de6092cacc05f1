#include "NameFilter.h"

namespace hearthbook {

std::vector<NameEntry> nameFilterEntries(Recordset& appearances) {
  appearances.Filter("RelationID = 0");
  appearances.Sort("AppearancesNames");
  std::vector<NameEntry> entries = {
      {"Show All", 0}, {familyMembersEntry, 0}, {"-------------------", 0}};
  for (; !appearances.atEOF(); appearances.MoveNext())
    entries.push_back({appearances.Collect("AppearancesNames").toText(),
                       appearances.Collect("AppearancesID").toInteger()});
  appearances.Filter("");
  return entries;
}

} // namespace hearthbook
