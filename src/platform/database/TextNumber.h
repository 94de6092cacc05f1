#pragma once

#include "Value.h"

#include <optional>
#include <string_view>

namespace hearthbook {

/// The number that a text is, blanks around it allowed, as the database converts one that is
/// compared with a number field: "012", " 12 " and "12.0" are 12; "12x" and "" are none.
std::optional<Value> wholeNumberOrReal(std::string_view text);

} // namespace hearthbook
