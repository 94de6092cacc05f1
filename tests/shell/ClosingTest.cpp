#include "Closing.h"

#include "BoxScript.h"
#include "FileBytes.h"
#include "Forms.h"
#include "Progress.h"
#include "ShellFixture.h"
#include "Text.h"

#include <gtest/gtest.h>

#include <QProgressBar>
#include <QSignalSpy>

namespace hearthbook {
namespace {

class ClosingTest : public test::ShellTest {
protected:
  ClosingTest() {
    Forms::provide<Progress>([this] {
      auto* progress = new Progress;
      auto* bar = progress->findChild<QProgressBar*>();
      QObject::connect(bar, &QProgressBar::valueChanged, bar,
                       [this](int value) { barValues.push_back(value); });
      QObject::connect(progress, &QWidget::windowTitleChanged, progress,
                       [this](const QString& title) { caption = title; });
      return progress;
    });
    open();
  }
  ~ClosingTest() override { Forms::reset(); }

  std::vector<int> barValues;
  QString caption;
  test::BoxScript boxes;
};

TEST_F(ClosingTest, LeavesACompactedCopyInBackupAndAnEqualLiveFile) {
  closeAlbum(album().data, folder());

  EXPECT_FALSE(album().data.AlbumDB.isOpen());
  EXPECT_TRUE(fileExists(backup()));
  EXPECT_TRUE(fileExists(live()));
  EXPECT_EQ(caption, QStringLiteral("Compact & Backup Database, Please Wait"));
  EXPECT_FALSE(Forms::loaded<Progress>());
}

TEST_F(ClosingTest, TheBarOfTheFirstCloseGoesFromAQuarterToThreeQuarters) {
  closeAlbum(album().data, folder());

  EXPECT_EQ(barValues, (std::vector<int>{25, 75, 100}));
}

TEST_F(ClosingTest, TheBarTellsThatTheOldBackupIsGone) {
  makeBackup();

  closeAlbum(album().data, folder());

  EXPECT_EQ(barValues, (std::vector<int>{25, 50, 75, 100}));
}

TEST_F(ClosingTest, WhatIsPendingIsWrittenBeforeTheCopyIsMade) {
  album().data.rsPhotoAlbum.Collect("Description", Value("the lake"));

  closeAlbum(album().data, folder());

  Connection copy;
  copy.Open(backup());
  Recordset rows(copy);
  rows.Open("SELECT * FROM PhotoAlbum");
  EXPECT_EQ(rows.Collect("Description").toText(), "the lake");
}

TEST_F(ClosingTest, AFailureSaysWhyAndWhereTheAlbumIs) {
  std::filesystem::remove_all(backup().parent_path());
  test::writeBytes(backup().parent_path(), "a file where the folder should be");
  const auto whole = test::readBytes(live());
  boxes.expectFailure(toQString("Your album is whole. It is in " + live().string()));

  closeAlbum(album().data, folder());

  EXPECT_TRUE(boxes.isDone());
  EXPECT_EQ(test::readBytes(live()), whole);
  EXPECT_FALSE(Forms::loaded<Progress>());
}

class ClosingFailureTest : public ClosingTest {
protected:
  void damageLive() { test::writeBytes(live(), "this is no database at all"); }
};

TEST_F(ClosingFailureTest, ADamagedAlbumIsNotCalledWhole) {
  damageLive();
  boxes.expectFailure(toQString(live().string() +
                                " is damaged or cannot be read. There is no "
                                "whole copy in " +
                                backup().string() + " either."));

  closeAlbum(album().data, folder());

  EXPECT_TRUE(boxes.isDone());
}

TEST_F(ClosingFailureTest, ADamagedAlbumNamesTheWholeBackup) {
  makeBackup();
  damageLive();
  boxes.expectFailure(toQString(live().string() + " is damaged or cannot be read. The backup in " +
                                backup().string() + " is whole;"));

  closeAlbum(album().data, folder());

  EXPECT_TRUE(boxes.isDone());
}

TEST_F(ClosingFailureTest, AMissingAlbumNamesTheBackupToRestore) {
  makeBackup();
  std::filesystem::remove(live());
  boxes.expectFailure(toQString("\n\nYour album is whole in " + backup().string()));

  closeAlbum(album().data, folder());

  EXPECT_TRUE(boxes.isDone());
}

TEST_F(ClosingFailureTest, NothingIsCalledWholeWhereAlbumAndBackupAreGone) {
  std::filesystem::remove(live());
  boxes.expectFailure(toQString(live().string() + " is missing. There is no whole copy in "));

  closeAlbum(album().data, folder());

  EXPECT_TRUE(boxes.isDone());
}

} // namespace
} // namespace hearthbook
