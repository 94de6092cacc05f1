#include "ScanFixture.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QProgressBar>
#include <QScrollBar>
#include <QWheelEvent>

namespace hearthbook::test {

namespace {

using testing::ElementsAre;
namespace fs = std::filesystem;

constexpr PixelSize prints{600, 400};

class ScanPages : public ScanFixture {
protected:
  void expectScannerError() {
    boxes_.expectMessage(toQString("Scanner Error! Please make sure your scanner is working."),
                         toQString("Scan Photo"), MsgIcon::Critical);
  }
  void expectKeptPage(MsgAnswer answer) {
    boxes_.expectQuestion(toQString("A scanned page was still open when the program ended. Show it "
                                    "again, instead of scanning another one?"),
                          toQString("Scan Photo"), MsgIcon::Question, MsgButtons::YesNo, answer);
  }
  static void turnWheel(const Scan& scan, int by) {
    auto* layer = control<MarkLayer>(scan, "NotX1");
    const QPointF middle = QRectF(layer->rect()).center();
    QWheelEvent event(middle, layer->mapToGlobal(middle), {}, QPoint(0, by), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(layer, &event);
    settle();
  }
  const Picture page_ = grainy(prints);
};

} // namespace

TEST_F(ScanPages, APageIsTakenAndShownFitted) {
  const auto& scan = openWith(grainy({1200, 2400}));
  EXPECT_EQ(scan.caption(), toQString("Scan Photos"));
  EXPECT_EQ(scan.page().picture().size(), (PixelSize{1200, 2400}));
  EXPECT_DOUBLE_EQ(scan.page().view().size().height, 6735);
  EXPECT_FALSE(control<QScrollBar>(scan, "acrossBar")->isVisible());
  EXPECT_FALSE(control<QScrollBar>(scan, "downBar")->isVisible());
  EXPECT_EQ(control<QAbstractButton>(scan, "Command1")->text(), toQString("Save Selected"));
  EXPECT_FALSE(control(scan, "Command7")->isVisible());
}

TEST_F(ScanPages, WithAPageEveryCommandIsUsable) {
  const auto& scan = openWith(page_);
  EXPECT_THAT(usableCommands(scan),
              ElementsAre("BtnClose", "Command1", "Command10", "Command11", "Command12",
                          "Command13", "Command14", "Command15", "Command16", "Command2",
                          "Command3", "Command4", "Command5", "Command6", "Command7", "Command9",
                          "stopButton"));
}

TEST_F(ScanPages, WithoutAScannerScanAgainAndCloseAreUsable) {
  expectScannerError();
  willFail(ScanStatus::NoScanner);
  const auto& scan = open("Scan");
  EXPECT_THAT(usableCommands(scan), ElementsAre("BtnClose", "Command2", "stopButton"));
  EXPECT_EQ(hintOf(scan), "No scanner was found.");
}

TEST_F(ScanPages, AScannerThatFailsAtOpenOrInTheMiddleOfThePageIsTold) {
  for (const ScanStatus status : {ScanStatus::CannotOpen, ScanStatus::Jammed, ScanStatus::Failed,
                                  ScanStatus::NoMemory, ScanStatus::NotAnswering}) {
    expectScannerError();
    willFail(status);
    auto& scan = open("Scan");
    EXPECT_TRUE(scan.page().isEmpty());
    EXPECT_EQ(hintOf(scan), describe(status));
    scan.Unload();
  }
}

TEST_F(ScanPages, AFirstPageThatTheScannerItselfCancelsIsToldLikeAnyFailure) {
  expectScannerError();
  willFail(ScanStatus::Cancelled);
  const auto& scan = open("Scan");
  EXPECT_THAT(usableCommands(scan), ElementsAre("BtnClose", "Command2", "stopButton"));
  EXPECT_EQ(hintOf(scan), "The scan was cancelled.");
}

TEST_F(ScanPages, ANextPageThatTheScannerItselfCancelsLeavesNothingButClose) {
  willSend(page_);
  willFail(ScanStatus::Cancelled);
  const auto& scan = open("Scan");
  press(scan, "Command2");
  EXPECT_THAT(usableCommands(scan), ElementsAre("BtnClose", "stopButton"));
}

TEST_F(ScanPages, AfterAStoppedScanTheNextFailureIsToldAgain) {
  auto& scan = Forms::get<Scan>();
  scan.begin();
  scan.Show();
  press(scan, "stopButton");
  willFail(ScanStatus::Cancelled);
  press(scan, "Command2");
  EXPECT_THAT(usableCommands(scan), ElementsAre("BtnClose", "stopButton"));
}

TEST_F(ScanPages, AfterAFailedFirstScanScanAgainBringsEverything) {
  expectScannerError();
  willFail(ScanStatus::CoverOpen);
  willSend(page_);
  const auto& scan = open("Scan");
  press(scan, "Command2");
  EXPECT_TRUE(isSame(scan.page().picture(), page_));
  EXPECT_TRUE(isEnabled(scan, "Command1"));
}

TEST_F(ScanPages, AFailedScanAgainLeavesNothingButClose) {
  willSend(page_);
  willFail(ScanStatus::Jammed);
  const auto& scan = open("Scan");
  press(scan, "Command2");
  EXPECT_THAT(usableCommands(scan), ElementsAre("BtnClose", "stopButton"));
  EXPECT_EQ(hintOf(scan), "The paper is stuck in the scanner. To try again, close this window and "
                          "open it anew.");
}

TEST_F(ScanPages, ScanAgainShowsTheNewPageWithNothingOfTheOldOne) {
  willSend(page_);
  willSend(corners({300, 200}));
  const auto& scan = open("Scan");
  draw(scan, {10, 10}, {100, 100});
  press(scan, "Command11");
  press(scan, "Command2");
  EXPECT_TRUE(isSame(scan.page().picture(), corners({300, 200})));
  EXPECT_FALSE(scan.page().selection().isThere());
  EXPECT_EQ(scan.page().view().scrollBars(), ScrollBars::None);
  EXPECT_FALSE(isEnabled(scan, "undoButton"));
}

TEST_F(ScanPages, WhileThePageComesCommandsWaitAndTheBarFollows) {
  auto& scan = Forms::get<Scan>();
  scan.begin();
  scan.Show();
  EXPECT_TRUE(scan.isBusy());
  scanner_.tellProgress(0.4);
  EXPECT_EQ(control<QProgressBar>(scan, "ProgressBar1")->value(), 40);
  EXPECT_TRUE(control(scan, "stopButton")->isVisible());
  EXPECT_THAT(usableCommands(scan), ElementsAre("BtnClose", "stopButton"));
}

TEST_F(ScanPages, AStoppedFirstScanIsNoFailure) {
  auto& scan = Forms::get<Scan>();
  scan.begin();
  scan.Show();
  press(scan, "stopButton");
  EXPECT_FALSE(scan.isBusy());
  EXPECT_THAT(usableCommands(scan), ElementsAre("BtnClose", "Command2", "stopButton"));
  EXPECT_FALSE(control(scan, "stopButton")->isVisible());
}

TEST_F(ScanPages, WhileTheNextPageComesNoRectangleIsLeftOnTheOldOne) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  ASSERT_NE(regionButton(scan, "Close"), nullptr);
  FormControls::press(scan, "Command2");
  EXPECT_TRUE(scan.isBusy());
  EXPECT_EQ(regionButton(scan, "Close"), nullptr);
  EXPECT_FALSE(scan.page().selection().isThere());
}

TEST_F(ScanPages, AStoppedScanAgainLeavesThePage) {
  const auto& scan = openWith(page_);
  FormControls::press(scan, "Command2");
  EXPECT_TRUE(scan.isBusy());
  press(scan, "stopButton");
  EXPECT_TRUE(isSame(scan.page().picture(), page_));
  EXPECT_TRUE(isEnabled(scan, "Command1"));
  EXPECT_TRUE(isEnabled(scan, "Command2"));
}

TEST_F(ScanPages, ClosingGivesTheScanUp) {
  auto& scan = Forms::get<Scan>();
  scan.begin();
  scan.Show();
  FormControls::press(scan, "BtnClose");
  EXPECT_FALSE(scanner_.isAsked()) << "it was given up";
  EXPECT_EQ(Forms::loaded<Scan>(), nullptr);
  QCoreApplication::processEvents();
}

TEST_F(ScanPages, ClosingGivesTheScannerBack) {
  auto& scan = openWith(page_);
  EXPECT_EQ(scanner_.releases, 0) << "the next page may follow";
  scan.Unload();
  EXPECT_EQ(scanner_.releases, 1);
}

TEST_F(ScanPages, TheNextPageComesFromTheScannerAndInTheDetailThatWereChosen) {
  scanner_.devices = {{"test:0", "Anna's scanner"}, {"test:1", "The other one"}};
  const auto& scan = openWith(page_);
  EXPECT_EQ(scanner_.wishes.at(0).device, "");
  EXPECT_EQ(scanner_.wishes.at(0).dotsPerInch, 300);
  auto* scanners = control<QComboBox>(scan, "scannerBox");
  ASSERT_EQ(scanners->count(), 2);
  scanners->setCurrentIndex(1);
  control<QComboBox>(scan, "detailBox")->setCurrentIndex(2);
  willSend(page_);
  press(scan, "Command2");
  EXPECT_EQ(scanner_.wishes.at(1).device, "test:1");
  EXPECT_EQ(scanner_.wishes.at(1).dotsPerInch, 600);
}

TEST_F(ScanPages, TheScannerAndTheDetailThatWereChosenAreThoseOfTheNextTime) {
  scanner_.devices = {{"test:0", "Anna's scanner"}, {"test:1", "The other one"}};
  auto& scan = openWith(page_);
  control<QComboBox>(scan, "scannerBox")->setCurrentIndex(1);
  control<QComboBox>(scan, "detailBox")->setCurrentIndex(2);
  willSend(page_);
  press(scan, "Command2");
  scan.Unload();
  const auto& again = openWith(page_);
  EXPECT_EQ(scanner_.wishes.back().device, "test:1");
  EXPECT_EQ(scanner_.wishes.back().dotsPerInch, 600);
  EXPECT_EQ(control<QComboBox>(again, "scannerBox")->currentIndex(), 1);
  EXPECT_EQ(control<QComboBox>(again, "detailBox")->currentIndex(), 2);
}

TEST_F(ScanPages, AScannerThatDoesNotWorkIsNotAskedAgainTheNextTime) {
  scanner_.remember({"test:1", 600, {}});
  willFail(ScanStatus::NoScanner);
  expectScannerError();
  open("Scan").Unload();
  EXPECT_EQ(scanner_.wishes.back().device, "test:1");
  openWith(page_);
  EXPECT_EQ(scanner_.wishes.back().device, "");
  EXPECT_EQ(scanner_.wishes.back().dotsPerInch, 600);
}

TEST_F(ScanPages, ThePageIsKeptOnTheDiskUntilTheFormIsClosed) {
  auto& scan = openWith(page_);
  const fs::path kept = at("Backup/Scanned page.jpg");
  waitUntil([&] { return fs::exists(kept); });
  EXPECT_EQ(readPictureInfo(kept).size, prints);
  scan.Unload();
  EXPECT_FALSE(fs::exists(kept));
}

TEST_F(ScanPages, APageThatWasOpenWhenTheProgramEndedComesBackOnWish) {
  writeBytes(at("Backup/Scanned page.jpg"), jpegOf(page_));
  expectKeptPage(MsgAnswer::Yes);
  auto& scan = open("Scan");
  EXPECT_EQ(scan.page().picture().size(), prints);
  EXPECT_TRUE(scanner_.wishes.empty());
  EXPECT_TRUE(isEnabled(scan, "Command1"));
  scan.Unload();
  EXPECT_FALSE(fs::exists(at("Backup/Scanned page.jpg")));
}

TEST_F(ScanPages, AnotherPageIsScannedWhereTheOldOneIsNotWanted) {
  writeBytes(at("Backup/Scanned page.jpg"), jpegOf(page_));
  expectKeptPage(MsgAnswer::No);
  const auto& scan = openWith(corners({300, 200}));
  EXPECT_TRUE(isSame(scan.page().picture(), corners({300, 200})));
  finishPool();
  EXPECT_TRUE(fs::exists(folder_.trash() / "Scanned page.jpg"))
      << "the other one may be wanted yet";
}

TEST_F(ScanPages, AKeptPageThatCannotBeReadIsScannedAnew) {
  writeBytes(at("Backup/Scanned page.jpg"), "no picture");
  expectKeptPage(MsgAnswer::Yes);
  const auto& scan = openWith(page_);
  EXPECT_TRUE(isSame(scan.page().picture(), page_));
}

TEST_F(ScanPages, AKeptPageWhoseOpeningIsStoppedIsStillKeptAndAnotherOneCanBeScanned) {
  writeBytes(at("Backup/Scanned page.jpg"), jpegOf(page_));
  expectKeptPage(MsgAnswer::Yes);
  auto held = holdPool();
  auto& scan = Forms::get<Scan>();
  scan.begin();
  scan.Show();
  press(scan, "stopButton");
  held.reset();
  finishPool();
  EXPECT_TRUE(scan.page().isEmpty()) << "what was still being read comes too late";
  EXPECT_EQ(hintOf(scan), "It was not opened.");
  EXPECT_THAT(usableCommands(scan), ElementsAre("BtnClose", "Command2", "stopButton"));
  EXPECT_TRUE(fs::exists(at("Backup/Scanned page.jpg")));
  willSend(corners({300, 200}));
  press(scan, "Command2");
  EXPECT_TRUE(isSame(scan.page().picture(), corners({300, 200})));
}

TEST_F(ScanPages, AKeptPageThatWasNotSeenAgainIsStillKept) {
  writeBytes(at("Backup/Scanned page.jpg"), jpegOf(page_));
  expectKeptPage(MsgAnswer::Yes);
  auto& unseen = Forms::get<Scan>();
  unseen.begin();
  unseen.Unload(); // before the page has been read
  EXPECT_TRUE(fs::exists(at("Backup/Scanned page.jpg")));
  expectKeptPage(MsgAnswer::No);
  expectScannerError();
  willFail(ScanStatus::NoScanner);
  open("Scan").Unload();
  EXPECT_TRUE(fs::exists(at("Backup/Scanned page.jpg")));
}

TEST_F(ScanPages, PartsOfAStepOfTheWheelAddUpToOneAndTwoStepsAreTwo) {
  const auto& scan = openWith(page_);
  for (int part = 0; part < 7; ++part)
    turnWheel(scan, 15);
  EXPECT_EQ(scan.page().view().factor(), 1);
  turnWheel(scan, 15);
  EXPECT_EQ(scan.page().view().factor(), 1.25);
  turnWheel(scan, 240);
  EXPECT_EQ(scan.page().view().factor(), 1.75);
  turnWheel(scan, -360);
  EXPECT_EQ(scan.page().view().factor(), 1);
}

TEST_F(ScanPages, TheWheelZoomsOnlyWhatTheCommandsMayTouch) {
  willSend(page_);
  willFail(ScanStatus::Jammed);
  const auto& scan = open("Scan");
  turnWheel(scan, 120);
  EXPECT_EQ(scan.page().view().factor(), 1.25);
  turnWheel(scan, -120);
  EXPECT_EQ(scan.page().view().factor(), 1);
  press(scan, "Command2");
  turnWheel(scan, 120);
  EXPECT_EQ(scan.page().view().factor(), 1) << "only Close is left";
}

} // namespace hearthbook::test
