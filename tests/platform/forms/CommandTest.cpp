#include "Command.h"
#include "BoxScript.h"
#include "NestedLoop.h"
#include "PlainForms.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <stdexcept>

namespace hearthbook::test {

namespace {

/// A form with two fields and a button, "year" under a rule.
class CommandTest : public PlainForms {
protected:
  CommandTest() : form(Forms::get<AskForm>()) {
    auto* column = new QVBoxLayout(&form);
    for (QWidget* part : {static_cast<QWidget*>(year), static_cast<QWidget*>(place),
                          static_cast<QWidget*>(next), static_cast<QWidget*>(mark)})
      column->addWidget(part);
    setLostFocusRule(year, [this] {
      ++ruleRuns;
      return ruleLetsGo;
    });
    onCommand(next, &form, [this] { ++commandRuns; });
    form.Show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    year->setFocus();
  }

  AskForm& form;
  QLineEdit* year = new QLineEdit;
  QLineEdit* place = new QLineEdit;
  QPushButton* next = new QPushButton(QStringLiteral("&Next"));
  QCheckBox* mark = new QCheckBox(QStringLiteral("Mark"));
  int ruleRuns = 0;
  int commandRuns = 0;
  bool ruleLetsGo = true;
};

} // namespace

TEST_F(CommandTest, TheRuleRunsWhenTheFocusGoesToAnotherField) {
  QTest::keyClick(year, Qt::Key_Tab);
  EXPECT_EQ(ruleRuns, 1);
  EXPECT_TRUE(place->hasFocus());
}

TEST_F(CommandTest, ARuleOfAFormThatHasEndedDoesNotRun) {
  form.Unload();
  const int before = ruleRuns;
  QFocusEvent lost(QEvent::FocusOut, Qt::OtherFocusReason); // as its destruction takes it
  QApplication::sendEvent(year, &lost);
  EXPECT_EQ(ruleRuns, before);
}

TEST_F(CommandTest, ARuleCanKeepTheFocus) {
  ruleLetsGo = false;
  QTest::keyClick(year, Qt::Key_Tab);
  EXPECT_TRUE(year->hasFocus());
}

TEST_F(CommandTest, TheRuleRunsBeforeACommandThatTakesNoFocus) {
  next->click(); // as a key, a screen reader or a script would
  EXPECT_EQ(ruleRuns, 1);
  EXPECT_EQ(commandRuns, 1);
}

TEST_F(CommandTest, TheRuleRunsOnceForAMouseClick) {
  QTest::mouseClick(next, Qt::LeftButton);
  EXPECT_EQ(ruleRuns, 1);
  EXPECT_EQ(commandRuns, 1);
}

TEST_F(CommandTest, ARuleThatKeepsTheFocusStopsTheCommandAndRunsOnce) {
  ruleLetsGo = false;
  QTest::mouseClick(next, Qt::LeftButton);
  EXPECT_EQ(commandRuns, 0);
  EXPECT_EQ(ruleRuns, 1);
  EXPECT_TRUE(year->hasFocus());
  QTest::keyClick(year, Qt::Key_1);
  ruleLetsGo = true;
  QTest::mouseClick(next, Qt::LeftButton);
  EXPECT_EQ(commandRuns, 1);
}

TEST_F(CommandTest, ARuleThatKeepsTheFocusStopsAMenuItem) {
  QAction action(QStringLiteral("Quit"));
  onCommand(&action, &form, [this] { ++commandRuns; });
  ruleLetsGo = false;
  action.trigger();
  EXPECT_EQ(commandRuns, 0);
  ruleLetsGo = true;
  action.trigger();
  EXPECT_EQ(commandRuns, 1);
}

TEST_F(CommandTest, ARuleThatKeepsTheFocusStopsTheClosing) {
  ruleLetsGo = false;
  EXPECT_FALSE(form.close());
  EXPECT_EQ(Forms::loaded<AskForm>(), &form);
}

TEST_F(CommandTest, ACheckBoxWhoseCommandIsStoppedKeepsItsState) {
  bool told = false;
  onCommand(mark, &form, [&] { told = true; });
  ruleLetsGo = false;
  mark->click();
  EXPECT_FALSE(mark->isChecked());
  EXPECT_FALSE(told);
}

TEST_F(CommandTest, TheFieldOfAFormBelowADialogIsNotAskedAgain) {
  DeeperForm& deeper = Forms::get<DeeperForm>();
  QPushButton button(&deeper);
  onCommand(&button, &deeper, [this] { ++commandRuns; });
  QTimer::singleShot(0, qApp, [&] {
    button.click();
    deeper.Hide();
  });
  deeper.ShowModal();
  EXPECT_EQ(commandRuns, 1);
  EXPECT_EQ(ruleRuns, 0);
}

TEST_F(CommandTest, WithoutARuleTheCommandRuns) {
  place->setFocus();
  ruleRuns = 0;
  next->click();
  EXPECT_EQ(commandRuns, 1);
  EXPECT_EQ(ruleRuns, 0);
}

TEST_F(CommandTest, NoCommandRunsWhileCommandsAreBlocked) {
  {
    const CommandBlock block;
    next->click();
    QTest::mouseClick(next, Qt::LeftButton);
    EXPECT_FALSE(form.close());
  }
  EXPECT_EQ(commandRuns, 0);
  next->click();
  EXPECT_EQ(commandRuns, 1);
}

TEST_F(CommandTest, WhatIsTypedWhileCommandsAreBlockedIsLost) {
  {
    const CommandBlock block;
    QTest::keyClicks(year, QStringLiteral("1987"));
  }
  EXPECT_TRUE(year->text().isEmpty());
  QTest::keyClicks(year, QStringLiteral("88"));
  EXPECT_EQ(year->text(), QStringLiteral("88"));
}

TEST_F(CommandTest, AShortcutWhileCommandsAreBlockedIsLost) {
  QAction action;
  action.setShortcut(QKeySequence(QStringLiteral("Ctrl+M")));
  int triggered = 0;
  QObject::connect(&action, &QAction::triggered, &form, [&triggered] { ++triggered; });
  form.addAction(&action);
  {
    const CommandBlock block;
    QTest::keyClick(form.windowHandle(), Qt::Key_M, Qt::ControlModifier);
  }
  EXPECT_EQ(triggered, 0);
  QTest::keyClick(form.windowHandle(), Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(triggered, 1);
}

TEST_F(CommandTest, AMnemonicEndsTheEntryThoughTheFocusStays) {
  QTest::keyClick(form.windowHandle(), Qt::Key_N, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return commandRuns > 0; })); // it is an animated click
  EXPECT_TRUE(year->hasFocus());
  EXPECT_EQ(ruleRuns, 1);
  EXPECT_EQ(commandRuns, 1);
}

TEST_F(CommandTest, TheUsersClosingWhileCommandsAreBlockedIsLost) {
  const CommandBlock block;
  QCloseEvent byUser;
  QSpontaneKeyEvent::setSpontaneous(&byUser);
  QApplication::sendEvent(form.windowHandle(), &byUser);
  EXPECT_FALSE(byUser.isAccepted());
  EXPECT_TRUE(form.isVisible());
}

TEST_F(CommandTest, TheUserMayActAgainInABoxOverABlock) {
  const CommandBlock block;
  {
    const UserTurn turn;
    EXPECT_FALSE(CommandBlock::isActive());
    QTest::mouseClick(next, Qt::LeftButton);
    EXPECT_EQ(commandRuns, 1);
  }
  EXPECT_TRUE(CommandBlock::isActive());
}

TEST_F(CommandTest, ABlockThatEndsDuringABoxStaysEnded) {
  auto block = std::make_unique<CommandBlock>();
  {
    const UserTurn turn;
    block.reset();
  }
  EXPECT_FALSE(CommandBlock::isActive());
}

TEST_F(CommandTest, AFailingCommandIsReportedAndTheNextOneRuns) {
  BoxScript script;
  script.expectFailure(QStringLiteral("the disk is full"));
  bool fails = true;
  onCommand(mark, &form, [&] {
    if (fails)
      throw std::runtime_error("the disk is full");
    ++commandRuns;
  });
  QTest::mouseClick(mark, Qt::LeftButton, {}, QPoint(8, mark->height() / 2));
  fails = false;
  QTest::mouseClick(mark, Qt::LeftButton, {}, QPoint(8, mark->height() / 2));
  EXPECT_EQ(commandRuns, 1);
}

} // namespace hearthbook::test
