#pragma once

#include "NamesInPhoto.h"

#include <QComboBox>
#include <QListWidget>

#include <optional>
#include <vector>

namespace hearthbook {

// Names with the ids behind them, in the lists of a window.

void setEntries(QComboBox& combo, const std::vector<NameEntry>& entries);
void setEntries(QListWidget& list, const std::vector<NameEntry>& entries);

[[nodiscard]] std::vector<NameEntry> entriesOf(const QListWidget& list);

/// Nothing where none is chosen.
[[nodiscard]] std::optional<NameEntry> chosenEntry(const QComboBox& combo);
[[nodiscard]] std::optional<NameEntry> chosenEntry(const QListWidget& list);
[[nodiscard]] int chosenRow(const QListWidget& list); ///< -1 where none is

} // namespace hearthbook
