#include "Startup.h"

#include "Forms.h"
#include "PictureCommand.h"
#include "PictureLoader.h"
#include "ShellFixture.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

namespace hearthbook {
namespace {

class StartupTest : public test::ShellTest {
protected:
  StartupTest() {
    StartupCommands commands;
    commands.build = [this] { ++built; };
    commands.exit = [this] { ++exited; };
    Forms::provide<Startup>(
        [this, commands] { return new Startup(folder(), pool, loader, commands); });
    startup = &Forms::get<Startup>();
    startup->resize(1024, 668);
    startup->Show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(startup));
  }
  ~StartupTest() override { Forms::reset(); }

  PictureCommand* command(const char* name) {
    return startup->findChild<PictureCommand*>(QString::fromLatin1(name));
  }
  QString description() { return startup->findChild<QLabel*>(QStringLiteral("Label1"))->text(); }

  // No start screen here waits for its picture.
  WorkPool pool{1};
  PictureLoader loader{pool, [](const std::function<void()>&) {}};
  int built = 0;
  int exited = 0;
  Startup* startup = nullptr;
};

TEST_F(StartupTest, BuildAndExitWorkByMouse) {
  QTest::mouseClick(command("Image3"), Qt::LeftButton);
  QTest::mouseClick(command("Image7"), Qt::LeftButton);

  EXPECT_EQ(built, 1);
  EXPECT_EQ(exited, 1);
}

TEST_F(StartupTest, BuildAndExitWorkByKeyboard) {
  command("Image3")->setFocus();
  QTest::keyClick(command("Image3"), Qt::Key_Space);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(command("Image7")->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);

  EXPECT_EQ(built, 1);
  EXPECT_EQ(exited, 1);
}

TEST_F(StartupTest, WhatTheProgramDoesNotHaveYetIsThereAndDisabled) {
  for (const char* name : {"Image4", "Image5", "Image6"}) {
    EXPECT_TRUE(command(name)->isVisible()) << name;
    EXPECT_FALSE(command(name)->isEnabled()) << name;
  }
}

TEST_F(StartupTest, EveryCommandHasANameForTheScreenReader) {
  for (const char* name : {"Image3", "Image4", "Image5", "Image6", "Image7"})
    EXPECT_FALSE(command(name)->text().isEmpty()) << name;
}

TEST_F(StartupTest, TheCommandWithTheKeyboardIsDescribed) {
  command("Image7")->setFocus();
  EXPECT_EQ(description(), QString());

  command("Image3")->setFocus();

  EXPECT_EQ(description(),
            QStringLiteral("Build or maintain your family album. Scan or choose from files and "
                           "fill in the pictures date, event, place and family members."));
}

} // namespace
} // namespace hearthbook
