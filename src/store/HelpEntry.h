#pragma once

#include "Recordset.h"

#include <string>
#include <string_view>

namespace hearthbook {

/// One explanation of a control.
struct HelpEntry {
  std::string caption; ///< the item: the key behind its first "*"
  std::string text;

  bool operator==(const HelpEntry&) const = default;
};

/// The row of the table Help for a key such as "Add From File*Drive"; moves the set there. A
/// key without a row leaves the set at its end and fails.
HelpEntry findHelp(Recordset& rsHelp, std::string_view key);

} // namespace hearthbook
