#include "RowSort.h"

#include "RunTimeError.h"
#include "SqlTokens.h"
#include "TextOrder.h"

#include <algorithm>
#include <tuple>

namespace hearthbook {

namespace {

struct SortKey {
  int rank = 0; // Null, number, text
  double number = 0;
  std::string text;

  bool operator<(const SortKey& other) const {
    return std::tie(rank, number, text) < std::tie(other.rank, other.number, other.text);
  }
};

SortKey keyOf(const RowSet& rows, RowId row, std::size_t column) {
  switch (rows.kind(row, column)) {
  case RowSet::Kind::Null:
    return {};
  case RowSet::Kind::Text:
    return {2, 0, textSortKey(rows.text(row, column))};
  default:
    return {1, rows.value(row, column).toReal(), {}};
  }
}

/// The rows of `order` by one field.
void sortBy(std::vector<RowId>& order, const RowSet& rows, SortField field) {
  std::vector<std::pair<SortKey, RowId>> keyed;
  keyed.reserve(order.size());
  for (const RowId row : order)
    keyed.emplace_back(keyOf(rows, row, field.column), row);
  std::stable_sort(keyed.begin(), keyed.end(), [&](const auto& left, const auto& right) {
    return field.descending ? right.first < left.first : left.first < right.first;
  });
  std::transform(keyed.begin(), keyed.end(), order.begin(),
                 [](const auto& entry) { return entry.second; });
}

[[noreturn]] void throwMisunderstood(std::string_view fields) {
  throw RunTimeError("The sort order cannot be understood: " + std::string(fields));
}

} // namespace

std::vector<SortField> parseSort(std::string_view text, const Answer& answer) {
  const auto tokens = sqlTokens(text);
  std::vector<SortField> fields;
  std::size_t at = solidFrom(tokens, 0);
  while (at < tokens.size()) {
    const auto column = isName(tokens[at]) ? answer.column(unquoted(tokens[at])) : std::nullopt;
    if (!column)
      throwMisunderstood(text);
    fields.push_back({*column, false});
    at = solidFrom(tokens, at + 1);
    if (at < tokens.size() && (isWord(tokens[at], "desc") || isWord(tokens[at], "asc"))) {
      fields.back().descending = isWord(tokens[at], "desc");
      at = solidFrom(tokens, at + 1);
    }
    if (at == tokens.size())
      return fields;
    if (!isMark(tokens[at], ',') || solidFrom(tokens, at + 1) == tokens.size())
      throwMisunderstood(text);
    at = solidFrom(tokens, at + 1);
  }
  return fields;
}

void sortRows(std::vector<RowId>& order, const RowSet& rows, const std::vector<SortField>& fields) {
  // Each sort is stable, so the first field comes last.
  std::for_each(fields.rbegin(), fields.rend(),
                [&](const SortField& field) { sortBy(order, rows, field); });
}

} // namespace hearthbook
