#include "RecordsetImpl.h"

#include "RunTimeError.h"

#include <algorithm>
#include <limits>

namespace hearthbook {

namespace {

// What AbsolutePosition says where there is no row.
constexpr std::int64_t positionUnknown = -1;
constexpr std::int64_t positionBOF = -2;
constexpr std::int64_t positionEOF = -3;

constexpr unsigned serialBits = 32; // above the row's own number

/// Far enough to pass any end, and near enough not to overflow.
std::int64_t bounded(std::int64_t rows) {
  constexpr std::int64_t farthest = std::numeric_limits<std::int64_t>::max() / 4;
  return std::clamp(rows, -farthest, farthest);
}

} // namespace

void Recordset::MoveFirst() {
  impl_->leave();
  impl_->goToPlace(0);
}

void Recordset::MoveLast() {
  impl_->leave();
  impl_->goToPlace(impl_->view.size() - 1);
}

void Recordset::MoveNext() {
  impl_->requireOpen();
  if (impl_->view.isBehind() && !impl_->behindDeleted)
    throw RunTimeError("The record set is already behind its last row.");
  Move(1);
}

void Recordset::MovePrevious() {
  impl_->requireOpen();
  if (impl_->view.isBefore())
    throw RunTimeError("The record set is already before its first row.");
  Move(-1);
}

void Recordset::Move(std::int64_t rows, Start start) {
  impl_->leave();
  rows = bounded(rows);
  // The row that followed a deleted one is still the next.
  const std::int64_t next = impl_->behindDeleted && rows > 0 ? 1 : 0;
  impl_->goToPlace(start == Start::First ? rows : impl_->view.place() + rows - next);
}

bool Recordset::atEOF() const {
  impl_->requireOpen();
  return impl_->view.isBehind();
}

bool Recordset::atBOF() const {
  impl_->requireOpen();
  return impl_->view.isBefore();
}

std::int64_t Recordset::RecordCount() const {
  impl_->requireOpen();
  return impl_->view.size();
}

std::int64_t Recordset::AbsolutePosition() const {
  impl_->requireOpen();
  if (impl_->view.size() == 0)
    return positionUnknown;
  if (impl_->view.isBefore())
    return positionBOF;
  return impl_->view.isBehind() ? positionEOF : impl_->view.place() + 1;
}

Recordset::Bookmark Recordset::bookmark() const {
  const RowId row = impl_->requireRow();
  return {(std::uint64_t{impl_->shared->serial} << serialBits) | row};
}

void Recordset::goTo(Bookmark bookmark) {
  impl_->leave();
  const auto row = static_cast<RowId>(bookmark.row);
  const bool ours = (bookmark.row >> serialBits) == impl_->shared->serial;
  const auto place = ours ? impl_->view.placeOf(row) : std::nullopt;
  if (!place)
    throw RunTimeError("The row of the bookmark is no longer in the record set.");
  impl_->goToPlace(*place);
}

void Recordset::Find(std::string_view text, Start start) {
  const Criterion criterion = parseCriterion(text);
  if (criterion.kind != Criterion::Kind::One)
    throw RunTimeError("Only one field can be searched at a time: " + std::string(text));
  const RowMatcher matcher(criterion, impl_->answer());
  impl_->leave();
  const RowView& view = impl_->view;
  const RowSet& rows = impl_->rows();
  std::int64_t place = start == Start::First ? 0 : std::max<std::int64_t>(view.place(), 0);
  while (place < view.size() && !matcher.matches(rows, view.at(place)))
    ++place;
  impl_->goToPlace(place);
}

void Recordset::Filter(std::string_view text) {
  const bool blank = text.find_first_not_of(' ') == std::string_view::npos;
  auto matcher =
      blank ? std::optional<RowMatcher>() : RowMatcher(parseCriterion(text), impl_->answer());
  impl_->leave();
  impl_->filter = blank ? std::string_view() : text;
  impl_->matcher = std::move(matcher);
  impl_->arrange();
  impl_->tellArrived();
}

void Recordset::Filter(const std::vector<Bookmark>& bookmarks) {
  impl_->leave();
  std::vector<RowId> wanted;
  for (const Bookmark& bookmark : bookmarks)
    if ((bookmark.row >> serialBits) == impl_->shared->serial)
      wanted.push_back(static_cast<RowId>(bookmark.row));
  std::sort(wanted.begin(), wanted.end());
  impl_->filter.clear();
  impl_->matcher = RowMatcher(std::move(wanted));
  impl_->arrange();
  impl_->tellArrived();
}

const std::string& Recordset::Filter() const { return impl_->filter; }

void Recordset::Sort(std::string_view fields) {
  impl_->leave();
  const std::string former = std::move(impl_->sort);
  impl_->sort = fields;
  try {
    impl_->arrange();
  } catch (...) {
    impl_->sort = former;
    throw;
  }
  impl_->tellArrived();
}

} // namespace hearthbook
