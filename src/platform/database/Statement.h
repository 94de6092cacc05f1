#pragma once

#include "Value.h"

#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace hearthbook {

/// What the database says of its last failure, with the statement, as a RunTimeError.
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
  [[nodiscard]] sqlite3_stmt* handle() const { return handle_; }

private:
  sqlite3* database_;
  std::string text_;
  sqlite3_stmt* handle_ = nullptr;
};

} // namespace hearthbook
