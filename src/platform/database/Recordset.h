#pragma once

#include "Value.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

class Connection;

/// A static, client-side cursor: Open reads the whole answer once.
///
/// RecordCount, AbsolutePosition and Bookmark are exact and respect the filter. What others
/// change in the database is seen at Requery. Clones share the rows (edits, additions and
/// deletions through one are seen by all) but have a position, a filter and a sort of their
/// own; Requery or Close/Open gives a set rows of its own and leaves the others theirs.
///
/// Writes to fields are pending until Update, a move, UpdateBatch, Close or the closing of the
/// connection. A joined set writes to the table whose `.*` comes first. Field names are found
/// without regard to case; with duplicate names the first wins.
///
/// A statement that changes rows (DELETE, UPDATE, INSERT) runs through Open too; the set is
/// closed afterwards and is opened again on its former source by the caller.
///
/// Everything that fails throws RunTimeError; the set stays usable.
class Recordset {
public:
  /// Where a move or a search counts from.
  enum class Start { Current, First };

  /// Which rows a deletion takes.
  enum class Affect { Current, Group };

  /// Identifies a row for as long as the rows are shared; survives Filter and Sort.
  struct Bookmark {
    std::uint64_t row = 0;
    bool operator==(const Bookmark&) const = default;
  };

  /// Told before a set stores or leaves its row (or is closed, refiltered, requeried) and
  /// after it stands on another or an edit was cancelled. A walk over many rows inside one
  /// operation tells only its end. What an observer does while it is told that the set is
  /// leaving is not told again.
  struct Observer {
    std::function<void()> leaving;
    std::function<void()> arrived;
  };

  /// Ends the observation when destroyed. May outlive the record set.
  class Subscription {
  public:
    Subscription() = default;
    Subscription(Subscription&&) noexcept;
    Subscription& operator=(Subscription&&) noexcept;
    ~Subscription();

  private:
    friend class Recordset;
    struct State;
    std::shared_ptr<State> state_;
  };

  explicit Recordset(Connection& connection);
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  void Open(std::string_view source); ///< what stands open is closed first
  void Open();                        ///< on the present Source
  void Close();
  void Requery(); ///< reads the source again, first row; filter and sort stay
  [[nodiscard]] bool isOpen() const;

  [[nodiscard]] const std::string& Source() const;
  void Source(std::string source); ///< takes effect at the next Open or Requery

  void MoveFirst();
  void MoveLast();
  void MoveNext();     ///< throws when already at EOF
  void MovePrevious(); ///< throws when already at BOF
  /// Past an end the set stands at BOF or EOF; from EOF it counts from behind the last row.
  void Move(std::int64_t rows, Start start = Start::Current);

  [[nodiscard]] bool atEOF() const;
  [[nodiscard]] bool atBOF() const; ///< both are true on an empty set
  [[nodiscard]] std::int64_t RecordCount() const;
  /// 1-based; negative at BOF (-2), EOF (-3) and on an empty set (-1).
  [[nodiscard]] std::int64_t AbsolutePosition() const;
  [[nodiscard]] Bookmark bookmark() const;
  void goTo(Bookmark row); ///< sets the Bookmark; throws if the row is gone or filtered out

  /// Forward search for `Field = value`, from the current row (it included) or the first.
  /// The value is a number, a quoted text ('' inside stands for one apostrophe; quoted numbers
  /// match numbers) or Null. Leaves EOF true if nothing is found. A stray apostrophe throws.
  void Find(std::string_view criterion, Start start = Start::Current);

  /// Only the rows for which the criterion holds (terms as in Find, also <, <=, >, >=, <>,
  /// LIKE, joined by AND and OR); the first of them is current. Empty: all rows.
  void Filter(std::string_view criterion);
  void Filter(const std::vector<Bookmark>& rows);
  [[nodiscard]] const std::string& Filter() const;
  void Sort(std::string_view fields); ///< "Name", "Name DESC, Other"; empty: source order

  /// A set over the same rows, standing on the first.
  [[nodiscard]] std::unique_ptr<Recordset> Clone() const;
  /// Becomes a clone of another set: same rows, own position, on the first row.
  void becomeCloneOf(const Recordset& other);

  void AddNew(); ///< a pending row, current
  void AddNew(const std::vector<std::string>& fields,
              const std::vector<Value>& values); ///< stored at once
  void Update();
  void UpdateBatch();
  void CancelUpdate();
  void CancelUpdate(std::string_view field); ///< of this field alone; observers are not told
  [[nodiscard]] bool isPending() const;
  /// The current row; the set then stands on the row that followed. A MoveNext right behind
  /// it stays there, so that a walk may delete and move on without leaving a row out. Or the
  /// group of all rows that the set shows, as one transaction.
  void Delete(Affect affect = Affect::Current);

  /// Stores the value in the field of every row that the set shows, as one transaction, and
  /// stands where it stood. Much faster than a walk with Update.
  void setAll(std::string_view field, const Value& value);

  [[nodiscard]] Value Collect(std::string_view field) const;
  /// Of the row at that position (1-based), as it is stored, without going there; throws where
  /// there is none.
  [[nodiscard]] Value CollectAt(std::int64_t position, std::string_view field) const;
  void Collect(std::string_view field, Value value); ///< pending until Update or a move
  [[nodiscard]] bool hasField(std::string_view field) const;
  [[nodiscard]] std::vector<std::string> fieldNames() const;

  [[nodiscard]] Subscription observe(Observer observer);
  [[nodiscard]] Connection& connection() const;

private:
  friend class Connection;
  friend struct SharedRows;
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

/// True if the set is open and stands on a row, a pending one too.
bool standsOnRow(const Recordset& rows);

} // namespace hearthbook
