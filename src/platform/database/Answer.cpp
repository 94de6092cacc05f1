#include "Answer.h"

#include "JetSql.h"
#include "SelectShape.h"
#include "SqlTokens.h"
#include "Statement.h"
#include "Words.h"

#include <sqlite3.h>

#include <algorithm>

namespace hearthbook {

namespace {

/// The key of tables that have no number of their own; the program never sees it.
constexpr const char* rowKey = "RowKey";

/// From so many rows on, memory is worth more than having the pages at hand for the next select.
constexpr RowId largeAnswer = 20'000;

std::string orEmpty(const char* text) { return text ? text : ""; }

std::string keyOf(sqlite3* database, const std::string& table) {
  Statement fields(database, "SELECT name FROM pragma_table_info(?1) WHERE pk > 0");
  fields.bind(1, table);
  if (!fields.step())
    return "rowid";
  std::string key = fields.column(0).toText();
  return fields.step() ? "rowid" : key;
}

/// A table is read in the order of its key. Where that is not the number by which the database
/// keeps the rows, it is the first unique index.
std::vector<std::string> keyOrder(sqlite3* database, const std::string& table) {
  if (!sameIgnoringCase(keyOf(database, table), rowKey))
    return {};
  Statement index(database, "SELECT info.name FROM pragma_index_list(?1) AS list, "
                            "pragma_index_info(list.name) AS info "
                            "WHERE list.origin = 'u' AND list.seq = (SELECT max(seq) FROM "
                            "pragma_index_list(?1) WHERE origin = 'u') ORDER BY info.seqno");
  index.bind(1, table);
  std::vector<std::string> fields;
  while (index.step())
    fields.push_back(index.column(0).toText());
  return fields;
}

std::string inKeyOrder(sqlite3* database, const std::string& select, const SelectShape& shape) {
  if (shape.ordered || shape.soleTable.empty())
    return select;
  const auto fields = keyOrder(database, shape.soleTable);
  return fields.empty() ? select : withOrder(select, fields);
}

std::vector<Column> columnsOf(sqlite3_stmt* select) {
  std::vector<Column> columns;
  for (int i = 0; i < sqlite3_column_count(select); ++i) {
    Column column{orEmpty(sqlite3_column_name(select, i)),
                  orEmpty(sqlite3_column_table_name(select, i)),
                  orEmpty(sqlite3_column_origin_name(select, i))};
    column.hidden = sameIgnoringCase(column.field, rowKey);
    columns.push_back(std::move(column));
  }
  return columns;
}

/// The table that comes first is the one that is written to.
std::string tableWrittenTo(const std::vector<Column>& columns) {
  for (const Column& column : columns)
    if (!column.table.empty())
      return column.table;
  return {};
}

std::optional<std::size_t> keyAmong(const std::vector<Column>& columns, const WriteBack& target) {
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (columns[i].table == target.table && sameIgnoringCase(columns[i].field, target.key))
      return i;
  return std::nullopt;
}

bool isAccepted(sqlite3* database, const std::string& select) {
  sqlite3_stmt* statement = nullptr;
  const int result = sqlite3_prepare_v2(database, select.c_str(), -1, &statement, nullptr);
  sqlite3_finalize(statement);
  return result == SQLITE_OK;
}

struct Prepared {
  std::unique_ptr<Statement> select;
  std::vector<Column> columns;
  std::optional<WriteBack> writeBack;
};

/// Finds the key of the written table among the columns, or reads it as one more.
void findWayBack(sqlite3* database, const std::string& select, Prepared& prepared) {
  WriteBack target;
  target.table = tableWrittenTo(prepared.columns);
  if (target.table.empty())
    return;
  target.key = keyOf(database, target.table);
  auto key = keyAmong(prepared.columns, target);
  if (!key) {
    const std::string withKey = withColumn(select, target.table, target.key);
    if (!isAccepted(database, withKey))
      return;
    prepared.select = std::make_unique<Statement>(database, withKey);
    prepared.columns = columnsOf(prepared.select->handle());
    prepared.columns[0].hidden = true;
    key = 0;
  }
  target.keyColumn = *key;
  prepared.writeBack = std::move(target);
}

Prepared prepare(sqlite3* database, std::string_view source) {
  const std::string statement = toSqlite(asSelect(source));
  const SelectShape shape = selectShape(statement);
  const std::string select = inKeyOrder(database, statement, shape);
  Prepared prepared;
  prepared.select = std::make_unique<Statement>(database, select);
  prepared.select->refuseParameters();
  prepared.columns = columnsOf(prepared.select->handle());
  if (shape.plain)
    findWayBack(database, select, prepared);
  return prepared;
}

void readCell(sqlite3_stmt* select, int column, RowSet& rows, RowId row) {
  const auto at = static_cast<std::size_t>(column);
  switch (sqlite3_column_type(select, column)) {
  case SQLITE_NULL:
    return;
  case SQLITE_INTEGER:
    return rows.setInteger(row, at, sqlite3_column_int64(select, column));
  case SQLITE_FLOAT:
    return rows.setReal(row, at, sqlite3_column_double(select, column));
  default:
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(select, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(select, column));
    rows.setText(row, at, {text ? text : "", text ? size : 0});
  }
}

void readAll(Statement& select, RowSet& rows) {
  const int columns = select.columnCount();
  while (select.step()) {
    const RowId row = rows.append();
    for (int column = 0; column < columns; ++column)
      readCell(select.handle(), column, rows, row);
  }
}

} // namespace

std::optional<std::size_t> Answer::column(std::string_view name) const {
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (!columns[i].hidden && sameIgnoringCase(columns[i].name, name))
      return i;
  return std::nullopt;
}

bool Answer::isWritable(std::size_t column) const {
  return writeBack && columns[column].table == writeBack->table && !columns[column].hidden;
}

std::unique_ptr<Answer> runSource(sqlite3* database, std::string_view source) {
  Prepared prepared = prepare(database, source);
  if (prepared.columns.empty()) {
    prepared.select->run();
    return nullptr;
  }
  const std::size_t width = prepared.columns.size();
  auto answer = std::make_unique<Answer>(
      Answer{std::move(prepared.columns), std::move(prepared.writeBack), RowSet(width)});
  readAll(*prepared.select, answer->rows);
  prepared.select.reset();
  if (answer->rows.rowCount() >= largeAnswer)
    sqlite3_db_release_memory(database); // the pages hold what the row set holds now
  return answer;
}

} // namespace hearthbook
