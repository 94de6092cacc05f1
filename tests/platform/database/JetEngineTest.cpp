#include "AlbumFile.h"

#include "JetEngine.h"
#include "RunTimeError.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>

namespace {
bool foldersCannotBeFlushed = false;
}

/// Stands before the system's: some file systems answer so for every folder.
extern "C" int fsync(int file) {
  struct stat status {};
  if (foldersCannotBeFlushed && fstat(file, &status) == 0 && S_ISDIR(status.st_mode)) {
    errno = EINVAL;
    return -1;
  }
  return static_cast<int>(syscall(SYS_fsync, file));
}

namespace hearthbook::test {
namespace {

namespace fs = std::filesystem;

class Compaction : public AlbumFile {
protected:
  Compaction() { connection.Close(); }

  [[nodiscard]] std::size_t filesInFolder() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
  }

  fs::path copy = folder.path() / "Copy.mdb";
  JetEngine engine;
};

TEST_F(Compaction, WritesAWholeCopyAndLeavesTheSource) {
  engine.CompactDatabase(file, copy);
  EXPECT_TRUE(fs::exists(file));
  EXPECT_EQ(filesInFolder(), 2U);
  connection.Open(copy);
  EXPECT_TRUE(connection.passesQuickCheck());
  Recordset rows(connection);
  rows.Open("PhotoAlbum");
  EXPECT_EQ(all(rows, "PictureID"), "CD00002 HD00001 HD00002 HD00003 HD00004 HD00005");
  EXPECT_EQ(stored("SELECT count(*) FROM sqlite_schema WHERE type = 'index' AND sql IS NOT NULL"),
            "2");
}

TEST_F(Compaction, KeepsTheVersionAndTheNumbersGiven) {
  connection.Open(file);
  connection.execute("DELETE FROM Places");
  connection.Close();
  engine.CompactDatabase(file, copy);
  connection.Open(copy);
  EXPECT_EQ(stored("SELECT user_version FROM pragma_user_version"), "1");
  Recordset places(connection);
  places.Open("Places");
  places.AddNew({"PlaceName"}, {"Garden"});
  EXPECT_EQ(places.Collect("PlaceID"), Value(4));
}

TEST_F(Compaction, WorksWhereAFolderCannotBeFlushed) {
  foldersCannotBeFlushed = true;
  EXPECT_NO_THROW(engine.CompactDatabase(file, copy));
  foldersCannotBeFlushed = false;
  EXPECT_TRUE(fs::exists(copy));
}

TEST_F(Compaction, MakesRoomThatDeletedRowsLeft) {
  connection.Open(file);
  connection.execute("UPDATE PhotoAlbum SET Description = hex(zeroblob(100000))");
  connection.execute("UPDATE PhotoAlbum SET Description = NULL");
  connection.Close();
  engine.CompactDatabase(file, copy);
  EXPECT_LT(fs::file_size(copy), fs::file_size(file) / 2);
}

TEST_F(Compaction, RefusesADestinationThatExists) {
  std::ofstream(copy) << "precious";
  EXPECT_THROW(engine.CompactDatabase(file, copy), RunTimeError);
  EXPECT_EQ(fs::file_size(copy), 8U);
  EXPECT_EQ(filesInFolder(), 2U);
}

TEST_F(Compaction, RefusesADestinationThatIsADanglingLink) {
  fs::create_symlink(folder.path() / "nowhere", copy);
  EXPECT_THROW(engine.CompactDatabase(file, copy), RunTimeError);
}

TEST_F(Compaction, RefusesAMissingSourceAndMakesNothing) {
  EXPECT_THROW(engine.CompactDatabase(folder.path() / "missing", copy), RunTimeError);
  EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(Compaction, RefusesADamagedSourceAndMakesNothing) {
  const fs::path damaged = folder.path() / "damaged";
  std::ofstream(damaged) << "no database";
  EXPECT_THROW(engine.CompactDatabase(damaged, copy), RunTimeError);
  EXPECT_EQ(filesInFolder(), 2U);
}

TEST_F(Compaction, RefusesAMissingFolder) {
  EXPECT_THROW(engine.CompactDatabase(file, folder.path() / "Backup" / "Copy.mdb"), RunTimeError);
  EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(Compaction, WritesOverWhatAKilledCompactionLeft) {
  std::ofstream(copy.string() + ".new") << "half a copy";
  engine.CompactDatabase(file, copy);
  EXPECT_EQ(filesInFolder(), 2U);
  connection.Open(copy);
  EXPECT_EQ(stored("SELECT count(*) FROM PhotoAlbum"), "6");
}

TEST_F(Compaction, TakesNamesWithBlanksQuotesAndOtherAlphabets) {
  const fs::path odd = folder.path() / "Bob's \"Fotos\" für 日本.mdb";
  engine.CompactDatabase(file, odd);
  EXPECT_TRUE(fs::exists(odd));
}

/// Runs in a process of its own, whose files may not grow beyond a size: a full disk.
int compactOnAFullDisk(const fs::path& source, const fs::path& copy, rlim_t room) {
  const pid_t child = fork();
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{room, room};
    setrlimit(RLIMIT_FSIZE, &limit);
    int outcome = 0;
    try {
      JetEngine().CompactDatabase(source, copy);
    } catch (const RunTimeError&) {
      outcome = 1;
    }
    _exit(outcome);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(Compaction, OnAFullDiskLeavesNoHalfCopy) {
  for (rlim_t room = 0; room < fs::file_size(file); room += 8'192) {
    EXPECT_EQ(compactOnAFullDisk(file, copy, room), 1) << room;
    EXPECT_EQ(filesInFolder(), 1U) << room;
  }
  EXPECT_EQ(compactOnAFullDisk(file, copy, fs::file_size(file) * 2), 0);
}

/// Runs a compaction in a process that an alarm ends after so many microseconds, as a kill
/// would: nothing is put in order.
void endAmidstACompaction(const fs::path& source, const fs::path& copy, suseconds_t after) {
  const pid_t child = fork();
  if (child == 0) {
    const itimerval alarm{{0, 0}, {0, after}};
    setitimer(ITIMER_REAL, &alarm, nullptr);
    try {
      JetEngine().CompactDatabase(source, copy);
    } catch (const RunTimeError&) {
      _exit(1);
    }
    _exit(0);
  }
  waitpid(child, nullptr, 0);
}

TEST_F(Compaction, KilledAtAnyInstantLeavesAWholeCopyOrNone) {
  for (suseconds_t after = 200; after < 40'000; after += 1'000) {
    std::error_code ignored;
    fs::remove(copy, ignored);
    endAmidstACompaction(file, copy, after);
    for (const fs::path& one : {file, copy}) {
      if (!fs::exists(one))
        continue;
      Connection album;
      album.Open(one);
      EXPECT_TRUE(album.passesQuickCheck()) << after;
      Recordset rows(album);
      rows.Open("PhotoAlbum");
      EXPECT_EQ(rows.RecordCount(), 6) << after;
    }
    EXPECT_TRUE(fs::exists(file)) << after;
  }
}

/// A row set on a full disk, in a process of its own; what it did is its exit code.
int editOnAFullDisk(const fs::path& file) {
  const pid_t child = fork();
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    Connection album;
    album.Open(file);
    Recordset rows(album);
    rows.Open("PhotoAlbum");
    const rlimit limit{512, 1'000'000'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    rows.Collect("Description", std::string(50'000, 'x'));
    bool refused = false;
    try {
      rows.MoveNext();
    } catch (const RunTimeError&) {
      refused = rows.isPending() && rows.AbsolutePosition() == 1;
    }
    const rlimit more{1'000'000'000, 1'000'000'000};
    setrlimit(RLIMIT_FSIZE, &more);
    rows.MoveNext();
    _exit(refused && rows.AbsolutePosition() == 2 ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(Compaction, AnEditOnAFullDiskStaysPendingUntilThereIsRoom) {
  EXPECT_EQ(editOnAFullDisk(file), 0);
  connection.Open(file);
  EXPECT_TRUE(connection.passesQuickCheck());
  EXPECT_EQ(stored("SELECT length(Description) FROM PhotoAlbum WHERE PictureID = 'CD00002'"),
            "50000");
}

} // namespace
} // namespace hearthbook::test
