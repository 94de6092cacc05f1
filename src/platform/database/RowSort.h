#pragma once

#include "Answer.h"

#include <string_view>
#include <vector>

namespace hearthbook {

struct SortField {
  std::size_t column = 0;
  bool descending = false;
};

/// "Name", "Name DESC, Other". Throws RunTimeError for anything else.
std::vector<SortField> parseSort(std::string_view fields, const Answer& answer);

/// Null first, numbers, then texts in the user's order; equal rows keep their places.
void sortRows(std::vector<RowId>& order, const RowSet& rows, const std::vector<SortField>& fields);

} // namespace hearthbook
