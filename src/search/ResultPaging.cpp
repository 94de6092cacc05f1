#include "ResultPaging.h"

namespace hearthbook {

std::optional<std::int64_t> ResultPaging::next() const {
  if (atEnd || pageThumbCount < 1)
    return std::nullopt;
  return position;
}

std::optional<std::int64_t> ResultPaging::previous() const {
  return atFirstPage ? std::nullopt : pages().previous();
}

std::int64_t ResultPaging::last() const { return pages().last(); }

std::int64_t ResultPaging::returnRow() const {
  constexpr int fewest = 2;
  return pages().returnRow(fewest);
}

PagePaging ResultPaging::pages() const {
  return {resultsPerPage, recordCount, position, atBeginning, atEnd, pageThumbCount};
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

std::int64_t pageStart(std::int64_t position) { return pageStart(position, resultsPerPage); }

std::string positionLabel(std::int64_t first, std::int64_t last, std::int64_t recordCount) {
  return std::to_string(first) + " to " + std::to_string(last) + " of " +
         std::to_string(recordCount);
}

std::string clearCaption(int selectedCount) {
  return selectedCount < 1 ? "No Selection"
                           : "Clear Selection (" + std::to_string(selectedCount) + ")";
}

} // namespace hearthbook
