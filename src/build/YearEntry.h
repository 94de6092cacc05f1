#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace hearthbook {

/// The year in the one form in which the album takes it: "$19" and "&H13" are both 19. Nothing
/// for a text that is no number, or one with more digits than the field shows.
std::optional<std::int64_t> wholeYear(std::string_view typed);

} // namespace hearthbook
