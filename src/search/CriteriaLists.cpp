#include "CriteriaLists.h"

#include "NameItems.h"

#include <string_view>

namespace hearthbook {

namespace {

std::vector<NameEntry> entriesOf(const Recordset& rows, std::string_view idField,
                                 std::string_view nameField) {
  std::vector<NameEntry> entries;
  const auto walker = rows.Clone(); // the set itself may be what another form stands on
  for (; !walker->atEOF(); walker->MoveNext())
    entries.push_back({walker->Collect(nameField).toText(), walker->Collect(idField).toInteger()});
  return entries;
}

std::vector<NameEntry> chosenOf(const ChoiceList& list) {
  std::vector<NameEntry> chosen;
  const std::vector<NameEntry> entries = entriesOf(list);
  for (int row = 0; row < list.count(); ++row)
    if (list.item(row)->isSelected())
      chosen.push_back(entries[static_cast<std::size_t>(row)]);
  return chosen;
}

} // namespace

ChoiceList::ChoiceList(QWidget* parent) : QListWidget(parent) {
  setSelectionMode(QAbstractItemView::MultiSelection);
  setUniformItemSizes(true);
}

QItemSelectionModel::SelectionFlags ChoiceList::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const {
  return event ? QListWidget::selectionCommand(index, event) : QItemSelectionModel::NoUpdate;
}

void CriteriaLists::fill(const AlbumData& data) const {
  setEntries(*places, entriesOf(data.rsPlaces, "PlaceID", "PlaceName"));
  setEntries(*events, entriesOf(data.rsEvents, "EventID", "EventName"));
  setEntries(*people, entriesOf(data.rsAppearances, "AppearancesID", "AppearancesNames"));
}

void CriteriaLists::read(SearchCriteria& criteria) const {
  criteria.places = chosenOf(*places);
  criteria.events = chosenOf(*events);
  criteria.people = chosenOf(*people);
}

void ClearListSelection(ChoiceList& list) {
  if (!list.selectedItems().isEmpty())
    list.clearSelection();
}

} // namespace hearthbook
