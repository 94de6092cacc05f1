#include "PrintCopies.h"

#include "Numbers.h"
#include "PrintSettings.h"
#include "RunTimeError.h"

#include <string>

namespace hearthbook {

int copiesOf(std::string_view typed) {
  const auto number = numericValue(typed);
  if (!number || *number < 0.5 || *number > mostCopies)
    throw RunTimeError("\"" + std::string(typed) + "\" is no number of copies.");
  const auto copies = static_cast<int>(roundHalfEven(*number));
  if (copies < 1)
    throw RunTimeError("\"" + std::string(typed) + "\" is no number of copies.");
  return copies;
}

} // namespace hearthbook
