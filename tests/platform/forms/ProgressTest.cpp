#include "Progress.h"
#include "BoxScript.h"
#include "Command.h"
#include "Guard.h"
#include "NestedLoop.h"
#include "PlainForms.h"
#include "Pointer.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <stdexcept>
#include <thread>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace {

/// The toolkit is built without exceptions: one that passes through it leaves a few of its bytes
/// behind, which are not ours to find.
struct LeaksOfTheToolkit {
#if defined(__SANITIZE_ADDRESS__)
  __lsan::ScopedDisabler disabler;
#else
  LeaksOfTheToolkit() {} // NOLINT: makes the object count as used
#endif
};

} // namespace

namespace hearthbook::test {

namespace {

class ProgressTest : public PlainForms {
protected:
  ProgressTest() {
    Forms::provide<Progress>([] { return new Progress; });
    Progress::setPatience(60'000);
  }
  ~ProgressTest() override { Progress::setPatience(250); }

  /// Work that lasts longer than the patience.
  static void showForLong() {
    Progress::setPatience(-1);
    Forms::get<Progress>().Show();
    Forms::get<Progress>().setValue(1);
  }
};

} // namespace

TEST_F(ProgressTest, KeepsCaptionAndNumbersAsTheyAreTold) {
  auto& progress = Forms::get<Progress>();
  progress.setCaption(QStringLiteral("Processing Album, Please Wait"));
  progress.setRange(4, 20);
  progress.setValue(7);
  EXPECT_EQ(progress.findChild<QLabel*>()->text(), QStringLiteral("Processing Album, Please Wait"));
  EXPECT_EQ(progress.minimum(), 4);
  EXPECT_EQ(progress.maximum(), 20);
  EXPECT_EQ(progress.value(), 7);
  EXPECT_EQ(progress.findChild<QProgressBar*>(QStringLiteral("ProgressBar1"))->value(), 7);
}

TEST_F(ProgressTest, AValueBeyondTheRangeIsItsEnd) {
  auto& progress = Forms::get<Progress>();
  progress.setRange(0, 10);
  progress.setValue(12);
  EXPECT_EQ(progress.value(), 10);
  progress.setValue(-1);
  EXPECT_EQ(progress.value(), 0);
}

TEST_F(ProgressTest, ShortWorkShowsNoWindow) {
  auto& progress = Forms::get<Progress>();
  progress.Show();
  progress.setValue(50);
  EXPECT_TRUE(progress.isShown());
  EXPECT_FALSE(progress.isVisible());
  progress.Unload();
}

TEST_F(ProgressTest, LongWorkShowsItsWindowThoughTheEventLoopNeverRuns) {
  auto& progress = Forms::get<Progress>();
  showForLong();
  EXPECT_TRUE(progress.isVisible());
  progress.Unload();
  EXPECT_FALSE(progress.isVisible());
}

TEST_F(ProgressTest, BlocksCommandsUntilItIsUnloaded) {
  AskForm& ask = Forms::get<AskForm>();
  auto* button = new QPushButton(QStringLiteral("Next"), &ask);
  int runs = 0;
  onCommand(button, &ask, [&runs] { ++runs; });
  ask.Show();
  Forms::get<Progress>().Show();
  QTest::mouseClick(button, Qt::LeftButton);
  button->click();
  EXPECT_EQ(runs, 0);
  Forms::get<Progress>().Unload();
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(runs, 1);
}

TEST_F(ProgressTest, HiddenItBlocksNothing) {
  Forms::get<Progress>().Show();
  Forms::get<Progress>().Hide();
  EXPECT_FALSE(CommandBlock::isActive());
}

TEST_F(ProgressTest, AMessageOverItCanBeAnswered) {
  Forms::get<Progress>().Show();
  QTimer::singleShot(0, qApp, [] {
    QWidget* box = QApplication::activeModalWidget();
    ASSERT_NE(box, nullptr);
    QTest::keyClick(box, Qt::Key_Escape);
  });
  MsgBox(QStringLiteral("This file cannot be read"));
  EXPECT_TRUE(CommandBlock::isActive());
}

TEST_F(ProgressTest, DoesNotComeToTheFront) {
  AskForm& ask = Forms::get<AskForm>();
  ask.Show();
  showForLong();
  Forms::get<Progress>().Unload();
  QCoreApplication::processEvents();
  EXPECT_EQ(count(QStringLiteral("Ask activated")), 1);
}

TEST_F(ProgressTest, TheWindowCannotBeClosedByTheUser) {
  auto& progress = Forms::get<Progress>();
  showForLong();
  EXPECT_FALSE(progress.windowFlags() & Qt::WindowCloseButtonHint);
  EXPECT_FALSE(progress.close());
  EXPECT_TRUE(progress.isVisible());
}

TEST_F(ProgressTest, TimersRunDuringTheWorkAndUnloadedFormsStayWhole) {
  bool ticked = false;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    ticked = true;
    if (auto* page = Forms::loaded<PageForm>())
      page->Unload();
  });
  Forms::get<PageForm>();
  bool wholeAfterWork = false;
  QTimer::singleShot(0, qApp, [&] { // a handler of the page
    Forms::get<Progress>().Show();
    timer.start(0);
    while (!ticked)
      Forms::get<Progress>().setValue(Forms::get<Progress>().value() + 1);
    wholeAfterWork = count(QStringLiteral("Page destroyed")) == 0;
    Forms::get<Progress>().Unload();
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return count(QStringLiteral("Page destroyed")) == 1; }));
  EXPECT_TRUE(ticked);
  EXPECT_TRUE(wholeAfterWork);
}

TEST(WaitUntil, ReturnsWhenAnotherThreadIsDone) {
  std::atomic<bool> done = false;
  std::thread worker([&done] { done = true; });
  waitUntil([&done] { return done.load(); });
  worker.join();
  EXPECT_FALSE(CommandBlock::isActive());
}

TEST(WaitUntil, RunsHandedOverWorkWithCommandsBlocked) {
  int handed = 0;
  std::thread worker([&handed] {
    for (int i = 0; i < 3; ++i)
      QMetaObject::invokeMethod(qApp, [&handed] { handed += CommandBlock::isActive() ? 1 : 100; });
  });
  waitUntil([&handed] { return handed >= 3; });
  worker.join();
  EXPECT_EQ(handed, 3);
}

TEST(Hourglass, IsShownAsLongAsTheOutermostLives) {
  {
    const Hourglass outer;
    { const Hourglass inner; }
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
  }
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(Hourglass, IsLiftedWhileTheUserIsAsked) {
  const Hourglass hourglass;
  QTimer::singleShot(0, qApp, [] {
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
  });
  MsgBox(QStringLiteral("Hello"));
  EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
}

namespace {

/// Fails whenever it is painted or clicked.
class BrokenWidget : public QWidget {
public:
  int paints = 0;

protected:
  void paintEvent(QPaintEvent*) override {
    ++paints;
    throw std::runtime_error("the picture is broken");
  }
  void mousePressEvent(QMouseEvent*) override { throw std::runtime_error("the disk is full"); }
};

} // namespace

TEST(GuardedApplication, AFailingHandlerEndsInTheReportAndTheProgramGoesOn) {
  const LeaksOfTheToolkit allowed;
  BoxScript script;
  script.expectFailure(QStringLiteral("the disk is full"));
  BrokenWidget widget;
  QTest::mouseClick(&widget, Qt::LeftButton);
}

TEST(GuardedApplication, AFailingSlotOfAButtonIsReportedAndTheButtonWorksOn) {
  const LeaksOfTheToolkit allowed;
  BoxScript script;
  script.expectFailure(QStringLiteral("no such row"));
  script.expectFailure(QStringLiteral("no such row"));
  QPushButton button;
  QObject::connect(&button, &QPushButton::clicked, &button,
                   [] { throw std::runtime_error("no such row"); });
  QTest::mouseClick(&button, Qt::LeftButton);
  QTest::mouseClick(&button, Qt::LeftButton);
}

TEST(GuardedApplication, AFailureWhilePaintingIsReportedOnceBehindThePainting) {
  BoxScript script;
  BrokenWidget widget;
  script.expectFailure(QStringLiteral("the picture is broken"));
  widget.resize(20, 20);
  widget.show();
  EXPECT_TRUE(QTest::qWaitFor([&] { return script.isDone(); }));
  EXPECT_GE(widget.paints, 1);
}

TEST(ReportFailure, SaysInWordsWhichFileItWas) {
  BoxScript script;
  script.expectMessage(
      QStringLiteral("This could not be done:\n\nNo such file or directory:\n/Photos/00001.jpg"),
      {}, MsgIcon::Critical);
  reportFailure(std::filesystem::filesystem_error(
      "cannot copy", "/Photos/00001.jpg",
      std::make_error_code(std::errc::no_such_file_or_directory)));
}

TEST(PassOver, GoesOnBehindAFailedStep) {
  int steps = 0;
  passOver([] { throw std::runtime_error("no picture"); });
  passOver([&steps] { ++steps; });
  EXPECT_EQ(steps, 1);
}

} // namespace hearthbook::test
