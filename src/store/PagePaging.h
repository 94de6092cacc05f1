#pragma once

#include "Recordset.h"

#include <cstdint>
#include <optional>

namespace hearthbook {

/// Where one is in the pages of a record set, be they thumbnails of a result or photos of an
/// album. The set stands behind the page shown, which is all that a walk back has to go by.
struct PagePaging {
  std::int64_t perPage = 1;
  std::int64_t recordCount = 0;
  std::int64_t position = 0; ///< of the set, 1-based; below 1 at an end
  bool atBeginning = false;
  bool atEnd = false;
  std::int64_t shown = 0; ///< filled by the last composing, perhaps of another set

  /// The position with which the page before begins; nothing where there are no more records.
  [[nodiscard]] std::optional<std::int64_t> previous() const;

  /// The position with which the last page begins.
  [[nodiscard]] std::int64_t last() const;

  /// How many pages there are.
  [[nodiscard]] std::int64_t pages() const;

  /// How many rows behind the first the page begins to which one returns after the rows have
  /// changed. At the end of the set a page of fewer than `fewest` is not to be trusted: one
  /// goes back by a whole page and its next then.
  [[nodiscard]] std::int64_t returnRow(std::int64_t fewest) const;
};

PagePaging pagePaging(const Recordset& rows, std::int64_t perPage, std::int64_t shown);

/// How many pages of `perPage` so many records fill.
std::int64_t pagesOf(std::int64_t recordCount, std::int64_t perPage);

/// How many rows behind the first the page begins in which the position lies.
std::int64_t pageStart(std::int64_t position, std::int64_t perPage);

} // namespace hearthbook
