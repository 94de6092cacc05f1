#pragma once

#include "Recordset.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace hearthbook {

/// Asks for the screen name of somebody new, again while it is too long; nothing where the
/// answer is empty or blank. The answer is as typed.
std::optional<std::string>
askScreenName(const std::function<bool(const std::string& answer)>& isTooLong);

/// Tells that a screen name is used already, by the person on whom `people` stands.
void tellDuplicateName(const Recordset& people);

} // namespace hearthbook
