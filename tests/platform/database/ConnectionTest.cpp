#include "AlbumFile.h"

#include "PrivateMount.h"
#include "RunTimeError.h"

#include <sqlite3.h>

#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

namespace hearthbook::test {
namespace {

namespace fs = std::filesystem;

std::string bytesOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void writeBytes(const fs::path& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

/// What opening the file says, "" if it opens.
std::string troubleOf(const fs::path& file) {
  try {
    Connection connection;
    connection.Open(file);
    return "";
  } catch (const RunTimeError& error) {
    return error.what();
  }
}

TEST_F(AlbumFile, OpensAndTellsItsFile) {
  EXPECT_TRUE(connection.isOpen());
  EXPECT_EQ(connection.file(), file);
  EXPECT_TRUE(connection.passesQuickCheck());
}

TEST_F(AlbumFile, UsesARollbackJournalWhoseRemovalIsFlushedToo) {
  EXPECT_EQ(stored("SELECT journal_mode FROM pragma_journal_mode"), "delete");
  EXPECT_EQ(stored("SELECT synchronous FROM pragma_synchronous"), "3");
  EXPECT_EQ(stored("SELECT foreign_keys FROM pragma_foreign_keys"), "0");
}

TEST(Connection, RefusesAMissingFileAndDoesNotMakeIt) {
  const TemporaryFolder folder;
  const fs::path file = folder.path() / "Photo_Album.mdb";
  EXPECT_EQ(troubleOf(file), "The database " + file.string() + " does not exist.");
  EXPECT_FALSE(fs::exists(file));
}

TEST(Connection, RefusesAFolder) {
  const TemporaryFolder folder;
  EXPECT_EQ(troubleOf(folder.path()), "The database " + folder.path().string() + " is not a file.");
}

TEST(Connection, RefusesAnEmptyFile) {
  const TemporaryFolder folder;
  const fs::path file = folder.path() / "Photo_Album.mdb";
  writeBytes(file, "");
  EXPECT_EQ(troubleOf(file),
            "The database " + file.string() + " is empty: nothing is in it, not even a table.");
}

TEST(Connection, RefusesGarbage) {
  const TemporaryFolder folder;
  const fs::path file = folder.path() / "Photo_Album.mdb";
  writeBytes(file, std::string(5000, 'x'));
  EXPECT_EQ(troubleOf(file), "The database " + file.string() + " is not a database.");
  writeBytes(file, "short");
  EXPECT_EQ(troubleOf(file), "The database " + file.string() + " is not a database.");
}

TEST_F(AlbumFile, RefusesATruncatedFile) {
  connection.Close();
  const std::string bytes = bytesOf(file);
  writeBytes(file, bytes.substr(0, bytes.size() / 2));
  EXPECT_EQ(troubleOf(file), "The database " + file.string() + " is damaged.");
}

TEST_F(AlbumFile, RefusesANewerSchema) {
  connection.execute("PRAGMA user_version = 2");
  connection.Close();
  EXPECT_EQ(troubleOf(file), "The database " + file.string() +
                                 " was made by a newer version of Hearthbook. "
                                 "Please use that version.");
  EXPECT_FALSE(connection.isOpen());
}

TEST_F(AlbumFile, StaysClosedWhenOpeningFails) {
  EXPECT_THROW(connection.Open(folder.path() / "missing"), RunTimeError);
  EXPECT_FALSE(connection.isOpen());
  EXPECT_THROW(connection.execute("DELETE FROM Places"), RunTimeError);
}

TEST_F(AlbumFile, NoticesDamageByTheQuickCheck) {
  connection.Close();
  std::string bytes = bytesOf(file);
  for (std::size_t i = 4096; i < bytes.size(); ++i)
    bytes[i] = 'x';
  writeBytes(file, bytes);
  const auto isFoundWhole = [&] {
    try {
      connection.Open(file);
      return connection.passesQuickCheck();
    } catch (const RunTimeError&) {
      return false;
    }
  };
  EXPECT_FALSE(isFoundWhole());
}

TEST_F(AlbumFile, TransactionIsStoredAsAWhole) {
  connection.transaction([&] {
    connection.execute("DELETE FROM Places WHERE PlaceID = 1");
    connection.transaction([&] { connection.execute("DELETE FROM Places WHERE PlaceID = 2"); });
  });
  EXPECT_EQ(stored("SELECT count(*) FROM Places"), "1");
}

TEST_F(AlbumFile, TransactionThatThrowsLeavesNothing) {
  EXPECT_THROW(connection.transaction([&] {
    connection.execute("DELETE FROM Places");
    connection.transaction([] { throw RunTimeError("stop"); });
  }),
               RunTimeError);
  EXPECT_EQ(stored("SELECT count(*) FROM Places"), "3");
  connection.transaction([&] { connection.execute("DELETE FROM Places"); });
  EXPECT_EQ(stored("SELECT count(*) FROM Places"), "0");
}

TEST_F(AlbumFile, ClosingWritesPendingEditsAndClosesRecordSets) {
  Recordset places(connection);
  places.Open("SELECT * FROM Places");
  places.Collect("PlaceName", "Garden");
  connection.Close();
  EXPECT_FALSE(places.isOpen());
  connection.Open(file);
  EXPECT_EQ(stored("SELECT PlaceName FROM Places WHERE PlaceID = 1"), "Garden");
}

TEST_F(AlbumFile, ClosingTellsOfAnEditThatCannotBeStoredButCloses) {
  Recordset photos(connection);
  photos.Open("SELECT * FROM PhotoAlbum");
  photos.Collect("PictureID", "HD00004");
  Recordset places(connection);
  places.Open("SELECT * FROM Places");
  places.Collect("PlaceName", "Garden");
  EXPECT_THROW(connection.Close(), RunTimeError);
  EXPECT_FALSE(connection.isOpen());
  EXPECT_FALSE(photos.isOpen());
  connection.Open(file);
  EXPECT_EQ(stored("SELECT PlaceName FROM Places WHERE PlaceID = 1"), "Garden");
}

TEST_F(AlbumFile, RecordSetOutlivesItsConnection) {
  auto other = std::make_unique<Connection>();
  other->Open(file);
  Recordset places(*other);
  places.Open("Places");
  other.reset();
  EXPECT_FALSE(places.isOpen());
  EXPECT_THROW(places.Open("Places"), RunTimeError);
}

TEST_F(AlbumFile, LeavesOneFileBehind) {
  connection.execute("DELETE FROM Places");
  connection.Close();
  EXPECT_FALSE(fs::exists(file.string() + "-journal"));
  EXPECT_FALSE(fs::exists(file.string() + "-wal"));
}

/// In a process of its own: changes every row of an open transaction, so much that it spills
/// into the file, and dies.
void dieAmidstATransaction(const fs::path& file) {
  sqlite3* database = nullptr;
  sqlite3_open(file.c_str(), &database);
  sqlite3_exec(database,
               "PRAGMA cache_size = 2; BEGIN; UPDATE PhotoAlbum SET NamesCords = "
               "hex(zeroblob(20000)); DELETE FROM Preferences;",
               nullptr, nullptr, nullptr);
  kill(getpid(), SIGKILL);
}

TEST_F(AlbumFile, TakesBackWhatAKilledProcessLeftHalfDone) {
  connection.Close();
  const pid_t child = fork();
  if (child == 0)
    dieAmidstATransaction(file);
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(fs::exists(file.string() + "-journal"));
  connection.Open(file);
  EXPECT_EQ(stored("SELECT count(*) FROM Preferences"), "1");
  EXPECT_EQ(stored("SELECT max(length(NamesCords)) FROM PhotoAlbum"), "14");
  EXPECT_TRUE(connection.passesQuickCheck());
  EXPECT_FALSE(fs::exists(file.string() + "-journal"));
}

/// In a process of its own: writes year after year into the first photo and says each one that
/// is stored, until an alarm ends it as a kill would.
void writeYearsUntilKilled(const fs::path& file, int told, suseconds_t after) {
  const itimerval alarm{{0, 0}, {0, after}};
  setitimer(ITIMER_REAL, &alarm, nullptr);
  Connection connection;
  connection.Open(file);
  Recordset photos(connection);
  photos.Open("PhotoAlbum");
  for (int year = 1;; ++year) {
    photos.Collect("Year", year);
    photos.Update();
    if (write(told, &year, sizeof year) != sizeof year)
      _exit(1);
  }
}

/// The last year that the process said is stored; 0 if none.
int lastYearBeforeTheKill(const fs::path& file, suseconds_t after) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0)
    throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child == 0)
    writeYearsUntilKilled(file, ends[1], after);
  close(ends[1]);
  int last = 0;
  for (int year = 0; read(ends[0], &year, sizeof year) == sizeof year;)
    last = year;
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return last;
}

TEST_F(AlbumFile, WhatWasStoredBeforeAKillIsThere) {
  connection.Close();
  for (suseconds_t after = 1'000; after < 60'000; after += 3'000) {
    const int last = lastYearBeforeTheKill(file, after);
    connection.Open(file);
    EXPECT_TRUE(connection.passesQuickCheck());
    EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum"), "6");
    const Value year(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'CD00002'"));
    EXPECT_TRUE(last == 0 || year.toInteger() >= last) << year.toInteger() << " after " << last;
    connection.execute("UPDATE PhotoAlbum SET Year = 0 WHERE PictureID = 'CD00002'");
    connection.Close();
  }
}

TEST_F(AlbumFile, AnAlbumThatCannotBeWrittenIsReadAndKeepsItsEditsPending) {
  if (!canMountPrivately())
    GTEST_SKIP() << "this machine allows no mounts";
  connection.Close();
  const ReadOnlyMount mount(folder.path());
  connection.Open(file);
  Recordset photos(connection);
  photos.Open("PhotoAlbum");
  EXPECT_EQ(photos.RecordCount(), 6);
  photos.Collect("Year", 1960);
  EXPECT_THROW(photos.Update(), RunTimeError);
  EXPECT_THROW(photos.MoveNext(), RunTimeError);
  EXPECT_TRUE(photos.isPending());
  photos.CancelUpdate();
  photos.MoveNext();
  EXPECT_EQ(photos.AbsolutePosition(), 2);
  connection.Close();
}

TEST_F(AlbumFile, LongStatementsAreCutInMessages) {
  try {
    connection.execute("SELECT * FROM Nowhere WHERE '" + std::string(100'000, 'x') + "' = ''");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_LT(std::string(error.what()).size(), 700U);
    EXPECT_NE(std::string(error.what()).find("no such table: Nowhere"), std::string::npos);
  }
}

} // namespace
} // namespace hearthbook::test
