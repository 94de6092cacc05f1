#include "Trash.h"
#include "FileBytes.h"
#include "PrivateMount.h"
#include "RunTimeError.h"
#include "SafeFile.h"
#include "ScopedVariable.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <ostream>

#include <sys/stat.h>
#include <unistd.h>

namespace hearthbook {
namespace {

using test::namesIn;
using test::readBytes;
using test::ScopedVariable;
using test::writeBytes;
using testing::ElementsAre;
namespace fs = std::filesystem;

class TrashTest : public testing::Test {
protected:
  [[nodiscard]] fs::path at(const std::string& name) const { return folder_.path() / name; }

  void trash(const std::string& name, const std::string& bytes) {
    writeBytes(at("Photos") / name, bytes);
    moveToTrash(at("Photos") / name, at("Backup"));
    EXPECT_FALSE(fs::exists(at("Photos") / name));
  }

  test::TemporaryFolder folder_;
  ScopedVariable data_{"XDG_DATA_HOME", at("data").string()};
};

TEST_F(TrashTest, AFileLiesInTheTrashWithANoteOfItsPlace) {
  trash("00012.jpg", "photo");
  EXPECT_EQ(readBytes(at("data/Trash/files/00012.jpg")), "photo");
  const std::string place = fs::canonical(at("Photos")).string() + "/00012.jpg";
  EXPECT_THAT(readBytes(at("data/Trash/info/00012.jpg.trashinfo")),
              testing::MatchesRegex("\\[Trash Info\\]\nPath=" + place +
                                    "\nDeletionDate=[0-9]{4}-[0-9]{2}-[0-9]{2}"
                                    "T[0-9]{2}:[0-9]{2}:[0-9]{2}\n"));
  EXPECT_FALSE(fs::exists(at("Backup")));
}

TEST_F(TrashTest, TheTrashIsForItsOwnerAlone) {
  trash("00012.jpg", "photo");
  for (const char* folder : {"data/Trash", "data/Trash/files", "data/Trash/info"})
    EXPECT_EQ(fs::status(at(folder)).permissions(), fs::perms::owner_all);
}

TEST_F(TrashTest, FilesOfOneNameLieSideBySide) {
  trash("00012.jpg", "first");
  trash("00012.jpg", "second");
  trash("00012.jpg", "third");
  EXPECT_THAT(namesIn(at("data/Trash/files")),
              ElementsAre("00012 (2).jpg", "00012 (3).jpg", "00012.jpg"));
  EXPECT_THAT(
      namesIn(at("data/Trash/info")),
      ElementsAre("00012 (2).jpg.trashinfo", "00012 (3).jpg.trashinfo", "00012.jpg.trashinfo"));
  EXPECT_EQ(readBytes(at("data/Trash/files/00012 (3).jpg")), "third");
}

TEST_F(TrashTest, AFileInTheTrashWithoutANoteIsNotWrittenOver) {
  writeBytes(at("data/Trash/files/00012.jpg"), "someone's");
  trash("00012.jpg", "photo");
  EXPECT_EQ(readBytes(at("data/Trash/files/00012.jpg")), "someone's");
  EXPECT_EQ(readBytes(at("data/Trash/files/00012 (2).jpg")), "photo");
  EXPECT_THAT(namesIn(at("data/Trash/info")), ElementsAre("00012 (2).jpg.trashinfo"));
}

TEST_F(TrashTest, TheNoteCodesWhatIsNoPlainCharacter) {
  trash("a b%\n\xC3\xBC.jpg", "photo");
  EXPECT_THAT(readBytes(at("data/Trash/info/a b%\n\xC3\xBC.jpg.trashinfo")),
              testing::HasSubstr("/a%20b%25%0A%C3%BC.jpg\n"));
}

TEST_F(TrashTest, ALongNameIsCutToWhatTheNoteNeeds) {
  std::string name(250, 'x');
  name += "\xC3\xBC"; // a cut must not go through it
  trash(name, "long");
  trash(std::string(251, 'y') + ".jpg", "longer");
  const auto names = namesIn(at("data/Trash/files"));
  ASSERT_EQ(names.size(), 2U);
  EXPECT_EQ(names[0], std::string(245, 'x'));
  EXPECT_EQ(names[1], std::string(241, 'y') + ".jpg");
}

TEST_F(TrashTest, ALinkIsTrashedAndNotWhatItPointsTo) {
  writeBytes(at("real.jpg"), "photo");
  fs::create_symlink(at("real.jpg"), at("link.jpg"));
  moveToTrash(at("link.jpg"), at("Backup"));
  EXPECT_EQ(readBytes(at("real.jpg")), "photo");
  EXPECT_TRUE(fs::is_symlink(at("data/Trash/files/link.jpg")));
}

TEST_F(TrashTest, AMissingFileIsTold) {
  EXPECT_THROW(moveToTrash(at("no.jpg"), at("Backup")), RunTimeError);
  EXPECT_FALSE(fs::exists(at("data")));
}

TEST_F(TrashTest, WithoutADataHomeTheTrashIsBelowTheUsersHome) {
  const ScopedVariable data("XDG_DATA_HOME", std::nullopt);
  const ScopedVariable home("HOME", at("home").string());
  trash("00012.jpg", "photo");
  EXPECT_EQ(readBytes(at("home/.local/share/Trash/files/00012.jpg")), "photo");
}

class WithoutATrash : public TrashTest {
protected:
  ScopedVariable noData_{"XDG_DATA_HOME", std::nullopt};
  ScopedVariable noHome_{"HOME", std::nullopt};
};

TEST_F(WithoutATrash, TheFileIsKeptUnderItsOwnName) {
  trash("00012.jpg", "photo");
  EXPECT_EQ(readBytes(at("Backup/00012.jpg")), "photo");
}

TEST_F(WithoutATrash, ANameThatIsTakenIsNumbered) {
  trash("00012.jpg", "first");
  trash("00012.jpg", "second");
  EXPECT_EQ(readBytes(at("Backup/00012.jpg")), "first");
  EXPECT_EQ(readBytes(at("Backup/00012 (2).jpg")), "second");
}

TEST_F(TrashTest, ATrashThatCannotBeMadeIsPassedOver) {
  writeBytes(at("data"), "in the way");
  trash("00012.jpg", "photo");
  EXPECT_EQ(readBytes(at("Backup/00012.jpg")), "photo");
}

TEST_F(TrashTest, WhereNothingCanBeDoneTheFileStays) {
  writeBytes(at("data"), "in the way");
  writeBytes(at("Backup"), "in the way");
  writeBytes(at("00012.jpg"), "photo");
  EXPECT_THROW(moveToTrash(at("00012.jpg"), at("Backup")), RunTimeError);
  EXPECT_EQ(readBytes(at("00012.jpg")), "photo");
}

class TrashOnAnotherDisk : public TrashTest {
protected:
  void SetUp() override {
    if (!test::canMountPrivately())
      GTEST_SKIP() << "this machine lets tests mount nothing";
    disk_.emplace(at("Photos"), 1 << 20);
    writeBytes(at("Photos/sub/00012.jpg"), "photo");
  }
  void trashOne() { moveToTrash(at("Photos/sub/00012.jpg"), at("Backup")); }

  std::string user_ = std::to_string(getuid());
  std::optional<test::SmallDisk> disk_;
};

TEST_F(TrashOnAnotherDisk, TheFileStaysOnItsDisk) {
  trashOne();
  const fs::path trash = at("Photos/.Trash-" + user_);
  EXPECT_EQ(readBytes(trash / "files/00012.jpg"), "photo");
  EXPECT_THAT(readBytes(trash / "info/00012.jpg.trashinfo"),
              testing::HasSubstr("\nPath=sub/00012.jpg\n"));
  EXPECT_FALSE(fs::exists(at("data")));
}

TEST_F(TrashOnAnotherDisk, ASharedTrashIsTakenIfItIsProtected) {
  fs::create_directory(at("Photos/.Trash"));
  ASSERT_EQ(chmod(at("Photos/.Trash").c_str(), 01777), 0);
  trashOne();
  EXPECT_EQ(readBytes(at("Photos/.Trash") / user_ / "files/00012.jpg"), "photo");
}

TEST_F(TrashOnAnotherDisk, ASharedTrashThatIsNotProtectedIsLeftAlone) {
  fs::create_directory(at("Photos/.Trash"));
  ASSERT_EQ(chmod(at("Photos/.Trash").c_str(), 0777), 0);
  trashOne();
  EXPECT_TRUE(namesIn(at("Photos/.Trash")).empty());
  EXPECT_TRUE(fs::exists(at("Photos/.Trash-" + user_) / "files/00012.jpg"));
}

TEST_F(TrashOnAnotherDisk, WithoutATrashThereTheFileIsCopiedAndThenRemoved) {
  writeBytes(at("Photos/.Trash-" + user_), "in the way");
  trashOne();
  EXPECT_EQ(readBytes(at("Backup/00012.jpg")), "photo");
  EXPECT_FALSE(fs::exists(at("Photos/sub/00012.jpg")));
}

TEST_F(TrashTest, ACopyLiesInTheTrashAndTheFileStaysUntilAnotherTakesItsPlace) {
  writeBytes(at("Photos/00012.jpg"), "the old one");
  copyToTrash(at("Photos/00012.jpg"), at("Backup"));
  EXPECT_EQ(readBytes(at("Photos/00012.jpg")), "the old one");
  replaceFile(at("Photos/00012.jpg"), [](std::ostream& out) { out << "the new one"; });
  EXPECT_EQ(readBytes(at("data/Trash/files/00012.jpg")), "the old one");
  EXPECT_EQ(readBytes(at("Photos/00012.jpg")), "the new one");
  copyToTrash(at("Photos/00012.jpg"), at("Backup"));
  EXPECT_EQ(readBytes(at("data/Trash/files/00012 (2).jpg")), "the new one");
  EXPECT_THAT(namesIn(at("data/Trash/info")),
              ElementsAre("00012 (2).jpg.trashinfo", "00012.jpg.trashinfo"));
}

TEST_F(TrashTest, ACopyIsKeptInTheBackupWhereThereIsNoTrash) {
  writeBytes(at("data"), "no folder can be made here");
  writeBytes(at("Photos/00012.jpg"), "photo");
  copyToTrash(at("Photos/00012.jpg"), at("Backup"));
  copyToTrash(at("Photos/00012.jpg"), at("Backup"));
  EXPECT_EQ(readBytes(at("Photos/00012.jpg")), "photo");
  EXPECT_THAT(namesIn(at("Backup")), ElementsAre("00012 (2).jpg", "00012.jpg"));
}

TEST_F(TrashTest, ACopyOfAFileThatIsNotThereIsRefused) {
  EXPECT_THROW(copyToTrash(at("Photos/00012.jpg"), at("Backup")), RunTimeError);
}

} // namespace
} // namespace hearthbook
