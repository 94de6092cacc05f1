#include "ScanFixture.h"

#include "Corrections.h"
#include "Encode.h"
#include "Pointer.h"
#include "Resample.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QProgressBar>
#include <QScrollBar>
#include <QWheelEvent>

namespace hearthbook::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
namespace fs = std::filesystem;

constexpr PixelSize prints{600, 400};

class ScanPages : public ScanFixture {
protected:
  void expectScannerError() {
    boxes_.expectMessage(toQString("Scanner Error! Please make sure your scanner is working."),
                         toQString("Scan Photo"), MsgIcon::Critical);
  }
  void expectNoSelection() {
    boxes_.expectMessage(toQString("Please Make A Selection\nBy Draging Your Mouse On The Image."),
                         toQString("Save Selected Image"));
  }
  void expectNotSaved() {
    boxes_.expectMessage(toQString("File Could Not Be Saved, Please Scan Photo Again"),
                         toQString("Save Selected"), MsgIcon::Exclamation);
  }
  void expectKeptPage(MsgAnswer answer) {
    boxes_.expectQuestion(toQString("A scanned page was still open when the program ended. Show it "
                                    "again, instead of scanning another one?"),
                          toQString("Scan Photo"), MsgIcon::Question, MsgButtons::YesNo, answer);
  }
  std::string lastId() {
    photos().MoveLast();
    return photos().Collect("PictureID").toText();
  }
  static void turnWheel(const Scan& scan, int by) {
    auto* layer = control<MarkLayer>(scan, "NotX1");
    const QPointF middle = QRectF(layer->rect()).center();
    QWheelEvent event(middle, layer->mapToGlobal(middle), {}, QPoint(0, by), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(layer, &event);
    settle();
  }
  /// How far what is on the screen at a level edge there is from red.
  static int fromRed(Scan& scan, PixelPoint edge) {
    const auto* layer = control<MarkLayer>(scan, "NotX1");
    const QPoint at = layer->mapTo(&scan, PagePlaces(scan.page(), *layer).toWidget(edge).toPoint());
    const QImage seen = scan.grab().toImage();
    int farthest = 255; // the line is two pixels wide, and may be drawn between two
    for (int below = -2; below <= 2; ++below)
      farthest = std::min(farthest, distance(seen.pixel(at.x(), at.y() + below), red));
    return farthest;
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
  EXPECT_EQ(hintOf(scan), "The paper is stuck in the scanner.");
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

TEST_F(ScanPages, WithoutARectangleNothingIsSavedAndTheUserIsTold) {
  expectNoSelection();
  const auto& scan = openWith(page_);
  press(scan, "Command1");
  EXPECT_EQ(photos().RecordCount(), 1);
  EXPECT_THAT(namesIn(at("Photos")), ElementsAre("00001.jpg"));
}

TEST_F(ScanPages, ThreeRectanglesBecomeThreePhotos) {
  const auto& scan = openWith(page_);
  const PixelRect regions[] = {{20, 20, 150, 100}, {220, 30, 100, 150}, {400, 200, 180, 180}};
  for (const PixelRect& region : regions) {
    draw(scan, {double(region.left), double(region.top)},
         {double(region.left + region.width), double(region.top + region.height)});
    const Picture drawn = cropped(page_, scan.page().selected());
    press(scan, "Command1");
    EXPECT_FALSE(scan.page().selection().isThere()) << "the next rectangle begins afresh";
    const auto names = namesIn(at("Photos"));
    EXPECT_EQ(readBytes(at("Photos") / names.back()), jpegOf(drawn, 0));
    EXPECT_EQ(readPictureInfo(at("Thumbnails") / names.back()).size,
              sizeWithin(drawn.size(), thumbnailSide));
    EXPECT_FALSE(Hourglass::isShown());
  }
  EXPECT_EQ(photos().RecordCount(), 4);
  EXPECT_EQ(lastId(), "HD00004");
  for (const char* folder : {"Photos", "Thumbnails"})
    EXPECT_THAT(namesIn(at(folder)),
                ElementsAre("00001.jpg", "00002.jpg", "00003.jpg", "00004.jpg"));
  EXPECT_EQ(scan.page().savedMarks().size(), 3u);
  EXPECT_TRUE(isSame(scan.page().picture(), page_)) << "the page stays on show";
  EXPECT_EQ(hintOf(scan), "Saved as photo 00004.");
}

TEST_F(ScanPages, TheRectangleIsRed) {
  auto& scan = openWith(plain(prints, white));
  draw(scan, {100, 100}, {200, 200});
  EXPECT_LT(fromRed(scan, {130, 100}), 64); // beside the handle in the middle
}

TEST_F(ScanPages, WhatIsSavedStaysMarkedInRedOnTheScreen) {
  auto& scan = openWith(plain(prints, white));
  draw(scan, {100, 100}, {200, 200});
  press(scan, "Command1");
  EXPECT_LT(fromRed(scan, {150, 100}), 64);
}

TEST_F(ScanPages, ARectangleBeyondTheImageIsCutAtItsEdge) {
  const auto& scan = openWith(page_);
  draw(scan, {500, 300}, {700, 500});
  press(scan, "Command1");
  const PixelSize saved = readPictureInfo(at("Photos/00002.jpg")).size;
  EXPECT_NEAR(saved.width, 100, 1);
  EXPECT_NEAR(saved.height, 100, 1);
}

TEST_F(ScanPages, APrintThatWasTurnedAndBrightenedIsSavedSo) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  const Picture region = cropped(page_, scan.page().selected());
  press(scan, "Command11");
  press(scan, "Command4");
  press(scan, "Command1");
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), jpegOf(rotated(withLightness(region, 10), -90), 0));
}

TEST_F(ScanPages, APhotoThatCannotBeSavedIsToldAndItsRowStays) {
  const auto& scan = openWith(page_);
  fs::rename(at("Photos"), at("Photos away"));
  writeBytes(at("Photos"), "no folder");
  draw(scan, {100, 100}, {300, 200});
  expectNotSaved();
  press(scan, "Command1");
  EXPECT_EQ(photos().RecordCount(), 2);
  EXPECT_TRUE(scan.page().selection().isThere()) << "so that it can be tried again";
  EXPECT_TRUE(scan.page().savedMarks().empty());
  EXPECT_TRUE(isEnabled(scan, "Command1"));
  EXPECT_FALSE(Hourglass::isShown());
}

TEST_F(ScanPages, ClosingWhileAPhotoIsSavedClosesOnceItIs) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  auto held = holdPool();
  FormControls::press(scan, "Command1");
  ASSERT_TRUE(scan.isBusy());
  FormControls::press(scan, "BtnClose");
  ASSERT_NE(Forms::loaded<Scan>(), nullptr);
  EXPECT_EQ(hintOf(scan), "This closes as soon as the photo is saved.");
  held.reset();
  waitUntil([] { return !Forms::loaded<Scan>(); });
  EXPECT_TRUE(fs::exists(at("Photos/00002.jpg")));
  EXPECT_TRUE(fs::exists(at("Thumbnails/00002.jpg")));
}

TEST_F(ScanPages, WhatCouldNotBeSavedIsNotClosed) {
  const auto& scan = openWith(page_);
  fs::rename(at("Photos"), at("Photos away"));
  writeBytes(at("Photos"), "no folder");
  draw(scan, {100, 100}, {300, 200});
  auto held = holdPool();
  FormControls::press(scan, "Command1");
  FormControls::press(scan, "BtnClose");
  expectNotSaved();
  held.reset();
  settle();
  ASSERT_NE(Forms::loaded<Scan>(), nullptr);
  EXPECT_TRUE(scan.page().selection().isThere());
}

TEST_F(ScanPages, ARectangleThatWasMovedOffThePageIsNone) {
  const auto& scan = openWith(page_);
  draw(scan, {570, 100}, {590, 200});
  for (int step = 0; step < 4; ++step)
    QTest::keyClick(control(scan, "NotX1"), Qt::Key_Right, Qt::ControlModifier);
  EXPECT_FALSE(scan.page().selection().isThere());
  expectNoSelection();
  press(scan, "Command1");
  EXPECT_EQ(photos().RecordCount(), 1);
}

TEST_F(ScanPages, OnePixelBecomesAPhoto) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {130, 130});
  for (int step = 0; step < 4; ++step)
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up})
      QTest::keyClick(control(scan, "NotX1"), key, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_EQ(scan.page().selected().size(), (PixelSize{1, 1}));
  press(scan, "Command1");
  EXPECT_EQ(readPictureInfo(at("Photos/00002.jpg")).size, (PixelSize{1, 1}));
  EXPECT_EQ(readPictureInfo(at("Thumbnails/00002.jpg")).size, (PixelSize{73, 73}));
}

TEST_F(ScanPages, WhyAPhotoCannotBeSavedStandsBelowThePageUntilTheRectangleMoves) {
  const auto& scan = openWith(page_);
  fs::rename(at("Photos"), at("Photos away"));
  writeBytes(at("Photos"), "no folder");
  draw(scan, {100, 100}, {300, 200});
  expectNotSaved();
  press(scan, "Command1");
  EXPECT_EQ(hintOf(scan), "Cannot make the folder \"" + at("Photos").string() +
                              "\": a part of its path is not a folder.");
  QTest::keyClick(control(scan, "NotX1"), Qt::Key_Right);
  EXPECT_EQ(hintOf(scan).substr(0, 9), "Selected:");
}

TEST_F(ScanPages, AFullDiskIsNamedWhereAPhotoCannotBeSaved) {
  if (!canMount)
    GTEST_SKIP() << "this machine lets tests mount nothing";
  const auto& scan = openWith(page_);
  const SmallDisk disk(at("Photos"), std::size_t{1} << 20);
  disk.fillUpTo(20'000);
  draw(scan, {100, 100}, {500, 350});
  expectNotSaved();
  press(scan, "Command1");
  EXPECT_EQ(hintOf(scan),
            "Cannot write \"" + at("Photos/00002.jpg").string() + "\": the disk is full.");
  disk.makeRoom();
  press(scan, "Command1");
  EXPECT_EQ(hintOf(scan), "Saved as photo 00003.") << "the row of the failed one stays";
}

TEST_F(ScanPages, AThumbnailThatCannotBeSavedIsReported) {
  const auto& scan = openWith(page_);
  fs::create_directories(at("Thumbnails/00002.jpg/in the way"));
  draw(scan, {100, 100}, {300, 200});
  boxes_.expectFailure(toQString("The photo is saved, but its thumbnail is not. "));
  press(scan, "Command1");
  EXPECT_TRUE(fs::exists(at("Photos/00002.jpg")));
  EXPECT_EQ(scan.page().savedMarks().size(), 1u) << "the photo is in the album";
  EXPECT_FALSE(scan.page().selection().isThere()) << "so that it is not saved once more";
}

TEST_F(ScanPages, WithoutAPlaceForThumbnailsNothingIsSavedAndTheUserIsTold) {
  const auto& scan = openWith(page_);
  fs::rename(at("Thumbnails"), at("Thumbnails away"));
  writeBytes(at("Thumbnails"), "no folder");
  draw(scan, {100, 100}, {300, 200});
  expectNotSaved();
  press(scan, "Command1");
  EXPECT_THAT(namesIn(at("Photos")), ElementsAre("00001.jpg"));
  EXPECT_TRUE(scan.page().selection().isThere()) << "so that it can be tried again";
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
