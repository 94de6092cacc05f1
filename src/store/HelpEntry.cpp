#include "HelpEntry.h"

namespace hearthbook {

HelpEntry findHelp(Recordset& rsHelp, std::string_view key) {
  rsHelp.Find("HelpID = '" + std::string(key) + "'", Recordset::Start::First);
  const std::string id = rsHelp.Collect("helpID").toText();
  return {id.substr(id.find('*') + 1), rsHelp.Collect("HelpText").toText()};
}

} // namespace hearthbook
