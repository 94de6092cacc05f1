#include "RowView.h"

#include <algorithm>

namespace hearthbook {

void RowView::show(std::vector<RowId> rows, bool ascending) {
  rows_ = std::move(rows);
  ascending_ = ascending;
  place_ = 0;
}

std::optional<std::int64_t> RowView::placeOf(RowId row) const {
  const auto found = ascending_ ? std::lower_bound(rows_.begin(), rows_.end(), row)
                                : std::find(rows_.begin(), rows_.end(), row);
  if (found == rows_.end() || *found != row)
    return std::nullopt;
  return found - rows_.begin();
}

void RowView::goTo(std::int64_t place) { place_ = std::clamp(place, std::int64_t{-1}, size()); }

void RowView::add(RowId row) {
  const bool wasBehind = isBehind();
  ascending_ = ascending_ && (rows_.empty() || rows_.back() < row);
  rows_.push_back(row);
  if (wasBehind)
    place_ = size();
}

void RowView::remove(RowId row) {
  const auto place = placeOf(row);
  if (!place)
    return;
  rows_.erase(rows_.begin() + *place);
  if (*place < place_)
    --place_;
}

void RowView::remove(const std::vector<RowId>& rows) {
  const auto isGone = [&](RowId row) { return std::binary_search(rows.begin(), rows.end(), row); };
  if (place_ > 0)
    place_ -= std::count_if(rows_.begin(), rows_.begin() + place_, isGone);
  std::erase_if(rows_, isGone);
}

} // namespace hearthbook
