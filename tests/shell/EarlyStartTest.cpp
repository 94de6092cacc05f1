#include "EarlyStart.h"

#include "FileBytes.h"
#include "RunTimeError.h"
#include "ShellFixture.h"
#include "SingleInstance.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

class EarlyStartTest : public test::ShellTest {};

TEST_F(EarlyStartTest, HandsOverAnAlbumThatStandsOpen) {
  addPhoto("HD00002", "1990");
  EarlyStart early(folder());

  EXPECT_TRUE(early.takeOpening().get());

  EXPECT_EQ(early.album().data.rsPhotoAlbum.RecordCount(), 2);
  early.album().data.rsPhotoAlbum.MoveLast();
  early.album().data.rsPhotoAlbum.Collect("Year", Value(1991));
  early.album().data.rsPhotoAlbum.Update();
  EXPECT_EQ(early.album().data.rsPhotoAlbum.Collect("Year"), Value(1991));
}

TEST_F(EarlyStartTest, ItsLockIsTheOneThatLaterStartsMeet) {
  EarlyStart early(folder());
  SingleInstance later(folder().root());
  later.setPatience(10);

  EXPECT_EQ(later.claim(), SingleInstance::Claim::Silent);
  EXPECT_EQ(SingleInstance(folder().root(), early.takeLock()).claim(),
            SingleInstance::Claim::First);
}

TEST_F(EarlyStartTest, AnAlbumThatAnotherStartHasIsNotTouched) {
  std::filesystem::remove_all(folder().path("\\Backup"));
  SingleInstance other(folder().root());
  ASSERT_EQ(other.claim(), SingleInstance::Claim::First);

  EarlyStart early(folder());

  EXPECT_FALSE(early.takeOpening().valid());
  EXPECT_FALSE(early.album().data.AlbumDB.isOpen());
  EXPECT_FALSE(std::filesystem::exists(folder().path("\\Backup")));
}

TEST_F(EarlyStartTest, AMissingDatabaseIsLeftToTheQuestion) {
  makeBackup();
  std::filesystem::remove(live());
  EarlyStart early(folder());

  EXPECT_FALSE(early.takeOpening().get());

  EXPECT_FALSE(fileExists(live()));
  EXPECT_FALSE(early.album().data.AlbumDB.isOpen());
}

TEST_F(EarlyStartTest, WhatIsWrongWithTheAlbumComesWithTheAnswer) {
  test::writeBytes(live(), "this is no database at all");
  EarlyStart early(folder());
  auto opening = early.takeOpening();

  EXPECT_THROW(opening.get(), RunTimeError);
}

TEST_F(EarlyStartTest, AStartThatGoesNoFurtherEndsWhatItHasBegun) {
  { const EarlyStart early(folder()); }

  EXPECT_EQ(SingleInstance(folder().root()).claim(), SingleInstance::Claim::First);
}

TEST_F(EarlyStartTest, TheFolderOfTheProgramIsTheAlbumsWhereItCanBeWrittenTo) {
  EarlyStart early(folder().root() / "Hearthbook", folder().root() / "user");

  EXPECT_EQ(early.failure(), "");
  EXPECT_EQ(std::filesystem::canonical(early.album().folder.root()),
            std::filesystem::canonical(folder().root()));
}

} // namespace
} // namespace hearthbook
