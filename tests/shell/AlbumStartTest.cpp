#include "AlbumStart.h"

#include "AlbumFiles.h"
#include "FileBytes.h"
#include "RunTimeError.h"
#include "ShellFixture.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

class AlbumStartTest : public test::ShellTest {
protected:
  AlbumStart start() {
    return startAlbum(album(), [this] {
      ++questions;
      return answer;
    });
  }

  std::string failure() {
    try {
      start();
    } catch (const RunTimeError& error) {
      return error.what();
    }
    return {};
  }

  int questions = 0;
  bool answer = true;
};

TEST_F(AlbumStartTest, OpensBothDatabasesAndAllRecordSets) {
  EXPECT_EQ(start(), AlbumStart::Opened);

  EXPECT_EQ(questions, 0);
  EXPECT_TRUE(album().data.AlbumDB.isOpen());
  for (const Recordset* rows :
       {&album().data.rsEvents, &album().data.rsPhotoAlbum, &album().data.rsPlaces,
        &album().data.rsAppearances, &album().data.rsSubAlbums, &album().data.rsSubAlbumPhotos})
    EXPECT_TRUE(rows->isOpen());
  EXPECT_TRUE(album().vars.rsHelp->isOpen());
  EXPECT_EQ(album().vars.rsHelp->Source(), "SELECT * FROM Help");
}

TEST_F(AlbumStartTest, MakesTheBackupFolderWhereItIsMissing) {
  std::filesystem::remove_all(folder().path("\\Backup"));

  start();

  EXPECT_TRUE(std::filesystem::is_directory(folder().path("\\Backup")));
}

TEST_F(AlbumStartTest, AMissingDatabaseIsRestoredIfTheUserWantsIt) {
  addPhoto("HD00002", "1990");
  makeBackup();
  std::filesystem::remove(live());

  EXPECT_EQ(start(), AlbumStart::Opened);

  EXPECT_EQ(questions, 1);
  EXPECT_EQ(album().data.AlbumDB.file(), live());
  EXPECT_EQ(album().data.rsPhotoAlbum.RecordCount(), 2);
}

TEST_F(AlbumStartTest, WithTheAnswerNoNothingIsChanged) {
  makeBackup();
  const std::string bytes = test::readBytes(backup());
  std::filesystem::remove(live());
  answer = false;

  EXPECT_EQ(start(), AlbumStart::WithoutAlbum);

  EXPECT_FALSE(fileExists(live()));
  EXPECT_EQ(test::readBytes(backup()), bytes);
  EXPECT_FALSE(album().data.AlbumDB.isOpen());
}

TEST_F(AlbumStartTest, ARestoreWithoutABackupFailsAndNamesIt) {
  std::filesystem::remove(live());

  EXPECT_NE(failure().find(backup().string()), std::string::npos);
  EXPECT_FALSE(fileExists(live()));
}

TEST_F(AlbumStartTest, ABackupThatIsNoDatabaseIsNotRestored) {
  std::filesystem::remove(live());
  test::writeBytes(backup(), std::string(5000, 'x'));

  EXPECT_NE(failure(), "");
  EXPECT_FALSE(fileExists(live()));
  EXPECT_EQ(test::readBytes(backup()), std::string(5000, 'x'));
}

struct Damage {
  const char* name;
  std::string (*apply)(std::string whole);
};

class AlbumStartDamageTest : public AlbumStartTest, public testing::WithParamInterface<Damage> {};

TEST_P(AlbumStartDamageTest, ADatabaseThatCannotBeReadIsNamedAndNothingIsTouched) {
  execute("WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 400) "
          "INSERT INTO PhotoAlbum (PictureID, Year) SELECT printf('HD%05d', i), 1990 FROM n");
  makeBackup();
  const std::string backupBytes = test::readBytes(backup());
  const std::string damaged = GetParam().apply(test::readBytes(live()));
  test::writeBytes(live(), damaged);

  EXPECT_NE(failure().find(live().string()), std::string::npos) << failure();

  EXPECT_EQ(questions, 0);
  EXPECT_EQ(test::readBytes(live()), damaged);
  EXPECT_EQ(test::readBytes(backup()), backupBytes);
}

INSTANTIATE_TEST_SUITE_P(
    Each, AlbumStartDamageTest,
    testing::Values(
        Damage{"Empty", [](std::string) { return std::string(); }},
        Damage{"Garbage", [](std::string whole) { return std::string(whole.size(), '\x55'); }},
        Damage{"Truncated", [](std::string whole) { return whole.substr(0, whole.size() / 2); }},
        Damage{"Overwritten",
               [](std::string whole) {
                 for (std::size_t at = 4096; at < whole.size(); ++at)
                   whole[at] = static_cast<char>(at * 7);
                 return whole;
               }}),
    [](const auto& info) { return info.param.name; });

TEST_F(AlbumStartTest, ADatabaseOfANewerSchemaIsNamed) {
  execute("PRAGMA user_version = 99");

  EXPECT_NE(failure().find(live().string()), std::string::npos);
}

TEST_F(AlbumStartTest, ADatabaseWithoutTheAlbumsTablesFails) {
  execute("DROP TABLE Places");

  EXPECT_NE(failure().find("Places"), std::string::npos);
}

TEST_F(AlbumStartTest, AMissingHelpDatabaseFailsAndIsNamed) {
  const auto help = folder().path(helpFile);
  std::filesystem::remove(help);

  EXPECT_NE(failure().find(help.string()), std::string::npos);
  EXPECT_FALSE(fileExists(help));
}

TEST_F(AlbumStartTest, LeftoversOfAKilledRunAreRemovedFromEveryFolder) {
  const char* const folders[] = {"\\Data", "\\Backup", "\\Photos", "\\Thumbnails", "\\Audio"};
  const char* const leftover = ".hearthbook-999999999-3.part"; // above the highest process number
  for (const char* name : folders)
    test::writeBytes(folder().path(name) / leftover, "half");
  const auto photo = folder().path("\\Photos\\00001.jpg");
  test::writeBytes(photo, "photo");

  tidyAlbumFolders(folder());

  for (const char* name : folders)
    EXPECT_FALSE(fileExists(folder().path(name) / leftover)) << name;
  EXPECT_EQ(test::readBytes(photo), "photo");
}

} // namespace
} // namespace hearthbook
