#include "ScanFixture.h"

#include "Corrections.h"
#include "PageView.h"
#include "Stage.h"
#include "WaitFor.h"

#include <QScrollBar>

namespace hearthbook::test {

namespace {

class ScanEdits : public ScanFixture {
protected:
  static MarkLayer* layer(const Scan& scan) { return control<MarkLayer>(scan, "NotX1"); }
  static QScrollBar* bar(const Scan& scan, const char* name) {
    return control<QScrollBar>(scan, name);
  }
  const Picture page_ = grainy({600, 400});
};

} // namespace

TEST_F(ScanEdits, EachCommandDoesWhatItSaysToTheWholePage) {
  const std::pair<const char*, EditOperation> commands[] = {
      {"Command10", edits::autoLevels}, {"Command11", edits::brighter},
      {"Command12", edits::darken},     {"Command13", edits::soften},
      {"Command14", edits::sharpen},    {"Command3", edits::flip},
      {"Command4", edits::rotateRight}, {"Command5", edits::rotateLeft}};
  auto& scan = openWith(page_);
  for (const auto& [name, operation] : commands) {
    press(scan, name);
    EXPECT_TRUE(isSame(scan.page().picture(), applied(operation, page_))) << name;
    press(scan, "undoButton");
    EXPECT_TRUE(isSame(scan.page().picture(), page_)) << name;
  }
}

TEST_F(ScanEdits, ARectangleDrawnByMouseIsEditedAlone) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  const PixelRect region = scan.page().selected();
  EXPECT_NEAR(region.left, 100, 1);
  EXPECT_NEAR(region.width, 200, 1);
  press(scan, "Command12");
  EXPECT_TRUE(isSame(scan.page().picture(), page_));
  ASSERT_EQ(scan.page().elements().size(), 1u);
  EXPECT_EQ(scan.page().elements()[0].place, region);
}

TEST_F(ScanEdits, CloseTakesTheRectangleAway) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  ASSERT_NE(regionButton(scan, "Close"), nullptr);
  QTest::mouseClick(regionButton(scan, "Close"), Qt::LeftButton);
  EXPECT_FALSE(scan.page().selection().isThere());
  EXPECT_EQ(regionButton(scan, "Close"), nullptr);
}

TEST_F(ScanEdits, RevertIsDarkGreyAndTakesTheEditAway) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  press(scan, "Command14");
  auto* revert = regionButton(scan, "Revert");
  ASSERT_NE(revert, nullptr);
  EXPECT_EQ(revert->palette().color(QPalette::ButtonText), QColor(50, 50, 50));
  QTest::mouseClick(revert, Qt::LeftButton);
  EXPECT_TRUE(scan.page().elements().empty());
  EXPECT_NE(regionButton(scan, "Close"), nullptr);
}

TEST_F(ScanEdits, TheSmallButtonKeepsItsSizeAtEveryZoom) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  const double scale = Stage::scaleOf(layer(scan));
  const QSize wanted(qRound(45 * scale), qRound(20 * scale));
  EXPECT_EQ(regionButton(scan, "Close")->size(), wanted);
  for (int step = 0; step < 12; ++step) {
    press(scan, "Command15");
    EXPECT_EQ(regionButton(scan, "Close")->size(), wanted) << scan.page().view().factor();
  }
  for (int step = 0; step < 15; ++step)
    press(scan, "Command16");
  EXPECT_EQ(scan.page().view().factor(), 0.25);
  EXPECT_EQ(regionButton(scan, "Close")->size(), wanted);
}

TEST_F(ScanEdits, TheRectangleGrowsWithTheZoomAndStaysOnItsPixels) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  const PixelRect region = scan.page().selected();
  press(scan, "Command15");
  press(scan, "Command9");
  EXPECT_EQ(scan.page().selected(), region);
}

TEST_F(ScanEdits, ZoomedOutToNothingThePageComesBack) {
  const auto& scan = openWith(page_);
  for (int step = 0; step < 4; ++step)
    press(scan, "Command16");
  EXPECT_EQ(scan.page().view().factor(), 0);
  EXPECT_EQ(layer(scan)->size(), QSize(0, 0));
  EXPECT_NE(hintOf(scan).find("out of sight"), std::string::npos);
  press(scan, "Command16");
  press(scan, "Command11");
  press(scan, "Command15");
  EXPECT_EQ(scan.page().view().factor(), 0.25);
  EXPECT_GT(layer(scan)->width(), 0);
}

TEST_F(ScanEdits, WhatFitsIsShownWithoutScrollBarsAndTheControlShrinksToIt) {
  const auto& scan = openWith(page_);
  press(scan, "Command16");
  const double scale = Stage::scaleOf(layer(scan));
  EXPECT_NEAR(control(scan, "ImgX1")->width(), 450 * scale, 1);
  EXPECT_NEAR(control(scan, "ImgX1")->height(), 300 * scale, 1);
  EXPECT_FALSE(bar(scan, "acrossBar")->isVisible());
  EXPECT_FALSE(bar(scan, "downBar")->isVisible());
}

TEST_F(ScanEdits, OriginalSizeHasBothScrollBars) {
  const auto& scan = openWith(page_);
  press(scan, "Command9");
  EXPECT_TRUE(bar(scan, "acrossBar")->isVisible());
  EXPECT_TRUE(bar(scan, "downBar")->isVisible());
  const double scale = Stage::scaleOf(layer(scan));
  EXPECT_NEAR(control(scan, "ImgX1")->width(), 681 * scale, 1);
}

TEST_F(ScanEdits, ATurnSwapsTheScrollBars) {
  const auto& scan = openWith(grainy({1000, 300}));
  press(scan, "Command9");
  press(scan, "Command15");
  press(scan, "Command16");
  EXPECT_TRUE(bar(scan, "acrossBar")->isVisible());
  EXPECT_FALSE(bar(scan, "downBar")->isVisible());
  press(scan, "Command4");
  EXPECT_FALSE(bar(scan, "acrossBar")->isVisible());
  EXPECT_TRUE(bar(scan, "downBar")->isVisible());
}

TEST_F(ScanEdits, AFittedPageThatIsTurnedAndTurnedBackIsFittedAgain) {
  const auto& scan = openWith(grainy({1400, 500}));
  const QRect fitted = control(scan, "ImgX1")->geometry();
  for (const auto& [there, back] :
       {std::pair{"Command4", "undoButton"}, {"Command4", "Command5"}, {"Command5", "Command5"}}) {
    press(scan, there);
    EXPECT_TRUE(bar(scan, "downBar")->isVisible());
    press(scan, back);
    EXPECT_EQ(control(scan, "ImgX1")->geometry(), fitted);
    EXPECT_FALSE(bar(scan, "acrossBar")->isVisible()) << "it would have nothing to scroll";
    EXPECT_FALSE(bar(scan, "downBar")->isVisible());
  }
}

TEST_F(ScanEdits, TheScrollBarsMoveThePage) {
  const auto& scan = openWith(grainy({2000, 1500}));
  press(scan, "Command9");
  bar(scan, "acrossBar")->setValue(3000);
  bar(scan, "downBar")->setValue(1500);
  EXPECT_EQ(scan.page().view().scroll(), (TwipsPoint{3000, 1500}));
  const PagePlaces places(scan.page(), *layer(scan));
  EXPECT_NEAR(places.toPage({0, 0}).x, 200, 0.01);
  EXPECT_NEAR(places.toPage({0, 0}).y, 100, 0.01);
}

TEST_F(ScanEdits, HoweverOftenThePageIsScrolledOneCopyOfItIsMadeAtATime) {
  const auto& scan = openWith(grainy({3000, 1500}));
  auto held = holdPool();
  FormControls::press(scan, "Command15");
  // Each copy on its way is one; what is through with its own may still be about to let go.
  const long users = scan.page().picture().share().use_count();
  for (int step = 1; step <= 20; ++step)
    bar(scan, "acrossBar")->setValue(step * 100);
  FormControls::press(scan, "Command15");
  EXPECT_LE(scan.page().picture().share().use_count(), users);
  held.reset();
  settle();
  EXPECT_TRUE(scan.isSharp()) << "a copy that no longer fits is followed by one that does";
}

TEST_F(ScanEdits, ARegionThatIsAllOfThePageGetsACopyOfItsOwn) {
  const auto& scan = openWith(plain({3000, 1500}, red));
  QTest::keyClick(layer(scan), Qt::Key_A, Qt::ControlModifier);
  press(scan, "Command12");
  EXPECT_TRUE(scan.isSharp());
  const QImage seen = control(scan, "ImgX1")->grab().toImage();
  const Picture darker = applied(edits::darken, plain({1, 1}, red));
  EXPECT_LT(distance(seen.pixel(seen.width() / 2, seen.height() / 2), darker.row(0)[0]), 3);
}

TEST_F(ScanEdits, CropLeavesWhatWasSelected) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  const PixelRect region = scan.page().selected();
  press(scan, "Command6");
  EXPECT_TRUE(isSame(scan.page().picture(), cropped(page_, region)));
  EXPECT_FALSE(scan.page().selection().isThere());
  EXPECT_EQ(regionButton(scan, "Close"), nullptr);
}

TEST_F(ScanEdits, CropWithoutARectangleDoesNothing) {
  const auto& scan = openWith(page_);
  press(scan, "Command6");
  EXPECT_TRUE(isSame(scan.page().picture(), page_));
  EXPECT_FALSE(isEnabled(scan, "undoButton"));
}

TEST_F(ScanEdits, AHandleAdjustsTheRectangle) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  draw(scan, {300, 200}, {400, 260});
  EXPECT_NEAR(scan.page().selected().left, 100, 1);
  EXPECT_NEAR(scan.page().selected().width, 300, 2);
  EXPECT_NEAR(scan.page().selected().height, 160, 2);
  draw(scan, {100, 180}, {50, 10}); // the middle of the left side
  EXPECT_NEAR(scan.page().selected().left, 50, 2);
  EXPECT_NEAR(scan.page().selected().top, 100, 1);
}

TEST_F(ScanEdits, ThePointerIsACrossAndShowsWhatAHandleDoes) {
  const auto& scan = openWith(page_);
  EXPECT_EQ(layer(scan)->cursor().shape(), Qt::CrossCursor);
  draw(scan, {100, 100}, {300, 200});
  const PagePlaces places(scan.page(), *layer(scan));
  QTest::mouseMove(layer(scan), places.toWidget(PixelPoint{100, 150}).toPoint());
  EXPECT_EQ(layer(scan)->cursor().shape(), Qt::SizeHorCursor);
  QTest::mouseMove(layer(scan), places.toWidget(PixelPoint{300, 200}).toPoint());
  EXPECT_EQ(layer(scan)->cursor().shape(), Qt::SizeFDiagCursor);
  QTest::mouseMove(layer(scan), places.toWidget(PixelPoint{200, 150}).toPoint());
  EXPECT_EQ(layer(scan)->cursor().shape(), Qt::CrossCursor);
}

TEST_F(ScanEdits, AClickDrawsNothingAndLeavesTheRectangle) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  const PixelRect region = scan.page().selected();
  QTest::mouseClick(layer(scan), Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ(scan.page().selected(), region);
}

TEST_F(ScanEdits, KeysMoveGrowAndRemoveTheRectangle) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  const PixelRect region = scan.page().selected();
  QTest::keyClick(layer(scan), Qt::Key_Right);
  QTest::keyClick(layer(scan), Qt::Key_Down, Qt::ControlModifier);
  QTest::keyClick(layer(scan), Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(scan.page().selected(),
            (PixelRect{region.left + 1, region.top + 10, region.width - 1, region.height}));
  QTest::keyClick(layer(scan), Qt::Key_Escape);
  EXPECT_FALSE(scan.page().selection().isThere());
  EXPECT_NE(Forms::loaded<Scan>(), nullptr);
  QTest::keyClick(layer(scan), Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(scan.page().selected(), (PixelRect{0, 0, 600, 400}));
}

TEST_F(ScanEdits, KeysZoom) {
  const auto& scan = openWith(page_);
  QTest::keyClick(layer(scan), Qt::Key_Plus);
  EXPECT_EQ(scan.page().view().factor(), 1.25);
  QTest::keyClick(layer(scan), Qt::Key_Minus);
  EXPECT_EQ(scan.page().view().factor(), 1);
}

TEST_F(ScanEdits, TheKeyOfPlusZoomsWithoutShiftToo) {
  auto& scan = openWith(page_);
  QTest::keyClick(layer(scan), Qt::Key_Equal);
  EXPECT_EQ(scan.page().view().factor(), 1.25);
  scan.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&scan));
  QTest::keyClick(layer(scan), Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(scan.page().view().factor(), 1.5);
  QTest::keyClick(layer(scan), Qt::Key_Plus, Qt::ControlModifier);
  ASSERT_TRUE(waitFor([&] { return scan.page().view().factor() == 1.75; }));
}

TEST_F(ScanEdits, TheKeyOfPlusDoesNothingWhereThereIsNothingToZoom) {
  boxes_.expectMessage(toQString("Scanner Error! Please make sure your scanner is working."),
                       toQString("Scan Photo"), MsgIcon::Critical);
  willFail(ScanStatus::NoScanner);
  auto& scan = open("Scan");
  scan.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&scan));
  QTest::keyClick(layer(scan), Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(scan.page().view().factor(), 1);
}

TEST_F(ScanEdits, ShortcutsTurnTakeBackAndShowInFull) {
  auto& scan = openWith(page_);
  scan.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&scan));
  // A button that is pressed by a key is let go a moment later.
  QTest::keyClick(layer(scan), Qt::Key_R, Qt::ControlModifier);
  ASSERT_TRUE(waitFor([&] { return !scan.isBusy() && scan.page().canUndo(); }));
  EXPECT_TRUE(isSame(scan.page().picture(), rotated(page_, -90)));
  settle();
  QTest::keyClick(layer(scan), Qt::Key_Z, Qt::ControlModifier);
  ASSERT_TRUE(waitFor([&] { return !scan.page().canUndo(); }));
  EXPECT_TRUE(isSame(scan.page().picture(), page_));
  QTest::keyClick(layer(scan), Qt::Key_0, Qt::ControlModifier);
  ASSERT_TRUE(waitFor([&] { return scan.page().view().scrollBars() == ScrollBars::Both; }));
  EXPECT_EQ(scan.page().view().factor(), 1);
}

TEST_F(ScanEdits, EscapeWithoutARectangleClosesTheForm) {
  const auto& scan = openWith(page_);
  QTest::keyClick(layer(scan), Qt::Key_Escape);
  EXPECT_EQ(Forms::loaded<Scan>(), nullptr);
}

TEST_F(ScanEdits, AnEditCanBeStopped) {
  const auto& scan = openWith(page_);
  FormControls::press(scan, "Command11");
  ASSERT_TRUE(scan.isBusy());
  press(scan, "stopButton");
  EXPECT_TRUE(isSame(scan.page().picture(), page_));
  EXPECT_FALSE(isEnabled(scan, "undoButton"));
}

TEST_F(ScanEdits, WhatAStoppedEditHasShownBeforehandGoesAway) {
  const auto& scan = openWith(plain({3000, 1500}, red));
  auto* view = control<PageView>(scan, "ImgX1");
  const auto middle = [&] {
    const QImage seen = view->grab().toImage();
    return seen.pixel(seen.width() / 2, seen.height() / 2);
  };
  FormControls::press(scan, "Command11");
  view->showPreview(plain(view->smallPage().size(), blue));
  EXPECT_LT(distance(middle(), blue), 3);
  press(scan, "stopButton");
  EXPECT_LT(distance(middle(), red), 3);
}

TEST_F(ScanEdits, CommandsGivenWhileAnEditRunsAreCarriedOutInTurn) {
  const auto& scan = openWith(page_);
  auto held = holdPool();
  for (const char* name : {"Command4", "Command4", "Command11", "Command15"})
    FormControls::press(scan, name);
  EXPECT_TRUE(isSame(scan.page().picture(), page_));
  held.reset();
  settle();
  EXPECT_TRUE(isSame(scan.page().picture(), withLightness(rotated(page_, 180), 10)));
  EXPECT_EQ(scan.page().view().factor(), 1.25);
}

TEST_F(ScanEdits, StopGivesUpWhatWaitsForItsTurnToo) {
  const auto& scan = openWith(page_);
  auto held = holdPool();
  for (const char* name : {"Command11", "Command4", "BtnClose", "stopButton"})
    FormControls::press(scan, name);
  held.reset();
  finishPool();
  EXPECT_FALSE(scan.isBusy());
  ASSERT_NE(Forms::loaded<Scan>(), nullptr);
  EXPECT_TRUE(isSame(scan.page().picture(), page_));
}

TEST_F(ScanEdits, ScanAgainWaitsForThePageThatIsEdited) {
  const auto& scan = openWith(page_);
  auto held = holdPool();
  FormControls::press(scan, "Command11");
  EXPECT_FALSE(isEnabled(scan, "Command2"));
  held.reset();
  settle();
  EXPECT_TRUE(isEnabled(scan, "Command2"));
}

TEST_F(ScanEdits, CloseThatHasToWaitSaysSo) {
  const auto& scan = openWith(page_);
  auto held = holdPool();
  for (const char* name : {"Command11", "BtnClose"})
    FormControls::press(scan, name);
  EXPECT_EQ(hintOf(scan), "This closes as soon as what was asked for is done.");
  EXPECT_TRUE(control(scan, "stopButton")->isVisible());
  held.reset();
  waitUntil([] { return !Forms::loaded<Scan>(); });
}

TEST_F(ScanEdits, WhatIsDoneInAMomentIsNotAnnounced) {
  const auto& scan = openWith(page_);
  auto held = holdPool();
  const std::string hint = hintOf(scan);
  FormControls::press(scan, "Command11");
  EXPECT_EQ(hintOf(scan), hint);
  EXPECT_FALSE(control(scan, "stopButton")->isVisible());
  ASSERT_TRUE(waitFor([&] { return control(scan, "stopButton")->isVisible(); }));
  EXPECT_EQ(hintOf(scan), "One moment ...");
}

TEST_F(ScanEdits, ACommandGivenByKeyKeepsTheKeyboardAndCanBeGivenAgain) {
  const auto& scan = openWith(page_);
  auto* brighter = control(scan, "Command11");
  brighter->setFocus();
  QTest::keyClick(brighter, Qt::Key_Space);
  EXPECT_EQ(scan.focusWidget(), brighter);
  QTest::keyClick(brighter, Qt::Key_Space);
  settle();
  EXPECT_EQ(scan.focusWidget(), brighter);
  EXPECT_TRUE(isSame(scan.page().picture(), withLightness(withLightness(page_, 10), 10)));
}

TEST_F(ScanEdits, WhereNothingIsLeftToUndoTheKeyboardGoesToThePage) {
  const auto& scan = openWith(page_);
  press(scan, "Command11");
  auto* undo = control(scan, "undoButton");
  undo->setFocus();
  QTest::keyClick(undo, Qt::Key_Space);
  EXPECT_FALSE(undo->isEnabled());
  EXPECT_EQ(scan.focusWidget(), layer(scan));
}

TEST_F(ScanEdits, ASmallButtonPressedByKeyLeavesTheKeyboardOnThePage) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  auto* close = regionButton(scan, "Close");
  close->setFocus();
  QTest::keyClick(close, Qt::Key_Space);
  EXPECT_FALSE(scan.page().selection().isThere());
  EXPECT_EQ(scan.focusWidget(), layer(scan));
}

TEST_F(ScanEdits, ARectangleMayBeginBesideThePage) {
  const auto& scan = openWith(grainy({300, 400}));
  auto* box = control(scan, "viewBox");
  const QPoint corner = layer(scan)->geometry().topLeft();
  ASSERT_GT(corner.x(), 10);
  const QPoint inside = corner + QPoint(layer(scan)->width() / 2, layer(scan)->height() / 2);
  QTest::mousePress(box, Qt::LeftButton, {}, corner + QPoint(-9, 5));
  for (const QPoint at : {corner, inside})
    QTest::mouseMove(box, at);
  QTest::mouseRelease(box, Qt::LeftButton, {}, inside);
  EXPECT_EQ(scan.page().selected().left, 0);
  EXPECT_NEAR(scan.page().selected().width, 150, 2);
  EXPECT_EQ(scan.page().selection().topLeft().x, 0) << "its side can be seen and taken hold of";
}

TEST_F(ScanEdits, TheWheelBesideThePageIsThePagesToo) {
  const auto& scan = openWith(grainy({300, 400}));
  QWheelEvent event(QPointF(2, 2), QPointF(2, 2), {}, QPoint(0, 120), Qt::NoButton,
                    Qt::ControlModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(control(scan, "viewBox"), &event);
  EXPECT_EQ(scan.page().view().factor(), 1.25);
}

TEST_F(ScanEdits, WhatIsPulledBeyondTheEdgeTakesThePageAlong) {
  const auto& scan = openWith(grainy({2000, 1500}));
  press(scan, "Command9");
  const TwipsPoint before = scan.page().view().scroll();
  const int width = layer(scan)->width();
  QTest::mousePress(layer(scan), Qt::LeftButton, {}, QPoint(width / 2, 50));
  for (const int right : {width - 1, width + 40, width + 80})
    QTest::mouseMove(layer(scan), QPoint(right, 90));
  EXPECT_GT(scan.page().view().scroll().x, before.x);
  EXPECT_EQ(scan.page().view().scroll().y, before.y);
  QTest::mouseRelease(layer(scan), Qt::LeftButton, {}, QPoint(width / 2, 90));
  EXPECT_GT(scan.page().selected().width, 0) << "it began farther left than it is let go";
}

TEST_F(ScanEdits, ASmallButtonIsOutOfSightWithItsRegion) {
  const auto& scan = openWith(grainy({2000, 1500}));
  draw(scan, {10, 10}, {200, 200});
  press(scan, "Command12");
  ASSERT_NE(regionButton(scan, "Revert"), nullptr);
  press(scan, "Command9");
  EXPECT_EQ(regionButton(scan, "Revert"), nullptr);
  bar(scan, "acrossBar")->setValue(0);
  bar(scan, "downBar")->setValue(0);
  EXPECT_NE(regionButton(scan, "Revert"), nullptr);
}

TEST_F(ScanEdits, ThePixelsOnTheScreenAreThoseOfThePage) {
  auto& scan = openWith(plain({3000, 1500}, red));
  press(scan, "Command13");
  const QImage seen = control(scan, "ImgX1")->grab().toImage();
  EXPECT_LT(distance(seen.pixel(seen.width() / 2, seen.height() / 2), red), 3);
  draw(scan, {100, 100}, {1000, 1000});
  press(scan, "Command12");
  const QImage after = control(scan, "ImgX1")->grab().toImage();
  const PagePlaces places(scan.page(), *layer(scan));
  const QPoint inside = places.toWidget(PixelPoint{500, 500}).toPoint();
  const Picture darker = applied(edits::darken, plain({1, 1}, red));
  EXPECT_LT(distance(after.pixel(inside), darker.row(0)[0]), 3);
}

} // namespace hearthbook::test
