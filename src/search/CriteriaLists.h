#pragma once

#include "AlbumData.h"
#include "SearchQuery.h"

#include <QListWidget>

namespace hearthbook {

/// A list of which a click or Space chooses any number of entries. Typing a name walks to it
/// without choosing it.
class ChoiceList : public QListWidget {
  Q_OBJECT
public:
  explicit ChoiceList(QWidget* parent = nullptr);

protected:
  QItemSelectionModel::SelectionFlags
  selectionCommand(const QModelIndex& index, const QEvent* event = nullptr) const override;
};

/// The three lists by which a search is narrowed.
struct CriteriaLists {
  ChoiceList* places = nullptr;
  ChoiceList* events = nullptr;
  ChoiceList* people = nullptr;

  /// From the first record to the last of each set; nothing is chosen then.
  void fill(const AlbumData& data) const;
  /// What is chosen, in the order of the lists.
  void read(SearchCriteria& criteria) const;
};

/// Chooses nothing any more, if anything was chosen.
void ClearListSelection(ChoiceList& list);

} // namespace hearthbook
