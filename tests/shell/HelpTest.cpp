#include "Help.h"

#include "AlbumStart.h"
#include "BoxScript.h"
#include "ControlChecks.h"
#include "DBeditor.h"
#include "EditorControls.h"
#include "Forms.h"
#include "FrameMenu.h"
#include "HelpEntry.h"
#include "HelpPlace.h"
#include "MDIForm1.h"
#include "ShellFixture.h"
#include "Startup.h"
#include "Text.h"
#include "Wiring.h"
#include "YearWizard.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QWindow>

namespace hearthbook {
namespace {

constexpr auto greeting =
    "Move your mouse over the different elements in the window to see its description.\nTo hide "
    "this help window, go to the \"Help\" menu on the top and uncheck the \"Show Help\" option.";

class HelpTest : public test::ShellTest {
protected:
  void SetUp() override {
    ASSERT_EQ(startAlbum(album(), [] { return false; }), AlbumStart::Opened);
    frame = std::make_unique<MDIForm1>(album(), ShellServices{});
    wiring = std::make_unique<Wiring>(album(), *frame);
    frame->open();
    frame->showNormal();
    frame->setGeometry(40, 30, 700, 560);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
  }

  QAction* showHelp() { return frame->menu().item("mnuHelp"); }
  DBeditor& openEditor() {
    frame->menu().item("mnuBuildAlbum")->trigger();
    QCoreApplication::processEvents();
    return Forms::get<DBeditor>();
  }
  static bool isSeen() {
    const auto* help = Forms::loaded<Help>();
    return help && help->isVisible();
  }
  static HelpEntry shown() {
    const auto& help = Forms::get<Help>();
    return {toUtf8(help.findChild<QGroupBox*>(QStringLiteral("Frame1"))->title()),
            toUtf8(help.findChild<QPlainTextEdit*>(QStringLiteral("Text1"))->toPlainText())};
  }
  static void moveOver(const Form& form, const char* name) {
    auto* control = form.findChild<QWidget*>(QString::fromLatin1(name));
    QTest::mouseMove(control, control->rect().center() - QPoint(1, 0));
    QTest::mouseMove(control, control->rect().center());
  }
  /// The work form in front becomes active again.
  void comeBackFromADialog() {
    QMetaObject::invokeMethod(
        qApp, [] { QApplication::activeModalWidget()->close(); }, Qt::QueuedConnection);
    frame->menu().item("mnuAbout")->trigger();
    QCoreApplication::processEvents();
  }
  HelpEntry rowOf(const char* key) { return findHelp(*album().vars.rsHelp, key); }

  std::unique_ptr<MDIForm1> frame;
  std::unique_ptr<Wiring> wiring;
  test::BoxScript boxes;
};

// ---- when it is seen

TEST_F(HelpTest, AtFirstShowHelpIsUncheckedAndNothingIsSeen) {
  openEditor();

  EXPECT_FALSE(showHelp()->isChecked());
  EXPECT_FALSE(isSeen());
}

TEST_F(HelpTest, OnTheStartScreenTheSwitchShowsNothingUntilAWorkFormIsActive) {
  showHelp()->trigger();
  EXPECT_TRUE(showHelp()->isChecked());
  EXPECT_FALSE(isSeen());

  openEditor();
  EXPECT_TRUE(isSeen());
}

TEST_F(HelpTest, OverAWorkFormTheSwitchShowsAndHidesAtOnce) {
  openEditor();

  showHelp()->trigger();
  EXPECT_TRUE(isSeen());
  showHelp()->trigger();
  EXPECT_FALSE(isSeen());
}

TEST_F(HelpTest, TheStartScreenHidesIt) {
  showHelp()->trigger();
  openEditor().Unload();
  QCoreApplication::processEvents();

  EXPECT_FALSE(isSeen());
  EXPECT_TRUE(showHelp()->isChecked());
}

TEST_F(HelpTest, TheStartScreenGoesBehindAllOthersWhenItIsInFrontAgain) {
  auto& editor = openEditor();
  auto& start = Forms::get<Startup>();
  auto* other = new QWidget(start.parentWidget());
  start.raise();

  editor.Unload();
  QCoreApplication::processEvents();

  EXPECT_EQ(frame->activeForm(), &start);
  const QObjectList& layers = start.parentWidget()->children();
  EXPECT_LT(layers.indexOf(&start), layers.indexOf(other));
}

TEST_F(HelpTest, AWorkFormIsGreetedUnderItsName) {
  showHelp()->trigger();
  openEditor();

  EXPECT_EQ(shown(), (HelpEntry{"Build Album", greeting}));
}

TEST_F(HelpTest, SwitchedOnBeforeTheMouseWasAnywhereItGreetsToo) {
  openEditor();

  showHelp()->trigger();

  EXPECT_EQ(shown(), (HelpEntry{"Build Album", greeting}));
}

TEST_F(HelpTest, AWorkFormThatBecomesActiveWithTheSwitchOffHidesIt) {
  openEditor();
  Forms::get<Help>().Show();

  comeBackFromADialog();

  EXPECT_FALSE(isSeen());
}

// ---- how it ends

TEST_F(HelpTest, TheUsersClosingHidesItAndUnchecksTheSwitch) {
  openEditor();
  showHelp()->trigger();

  Forms::get<Help>().close();

  EXPECT_FALSE(isSeen());
  EXPECT_TRUE(Forms::loaded<Help>());
  EXPECT_FALSE(showHelp()->isChecked());
}

TEST_F(HelpTest, ItsCloseButtonIsTheUsersClosing) {
  openEditor();
  showHelp()->trigger();

  QTest::mouseClick(Forms::get<Help>().findChild<QToolButton*>(), Qt::LeftButton);

  EXPECT_FALSE(isSeen());
  EXPECT_FALSE(showHelp()->isChecked());
}

TEST_F(HelpTest, UnloadingByTheProgramLeavesTheCheckMark) {
  showHelp()->trigger();
  openEditor();
  const QPointer<Help> former(&Forms::get<Help>());

  openEditor(); // closes all work forms first

  EXPECT_TRUE(showHelp()->isChecked());
  EXPECT_TRUE(isSeen());
  EXPECT_NE(&Forms::get<Help>(), former.data());
}

TEST_F(HelpTest, ClosingTheFrameEndsIt) {
  showHelp()->trigger();
  openEditor();

  EXPECT_TRUE(frame->close());

  EXPECT_FALSE(Forms::loaded<Help>());
}

// ---- what it says

TEST_F(HelpTest, TheMouseOverEveryControlOfTheEditorExplainsIt) {
  showHelp()->trigger();
  const auto& editor = openEditor();

  const int explained = test::expectMouseExplains(editor, "Build Album", test::editorControls,
                                                  shown, *album().vars.rsHelp);

  EXPECT_EQ(explained, 28); // each one that has a key, but the list that waits for the focus
  EXPECT_TRUE(isSeen());
}

TEST_F(HelpTest, TheFilterOfNamesIsExplainedWhenItGetsTheFocus) {
  showHelp()->trigger();
  const auto& editor = openEditor();
  ASSERT_TRUE(QTest::qWaitForWindowActive(frame.get()));
  moveOver(editor, "Year");
  moveOver(editor, "Combo1");
  EXPECT_EQ(shown().caption, "Year");

  editor.findChild<QComboBox*>(QStringLiteral("Combo1"))->setFocus();

  EXPECT_EQ(shown(), rowOf("Build Album*Family Members"));
}

TEST_F(HelpTest, TheMouseOverTheYearWizardLeavesTheTextAsItIs) {
  showHelp()->trigger();
  moveOver(openEditor(), "Command12");
  auto& wizard = Forms::get<YearWizard>();
  wizard.Show();

  for (const char* name : {"Label1", "Label2", "MSFlexGrid1"})
    moveOver(wizard, name);

  EXPECT_EQ(shown(), rowOf("Build Album*Find Year"));
}

TEST_F(HelpTest, TheControlsThatShareAnItemShareItsText) {
  showHelp()->trigger();
  const auto& editor = openEditor();
  moveOver(editor, "NextPhoto");
  auto* text = Forms::get<Help>().findChild<QPlainTextEdit*>(QStringLiteral("Text1"));
  text->setPlainText(QStringLiteral("untouched"));
  album().vars.rsHelp->MoveFirst();

  for (const char* name : {"Command6", "Command8", "PrevPhoto", "NumRec"})
    moveOver(editor, name);

  EXPECT_EQ(shown(), (HelpEntry{"Navigation Buttons", "untouched"}));
  EXPECT_EQ(album().vars.rsHelp->AbsolutePosition(), 1);
}

TEST_F(HelpTest, WithTheSwitchOffTheHiddenWindowIsFilled) {
  const auto& editor = openEditor();
  moveOver(editor, "Year");

  EXPECT_FALSE(isSeen());
  EXPECT_EQ(Forms::get<Help>().Tag, QStringLiteral("Build Album*Year"));
  showHelp()->trigger();
  EXPECT_EQ(shown(), rowOf("Build Album*Year"));
}

TEST_F(HelpTest, TheGreetingKeepsTheKeyThatWasShown) {
  showHelp()->trigger();
  auto& editor = openEditor();
  moveOver(editor, "Year");
  comeBackFromADialog();

  moveOver(editor, "Year");

  EXPECT_EQ(shown().text, greeting);
}

// ---- where it is, and what it leaves to the user

TEST_F(HelpTest, ItStandsInTheBottomLeftCornerOfTheFrame) {
  openEditor();
  showHelp()->trigger();
  const QRect room = frame->geometry();
  const QRect place = Forms::get<Help>().geometry();
  const double scale = place.width() / 301.0;

  EXPECT_GE(scale, 1);
  EXPECT_EQ(place.left(), room.left());
  EXPECT_NEAR(place.height(), 124 * scale, 1);
  EXPECT_NEAR(room.bottom() - place.bottom(), 20 * scale, 1);
}

TEST_F(HelpTest, ItFollowsTheFrame) {
  openEditor();
  showHelp()->trigger();

  frame->setGeometry(0, 0, 760, 600);
  QCoreApplication::processEvents();

  EXPECT_EQ(Forms::get<Help>().geometry().left(), frame->geometry().left());
  EXPECT_NEAR(frame->geometry().bottom() - Forms::get<Help>().geometry().bottom(), 20, 3);
}

TEST_F(HelpTest, ItHidesNoControlOfTheWorkForm) {
  auto& editor = openEditor();
  showHelp()->trigger();
  for (const QSize size :
       {QSize(640, 480), QSize(1024, 768), QSize(1920, 1080), QSize(3840, 2160)}) {
    frame->resize(size);
    QCoreApplication::processEvents();
    const QRect note = Forms::get<Help>().geometry();
    for (const QWidget* control : editor.findChildren<QWidget*>()) {
      if (!control->isVisible() || control->property("helpKey").toString().isEmpty())
        continue;
      const QRect place(control->mapToGlobal(QPoint()), control->size());
      EXPECT_FALSE(place.intersects(note)) << toUtf8(control->objectName()) << size.width();
    }
  }
}

TEST_F(HelpTest, TheWorkFormTakesTheRoomBackWhenItIsHidden) {
  auto& editor = openEditor();
  const QSize whole = editor.size();
  showHelp()->trigger();
  QCoreApplication::processEvents();
  EXPECT_LT(editor.height(), whole.height());

  Forms::get<Help>().close();
  QCoreApplication::processEvents();

  EXPECT_EQ(editor.size(), whole);
}

TEST_F(HelpTest, ItNeverTakesTheFocus) {
  auto& editor = openEditor();
  auto* year = editor.findChild<QLineEdit*>(QStringLiteral("Year"));
  frame->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(frame.get()));
  year->setFocus();

  showHelp()->trigger();

  EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
  EXPECT_TRUE(year->hasFocus());
  EXPECT_TRUE(Forms::get<Help>().windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
  EXPECT_EQ(frame->activeForm(), &editor);
}

TEST_F(HelpTest, ItLiesOnTopButNotOverADialog) {
  auto& editor = openEditor();
  showHelp()->trigger();
  const QWindow* window = Forms::get<Help>().windowHandle();
  EXPECT_TRUE(window->flags().testFlag(Qt::WindowStaysOnTopHint));

  QMetaObject::invokeMethod(
      qApp,
      [&] {
        EXPECT_FALSE(window->flags().testFlag(Qt::WindowStaysOnTopHint));
        QApplication::activeModalWidget()->close();
      },
      Qt::QueuedConnection);
  QTest::mouseClick(editor.findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);

  EXPECT_TRUE(window->flags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(isSeen());
}

TEST_F(HelpTest, EveryTextOfAWorkFormFitsWithoutScrolling) {
  openEditor();
  showHelp()->trigger();
  auto& help = Forms::get<Help>();
  const auto* text = help.findChild<QPlainTextEdit*>(QStringLiteral("Text1"));
  Recordset& rows = *album().vars.rsHelp;
  for (const double scale : {1.0, 1.07, 1.5, 3.2}) {
    help.resize(qRound(301 * scale), qRound(124 * scale));
    EXPECT_EQ(text->verticalScrollBar()->maximum(), 0) << "greeting";
    for (rows.MoveFirst(); !rows.atEOF(); rows.MoveNext()) {
      const std::string key = rows.Collect("helpID").toText();
      for (const char* screen : {"Build Album*", "Search Album*", "View Album*", "Zoom*"}) {
        if (!key.starts_with(screen))
          continue;
        const auto at = rows.AbsolutePosition();
        help.ShowHoverHelp(toQString(key), rows);
        EXPECT_EQ(text->verticalScrollBar()->maximum(), 0) << key << " at " << scale;
        EXPECT_EQ(rows.AbsolutePosition(), at);
      }
    }
  }
}

} // namespace
} // namespace hearthbook
