#include "ClosingBackup.h"
#include "FileBytes.h"
#include "KilledTest.h"
#include "RunTimeError.h"
#include "SafeFile.h"
#include "Trash.h"

#include <gmock/gmock.h>

#include <ostream>

namespace hearthbook {
namespace {

using test::namesIn;
using test::readBytes;
using test::writeBytes;
namespace fs = std::filesystem;

constexpr int photos = 12;

/// Long enough that a change of it touches many pages.
std::string longText(char letter) { return std::string(9000, letter); }

class KilledAlbum : public test::KilledTest {
protected:
  KilledAlbum() {
    folder_.open();
    for (int number = 2; number <= photos; ++number)
      folder_.addRow("PhotoAlbum", {{"PictureID", "HD000" + std::to_string(10 + number)},
                                    {"Description", longText('a')}});
    folder_.close();
  }

  [[nodiscard]] static fs::path liveIn(const fs::path& root) {
    return root / "Data/Photo_Album.mdb";
  }
  static void close(const fs::path& root) {
    compactAndBackUp(ApplicationFolder(root), [](int) {});
  }

  /// What the next start does: it offers the restore where the album is gone.
  static void startAgain(const fs::path& root) {
    removeLeftovers(root / "Data");
    if (!fileExists(liveIn(root)))
      restoreBackup(ApplicationFolder(root));
  }

  static void expectEveryPhoto(const fs::path& root) {
    Connection connection;
    ASSERT_NO_THROW(connection.Open(liveIn(root)));
    EXPECT_TRUE(connection.passesQuickCheck());
    Recordset rows(connection);
    rows.Open(sources::photoAlbum);
    EXPECT_EQ(rows.RecordCount(), photos);
    for (rows.MoveNext(); !rows.atEOF(); rows.MoveNext())
      EXPECT_EQ(rows.Collect("Description").toText().size(), 9000U);
  }

  test::AlbumFolder folder_;
};

TEST_F(KilledAlbum, ClosingForTheFirstTimeLosesNoPhoto) {
  killAtEachStep(folder_.root(), &KilledAlbum::close, [](const fs::path& root) {
    startAgain(root);
    expectEveryPhoto(root);
  });
}

TEST_F(KilledAlbum, ClosingOverAnOlderBackupLosesNoPhoto) {
  close(folder_.root());
  killAtEachStep(folder_.root(), &KilledAlbum::close, [](const fs::path& root) {
    startAgain(root);
    expectEveryPhoto(root);
  });
}

TEST_F(KilledAlbum, ClosingAgainAfterAKillWorks) {
  killAtEachStep(folder_.root(), &KilledAlbum::close, [](const fs::path& root) {
    startAgain(root);
    close(root);
    expectEveryPhoto(root);
    EXPECT_THAT(namesIn(root / "Data"), testing::ElementsAre("Help.mdb", "Photo_Album.mdb"));
    EXPECT_THAT(namesIn(root / "Backup"), testing::ElementsAre("Photo_Album.mdb"));
  });
}

TEST_F(KilledAlbum, ARestoreCanBeDoneAgain) {
  close(folder_.root());
  fs::remove(liveIn(folder_.root()));
  killAtEachStep(
      folder_.root(), [](const fs::path& root) { restoreBackup(ApplicationFolder(root)); },
      [](const fs::path& root) {
        startAgain(root);
        expectEveryPhoto(root);
      });
}

void writeField(const fs::path& root) {
  AlbumData data;
  data.AlbumDB.Open(root / "Data/Photo_Album.mdb");
  data.openRecordsets();
  data.rsPhotoAlbum.MoveLast();
  data.rsPhotoAlbum.Collect("Description", longText('b'));
  data.rsPhotoAlbum.Update();
}

std::string lastDescription(const fs::path& root) {
  AlbumData data;
  data.AlbumDB.Open(root / "Data/Photo_Album.mdb");
  data.openRecordsets();
  data.rsPhotoAlbum.MoveLast();
  return data.rsPhotoAlbum.Collect("Description").toText();
}

TEST_F(KilledAlbum, AFieldHoldsItsOldContentOrItsNewOne) {
  killAtEachStep(folder_.root(), &writeField, [](const fs::path& root) {
    const std::string text = lastDescription(root);
    EXPECT_TRUE(text == longText('a') || text == longText('b'));
    expectEveryPhoto(root);
  });
}

TEST_F(KilledAlbum, ClosingAfterAKilledWriteTakesItsJournalAlong) {
  killAtEachStep(folder_.root(), &writeField, [](const fs::path& root) {
    close(root); // without opening the album first
    expectEveryPhoto(root);
  });
}

TEST_F(KilledAlbum, ARunOfStatementsAsOneTransactionIsDoneWholeOrNotAtAll) {
  const auto renumber = [](const fs::path& root) {
    Connection connection;
    connection.Open(liveIn(root));
    connection.transaction([&] {
      for (int number = 12; number <= 10 + photos; ++number)
        connection.execute("UPDATE PhotoAlbum SET Year = 1990 WHERE PictureID = 'HD000" +
                           std::to_string(number) + "'");
    });
  };
  killAtEachStep(folder_.root(), renumber, [](const fs::path& root) {
    Connection connection;
    connection.Open(liveIn(root));
    Recordset changed(connection);
    changed.Open("SELECT * FROM PhotoAlbum WHERE Year = 1990");
    EXPECT_TRUE(changed.RecordCount() == 0 || changed.RecordCount() == photos - 1);
  });
}

class KilledFile : public test::KilledTest {
protected:
  KilledFile() { writeBytes(folder_.path() / "Photos/00012.jpg", "old"); }

  test::TemporaryFolder folder_;
};

TEST_F(KilledFile, AReplacedFileHoldsItsOldBytesOrItsNewOnes) {
  const std::string bytes(300000, 'n');
  const auto replace = [&](const fs::path& root) {
    replaceFile(root / "Photos/00012.jpg", [&](std::ostream& stream) {
      for (const char c : bytes)
        stream.put(c);
    });
  };
  killAtEachStep(folder_.path(), replace, [&](const fs::path& root) {
    const std::string found = readBytes(root / "Photos/00012.jpg");
    EXPECT_TRUE(found == "old" || found == bytes);
    removeLeftovers(root / "Photos");
    EXPECT_THAT(namesIn(root / "Photos"), testing::ElementsAre("00012.jpg"));
  });
}

TEST_F(KilledFile, AMovedSourceIsNeverGoneWithoutItsCopy) {
  const auto move = [](const fs::path& root) {
    copyFileSafely(root / "Photos/00012.jpg", root / "copy.jpg");
    deleteFile(root / "Photos/00012.jpg");
  };
  killAtEachStep(folder_.path(), move, [](const fs::path& root) {
    const bool there = fileExists(root / "Photos/00012.jpg");
    EXPECT_EQ(readBytes(there ? root / "Photos/00012.jpg" : root / "copy.jpg"), "old");
  });
}

TEST_F(KilledFile, ATrashedFileIsInItsPlaceOrInTheTrashWithANote) {
  const auto trash = [](const fs::path& root) {
    moveToTrash(root / "Photos/00012.jpg", root / "Backup");
  };
  killAtEachStep(folder_.path(), trash, [](const fs::path& root) {
    if (fileExists(root / "Photos/00012.jpg"))
      return;
    const fs::path can = root.parent_path() / "data/Trash";
    EXPECT_EQ(readBytes(can / "files/00012.jpg"), "old");
    EXPECT_TRUE(fileExists(can / "info/00012.jpg.trashinfo"));
  });
}

TEST(KillAtSyscall, AChildIsKilledInFrontOfTheStepAndNotBehindIt) {
  if (!test::canWatchChildren())
    GTEST_SKIP() << "this machine does not let a process watch its child";
  const test::TemporaryFolder folder;
  const auto work = [&] {
    fs::create_directory(folder.path() / "one");
    fs::create_directory(folder.path() / "two");
  };
  EXPECT_EQ(test::killAtStep(2, work), test::Ending::Killed);
  EXPECT_THAT(namesIn(folder.path()), testing::ElementsAre("one"));
  EXPECT_EQ(test::killAtStep(3, work), test::Ending::Finished);
  EXPECT_EQ(test::killAtStep(9, [] { throw RunTimeError("it failed"); }), test::Ending::Failed);
}

} // namespace
} // namespace hearthbook
