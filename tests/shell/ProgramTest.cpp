#include "Program.h"

#include "BoxScript.h"
#include "FileBytes.h"
#include "Forms.h"
#include "MDIForm1.h"
#include "Progress.h"
#include "ShellFixture.h"
#include "SingleInstance.h"
#include "Text.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QProgressBar>
#include <QTest>
#include <QTimer>

#include <functional>
#include <future>

namespace hearthbook {
namespace {

/// Keeps the title that a frame was given last.
class TitleWatch : public QObject {
public:
  explicit TitleWatch(QString& title) : title_(title) { qApp->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::WindowTitleChange && qobject_cast<MDIForm1*>(watched))
      title_ = static_cast<QWidget*>(watched)->windowTitle();
    return false;
  }

private:
  QString& title_;
};

class ProgramTest : public test::ShellTest {
protected:
  int run() {
    EarlyStart early(folder());
    return runHearthbook(early, {});
  }

  /// Runs the program; once its frame is there it is looked at again and again, and closed when
  /// that is done, in a minute at the latest.
  int runUntil(const std::function<bool(QWidget& frame)>& isDone) {
    QTimer look;
    const QDeadlineTimer end(60'000);
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
      QWidget* frame = Forms::host() ? Forms::host()->window() : nullptr;
      if (!frame || !frame->isVisible())
        return;
      opened = true;
      if (!isDone(*frame) && !end.hasExpired())
        return;
      look.stop();
      frame->close();
    });
    look.start(1);
    return run();
  }

  int runAndClose() {
    return runUntil([](QWidget&) { return true; });
  }

  /// What a second start asks of the first, beside this thread, in whose loop that one answers.
  std::future<QByteArray> askToComeForward() {
    return std::async(std::launch::async,
                      [root = folder().root()] { return SingleInstance::ask(root, 60'000); });
  }
  static bool isThere(const std::future<QByteArray>& reply) {
    return reply.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
  }

  void expectRestoreQuestion(MsgAnswer answer) {
    boxes.expectQuestion(QStringLiteral("Your photo album database could not be found.\n"
                                        "Would you like to restore the backup database?"),
                         QStringLiteral("Database not found"), MsgIcon::None, MsgButtons::YesNo,
                         answer);
  }

  test::BoxScript boxes;
  bool opened = false;
};

TEST_F(ProgramTest, StartsAndEndsWithTheClosingBackup) {
  EXPECT_EQ(runAndClose(), 0);

  EXPECT_TRUE(opened);
  EXPECT_TRUE(fileExists(backup()));
  EXPECT_TRUE(fileExists(live()));
}

TEST_F(ProgramTest, ASecondStartBringsTheFirstForwardAndAddsNoWindow) {
  std::future<QByteArray> reply;
  bool wasMinimized = false;
  bool isMinimized = true;
  qsizetype windows = 0;
  const auto countWindows = [] { return QGuiApplication::topLevelWindows().size(); };

  runUntil([&](QWidget& frame) {
    if (!reply.valid()) {
      frame.showMinimized();
      wasMinimized = frame.isMinimized();
      windows = countWindows();
      reply = askToComeForward();
      return false;
    }
    if (!isThere(reply))
      return false;
    isMinimized = frame.isMinimized();
    windows -= countWindows();
    return true;
  });

  EXPECT_EQ(reply.get(), "raised\n");
  EXPECT_TRUE(wasMinimized);
  EXPECT_FALSE(isMinimized);
  EXPECT_EQ(windows, 0);
}

TEST_F(ProgramTest, ASecondStartIsToldThatTheFirstIsEnding) {
  std::future<QByteArray> reply;
  const auto askOnce = [&] {
    if (reply.valid())
      return;
    reply = askToComeForward();
    EXPECT_TRUE(QTest::qWaitFor([&] { return isThere(reply); }, 60'000));
  };

  runUntil([&](QWidget&) {
    Forms::provide<Progress>([&askOnce] {
      auto* closing = new Progress; // the first that is wanted from here is that of the backup
      auto* bar = closing->findChild<QProgressBar*>();
      QObject::connect(bar, &QProgressBar::valueChanged, bar, askOnce);
      return closing;
    });
    return true;
  });

  ASSERT_TRUE(reply.valid());
  EXPECT_EQ(reply.get(), "ending\n");
}

TEST_F(ProgramTest, TheStartRemovesWhatAKilledRunHasLeft) {
  // Above the highest process number.
  const auto leftover = folder().path("\\Photos") / ".hearthbook-999999999-3.part";
  test::writeBytes(leftover, "half");

  runUntil([&leftover](QWidget&) { return !fileExists(leftover); });

  EXPECT_TRUE(opened);
  EXPECT_FALSE(fileExists(leftover));
}

TEST_F(ProgramTest, AnUnchangedAlbumIsRewrittenAllTheSame) {
  runAndClose();
  const auto before = std::filesystem::last_write_time(backup());
  std::filesystem::last_write_time(backup(), before - std::chrono::hours(1));

  runAndClose();

  EXPECT_GT(std::filesystem::last_write_time(backup()), before - std::chrono::hours(1));
}

TEST_F(ProgramTest, RestoresTheBackupWhereTheDatabaseIsMissing) {
  makeBackup();
  std::filesystem::remove(live());
  expectRestoreQuestion(MsgAnswer::Yes);

  EXPECT_EQ(runAndClose(), 0);

  EXPECT_TRUE(opened);
  EXPECT_TRUE(fileExists(live()));
}

TEST_F(ProgramTest, WithTheAnswerNoItEndsAndLeavesTheBackupAlone) {
  makeBackup();
  const auto bytes = test::readBytes(backup());
  std::filesystem::remove(live());
  expectRestoreQuestion(MsgAnswer::No);
  boxes.expectMessage(QStringLiteral("Hearthbook Could Not Continue!"),
                      QStringLiteral("Database Not Found"), MsgIcon::Critical);

  EXPECT_EQ(run(), 1);

  EXPECT_EQ(test::readBytes(backup()), bytes);
  EXPECT_FALSE(fileExists(live()));
}

TEST_F(ProgramTest, AFailedRestoreEndsTheStart) {
  std::filesystem::remove(live());
  expectRestoreQuestion(MsgAnswer::Yes);
  boxes.expectFailure(toQString(backup().string()));

  EXPECT_EQ(run(), 1);

  EXPECT_FALSE(fileExists(live()));
  EXPECT_FALSE(fileExists(backup()));
}

TEST_F(ProgramTest, ABadDatabaseEndsTheStartAndLeavesTheBackupAlone) {
  makeBackup();
  const auto bytes = test::readBytes(backup());
  test::writeBytes(live(), "this is no database at all");
  boxes.expectFailure(toQString(live().string()));

  EXPECT_EQ(run(), 1);

  EXPECT_EQ(test::readBytes(backup()), bytes);
  EXPECT_EQ(test::readBytes(live()), "this is no database at all");
}

TEST_F(ProgramTest, AMissingHelpDatabaseEndsTheStartAndLeavesTheBackupAlone) {
  makeBackup();
  const auto bytes = test::readBytes(backup());
  const auto help = folder().path("\\Data\\Help.mdb");
  std::filesystem::remove(help);
  boxes.expectFailure(toQString(help.string()));

  EXPECT_EQ(run(), 1);

  EXPECT_EQ(test::readBytes(backup()), bytes);
  EXPECT_FALSE(fileExists(help));
}

TEST_F(ProgramTest, AStartThatFailsTellsThatNothingWasChanged) {
  std::filesystem::remove(folder().path("\\Data\\Help.mdb"));
  boxes.expectFailure(QStringLiteral("Nothing was changed."));

  EXPECT_EQ(run(), 1);
  EXPECT_TRUE(boxes.isDone());
}

TEST_F(ProgramTest, AStartThatFailsBehindTheRestoreTellsOfIt) {
  makeBackup();
  std::filesystem::remove(live());
  std::filesystem::remove(folder().path("\\Data\\Help.mdb"));
  expectRestoreQuestion(MsgAnswer::Yes);
  boxes.expectFailure(
      toQString("\n\nYour album was restored from the backup. It is in " + live().string() + "."));

  EXPECT_EQ(run(), 1);
  EXPECT_TRUE(boxes.isDone());
  EXPECT_TRUE(fileExists(live()));
}

TEST_F(ProgramTest, ASecondStartIsNamedApartAndGoes) {
  SingleInstance other(folder().root());
  ASSERT_EQ(other.claim(), SingleInstance::Claim::First);
  QString title;
  boxes.expectFailure(QStringLiteral("but does not answer"));
  TitleWatch watch(title);

  EXPECT_EQ(run(), 0);

  EXPECT_EQ(title, QStringLiteral("Hearthbook2"));
}

TEST_F(ProgramTest, AnAlbumThatAnotherProgramHoldsInSilenceIsTold) {
  SingleInstance other(folder().root());
  ASSERT_EQ(other.claim(), SingleInstance::Claim::First);
  boxes.expectFailure(QStringLiteral("but does not answer"));

  EXPECT_EQ(run(), 0);

  EXPECT_FALSE(fileExists(backup()));
}

TEST_F(ProgramTest, OfADamagedAlbumThatAnotherProgramHoldsOnlyTheLatterIsTold) {
  test::writeBytes(live(), "this is no database at all");
  SingleInstance other(folder().root());
  ASSERT_EQ(other.claim(), SingleInstance::Claim::First);
  boxes.expectFailure(QStringLiteral("but does not answer"));

  EXPECT_EQ(run(), 0);
}

TEST_F(ProgramTest, AUsersFolderThatCannotBeMadeIsTold) {
  const auto blocked = folder().root() / "a file";
  test::writeBytes(blocked, "not a folder");
  boxes.expectFailure(toQString(blocked.string()));

  // A program without an album beside it, and nowhere to put one.
  EarlyStart early(folder().root() / "Media" / "Hearthbook", blocked / "user");

  EXPECT_EQ(runHearthbook(early, {}), 1);
}

TEST_F(ProgramTest, AFolderThatCannotBeWrittenToIsTold) {
  const ApplicationFolder missing(folder().root() / "missing");
  boxes.expectFailure(QStringLiteral("cannot be written to"));

  EarlyStart early(missing);

  EXPECT_EQ(runHearthbook(early, {}), 0);
}

} // namespace
} // namespace hearthbook
