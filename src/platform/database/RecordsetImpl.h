#pragma once

#include "Answer.h"
#include "Recordset.h"
#include "RowMatcher.h"
#include "RowView.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

class Connection;

struct Recordset::Subscription::State {
  Observer observer;
  bool alive = true;
};

/// What a set and its clones share.
struct SharedRows {
  std::unique_ptr<Answer> answer;
  std::uint32_t serial = 0; ///< tells bookmarks of one answer from those of another
  std::vector<Recordset::Impl*> sharers;

  /// From all sharers; tells those that stood on one of them. `rows` in rising order.
  void remove(const std::vector<RowId>& rows);
};

/// The parts of a record set: the rows shared with its clones, the view of them with the place
/// where it stands, and the edits of the current row that are not yet stored.
struct Recordset::Impl {
  Connection* connection = nullptr; // nullptr once it has gone
  std::string source;
  std::shared_ptr<SharedRows> shared; // nullptr while closed
  RowView view;

  std::string filter;
  std::optional<RowMatcher> matcher; // of the filter
  std::string sort;

  Edits edits;
  bool newRow = false;        // the current row is not in the database yet
  std::int64_t beforeNew = 0; // the place that CancelUpdate returns to
  bool behindDeleted = false; // stands here because the row before was deleted

  std::vector<std::shared_ptr<Subscription::State>> observers;
  bool tellsLeaving = false;

  // Rows
  void requireOpen() const;
  [[nodiscard]] Answer& answer() const;
  [[nodiscard]] RowSet& rows() const { return answer().rows; }
  RowId requireRow() const;
  [[nodiscard]] std::size_t requireField(std::string_view field) const;
  [[nodiscard]] std::size_t requireWritableField(std::string_view field) const;
  void share(std::shared_ptr<SharedRows> rows);
  void show(std::unique_ptr<Answer> answer);           ///< instead of what was shown; tells it
  void abandon();                                      ///< closes without storing
  [[nodiscard]] std::vector<RowId> wantedRows() const; ///< that pass the filter
  void arrange(); ///< shows what filter and sort say, on the first row

  // Edits
  void leave(); ///< tells it, and stores
  void store();
  void storeNewRow(RowId row);
  void beginNewRow();
  void dropEdits();
  void edit(std::size_t column, Value value);
  void rowAdded(RowId row); ///< by a clone
  /// By this set or a clone; true if the current one was among them.
  bool rowsRemoved(const std::vector<RowId>& rows);
  void goToPlace(std::int64_t place);

  // Observers
  void tell(std::function<void()> Observer::*callback);
  void tellLeaving();
  void tellArrived();
};

} // namespace hearthbook
