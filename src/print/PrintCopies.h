#pragma once

#include <string_view>

namespace hearthbook {

/// The number of copies that was typed. Throws RunTimeError where no printer would take it: no
/// number, less than one, or too many.
int copiesOf(std::string_view typed);

} // namespace hearthbook
