#include "DatabaseMaker.h"

#include "ApplicationFolder.h"
#include "RunTimeError.h"
#include "SafeFile.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include <sqlite3.h>

namespace hearthbook {
namespace fs = std::filesystem;
namespace {

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

/// The schema names the program's order of text. Nothing made here is sorted by it, so that
/// any order stands in.
int anyOrder(void* /*unused*/, int leftSize, const void* left, int rightSize, const void* right) {
  const std::string_view a(static_cast<const char*>(left), static_cast<std::size_t>(leftSize));
  const std::string_view b(static_cast<const char*>(right), static_cast<std::size_t>(rightSize));
  return a.compare(b);
}

void require(sqlite3* database, bool success) {
  if (!success)
    throw RunTimeError(std::string("The database cannot be made: ") + sqlite3_errmsg(database) +
                       ".");
}

void run(sqlite3* database, const std::string& statements) {
  require(database,
          sqlite3_exec(database, statements.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
}

Database create(const fs::path& file) {
  sqlite3* opened = nullptr;
  const int result = sqlite3_open(file.c_str(), &opened);
  Database database(opened, &sqlite3_close);
  require(opened, result == SQLITE_OK);
  require(opened, sqlite3_create_collation(opened, "HEARTHBOOK_TEXT", SQLITE_UTF8, nullptr,
                                           &anyOrder) == SQLITE_OK);
  run(opened, "PRAGMA synchronous = OFF"); // the finished file is flushed as a whole
  return database;
}

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(stream), {}};
  if (!stream || text.empty())
    throw RunTimeError("Cannot read \"" + file.string() + "\".");
  return text;
}

/// "album-001.sql", "album-002.sql", ... in this order.
void runSchema(sqlite3* database, const fs::path& folder, const std::string& kind) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().filename().string().starts_with(kind + "-"))
      files.push_back(entry.path());
  }
  if (files.empty())
    throw RunTimeError("There is no schema for \"" + kind + "\" in \"" + folder.string() + "\".");
  std::ranges::sort(files);
  for (const fs::path& file : files)
    run(database, contentOf(file));
}

void bind(sqlite3_stmt* statement, int place, const std::string& text) {
  sqlite3_bind_text(statement, place, text.c_str(), static_cast<int>(text.size()),
                    SQLITE_TRANSIENT);
}

void addHelpRows(sqlite3* database, const std::vector<HelpRow>& rows) {
  sqlite3_stmt* prepared = nullptr;
  sqlite3_prepare_v2(database, "INSERT INTO Help (helpID, HelpText) VALUES (?, ?)", -1, &prepared,
                     nullptr);
  const Statement insert(prepared, &sqlite3_finalize);
  run(database, "BEGIN");
  for (const HelpRow& row : rows) {
    bind(insert.get(), 1, row.id);
    bind(insert.get(), 2, row.text);
    require(database, sqlite3_step(insert.get()) == SQLITE_DONE);
    sqlite3_reset(insert.get());
  }
  run(database, "COMMIT");
}

/// Removes the half-made file of a failed run.
struct Unfinished {
  fs::path file;
  ~Unfinished() {
    std::error_code ignored;
    fs::remove(file, ignored);
    fs::remove(fs::path(file.string() + "-journal"), ignored);
  }
};

bool make(const fs::path& target, const std::function<void(sqlite3*)>& fill) {
  if (fileExists(target))
    return false;
  fs::create_directories(target.parent_path());
  const Unfinished unfinished{fs::path(target.string() + ".unfinished")};
  fs::remove(unfinished.file);
  Database database = create(unfinished.file);
  fill(database.get());
  database.reset();
  copyFileSafely(unfinished.file, target);
  return true;
}

} // namespace

bool makeAlbumDatabase(const fs::path& target, const fs::path& schemaFolder) {
  return make(target, [&](sqlite3* database) { runSchema(database, schemaFolder, "album"); });
}

bool makeHelpDatabase(const fs::path& target, const fs::path& schemaFolder,
                      const std::vector<HelpRow>& rows) {
  return make(target, [&](sqlite3* database) {
    runSchema(database, schemaFolder, "help");
    addHelpRows(database, rows);
  });
}

} // namespace hearthbook
