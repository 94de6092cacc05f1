#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;

namespace hearthbook {

class Recordset;

/// One open database file.
///
/// The file must exist: a connection never creates one. Text compares, sorts and matches LIKE
/// without regard to case for every alphabet, in the order of the user's language (`en_US`
/// where the locale is "C"); accents count. Journal: rollback, its removal flushed too, so
/// that a kill or a power cut leaves either the state before a statement or the state behind it,
/// and what has returned stays done.
/// Everything that fails throws RunTimeError, with the statement or the path in its text.
///
/// A schema declares name and text columns `COLLATE HEARTHBOOK_TEXT` (TextFunctions.h) and puts
/// no index on them; ids are `COLLATE NOCASE`. A table without a number of its own as key has
/// `RowKey INTEGER PRIMARY KEY`, which record sets use and never show.
class Connection {
public:
  Connection();
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Opens the file. Throws if it is missing, empty, no database, or of a newer schema than
  /// `newestSchema` (PRAGMA user_version).
  void Open(const std::filesystem::path& file, int newestSchema = 1);

  /// Writes the pending edits of its record sets, closes them, and closes the file. Edits that
  /// cannot be stored are told by a RunTimeError after everything is closed.
  void Close();

  [[nodiscard]] bool isOpen() const;
  [[nodiscard]] const std::filesystem::path& file() const;

  /// True if the file passes SQLite's quick check. Does not throw.
  [[nodiscard]] bool passesQuickCheck();

  /// Runs `work` as one transaction; rolls back and rethrows if it throws. Nested calls join
  /// the outer one. No message or dialog may be shown inside. Record sets keep what was
  /// written in a transaction that was rolled back until they are requeried.
  void transaction(const std::function<void()>& work);

  /// Runs a statement that gives no rows (schema tools, tests).
  void execute(std::string_view statement);

  [[nodiscard]] sqlite3* handle() const; ///< for the record sets of this service alone

private:
  friend class Recordset;
  void add(Recordset& recordset);
  void remove(const Recordset& recordset);

  struct Impl;
  std::unique_ptr<Impl> impl_;
};

} // namespace hearthbook
