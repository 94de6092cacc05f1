#pragma once

#include "RowSet.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace hearthbook {

/// The rows that a record set shows, in their order, and the place where it stands: on one of
/// them, before the first or behind the last.
class RowView {
public:
  void show(std::vector<RowId> rows, bool ascending); ///< and stands on the first

  [[nodiscard]] std::int64_t size() const { return static_cast<std::int64_t>(rows_.size()); }
  [[nodiscard]] bool isBefore() const { return place_ < 0 || rows_.empty(); }
  [[nodiscard]] bool isBehind() const { return place_ >= size() || rows_.empty(); }
  [[nodiscard]] bool isOnRow() const { return place_ >= 0 && place_ < size(); }
  [[nodiscard]] std::int64_t place() const { return place_; } ///< -1 before, size() behind
  [[nodiscard]] RowId current() const { return at(place_); }
  [[nodiscard]] RowId at(std::int64_t place) const {
    return rows_[static_cast<std::size_t>(place)];
  }
  [[nodiscard]] const std::vector<RowId>& rows() const { return rows_; }
  [[nodiscard]] std::optional<std::int64_t> placeOf(RowId row) const;

  void goTo(std::int64_t place); ///< beyond an end: before or behind
  void add(RowId row);           ///< at the end; stays where it stands
  void remove(RowId row);        ///< if it was current: stands on the one that followed
  void remove(const std::vector<RowId>& rows); ///< many at once; `rows` in rising order

private:
  std::vector<RowId> rows_;
  bool ascending_ = true; ///< then a row is found by halving
  std::int64_t place_ = 0;
};

} // namespace hearthbook
