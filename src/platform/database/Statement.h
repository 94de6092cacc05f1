#pragma once

#include "Value.h"

#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace hearthbook {

/// In plain words what kept the database from its file at its last failure, such as "the disk is
/// full"; nothing where it was the statement.
std::optional<std::string> causeOutside(sqlite3* database);

/// The last failure as a RunTimeError: the file and what it suffers from, or the statement.
[[noreturn]] void throwDatabaseError(sqlite3* database, std::string_view statement);

/// One prepared statement, in SQLite's own words. Text behind its end is refused.
class Statement {
public:
  Statement(sqlite3* database, std::string_view statement);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void bind(int parameter, const Value& value); ///< parameters count from 1
  /// Throws for a statement with parameters, such as "$1990": they would pass as Null.
  void refuseParameters() const;
  bool step();  ///< false behind the last row
  void run();   ///< to its end
  void reset(); ///< to run it once more, with other values

  [[nodiscard]] Value column(int index) const;
  [[nodiscard]] int columnCount() const;
  [[nodiscard]] const std::string& text() const { return text_; }
  [[nodiscard]] sqlite3_stmt* handle() const { return handle_; }

private:
  sqlite3* database_;
  std::string text_;
  sqlite3_stmt* handle_ = nullptr;
};

} // namespace hearthbook
