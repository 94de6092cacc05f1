#include "Answer.h"

#include "RunTimeError.h"
#include "SqlTokens.h"
#include "Statement.h"

#include <sqlite3.h>

namespace hearthbook {

namespace {

/// The columns that come from the written table, key included.
std::vector<std::size_t> storedColumns(const Answer& answer) {
  std::vector<std::size_t> columns;
  for (std::size_t i = 0; i < answer.columns.size(); ++i)
    if (answer.columns[i].table == answer.writeBack->table)
      columns.push_back(i);
  return columns;
}

std::string listed(const Answer& answer, const std::vector<std::size_t>& columns) {
  std::string list;
  for (const std::size_t column : columns)
    list += (list.empty() ? "" : ", ") + quotedName(answer.columns[column].field);
  return list;
}

std::string returning(const Answer& answer) {
  return " RETURNING " + listed(answer, storedColumns(answer));
}

std::string insertStatement(const Answer& answer, const Edits& edits) {
  std::vector<std::size_t> columns;
  std::string marks;
  for (const auto& [column, value] : edits) {
    columns.push_back(column);
    marks += marks.empty() ? "?" : ", ?";
  }
  const std::string content = edits.empty()
                                  ? " DEFAULT VALUES"
                                  : " (" + listed(answer, columns) + ") VALUES (" + marks + ")";
  return "INSERT INTO " + quotedName(answer.writeBack->table) + content + returning(answer);
}

std::string updateStatement(const Answer& answer, const Edits& edits) {
  std::string targets;
  for (const auto& [column, value] : edits)
    targets += (targets.empty() ? "" : ", ") + quotedName(answer.columns[column].field) + " = ?";
  return "UPDATE " + quotedName(answer.writeBack->table) + " SET " + targets + " WHERE " +
         quotedName(answer.writeBack->key) + " = ?" + returning(answer);
}

void bindEdits(Statement& statement, const Edits& edits) {
  int parameter = 0;
  for (const auto& [column, value] : edits)
    statement.bind(++parameter, value);
}

/// Runs the statement to its end and shows in the row what it stored. False if it met no row.
bool store(Statement& statement, Answer& answer, RowId row) {
  if (!statement.step())
    return false;
  std::vector<Value> stored;
  stored.reserve(static_cast<std::size_t>(statement.columnCount()));
  for (int i = 0; i < statement.columnCount(); ++i)
    stored.push_back(statement.column(i));
  statement.run(); // what is stored is stored when the statement has ended
  const auto columns = storedColumns(answer);
  for (std::size_t i = 0; i < columns.size(); ++i)
    answer.rows.set(row, columns[i], stored[i]);
  return true;
}

[[noreturn]] void throwGone(const Answer& answer) {
  throw RunTimeError("The row is no longer in the table " + answer.writeBack->table +
                     ": it has been deleted meanwhile.");
}

Value keyOf(const Answer& answer, RowId row) {
  return answer.rows.value(row, answer.writeBack->keyColumn);
}

std::shared_ptr<Statement> preparedUpdate(sqlite3* database, const Answer& answer,
                                          const Edits& edits) {
  const std::string text = updateStatement(answer, edits);
  if (answer.lastUpdate && answer.lastUpdate->text() == text)
    return answer.lastUpdate;
  return std::make_shared<Statement>(database, text);
}

} // namespace

void insertRow(sqlite3* database, Answer& answer, RowId row, const Edits& edits) {
  Statement statement(database, insertStatement(answer, edits));
  bindEdits(statement, edits);
  store(statement, answer, row);
}

void updateRow(sqlite3* database, Answer& answer, RowId row, const Edits& edits) {
  const auto statement = preparedUpdate(database, answer, edits);
  answer.lastUpdate = nullptr; // unless it gets through
  bindEdits(*statement, edits);
  statement->bind(static_cast<int>(edits.size()) + 1, keyOf(answer, row));
  if (!store(*statement, answer, row))
    throwGone(answer);
  statement->reset();
  answer.lastUpdate = statement;
}

void deleteRows(sqlite3* database, const Answer& answer, const std::vector<RowId>& rows) {
  Statement statement(database, "DELETE FROM " + quotedName(answer.writeBack->table) + " WHERE " +
                                    quotedName(answer.writeBack->key) + " = ?");
  for (const RowId row : rows) {
    statement.reset();
    statement.bind(1, keyOf(answer, row));
    statement.run();
    if (sqlite3_changes(database) == 0)
      throwGone(answer);
  }
}

Value updateField(sqlite3* database, const Answer& answer, const std::vector<RowId>& rows,
                  std::size_t column, const Value& value) {
  if (rows.empty())
    return value;
  const std::string table = quotedName(answer.writeBack->table);
  const std::string field = quotedName(answer.columns[column].field);
  const std::string ofRow = " WHERE " + quotedName(answer.writeBack->key) + " = ?1";
  Statement update(database, "UPDATE " + table + " SET " + field + " = ?2" + ofRow);
  update.bind(2, value);
  for (const RowId row : rows) {
    update.reset();
    update.bind(1, keyOf(answer, row));
    update.run();
    if (sqlite3_changes(database) == 0)
      throwGone(answer);
  }
  // Read back once: RETURNING would cost each row more than its update.
  Statement stored(database, "SELECT " + field + " FROM " + table + ofRow);
  stored.bind(1, keyOf(answer, rows.back()));
  stored.step();
  return stored.column(0);
}

} // namespace hearthbook
