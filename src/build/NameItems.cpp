#include "NameItems.h"

#include "Text.h"

namespace hearthbook {

namespace {

NameEntry entryOf(const QListWidgetItem& item) {
  return {toUtf8(item.text()), item.data(Qt::UserRole).toLongLong()};
}

} // namespace

void setEntries(QComboBox& combo, const std::vector<NameEntry>& entries) {
  combo.clear();
  for (const NameEntry& entry : entries)
    combo.addItem(toQString(entry.text), QVariant::fromValue<qlonglong>(entry.id));
}

void setEntries(QListWidget& list, const std::vector<NameEntry>& entries) {
  list.clear();
  for (const NameEntry& entry : entries) {
    auto* item = new QListWidgetItem(toQString(entry.text), &list);
    item->setData(Qt::UserRole, QVariant::fromValue<qlonglong>(entry.id));
  }
}

std::vector<NameEntry> entriesOf(const QListWidget& list) {
  std::vector<NameEntry> entries;
  entries.reserve(static_cast<std::size_t>(list.count()));
  for (int row = 0; row < list.count(); ++row)
    entries.push_back(entryOf(*list.item(row)));
  return entries;
}

std::optional<NameEntry> chosenEntry(const QComboBox& combo) {
  if (combo.currentIndex() < 0)
    return std::nullopt;
  return NameEntry{toUtf8(combo.currentText()), combo.currentData().toLongLong()};
}

std::optional<NameEntry> chosenEntry(const QListWidget& list) {
  const auto chosen = list.selectedItems();
  return chosen.isEmpty() ? std::nullopt : std::optional(entryOf(*chosen.first()));
}

int chosenRow(const QListWidget& list) {
  const auto chosen = list.selectedItems();
  return chosen.isEmpty() ? -1 : list.row(chosen.first());
}

} // namespace hearthbook
