#include "Statement.h"

#include "FileError.h"
#include "RunTimeError.h"
#include "SqlTokens.h"
#include "Words.h"

#include <sqlite3.h>

#include <algorithm>
#include <optional>
#include <string>

namespace hearthbook {

namespace {

/// A statement may name thousands of photos; a message has room for its beginning.
std::string forMessage(std::string_view statement) {
  constexpr std::size_t room = 500;
  if (statement.size() <= room)
    return std::string(statement);
  return std::string(beginningOf(statement, room)) + " ...";
}

std::string refusal(std::string_view reason, std::string_view statement) {
  return "The database refused a statement: " + std::string(reason) + ".\n" + forMessage(statement);
}

std::string fileOf(sqlite3* database) {
  const char* file = sqlite3_db_filename(database, "main");
  return file ? file : "";
}

/// SQLite would pass over what stands behind the first statement, and over all behind a zero.
bool isMoreThanOneStatement(std::string_view rest) {
  const auto tokens = sqlTokens(rest);
  return std::any_of(tokens.begin(), tokens.end(), [](const Token& token) {
    return token.kind != TokenKind::Blank && !isMark(token, ';');
  });
}

} // namespace

std::optional<std::string> causeOutside(sqlite3* database) {
  const int systemError = sqlite3_system_errno(database);
  switch (sqlite3_errcode(database) & 0xFF) {
  case SQLITE_FULL:
    return "the disk is full";
  case SQLITE_READONLY:
    return "it can only be read";
  case SQLITE_CANTOPEN: // of the journal beside it
  case SQLITE_IOERR:
    return systemError != 0 ? causeOf(systemError) : "the disk failed";
  case SQLITE_BUSY:
  case SQLITE_LOCKED:
    return "it is in use by another program";
  case SQLITE_CORRUPT:
  case SQLITE_NOTADB:
    return "it is damaged";
  default:
    return std::nullopt;
  }
}

void throwDatabaseError(sqlite3* database, std::string_view statement) {
  if (const auto cause = causeOutside(database))
    throw RunTimeError("Cannot use \"" + fileOf(database) + "\": " + *cause + ".");
  throw RunTimeError(refusal(sqlite3_errmsg(database), statement));
}

Statement::Statement(sqlite3* database, std::string_view statement)
    : database_(database), text_(statement) {
  const char* rest = nullptr;
  if (sqlite3_prepare_v2(database, text_.data(), static_cast<int>(text_.size()), &handle_, &rest) !=
      SQLITE_OK)
    throwDatabaseError(database_, text_);
  const auto used = static_cast<std::size_t>(rest - text_.data());
  if (handle_ && !isMoreThanOneStatement(std::string_view(text_).substr(used)))
    return;
  const char* reason = handle_ ? "it goes on behind its end" : "it is empty";
  sqlite3_finalize(handle_);
  throw RunTimeError(refusal(reason, text_));
}

Statement::~Statement() { sqlite3_finalize(handle_); }

void Statement::bind(int parameter, const Value& value) {
  int result = SQLITE_OK;
  if (value.isNull()) {
    result = sqlite3_bind_null(handle_, parameter);
  } else if (value.isInteger()) {
    result = sqlite3_bind_int64(handle_, parameter, value.toInteger());
  } else if (value.isReal()) {
    result = sqlite3_bind_double(handle_, parameter, value.toReal());
  } else {
    const std::string text = value.toText();
    result = sqlite3_bind_text64(handle_, parameter, text.data(), text.size(), SQLITE_TRANSIENT,
                                 SQLITE_UTF8);
  }
  if (result != SQLITE_OK)
    throwDatabaseError(database_, text_);
}

void Statement::refuseParameters() const {
  if (sqlite3_bind_parameter_count(handle_) > 0)
    throw RunTimeError(refusal("no value given for one or more parameters", text_));
}

bool Statement::step() {
  const int result = sqlite3_step(handle_);
  if (result != SQLITE_ROW && result != SQLITE_DONE)
    throwDatabaseError(database_, text_);
  return result == SQLITE_ROW;
}

void Statement::run() {
  while (step()) {
  }
}

void Statement::reset() { sqlite3_reset(handle_); }

Value Statement::column(int index) const {
  switch (sqlite3_column_type(handle_, index)) {
  case SQLITE_NULL:
    return {};
  case SQLITE_INTEGER:
    return static_cast<std::int64_t>(sqlite3_column_int64(handle_, index));
  case SQLITE_FLOAT:
    return sqlite3_column_double(handle_, index);
  default: {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle_, index));
    const int size = sqlite3_column_bytes(handle_, index);
    return std::string(text ? text : "", static_cast<std::size_t>(size));
  }
  }
}

int Statement::columnCount() const { return sqlite3_column_count(handle_); }

} // namespace hearthbook
