#include "ResultPaging.h"

#include <algorithm>

namespace hearthbook {

std::optional<std::int64_t> ResultPaging::next() const {
  if (atEnd || pageThumbCount < 1)
    return std::nullopt;
  return position;
}

std::optional<std::int64_t> ResultPaging::previous() const {
  if (recordCount <= resultsPerPage || atFirstPage)
    return std::nullopt;
  std::int64_t from = position;
  std::int64_t shown = pageThumbCount;
  if (atEnd && !atBeginning) {
    // The last record is one place short of where a full page leaves the set.
    from = recordCount;
    --shown;
  }
  if (from <= resultsPerPage)
    return std::nullopt;
  return std::max<std::int64_t>(1, from - shown - resultsPerPage);
}

std::int64_t ResultPaging::last() const { return pageStart(recordCount) + 1; }

std::int64_t ResultPaging::returnRow() const {
  constexpr int pageAndNext = resultsPerPage + 1;
  const std::int64_t row = atEnd ? recordCount - (pageThumbCount < 2 ? pageAndNext : pageThumbCount)
                                 : position - pageAndNext;
  return std::max<std::int64_t>(0, row);
}

std::string ResultPaging::label() const {
  if (atEnd)
    return positionLabel(recordCount - pageThumbCount + 1, recordCount, recordCount);
  if (position <= resultsPerPage)
    return positionLabel(1, pageThumbCount, recordCount);
  return positionLabel(position - resultsPerPage, position - 1, recordCount);
}

ResultPaging resultPaging(const Recordset& rsSearch, const PublicVar& vars) {
  return {rsSearch.RecordCount(), rsSearch.AbsolutePosition(), rsSearch.atBOF(),
          rsSearch.atEOF(),       vars.PageThumbCount,         vars.AtFirstPage};
}

std::int64_t pageStart(std::int64_t position) {
  const std::int64_t pages = (position + resultsPerPage - 1) / resultsPerPage;
  return std::max<std::int64_t>(0, pages - 1) * resultsPerPage;
}

std::string positionLabel(std::int64_t first, std::int64_t last, std::int64_t recordCount) {
  return std::to_string(first) + " to " + std::to_string(last) + " of " +
         std::to_string(recordCount);
}

std::string clearCaption(int selectedCount) {
  return selectedCount < 1 ? "No Selection"
                           : "Clear Selection (" + std::to_string(selectedCount) + ")";
}

} // namespace hearthbook
