#include "FormArea.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QShortcut>
#include <QTest>

namespace hearthbook {
namespace {

class Backdrop : public Form {
public:
  Backdrop() : Form(QStringLiteral("Startup"), Kind::Backdrop) { button.setParent(this); }
  QLineEdit button;
};

class Work : public Form {
public:
  explicit Work(const char* name) : Form(QString::fromLatin1(name), Kind::Work) {
    first.setParent(this);
    second.setParent(this);
    first.setGeometry(0, 0, 50, 20);
    second.setGeometry(0, 30, 50, 20);
  }
  QLineEdit first;
  QLineEdit second;
};

class FormAreaTest : public testing::Test {
protected:
  FormAreaTest() {
    frame.setCentralWidget(area);
    frame.resize(1024, 768);
    area->showForm(startup);
    frame.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
  }
  ~FormAreaTest() override {
    for (Form* form :
         {static_cast<Form*>(&editor), static_cast<Form*>(&search), static_cast<Form*>(&startup)})
      area->removeForm(*form);
  }

  Backdrop startup;
  Work editor{"DBeditor"};
  Work search{"Search"};
  QMainWindow frame;
  FormArea* area = new FormArea;
};

TEST_F(FormAreaTest, TheStartScreenTakesTheFrameLessTheToldMarginsInTheMiddle) {
  EXPECT_NEAR(startup.width(), frame.frameSize().width() - 1000 / 15.0, 1);
  EXPECT_EQ(startup.height(), frame.frameSize().height() - 100);
  EXPECT_LE((startup.geometry().center() - area->rect().center()).manhattanLength(), 1);
}

TEST_F(FormAreaTest, TheStartScreenFollowsTheFrame) {
  frame.resize(1600, 1000);

  EXPECT_EQ(startup.height(), frame.frameSize().height() - 100);
  EXPECT_LE((startup.geometry().center() - area->rect().center()).manhattanLength(), 1);
}

TEST_F(FormAreaTest, AWorkFormCoversTheFrameSoThatNoStripOfTheStartScreenShows) {
  area->showForm(editor);

  EXPECT_EQ(editor.parentWidget()->geometry(), area->rect());
  EXPECT_EQ(editor.width(), area->width());
}

TEST_F(FormAreaTest, AWorkFormFollowsTheFrame) {
  area->showForm(editor);
  const int before = editor.width();

  frame.resize(1600, 1200);

  EXPECT_GT(editor.width(), before);
}

TEST_F(FormAreaTest, TheFormShownLastIsInFront) {
  area->showForm(editor);
  area->showForm(search);
  EXPECT_EQ(area->frontForm(), &search);
  EXPECT_EQ(area->childAt(20, area->height() / 2), &search);

  area->showForm(editor);
  EXPECT_EQ(area->frontForm(), &editor);
}

TEST_F(FormAreaTest, TheFormBelowComesForwardWhenTheFrontOneGoes) {
  area->showForm(search);
  area->showForm(editor);

  area->removeForm(editor);
  EXPECT_EQ(area->frontForm(), &search);
  area->hideForm(search);
  EXPECT_EQ(area->frontForm(), &startup);
}

TEST_F(FormAreaTest, ACoveredFormIsOutOfReachOfKeysAndScreenReadersUntilItIsInFrontAgain) {
  int pressed = 0;
  for (Work* form : {&editor, &search}) {
    auto* shortcut = new QShortcut(QKeySequence(QStringLiteral("Alt+Left")), form);
    QObject::connect(shortcut, &QShortcut::activated, form, [&pressed] { ++pressed; });
    area->showForm(*form);
  }

  QTest::keyClick(&frame, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(pressed, 1);
  EXPECT_FALSE(editor.isVisible());

  area->removeForm(search);
  EXPECT_TRUE(editor.isVisible());
  QTest::keyClick(&frame, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(pressed, 2);
}

TEST_F(FormAreaTest, AFormThatIsDestroyedWithoutBeingRemovedIsForgotten) {
  auto gone = std::make_unique<Work>("Gone");
  area->showForm(search);
  area->showForm(*gone);

  gone.reset();

  EXPECT_EQ(area->frontForm(), &search);
}

TEST_F(FormAreaTest, TheStartScreenRestsWhileAWorkFormIsOpen) {
  EXPECT_TRUE(startup.isEnabled());
  area->showForm(editor);
  EXPECT_FALSE(startup.isEnabled());
  area->removeForm(editor);
  EXPECT_TRUE(startup.isEnabled());
}

TEST_F(FormAreaTest, TheCaptionOfAFormIsItsTitle) {
  editor.setCaption(QStringLiteral("Builing Master Album"));
  area->showForm(editor);
  const QWidget* window = editor.parentWidget();
  EXPECT_EQ(window->windowTitle(), QStringLiteral("Builing Master Album"));

  editor.setCaption(QStringLiteral("Other"));

  EXPECT_EQ(window->windowTitle(), QStringLiteral("Other"));
  EXPECT_EQ(window->findChild<QLabel*>()->text(), QStringLiteral("Other"));
}

TEST_F(FormAreaTest, AScreenReaderMeetsAWindowNamedByItsCaption) {
  announceFormWindows();
  editor.setCaption(QStringLiteral("Builing Master Album"));
  area->showForm(editor);

  QAccessibleInterface* read = QAccessible::queryAccessibleInterface(editor.parentWidget());

  ASSERT_TRUE(read);
  EXPECT_EQ(read->role(), QAccessible::Window);
  EXPECT_EQ(read->text(QAccessible::Name), QStringLiteral("Builing Master Album"));
}

TEST_F(FormAreaTest, TabStaysInsideTheFormInFront) {
  area->showForm(search);
  area->showForm(editor);
  EXPECT_TRUE(editor.first.hasFocus());

  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(editor.second.hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(editor.first.hasFocus());
}

TEST_F(FormAreaTest, TheFocusBeginsWhereTheFormHasPutItBeforeItWasShown) {
  editor.second.setFocus();
  area->showForm(editor);
  EXPECT_TRUE(editor.second.hasFocus());
}

TEST_F(FormAreaTest, TheFocusComesBackToWhereItWas) {
  area->showForm(search);
  search.second.setFocus();
  area->showForm(editor);

  area->removeForm(editor);

  EXPECT_TRUE(search.second.hasFocus());
}

} // namespace
} // namespace hearthbook
