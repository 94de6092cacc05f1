#pragma once

#include "Recordset.h"
#include "SelectionSet.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

/// With which row, from 0, the result page begins to which one returns after a batch: the page
/// in front of the one where the record set stands. Throws RunTimeError 6 where 16 bits do not
/// hold it.
std::int16_t batchReturnRow(const Recordset& rsSearch);

/// The positions of the selected photos, as they are gone through. Several are put in order,
/// which leaves out those from the limit on; one alone may stand anywhere.
std::vector<std::int64_t> takePositions(SelectionSet& selection);

/// How far a walk over selected photos came.
struct BatchWalk {
  std::size_t done = 0;
  std::optional<std::string> failure{}; ///< of the step that stopped it
};

/// Goes to each position in turn and runs the step there, until one fails.
BatchWalk walkThrough(Recordset& photos, const std::vector<std::int64_t>& positions,
                      const std::function<void()>& step);

/// Throws where the walk was stopped: what failed, and how many of `count` photos were "changed"
/// or "deleted" before.
void requireWhole(const BatchWalk& walk, std::size_t count, const char* acted);

} // namespace hearthbook
