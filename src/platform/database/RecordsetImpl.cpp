#include "RecordsetImpl.h"

#include "Connection.h"
#include "RowSort.h"
#include "RunTimeError.h"

#include <algorithm>
#include <atomic>

namespace hearthbook {

void SharedRows::remove(const std::vector<RowId>& rows) {
  for (const RowId row : rows)
    answer->rows.setAlive(row, false);
  std::vector<Recordset::Impl*> moved;
  for (Recordset::Impl* sharer : sharers)
    if (sharer->rowsRemoved(rows))
      moved.push_back(sharer);
  const auto isThere = [&](const Recordset::Impl* one) {
    return std::find(sharers.begin(), sharers.end(), one) != sharers.end();
  };
  for (Recordset::Impl* sharer : moved)
    if (isThere(sharer)) // one that is told may close another
      sharer->tellArrived();
}

void Recordset::Impl::requireOpen() const {
  if (!shared)
    throw RunTimeError("The record set is closed: " + source);
}

Answer& Recordset::Impl::answer() const {
  requireOpen();
  return *shared->answer;
}

RowId Recordset::Impl::requireRow() const {
  requireOpen();
  if (!view.isOnRow())
    throw RunTimeError("The record set stands on no row: " + source);
  return view.current();
}

std::size_t Recordset::Impl::requireField(std::string_view field) const {
  const auto column = answer().column(field);
  if (!column)
    throw RunTimeError("There is no field " + std::string(field) + " in the record set: " + source);
  return *column;
}

std::size_t Recordset::Impl::requireWritableField(std::string_view field) const {
  const std::size_t column = requireField(field);
  if (!answer().isWritable(column))
    throw RunTimeError("The field " + std::string(field) +
                       " cannot be changed in the record set: " + source);
  return column;
}

void Recordset::Impl::share(std::shared_ptr<SharedRows> rows) {
  if (shared)
    std::erase(shared->sharers, this);
  shared = std::move(rows);
  if (shared)
    shared->sharers.push_back(this);
}

void Recordset::Impl::show(std::unique_ptr<Answer> answer) {
  static std::atomic<std::uint32_t> serials = 0;
  std::optional<RowMatcher> wanted;
  if (!filter.empty())
    wanted.emplace(parseCriterion(filter), *answer);
  parseSort(sort, *answer); // refused before anything is lost
  auto fresh = std::make_shared<SharedRows>();
  fresh->answer = std::move(answer);
  fresh->serial = ++serials;
  share(std::move(fresh));
  matcher = std::move(wanted);
  arrange();
  tellArrived();
}

void Recordset::Impl::abandon() {
  edits.clear();
  newRow = false;
  behindDeleted = false;
  filter.clear();
  matcher.reset();
  sort.clear();
  view.show({}, true);
  share(nullptr);
}

std::vector<RowId> Recordset::Impl::wantedRows() const {
  const RowSet& all = rows();
  std::vector<RowId> wanted;
  for (RowId row = 0; row < all.rowCount(); ++row)
    if (all.isAlive(row) && (!matcher || matcher->matches(all, row)))
      wanted.push_back(row);
  return wanted;
}

void Recordset::Impl::arrange() {
  std::vector<RowId> wanted = wantedRows();
  sortRows(wanted, rows(), parseSort(sort, answer()));
  view.show(std::move(wanted), sort.empty());
  behindDeleted = false;
}

void Recordset::Impl::leave() {
  requireOpen();
  tellLeaving();
  store();
}

void Recordset::Impl::store() {
  if (!newRow && edits.empty())
    return;
  const RowId row = requireRow();
  if (newRow)
    storeNewRow(row);
  else
    updateRow(connection->handle(), answer(), row, edits);
  edits.clear();
}

void Recordset::Impl::storeNewRow(RowId row) {
  insertRow(connection->handle(), answer(), row, edits);
  newRow = false;
  rows().setAlive(row, true);
  for (Impl* sharer : shared->sharers)
    if (sharer != this)
      sharer->rowAdded(row);
}

void Recordset::Impl::beginNewRow() {
  if (!answer().writeBack)
    throw RunTimeError("No row can be added to the record set: " + source);
  beforeNew = view.place();
  const RowId row = rows().append();
  rows().setAlive(row, false); // for the others it is there when it is stored
  view.add(row);
  view.goTo(view.size() - 1);
  newRow = true;
  behindDeleted = false;
}

void Recordset::Impl::dropEdits() {
  edits.clear();
  if (!newRow)
    return;
  newRow = false;
  view.remove(view.current());
  view.goTo(beforeNew);
}

void Recordset::Impl::edit(std::size_t column, Value value) {
  behindDeleted = false;
  for (auto& [edited, content] : edits) {
    if (edited == column) {
      content = std::move(value);
      return;
    }
  }
  edits.emplace_back(column, std::move(value));
}

void Recordset::Impl::rowAdded(RowId row) {
  if (!matcher || matcher->matches(rows(), row))
    view.add(row);
}

bool Recordset::Impl::rowsRemoved(const std::vector<RowId>& rows) {
  const bool wasCurrent =
      view.isOnRow() && std::binary_search(rows.begin(), rows.end(), view.current());
  if (wasCurrent) {
    edits.clear();
    behindDeleted = true;
  }
  if (rows.size() == 1)
    view.remove(rows.front());
  else
    view.remove(rows);
  return wasCurrent;
}

void Recordset::Impl::goToPlace(std::int64_t place) {
  view.goTo(place);
  behindDeleted = false;
  tellArrived();
}

void Recordset::Impl::tell(std::function<void()> Observer::*callback) {
  std::erase_if(observers, [](const auto& state) { return !state->alive; });
  if (observers.empty())
    return;
  const auto told = observers; // one that is told may end or begin an observation
  for (const auto& state : told)
    if (state->alive && state->observer.*callback)
      (state->observer.*callback)();
}

void Recordset::Impl::tellLeaving() {
  if (tellsLeaving || !view.isOnRow())
    return;
  tellsLeaving = true;
  try {
    tell(&Observer::leaving);
  } catch (...) {
    tellsLeaving = false;
    throw;
  }
  tellsLeaving = false;
}

void Recordset::Impl::tellArrived() { tell(&Observer::arrived); }

} // namespace hearthbook
