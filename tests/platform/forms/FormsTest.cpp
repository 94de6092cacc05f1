#include "BoxScript.h"
#include "Guard.h"
#include "NestedLoop.h"
#include "PlainForms.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <stdexcept>

namespace hearthbook::test {

namespace {

using FormsTest = PlainForms;

/// A frame that shows work forms as plain children.
class PlainHost : public QMainWindow, public FormHost {
public:
  PlainHost() { Forms::setHost(this); }
  ~PlainHost() override { Forms::setHost(nullptr); }

  void showForm(Form& form) override {
    shown_.removeAll(&form);
    shown_.append(&form);
    form.setParent(this);
    form.show();
    activate(form);
  }
  void hideForm(Form& form) override {
    shown_.removeAll(&form);
    form.hide();
  }
  void removeForm(Form& form) override {
    removed.append(form.name());
    hideForm(form);
    form.setParent(nullptr);
  }
  [[nodiscard]] Form* activeForm() const override {
    return shown_.isEmpty() ? nullptr : shown_.last();
  }
  QWidget* window() override { return this; }

  void userPicks(Form& form) { showForm(form); }

  QStringList removed;

private:
  QList<Form*> shown_;
};

/// Runs `step` as soon as a form's own loop runs.
void soon(std::function<void()> step) { QTimer::singleShot(0, qApp, std::move(step)); }

QStringList namesOf(const std::vector<Form*>& forms) {
  QStringList names;
  for (const Form* form : forms)
    names.append(form->name());
  return names;
}

} // namespace

TEST_F(FormsTest, AFormIsMadeAtItsFirstUseAndLoadedBeforeItIsReturned) {
  EXPECT_EQ(Forms::loaded<PageForm>(), nullptr);
  PageForm& page = Forms::get<PageForm>();
  EXPECT_EQ(notes, QStringList({QStringLiteral("Page load")}));
  EXPECT_EQ(&Forms::get<PageForm>(), &page);
  EXPECT_FALSE(page.isShown());
}

TEST_F(FormsTest, AFormThatNobodyProvidesIsAnError) {
  Forms::reset();
  EXPECT_THROW(Forms::get<PageForm>(), std::logic_error);
}

TEST_F(FormsTest, AFailingLoadLeavesNoFormBehind) {
  struct Broken : Form {
    Broken() : Form(QStringLiteral("Broken"), Kind::Dialog) {}
    void load() override { throw std::runtime_error("no picture"); }
  };
  Forms::provide<Broken>([] { return new Broken; });
  EXPECT_THROW(Forms::get<Broken>(), std::runtime_error);
  EXPECT_EQ(Forms::loaded<Broken>(), nullptr);
  EXPECT_TRUE(Forms::open().empty());
}

TEST_F(FormsTest, OpenListsLoadedFormsInOrderOfLoadingShownOrNot) {
  Forms::get<OtherPageForm>();
  Forms::get<PageForm>().Show();
  Forms::get<AskForm>();
  EXPECT_EQ(namesOf(Forms::open()),
            QStringList({QStringLiteral("Other"), QStringLiteral("Page"), QStringLiteral("Ask")}));
}

TEST_F(FormsTest, AfterUnloadTheNextGetMakesANewForm) {
  PageForm& former = Forms::get<PageForm>();
  former.Tag = QStringLiteral("7");
  EXPECT_TRUE(former.Unload());
  EXPECT_EQ(Forms::loaded<PageForm>(), nullptr);
  PageForm& now = Forms::get<PageForm>();
  EXPECT_NE(&now, &former);
  EXPECT_TRUE(now.Tag.isEmpty());
}

TEST_F(FormsTest, AFormThatRefusesToUnloadStays) {
  PageForm& page = Forms::get<PageForm>();
  page.Show();
  page.mayGo = false;
  EXPECT_FALSE(page.Unload());
  EXPECT_EQ(Forms::loaded<PageForm>(), &page);
  EXPECT_TRUE(page.isShown());
}

TEST_F(FormsTest, AFormWhoseUnloadingFailsStaysUsable) {
  PageForm& page = Forms::get<PageForm>();
  bool fails = true;
  page.beforeUnload([&fails] {
    if (fails)
      throw std::runtime_error("disk full");
    return true;
  });
  EXPECT_THROW(page.Unload(), std::runtime_error);
  EXPECT_EQ(Forms::loaded<PageForm>(), &page);
  fails = false;
  EXPECT_TRUE(page.Unload());
}

TEST_F(FormsTest, StepsBeforeUnloadRunBeforeTheFormIsAsked) {
  PageForm& page = Forms::get<PageForm>();
  page.beforeUnload([this] {
    notes.append(QStringLiteral("written"));
    return true;
  });
  notes.clear();
  page.Unload();
  EXPECT_EQ(notes, QStringList({QStringLiteral("written"), QStringLiteral("Page unloading")}));
}

TEST_F(FormsTest, AStepBeforeUnloadCanKeepTheFormOpen) {
  PageForm& page = Forms::get<PageForm>();
  bool stays = true;
  page.beforeUnload([&stays] { return !stays; });
  notes.clear();
  EXPECT_FALSE(page.Unload());
  EXPECT_TRUE(notes.isEmpty());
  stays = false;
  EXPECT_TRUE(page.Unload());
}

TEST_F(FormsTest, AnUnloadWithinUnloadingIsPassedOver) {
  PageForm& page = Forms::get<PageForm>();
  page.beforeUnload([&page] { return !page.Unload(); });
  EXPECT_TRUE(page.Unload());
  EXPECT_EQ(count(QStringLiteral("Page unloading")), 1);
}

TEST_F(FormsTest, AFormThatUnloadsItselfOutlivesItsHandler) {
  PageForm& page = Forms::get<PageForm>();
  QPushButton button(&page);
  bool wholeAfterUnload = false;
  QObject::connect(&button, &QPushButton::clicked, &page, [&] {
    page.Unload();
    wholeAfterUnload = page.name() == QStringLiteral("Page");
    EXPECT_EQ(count(QStringLiteral("Page destroyed")), 0);
    button.setParent(nullptr);
  });
  page.Show();
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_TRUE(wholeAfterUnload);
  EXPECT_TRUE(QTest::qWaitFor([&] { return count(QStringLiteral("Page destroyed")) == 1; }));
}

TEST_F(FormsTest, AFormUnloadedInsideItsDialogOutlivesTheHandlerThatOpenedTheDialog) {
  PageForm& page = Forms::get<PageForm>();
  qsizetype destroyedAfterDialog = -1;
  soon([&] {   // a handler of the page
    soon([&] { // a handler of the dialog
      page.Unload();
      Forms::get<AskForm>().Unload();
    });
    Forms::get<AskForm>().ShowModal();
    QCoreApplication::processEvents();
    destroyedAfterDialog = count(QStringLiteral("Page destroyed"));
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return destroyedAfterDialog >= 0; }));
  EXPECT_EQ(destroyedAfterDialog, 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return count(QStringLiteral("Page destroyed")) == 1; }));
}

TEST_F(FormsTest, ShowModalReturnsWhenTheFormIsUnloaded) {
  AskForm& ask = Forms::get<AskForm>();
  soon([&ask] {
    EXPECT_TRUE(ask.isModal());
    EXPECT_TRUE(ask.isVisible());
    ask.Unload();
  });
  ask.ShowModal();
  EXPECT_EQ(Forms::loaded<AskForm>(), nullptr);
  EXPECT_EQ(count(QStringLiteral("Ask destroyed")), 0) << "its opener may still read it";
}

TEST_F(FormsTest, ShowModalReturnsWhenTheFormIsHiddenAndKeepsItLoaded) {
  AskForm& ask = Forms::get<AskForm>();
  soon([&ask] { ask.Hide(); });
  ask.ShowModal();
  EXPECT_EQ(Forms::loaded<AskForm>(), &ask);
  EXPECT_FALSE(ask.isVisible());
}

TEST_F(FormsTest, AFormThatHidesItselfWhenActivatedNeverBlocks) {
  struct Shy : Form {
    Shy() : Form(QStringLiteral("Shy"), Kind::Dialog) {}
    void activated() override { Hide(); }
  };
  Forms::provide<Shy>([] { return new Shy; });
  Forms::get<Shy>().ShowModal();
  EXPECT_FALSE(Forms::get<Shy>().isShown());
}

TEST_F(FormsTest, ModalFormsNest) {
  QStringList order;
  AskForm& ask = Forms::get<AskForm>();
  soon([&] {
    soon([&] {
      Forms::get<DeeperForm>().Unload();
      order.append(QStringLiteral("deeper left"));
    });
    Forms::get<DeeperForm>().ShowModal();
    order.append(QStringLiteral("deeper returned"));
    ask.Unload();
  });
  ask.ShowModal();
  order.append(QStringLiteral("ask returned"));
  EXPECT_EQ(order, QStringList({QStringLiteral("deeper left"), QStringLiteral("deeper returned"),
                                QStringLiteral("ask returned")}));
}

TEST_F(FormsTest, UnloadingTheOuterModalFormWaitsForTheInnerOne) {
  AskForm& ask = Forms::get<AskForm>();
  bool innerReturned = false;
  soon([&] {
    soon([&] {
      ask.Unload();
      soon([&] { Forms::get<DeeperForm>().Unload(); });
    });
    Forms::get<DeeperForm>().ShowModal();
    innerReturned = true;
  });
  ask.ShowModal();
  EXPECT_TRUE(innerReturned);
}

TEST_F(FormsTest, RowsChangedReachesFormsInOrderAndSkipsWhatHasGone) {
  PageForm& page = Forms::get<PageForm>();
  Forms::get<OtherPageForm>();
  Forms::get<AskForm>();
  page.onRowsChanged = [] { Forms::loaded<OtherPageForm>()->Unload(); };
  notes.clear();
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  EXPECT_EQ(notes, QStringList({QStringLiteral("Page rows"), QStringLiteral("Other unloading"),
                                QStringLiteral("Ask rows")}));
}

TEST_F(FormsTest, AFormMadeDuringRowsChangedIsNotTold) {
  PageForm& page = Forms::get<PageForm>();
  page.onRowsChanged = [] { Forms::get<OtherPageForm>(); };
  Forms::tellRowsChanged({});
  EXPECT_EQ(count(QStringLiteral("Other rows")), 0);
}

TEST_F(FormsTest, AFormThatFailsAtRowsChangedDoesNotKeepTheOthersFromBeingTold) {
  PageForm& page = Forms::get<PageForm>();
  Forms::get<OtherPageForm>();
  page.onRowsChanged = [] { throw std::runtime_error("no such row"); };
  EXPECT_THROW(Forms::tellRowsChanged({}), std::runtime_error);
  EXPECT_EQ(count(QStringLiteral("Other rows")), 1);
}

TEST_F(FormsTest, WorkFormsAreShownByTheHostAndDialogsStandOverIt) {
  PlainHost host;
  Forms::get<PageForm>().Show();
  EXPECT_EQ(host.activeForm(), &Forms::get<PageForm>());
  AskForm& ask = Forms::get<AskForm>();
  ask.Show();
  EXPECT_EQ(ask.parentWidget(), &host);
  EXPECT_TRUE(ask.isWindow());
  Forms::reset();
  EXPECT_EQ(host.removed, QStringList({QStringLiteral("Page")}));
}

TEST_F(FormsTest, ADialogStandsOverTheMiddleOfTheFrame) {
  PlainHost host;
  host.setGeometry(100, 100, 500, 400);
  host.show();
  AskForm& ask = Forms::get<AskForm>();
  ask.resize(200, 100);
  ask.Show();
  const QPoint apart = ask.geometry().center() - host.geometry().center();
  EXPECT_LE(apart.manhattanLength(), 40) << "but for the title bar";
}

TEST_F(FormsTest, ADialogOverAFrameAtTheEdgeIsWholeOnTheScreen) {
  PlainHost host;
  const QRect room = host.screen()->availableGeometry();
  host.setGeometry(room.right() - 50, room.bottom() - 50, 300, 300);
  host.show();
  AskForm& ask = Forms::get<AskForm>();
  ask.resize(200, 100);
  ask.Show();
  EXPECT_TRUE(room.contains(ask.geometry()));
}

TEST_F(FormsTest, AFormDestroyedWithItsParentIsForgotten) {
  {
    PlainHost host;
    Forms::get<AskForm>().Show();
  }
  EXPECT_EQ(Forms::loaded<AskForm>(), nullptr);
}

TEST_F(FormsTest, ActivatedRunsWhenAFormIsShownOnceHoweverOftenItIsTold) {
  PlainHost host;
  PageForm& page = Forms::get<PageForm>();
  page.Show();
  page.Show();
  host.userPicks(page);
  EXPECT_EQ(count(QStringLiteral("Page activated")), 1);
}

TEST_F(FormsTest, ActivatedRunsWhenTheDialogOverAFormHasGone) {
  PlainHost host;
  Forms::get<PageForm>().Show();
  AskForm& ask = Forms::get<AskForm>();
  soon([&ask] { ask.Unload(); });
  ask.ShowModal();
  EXPECT_EQ(count(QStringLiteral("Ask activated")), 1);
  EXPECT_EQ(count(QStringLiteral("Page activated")), 2);
}

TEST_F(FormsTest, ActivatedRunsWhenTheDialogOverADialogHasGone) {
  AskForm& ask = Forms::get<AskForm>();
  soon([&] {
    soon([] { Forms::get<DeeperForm>().Unload(); });
    Forms::get<DeeperForm>().ShowModal();
    EXPECT_EQ(count(QStringLiteral("Ask activated")), 2);
    ask.Unload();
  });
  ask.ShowModal();
}

TEST_F(FormsTest, ActivatedRunsForTheFormUnderAnUnloadedOne) {
  PlainHost host;
  Forms::get<PageForm>().Show();
  Forms::get<OtherPageForm>().Show();
  Forms::get<OtherPageForm>().Unload();
  QCoreApplication::processEvents();
  EXPECT_EQ(count(QStringLiteral("Page activated")), 2);
}

TEST_F(FormsTest, AWorkFormUnderADialogIsNotActivated) {
  PlainHost host;
  PageForm& page = Forms::get<PageForm>();
  Forms::get<AskForm>().Show();
  page.Show();
  EXPECT_EQ(count(QStringLiteral("Page activated")), 0);
  Forms::get<AskForm>().Hide();
  QCoreApplication::processEvents();
  EXPECT_EQ(count(QStringLiteral("Page activated")), 1);
}

TEST_F(FormsTest, MessagesDoNotActivateTheFormBelow) {
  BoxScript script;
  script.expectMessage(QStringLiteral("Hello"));
  Forms::get<AskForm>().Show();
  MsgBox(QStringLiteral("Hello"));
  QCoreApplication::processEvents();
  EXPECT_EQ(count(QStringLiteral("Ask activated")), 1);
}

TEST_F(FormsTest, TheUsersClosingIsAnUnload) {
  AskForm& ask = Forms::get<AskForm>();
  ask.Show();
  EXPECT_TRUE(ask.close());
  EXPECT_EQ(Forms::loaded<AskForm>(), nullptr);
}

TEST_F(FormsTest, TheUsersClosingLeavesAFormThatRefuses) {
  AskForm& ask = Forms::get<AskForm>();
  ask.Show();
  ask.mayGo = false;
  EXPECT_FALSE(ask.close());
  EXPECT_TRUE(ask.isVisible());
}

TEST_F(FormsTest, EscapeClosesADialogThroughItsCancelButton) {
  AskForm& ask = Forms::get<AskForm>();
  auto* cancel = new QPushButton(QStringLiteral("Cancel"), &ask);
  cancel->setProperty("cancelButton", true);
  int cancelled = 0;
  QObject::connect(cancel, &QPushButton::clicked, &ask, [&] { ++cancelled; });
  ask.Show();
  QTest::keyClick(&ask, Qt::Key_Escape);
  EXPECT_EQ(cancelled, 1);
  EXPECT_TRUE(ask.isShown());
  delete cancel;
  QTest::keyClick(&ask, Qt::Key_Escape);
  EXPECT_EQ(Forms::loaded<AskForm>(), nullptr);
}

TEST_F(FormsTest, EscapeDoesNotCloseAWorkForm) {
  PageForm& page = Forms::get<PageForm>();
  page.Show();
  QTest::keyClick(&page, Qt::Key_Escape);
  EXPECT_EQ(Forms::loaded<PageForm>(), &page);
}

TEST_F(FormsTest, ReturnPressesTheFocusedButtonOrElseTheDefaultOne) {
  AskForm& ask = Forms::get<AskForm>();
  QLineEdit field(&ask);
  QStringList pressed;
  for (const char* name : {"first", "second"}) {
    auto* button = new QPushButton(QString::fromLatin1(name), &ask);
    QObject::connect(button, &QPushButton::clicked, &ask,
                     [&pressed, button] { pressed.append(button->text()); });
    button->setDefault(button->text() == QStringLiteral("second"));
  }
  ask.Show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&ask));
  field.setFocus();
  QTest::keyClick(&field, Qt::Key_Return);
  ask.findChildren<QPushButton*>().first()->setFocus();
  QTest::keyClick(ask.focusWidget(), Qt::Key_Return);
  field.setParent(nullptr);
  EXPECT_EQ(pressed, QStringList({QStringLiteral("second"), QStringLiteral("first")}));
}

TEST_F(FormsTest, ResetEndsEvenFormsThatRefuse) {
  Forms::get<PageForm>().mayGo = false;
  Forms::get<AskForm>();
  Forms::reset();
  EXPECT_TRUE(Forms::open().empty());
  EXPECT_EQ(count(QStringLiteral("Page destroyed")), 1);
  EXPECT_EQ(count(QStringLiteral("Ask destroyed")), 1);
}

} // namespace hearthbook::test
