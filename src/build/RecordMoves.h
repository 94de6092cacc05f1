#pragma once

#include "Recordset.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// How many rows behind the first one the answer to "Enter Record Number:" lies; nothing where
/// it is no number or above `recordCount`. The lower end is not tested: "0" is the place
/// before the first row.
std::optional<std::int64_t> recordOffset(std::string_view answer, std::int64_t recordCount);

/// True if the current row lacks its event, place, year or names. Its description is not
/// looked at.
bool hasGap(const Recordset& photos);

/// Moves to the next row behind the current one that has a gap; never wraps. False, and the
/// set stays on its row, where there is none. `at` hears each position on the way.
bool FindNextEmpty(Recordset& photos, const std::function<void(std::int64_t position)>& at);

/// The ids of the photos behind and before the current row, the one behind first.
std::vector<std::string> neighbourIds(const Recordset& photos);

} // namespace hearthbook
