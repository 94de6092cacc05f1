#include "SelectionSet.h"

#include "Numbers.h"

#include <algorithm>
#include <set>

namespace hearthbook {

namespace {

bool isHole(const Value& element) { return element.toText().empty(); }

} // namespace

void SelectionSet::clear() { *this = {}; }

bool SelectionSet::contains(std::int64_t position) const {
  return std::ranges::find(SelectedPositions, Value(position)) != SelectedPositions.end();
}

void SelectionSet::select(std::int64_t position) {
  const std::int16_t count = shortNumber(SelectedCount + 1);
  const auto hole = std::ranges::find_if(SelectedPositions, isHole);
  if (hole != SelectedPositions.end())
    *hole = position;
  else
    SelectedPositions.emplace_back(position);
  SelectedCount = count;
}

void SelectionSet::deselect(std::int64_t position) {
  const auto found = std::ranges::find(SelectedPositions, Value(position));
  if (found == SelectedPositions.end())
    return;
  *found = "";
  --SelectedCount;
}

void SelectionSet::selectAll(std::int64_t from, std::int64_t to) {
  std::set<std::int64_t> wanted;
  for (std::int64_t position = from; position <= to; ++position)
    wanted.insert(wanted.end(), position);
  for (const Value& element : SelectedPositions)
    if (!isHole(element))
      wanted.erase(element.toInteger());
  const std::int16_t count = shortNumber(SelectedCount + static_cast<std::int64_t>(wanted.size()));
  auto next = wanted.begin();
  for (Value& element : SelectedPositions)
    if (next != wanted.end() && isHole(element))
      element = *next++;
  SelectedPositions.insert(SelectedPositions.end(), next, wanted.end());
  SelectedCount = count;
}

std::optional<std::int64_t> SelectionSet::first() const {
  const auto found = std::ranges::find_if_not(SelectedPositions, isHole);
  if (found == SelectedPositions.end())
    return std::nullopt;
  return found->toInteger();
}

std::vector<std::int64_t> SelectionSet::rising() const {
  std::vector<std::int64_t> positions;
  for (const Value& element : SelectedPositions)
    if (!isHole(element) && element.toInteger() < positionLimit)
      positions.push_back(element.toInteger());
  std::ranges::sort(positions);
  return positions;
}

void SelectionSet::sort() {
  const auto positions = rising();
  std::ranges::fill(SelectedPositions, Value(""));
  std::ranges::copy(positions, SelectedPositions.begin());
}

void SelectionSet::sortAndGrow() {
  sort();
  SelectedPositions.emplace_back("");
}

std::string selectedPhotosStatement(const SelectionSet& selection, Recordset& rows) {
  std::string statement = "SELECT * From PhotoAlbum Where PictureID = Null";
  const auto& positions = selection.SelectedPositions;
  const auto count = std::min<std::size_t>(selection.SelectedCount, positions.size());
  for (std::size_t index = 0; index < count; ++index) {
    if (isHole(positions[index]))
      continue;
    rows.Move(positions[index].toInteger() - 1, Recordset::Start::First);
    statement += " OR PictureID = '" + rows.Collect("PictureID").toText() + "'";
  }
  return statement;
}

} // namespace hearthbook
