#include "YearEntry.h"

#include "Numbers.h"

namespace hearthbook {

std::optional<std::int64_t> wholeYear(std::string_view typed) {
  constexpr double least = -999;
  constexpr double most = 9999;
  const auto number = numericValue(typed);
  if (!number || *number < least || *number > most)
    return std::nullopt;
  return roundHalfEven(*number);
}

} // namespace hearthbook
