#include "BareLoop.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace hearthbook::bench {

namespace {

void readColumn(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
  case SQLITE_NULL:
    return;
  case SQLITE_INTEGER:
    return benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
  default:
    benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
    benchmark::DoNotOptimize(sqlite3_column_bytes(statement, column));
  }
}

} // namespace

void readAll(const Connection& connection, const std::string& select) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(connection.handle(), select.c_str(), -1, &statement, nullptr);
  const int columns = sqlite3_column_count(statement);
  while (sqlite3_step(statement) == SQLITE_ROW)
    for (int column = 0; column < columns; ++column)
      readColumn(statement, column);
  sqlite3_finalize(statement);
}

} // namespace hearthbook::bench
