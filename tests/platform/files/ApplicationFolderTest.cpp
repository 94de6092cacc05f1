#include "ApplicationFolder.h"
#include "FileBytes.h"
#include "PrivateMount.h"
#include "RunTimeError.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace hearthbook {
namespace {

using test::readBytes;
using test::writeBytes;
namespace fs = std::filesystem;

class ApplicationFolderTest : public testing::Test {
protected:
  [[nodiscard]] fs::path at(const std::string& name) const { return folder_.path() / name; }

  test::TemporaryFolder folder_;
  ApplicationFolder application_{folder_.path()};
};

TEST_F(ApplicationFolderTest, EverySpellingOfAFolderIsTheSameFolder) {
  EXPECT_EQ(application_.path("\\Media\\Btn_Gry.jpg"), at("Media/Btn_Gry.jpg"));
  EXPECT_EQ(application_.path("\\media\\NotFound.gif"), at("Media/NotFound.gif"));
  EXPECT_EQ(application_.path("\\thumbnails\\00012.jpg"), at("Thumbnails/00012.jpg"));
  EXPECT_EQ(application_.path("\\audio\\A3.wav"), at("Audio/A3.wav"));
  EXPECT_EQ(application_.path("\\help\\help.hlp"), at("help/help.hlp"));
  EXPECT_EQ(application_.path("\\Data\\"), at("Data"));
  EXPECT_EQ(application_.path("/photos/00012.jpg"), at("Photos/00012.jpg"));
  EXPECT_EQ(application_.path("Backup"), at("Backup"));
  EXPECT_EQ(application_.path("\\Export\\template"), at("export/template"));
}

TEST_F(ApplicationFolderTest, AFolderThatIsThereInAnotherSpellingIsTaken) {
  fs::create_directory(at("PHOTOS"));
  EXPECT_EQ(application_.path("\\Photos\\00012.jpg"), at("PHOTOS/00012.jpg"));
}

TEST_F(ApplicationFolderTest, OfTwoSpellingsTheCanonicalOneIsTaken) {
  fs::create_directory(at("media"));
  fs::create_directory(at("Media"));
  EXPECT_EQ(application_.path("\\media\\NotFound.gif"), at("Media/NotFound.gif"));
}

TEST_F(ApplicationFolderTest, WhatFollowsTheFolderIsTakenAsItStands) {
  writeBytes(at("Media/notfound.gif"), "x");
  EXPECT_EQ(application_.path("\\Media\\NotFound.gif"), at("Media/NotFound.gif"));
}

TEST_F(ApplicationFolderTest, NoPathIsTheFolderItself) {
  EXPECT_EQ(application_.path(""), folder_.path());
  EXPECT_EQ(application_.path("\\"), folder_.path());
}

TEST_F(ApplicationFolderTest, FilesOfAStemHaveAnyExtensionAndNoLongerName) {
  for (const char* name : {"00012.wav", "00012.mid", "00012.MP3", "000121.wav", "00012", "1.wav"})
    writeBytes(at("Audio") / name, "x");
  fs::create_directory(at("Audio/00012.folder"));
  EXPECT_THAT(
      application_.filesWithStem("\\audio\\", "00012"),
      testing::ElementsAre(at("Audio/00012.mid"), at("Audio/00012.MP3"), at("Audio/00012.wav")));
}

TEST_F(ApplicationFolderTest, FilesOfAStemComeInTheSameOrderHoweverTheyAreSpelled) {
  for (const char* name : {"A3.WAV", "a3.mid", "a3.wav"})
    writeBytes(at("Audio") / name, "x");
  EXPECT_THAT(application_.filesWithStem("\\Audio\\", "A3"),
              testing::ElementsAre(at("Audio/a3.mid"), at("Audio/A3.WAV"), at("Audio/a3.wav")));
}

TEST_F(ApplicationFolderTest, AStemIsFoundInAnyCase) {
  writeBytes(at("Audio/a3.wav"), "x");
  EXPECT_EQ(application_.filesWithStem("\\Audio\\", "A3").size(), 1U);
}

TEST_F(ApplicationFolderTest, AnEmptyStemMatchesNothing) {
  writeBytes(at("Audio/.hidden"), "x");
  EXPECT_TRUE(application_.filesWithStem("\\Audio\\", "").empty());
}

TEST_F(ApplicationFolderTest, AMissingFolderHasNoFiles) {
  EXPECT_TRUE(application_.filesWithStem("\\Audio\\", "00012").empty());
}

TEST_F(ApplicationFolderTest, OnlyAFileExistsAsAFile) {
  writeBytes(at("a"), "");
  fs::create_directory(at("b"));
  fs::create_symlink("nowhere", at("c"));
  fs::create_symlink("a", at("d"));
  EXPECT_TRUE(fileExists(at("a")));
  EXPECT_FALSE(fileExists(at("b")));
  EXPECT_FALSE(fileExists(at("c")));
  EXPECT_TRUE(fileExists(at("d")));
  EXPECT_FALSE(fileExists(at("a/below")));
  EXPECT_FALSE(fileExists(at(std::string(300, 'n'))));
  EXPECT_FALSE(fileExists(""));
}

/// A program with what an installation puts beside it.
class ProgramPlace : public testing::Test {
protected:
  ProgramPlace() {
    writeBytes(program_ / "Hearthbook", "program");
    writeBytes(program_ / "Data/Photo_Album.mdb", "album");
    writeBytes(program_ / "Data/Help.mdb", "help");
    writeBytes(program_ / "Media/NotFound.gif", "picture");
    writeBytes(program_ / "Audio/8Bit.wav", "template");
    writeBytes(program_ / "Photos/00001.jpg", "photo");
    writeBytes(program_ / "Backup/Photo_Album.mdb", "not to be taken");
    writeBytes(program_ / "export/template/index.htm", "page");
  }

  ApplicationFolder start() {
    return ApplicationFolder::forProgram(program_ / "Hearthbook", user_);
  }

  test::TemporaryFolder folder_;
  fs::path program_ = folder_.path() / "program";
  fs::path user_ = folder_.path() / "user/album";
};

TEST_F(ProgramPlace, AWritableFolderWithDatabasesIsTheAlbum) {
  EXPECT_EQ(start().root(), fs::canonical(program_));
  EXPECT_FALSE(fs::exists(user_));
}

TEST_F(ProgramPlace, ALinkToTheProgramLeadsToTheProgramsFolder) {
  fs::create_symlink(program_ / "Hearthbook", folder_.path() / "hearthbook");
  EXPECT_EQ(ApplicationFolder::forProgram(folder_.path() / "hearthbook", user_).root(),
            fs::canonical(program_));
}

TEST_F(ProgramPlace, AFolderWithoutDatabasesSendsTheAlbumToTheUsersFolder) {
  fs::remove_all(program_ / "Data");
  EXPECT_EQ(start().root(), user_);
  EXPECT_EQ(readBytes(user_ / "Media/NotFound.gif"), "picture");
}

TEST_F(ProgramPlace, AUsersFolderThatCannotBeMadeIsTold) {
  fs::remove_all(program_ / "Data");
  writeBytes(folder_.path() / "user", "in the way");
  EXPECT_THROW(start(), RunTimeError);
}

/// Where a package installs a program.
class ReadOnlyProgramPlace : public ProgramPlace {
protected:
  void SetUp() override {
    if (!test::canMountPrivately())
      GTEST_SKIP() << "this machine lets tests mount nothing";
    mount_.emplace(program_);
  }

  std::optional<test::ReadOnlyMount> mount_;
};

TEST_F(ReadOnlyProgramPlace, TheFirstStartFillsTheUsersFolder) {
  EXPECT_EQ(start().root(), user_);
  EXPECT_EQ(readBytes(user_ / "Data/Photo_Album.mdb"), "album");
  EXPECT_EQ(readBytes(user_ / "Data/Help.mdb"), "help");
  EXPECT_EQ(readBytes(user_ / "Media/NotFound.gif"), "picture");
  EXPECT_EQ(readBytes(user_ / "Photos/00001.jpg"), "photo");
  EXPECT_EQ(readBytes(user_ / "export/template/index.htm"), "page");
  EXPECT_FALSE(fs::exists(user_ / "Hearthbook"));
  EXPECT_FALSE(fs::exists(user_ / "Backup"));
}

TEST_F(ReadOnlyProgramPlace, LaterStartsTouchNoFileThatIsThere) {
  start();
  writeBytes(user_ / "Data/Photo_Album.mdb", "the family's");
  writeBytes(user_ / "Media/NotFound.gif", "the family's");
  start();
  EXPECT_EQ(readBytes(user_ / "Data/Photo_Album.mdb"), "the family's");
  EXPECT_EQ(readBytes(user_ / "Media/NotFound.gif"), "the family's");
}

TEST_F(ReadOnlyProgramPlace, APhotoThatTheFamilyDeletedDoesNotComeBack) {
  start();
  fs::remove(user_ / "Photos/00001.jpg");
  start();
  EXPECT_FALSE(fs::exists(user_ / "Photos/00001.jpg"));
}

TEST_F(ReadOnlyProgramPlace, APictureThatANewerProgramBringsIsAdded) {
  start();
  fs::remove(user_ / "Media/NotFound.gif");
  start();
  EXPECT_EQ(readBytes(user_ / "Media/NotFound.gif"), "picture");
}

TEST_F(ReadOnlyProgramPlace, ATemplateWaveThatANewerProgramBringsIsAddedToAnAlbum) {
  start();
  fs::remove(user_ / "Audio/8Bit.wav");
  start();
  EXPECT_EQ(readBytes(user_ / "Audio/8Bit.wav"), "template");
}

TEST_F(ReadOnlyProgramPlace, ALostAlbumWithABackupIsLeftForTheRestore) {
  start();
  writeBytes(user_ / "Backup/Photo_Album.mdb", "the family's");
  fs::remove(user_ / "Data/Photo_Album.mdb");
  start();
  EXPECT_FALSE(fs::exists(user_ / "Data/Photo_Album.mdb"));
}

} // namespace
} // namespace hearthbook
