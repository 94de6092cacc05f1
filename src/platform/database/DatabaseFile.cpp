#include "DatabaseFile.h"

#include "RunTimeError.h"
#include "Statement.h"
#include "TextFunctions.h"

#include <sqlite3.h>

#include <string>
#include <system_error>

namespace hearthbook {

namespace {

/// How long another program's write is waited for.
constexpr int patienceMilliseconds = 2000;

[[noreturn]] void throwFor(const std::filesystem::path& file, const std::string& trouble) {
  throw RunTimeError("The database " + file.string() + " " + trouble);
}

void requireContent(const std::filesystem::path& file) {
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (!std::filesystem::exists(status))
    throwFor(file, "does not exist.");
  if (!std::filesystem::is_regular_file(status))
    throwFor(file, "is not a file.");
  if (std::filesystem::file_size(file, error) == 0)
    throwFor(file, "is empty: nothing is in it, not even a table.");
}

std::string troubleOf(int result, sqlite3* database) {
  switch (result & 0xFF) {
  case SQLITE_NOTADB:
    return "is not a database.";
  case SQLITE_CORRUPT:
    return "is damaged.";
  case SQLITE_BUSY:
  case SQLITE_LOCKED:
    return "is in use by another program.";
  default:
    return std::string("cannot be opened: ") + sqlite3_errmsg(database) + ".";
  }
}

void require(int result, sqlite3* database, const std::filesystem::path& file) {
  if (result != SQLITE_OK)
    throwFor(file, troubleOf(result, database));
}

/// The first look into the file: notices a foreign or cut one and takes back what a killed
/// process left half done.
void readSchema(sqlite3* database, const std::filesystem::path& file) {
  require(sqlite3_exec(database, "SELECT count(*) FROM sqlite_schema", nullptr, nullptr, nullptr),
          database, file);
}

void configure(sqlite3* database, const std::filesystem::path& file) {
  sqlite3_extended_result_codes(database, 1);
  sqlite3_busy_timeout(database, patienceMilliseconds);
  // A text in double quotes would else be taken for a field of that name, or the other way.
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  registerTextFunctions(database);
  readSchema(database, file);
  // A rollback journal leaves one file, which a family may copy and burn as it lies. EXTRA also
  // flushes the folder once the journal is gone: else a power cut could bring the journal back
  // and take back a row whose photo was already moved. Reading a large album in the order of its
  // ids takes twice as long where its pages have no room.
  require(sqlite3_exec(database,
                       "PRAGMA journal_mode=DELETE; PRAGMA synchronous=EXTRA;"
                       "PRAGMA cache_size=-65536",
                       nullptr, nullptr, nullptr),
          database, file);
}

} // namespace

void CloseDatabase::operator()(sqlite3* database) const { sqlite3_close_v2(database); }

DatabaseHandle openDatabase(const std::filesystem::path& file) {
  requireContent(file);
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
  DatabaseHandle database(opened);
  require(result, opened, file);
  configure(opened, file);
  return database;
}

bool passesQuickCheck(sqlite3* database) {
  try {
    Statement check(database, "PRAGMA quick_check(1)");
    return check.step() && check.column(0).toText() == "ok";
  } catch (const RunTimeError&) {
    return false;
  }
}

} // namespace hearthbook
