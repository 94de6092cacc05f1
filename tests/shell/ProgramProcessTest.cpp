#include "FileBytes.h"
#include "ShellFixture.h"
#include "SingleInstance.h"
#include "Text.h"

#include <gtest/gtest.h>

#include <QLocalSocket>
#include <QProcess>
#include <QTest>

#include <csignal>

namespace hearthbook {
namespace {

/// The real program in an application folder of its own.
class ProgramProcessTest : public test::ShellTest {
protected:
  void SetUp() override {
    program = folder().root() / "Hearthbook";
    std::filesystem::copy_file(HEARTHBOOK_PROGRAM, program);
  }

  std::unique_ptr<QProcess> start() {
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process->setProcessEnvironment(environment);
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->start(toQString(program), QStringList());
    return process;
  }

  /// True once the program's event loop answers.
  bool answers() {
    return QTest::qWaitFor([this] { return !SingleInstance::ask(folder().root(), 1000).isEmpty(); },
                           patience);
  }

  static bool ends(QProcess& process) { return process.waitForFinished(patience); }

  static constexpr int patience = 60'000;
  std::filesystem::path program;
};

TEST_F(ProgramProcessTest, ASecondStartEndsAndTheFirstGoesOn) {
  const auto first = start();
  ASSERT_TRUE(answers());

  const auto second = start();

  ASSERT_TRUE(ends(*second));
  EXPECT_EQ(second->exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(second->exitCode(), 0);
  EXPECT_EQ(first->state(), QProcess::Running);
  first->kill();
  ends(*first);
}

TEST_F(ProgramProcessTest, AfterAKillTheNextStartOpensTheAlbum) {
  const auto killed = start();
  ASSERT_TRUE(answers());
  killed->kill();
  ASSERT_TRUE(ends(*killed));

  const auto next = start();

  EXPECT_TRUE(answers());
  EXPECT_EQ(next->state(), QProcess::Running);
  next->kill();
  ends(*next);
}

TEST_F(ProgramProcessTest, AnEndAskedByTheSystemMakesTheClosingBackup) {
  const auto process = start();
  ASSERT_TRUE(answers());
  ASSERT_FALSE(fileExists(backup()));

  kill(static_cast<pid_t>(process->processId()), SIGTERM);

  ASSERT_TRUE(ends(*process));
  EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(process->exitCode(), 0);
  EXPECT_TRUE(fileExists(backup()));
  EXPECT_TRUE(fileExists(live()));
}

TEST_F(ProgramProcessTest, AKillLeavesTheBackupOfTheRunBefore) {
  std::filesystem::create_directories(folder().path("\\Backup"));
  std::filesystem::copy_file(live(), backup());
  const std::string before = test::readBytes(backup());
  const auto process = start();
  ASSERT_TRUE(answers());

  process->kill();

  ASSERT_TRUE(ends(*process));
  EXPECT_EQ(test::readBytes(backup()), before);
}

/// SDL draws in the systems for sound and graphics, and few families have a PCX or TGA file.
TEST_F(ProgramProcessTest, AStartLoadsNoLibraryThatOnlySomePicturesNeed) {
  const auto process = start();
  ASSERT_TRUE(answers());

  const std::string loaded =
      test::readBytes("/proc/" + std::to_string(process->processId()) + "/maps");

  EXPECT_NE(loaded.find("libQt6Widgets"), std::string::npos);
  EXPECT_EQ(loaded.find("libSDL2"), std::string::npos);
  process->kill();
  ends(*process);
}

} // namespace
} // namespace hearthbook
