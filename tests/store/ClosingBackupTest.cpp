#include "ClosingBackup.h"
#include "AlbumFixture.h"
#include "FileBytes.h"
#include "RunTimeError.h"

#include <gmock/gmock.h>

namespace hearthbook {
namespace {

using test::namesIn;
using test::readBytes;
using test::writeBytes;
using testing::ElementsAre;
namespace fs = std::filesystem;

class ClosingBackup : public testing::Test {
protected:
  ClosingBackup() {
    folder_.open();
    folder_.addPhoto("HD00002", {{"Year", 1990}, {"Description", "at the lake"}});
    folder_.close();
  }

  std::vector<int> run() {
    std::vector<int> bar;
    compactAndBackUp(application(), [&](int value) { bar.push_back(value); });
    return bar;
  }
  [[nodiscard]] ApplicationFolder application() const { return ApplicationFolder(folder_.root()); }

  [[nodiscard]] std::int64_t photosIn(const fs::path& database) const {
    Connection connection;
    connection.Open(database);
    EXPECT_TRUE(connection.passesQuickCheck());
    Recordset photos(connection);
    photos.Open("SELECT * FROM PhotoAlbum");
    return photos.RecordCount();
  }

  test::AlbumFolder folder_;
  fs::path live_ = folder_.at("Data/Photo_Album.mdb");
  fs::path backup_ = folder_.at("Backup/Photo_Album.mdb");
};

TEST_F(ClosingBackup, TheFirstOneJumpsOverTheHalf) { EXPECT_THAT(run(), ElementsAre(25, 75, 100)); }

TEST_F(ClosingBackup, LaterOnesTellEachQuarter) {
  run();
  EXPECT_THAT(run(), ElementsAre(25, 50, 75, 100));
}

TEST_F(ClosingBackup, AlbumAndBackupHoldEveryPhotoAndNothingElseIsLeft) {
  run();
  EXPECT_EQ(photosIn(live_), 2);
  EXPECT_EQ(photosIn(backup_), 2);
  EXPECT_THAT(namesIn(folder_.at("Data")), ElementsAre("Help.mdb", "Photo_Album.mdb"));
  EXPECT_THAT(namesIn(folder_.at("Backup")), ElementsAre("Photo_Album.mdb"));
}

TEST_F(ClosingBackup, ARunWithoutAChangeWritesTheFilesAllTheSame) {
  run();
  const auto before = fs::hard_link_count(live_);
  fs::create_hard_link(live_, folder_.at("old live"));
  fs::create_hard_link(backup_, folder_.at("old backup"));
  run();
  EXPECT_EQ(fs::hard_link_count(live_), before);
  EXPECT_EQ(fs::hard_link_count(backup_), before);
}

TEST_F(ClosingBackup, TheSecondCopyIsMadeWhileTheLiveFileIsGone) {
  compactAndBackUp(application(), [&](int value) {
    if (value == 75) {
      EXPECT_FALSE(fs::exists(live_));
      EXPECT_EQ(photosIn(backup_), 2);
    }
  });
}

TEST_F(ClosingBackup, TheOldBackupGoesOnlyAfterTheAlbumIsFoundWhole) {
  run();
  writeBytes(live_, "this is no database at all");
  EXPECT_THROW(run(), RunTimeError);
  EXPECT_EQ(photosIn(backup_), 2);
}

TEST_F(ClosingBackup, WithoutALiveFileTheBackupStays) {
  run();
  fs::remove(live_);
  EXPECT_THROW(run(), RunTimeError);
  EXPECT_EQ(photosIn(backup_), 2);
}

TEST_F(ClosingBackup, ABackupThatCannotBeWrittenLeavesTheLiveFileWhole) {
  fs::remove_all(folder_.at("Backup"));
  writeBytes(folder_.at("Backup"), "in the way");
  EXPECT_THROW(run(), RunTimeError);
  EXPECT_EQ(photosIn(live_), 2);
}

TEST_F(ClosingBackup, AJournalLeftBesideTheBackupIsNotPlayedIntoTheNewOne) {
  run();
  fs::remove(backup_);
  writeBytes(folder_.at("Backup/Photo_Album.mdb-journal"), "left over");
  run();
  EXPECT_EQ(photosIn(backup_), 2);
  EXPECT_THAT(namesIn(folder_.at("Backup")), ElementsAre("Photo_Album.mdb"));
}

TEST_F(ClosingBackup, ARestoreMakesTheLiveFileFromTheBackup) {
  run();
  fs::remove(live_);
  restoreBackup(application());
  EXPECT_EQ(photosIn(live_), 2);
  EXPECT_EQ(photosIn(backup_), 2);
}

TEST_F(ClosingBackup, ARestoreWithoutABackupFails) {
  fs::remove(live_);
  EXPECT_THROW(restoreBackup(application()), RunTimeError);
  EXPECT_FALSE(fs::exists(live_));
}

TEST_F(ClosingBackup, ARestoreFromADamagedBackupFailsAndMakesNothing) {
  fs::remove(live_);
  writeBytes(backup_, std::string(20000, 'x'));
  EXPECT_THROW(restoreBackup(application()), RunTimeError);
  EXPECT_FALSE(fs::exists(live_));
}

TEST_F(ClosingBackup, AJournalOfALostLiveFileIsNotPlayedIntoTheRestoredOne) {
  run();
  fs::remove(live_);
  writeBytes(folder_.at("Data/Photo_Album.mdb-journal"), "left over");
  restoreBackup(application());
  EXPECT_EQ(photosIn(live_), 2);
  EXPECT_FALSE(fs::exists(folder_.at("Data/Photo_Album.mdb-journal")));
}

} // namespace
} // namespace hearthbook
