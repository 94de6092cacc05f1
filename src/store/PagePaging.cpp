#include "PagePaging.h"

#include <algorithm>

namespace hearthbook {

std::optional<std::int64_t> PagePaging::previous() const {
  if (recordCount <= perPage)
    return std::nullopt;
  std::int64_t from = position;
  std::int64_t back = shown;
  if (atEnd && !atBeginning) {
    // The last record is one place short of where a full page leaves the set.
    from = recordCount;
    --back;
  }
  if (from <= perPage)
    return std::nullopt;
  return std::max<std::int64_t>(1, from - back - perPage);
}

std::int64_t PagePaging::last() const { return pageStart(recordCount, perPage) + 1; }

std::int64_t PagePaging::pages() const { return pagesOf(recordCount, perPage); }

std::int64_t PagePaging::returnRow(std::int64_t fewest) const {
  const std::int64_t pageAndNext = perPage + 1;
  const std::int64_t row =
      atEnd ? recordCount - (shown < fewest ? pageAndNext : shown) : position - pageAndNext;
  return std::max<std::int64_t>(0, row);
}

PagePaging pagePaging(const Recordset& rows, std::int64_t perPage, std::int64_t shown) {
  return {perPage, rows.RecordCount(), rows.AbsolutePosition(), rows.atBOF(), rows.atEOF(), shown};
}

std::int64_t pagesOf(std::int64_t recordCount, std::int64_t perPage) {
  return (recordCount + perPage - 1) / perPage;
}

std::int64_t pageStart(std::int64_t position, std::int64_t perPage) {
  return std::max<std::int64_t>(0, pagesOf(position, perPage) - 1) * perPage;
}

} // namespace hearthbook
