#pragma once

#include <filesystem>
#include <memory>

struct sqlite3;

namespace hearthbook {

struct CloseDatabase {
  void operator()(sqlite3* database) const;
};
using DatabaseHandle = std::unique_ptr<sqlite3, CloseDatabase>;

/// Opens a database that exists, with the program's order of text, LIKE and journal. What a
/// killed process left half done is put right. Throws RunTimeError, with the file and what is
/// wrong with it.
DatabaseHandle openDatabase(const std::filesystem::path& file);

/// True if the database's structure is whole. Does not throw.
bool passesQuickCheck(sqlite3* database);

} // namespace hearthbook
