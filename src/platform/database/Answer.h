#pragma once

#include "RowSet.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct sqlite3;

namespace hearthbook {

/// One column of an answer and the table's field that it comes from, if any.
struct Column {
  std::string name;
  std::string table;
  std::string field;
  bool hidden = false; ///< a key that the program gave no name of its own
};

/// How a row of an answer is found again in the table that it is written to.
struct WriteBack {
  std::string table;
  std::string key;
  std::size_t keyColumn = 0;
};

using Edits = std::vector<std::pair<std::size_t, Value>>; ///< column and new content

class Statement;

/// All rows of a select, read once, and the way back into the database.
struct Answer {
  std::vector<Column> columns;
  std::optional<WriteBack> writeBack; ///< nothing where the rows can only be read
  RowSet rows;
  /// Still prepared: the next row often has the same fields changed.
  std::shared_ptr<Statement> lastUpdate{};

  /// The first column of the name that is not hidden, in any case.
  [[nodiscard]] std::optional<std::size_t> column(std::string_view name) const;
  [[nodiscard]] bool isWritable(std::size_t column) const;
};

/// Runs a source: a table's name, a select, or a statement that changes rows, which gives no
/// answer.
std::unique_ptr<Answer> runSource(sqlite3* database, std::string_view source);

/// Stores edits in the table; the row then holds what the database stored, converted to the
/// fields' types. A row that is no longer there throws.
void insertRow(sqlite3* database, Answer& answer, RowId row, const Edits& edits);
void updateRow(sqlite3* database, Answer& answer, RowId row, const Edits& edits);
void deleteRows(sqlite3* database, const Answer& answer, const std::vector<RowId>& rows);

/// Stores one value in a field of many rows and returns what the database made of it. The rows
/// of the answer do not hold it yet: the caller may still have to take it back.
Value updateField(sqlite3* database, const Answer& answer, const std::vector<RowId>& rows,
                  std::size_t column, const Value& value);

} // namespace hearthbook
