#include "AlbumStart.h"
#include "BoxScript.h"
#include "FileBytes.h"
#include "Forms.h"
#include "MDIForm1.h"
#include "PrivateMount.h"
#include "Program.h"
#include "ShellFixture.h"
#include "Text.h"
#include "Wiring.h"

#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <optional>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

/// Asked before anything has a thread: threads that are there already would not see the mounts.
const bool framesCanMount = test::canMountPrivately();

/// The program's start and its end on an album whose disk fails them.
class FrameFaults : public test::ShellTest {
protected:
  void SetUp() override {
    if (!framesCanMount)
      GTEST_SKIP() << "this machine lets tests mount nothing";
    addPhoto("HD00002", "1990");
  }

  void openFrame() {
    ASSERT_EQ(startAlbum(album(), [] { return false; }), AlbumStart::Opened);
    frame = std::make_unique<MDIForm1>(album(), ShellServices{});
    wiring = std::make_unique<Wiring>(album(), *frame);
    frame->open();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
  }

  /// What a family reads when the closing backup cannot be made.
  void expectClosingFails(const char* cause) {
    boxes.expectFailure(toQString(std::string("The album could not be compacted and backed up."
                                              "\n\nThe compacted copy ") +
                                  backup().string() + " could not be made: " + cause));
  }

  void expectWholeAlbum() {
    Connection connection;
    connection.Open(live());
    EXPECT_TRUE(connection.passesQuickCheck());
    Recordset rows(connection);
    rows.Open("SELECT * FROM PhotoAlbum");
    EXPECT_EQ(rows.RecordCount(), 2);
  }

  std::unique_ptr<MDIForm1> frame;
  std::unique_ptr<Wiring> wiring;
  test::BoxScript boxes;
};

class FullDiskFrame : public FrameFaults {
protected:
  void SetUp() override {
    FrameFaults::SetUp();
    if (IsSkipped())
      return;
    const fs::path aside = folder().root().parent_path() / "aside";
    fs::copy(folder().root(), aside, fs::copy_options::recursive);
    disk.emplace(folder().root(), std::size_t{8} << 20);
    fs::copy(aside, folder().root(), fs::copy_options::recursive);
  }

  /// The frame and the album let go of the disk before it goes.
  void TearDown() override {
    wiring.reset();
    frame.reset();
    folder_.close();
  }

  std::optional<test::SmallDisk> disk;
};

} // namespace

TEST_F(FullDiskFrame, TheProgramStartsAndTellsAtItsEndThatThereIsNoBackup) {
  disk->fillUpTo(0);
  openFrame();
  expectClosingFails("the disk is full");

  EXPECT_TRUE(frame->close());

  EXPECT_TRUE(boxes.isDone());
  EXPECT_FALSE(frame->isVisible());
  disk->makeRoom();
  expectWholeAlbum();
}

TEST_F(FullDiskFrame, TheEndBehindItMakesTheBackupAgain) {
  makeBackup();
  disk->fillUpTo(0);
  openFrame();
  expectClosingFails("the disk is full");
  frame->close();
  wiring.reset();
  frame.reset();
  folder_.close();
  disk->makeRoom();

  openFrame();
  EXPECT_TRUE(frame->close());

  EXPECT_TRUE(fileExists(backup()));
  expectWholeAlbum();
}

TEST_F(FrameFaults, AFolderThatCanOnlyBeReadIsNamedAndTheProgramDoesNotStart) {
  const test::ReadOnlyMount mount(folder().root());
  boxes.expectMessage(toQString("Hearthbook cannot start.\n\nThe folder " +
                                folder().root().string() + " cannot be written to."),
                      {}, MsgIcon::Critical);

  EarlyStart early(folder());
  EXPECT_EQ(runHearthbook(early, {}), 0);

  EXPECT_TRUE(boxes.isDone());
  expectWholeAlbum();
}

TEST_F(FrameFaults, ADiskThatTurnsReadOnlyIsToldAtTheEnd) {
  makeBackup();
  const std::string bytes = test::readBytes(backup());
  openFrame();
  {
    const test::ReadOnlyMount mount(folder().root());
    boxes.expectFailure(toQString("The album could not be compacted and backed up."));
    EXPECT_TRUE(frame->close());
  }
  EXPECT_TRUE(boxes.isDone());
  EXPECT_EQ(test::readBytes(backup()), bytes);
  expectWholeAlbum();
}

} // namespace hearthbook
