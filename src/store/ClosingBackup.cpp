#include "ClosingBackup.h"

#include "AlbumFiles.h"
#include "Connection.h"
#include "JetEngine.h"
#include "RunTimeError.h"
#include "SafeFile.h"

#include <array>

namespace hearthbook {
namespace fs = std::filesystem;
namespace {

/// The files that the database engine may leave beside a database.
std::array<fs::path, 3> companionsOf(const fs::path& database) {
  const auto with = [&](const char* ending) { return fs::path(database.string() + ending); };
  return {with("-journal"), with("-wal"), with("-shm")};
}

/// A journal would be played back into the next file of that name and spoil it.
void deleteCompanions(const fs::path& database) {
  for (const fs::path& companion : companionsOf(database)) {
    if (fileExists(companion))
      deleteFile(companion);
  }
}

/// Opens a database once. That plays back the journal of a killed program, without which a copy
/// would hold half a change; and no other copy is to be deleted for a file that is not whole.
void requireWhole(const fs::path& database) {
  Connection connection;
  connection.Open(database);
  if (!connection.passesQuickCheck())
    throw RunTimeError("The database \"" + database.string() + "\" is damaged.");
  connection.Close();
}

} // namespace

void compactAndBackUp(const ApplicationFolder& folder, const std::function<void(int)>& bar) {
  const fs::path live = folder.path(albumFile);
  const fs::path backup = folder.path(backupFile);
  const JetEngine engine;
  bar(25);
  requireWhole(live);
  if (fileExists(backup)) {
    deleteFile(backup);
    bar(50);
  }
  deleteCompanions(backup);
  engine.CompactDatabase(live, backup);
  deleteFile(live);
  bar(75);
  deleteCompanions(live);
  engine.CompactDatabase(backup, live);
  bar(100);
}

void restoreBackup(const ApplicationFolder& folder) {
  const fs::path live = folder.path(albumFile);
  const fs::path backup = folder.path(backupFile);
  requireWhole(backup);
  deleteCompanions(live);
  JetEngine().CompactDatabase(backup, live);
}

bool isWholeDatabase(const fs::path& database) {
  try {
    requireWhole(database);
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

} // namespace hearthbook
