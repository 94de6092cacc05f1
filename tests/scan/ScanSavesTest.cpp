#include "ScanFixture.h"

#include "Corrections.h"
#include "Encode.h"
#include "Pointer.h"
#include "Resample.h"

#include <gmock/gmock.h>

namespace hearthbook::test {

namespace {

using testing::ElementsAre;
namespace fs = std::filesystem;

/// What becomes of the rectangles on a scanned page.
class ScanSaves : public ScanFixture {
protected:
  void expectNoSelection() {
    boxes_.expectMessage(toQString("Please Make A Selection\nBy Draging Your Mouse On The Image."),
                         toQString("Save Selected Image"));
  }
  void expectNotSaved() {
    boxes_.expectMessage(toQString("File Could Not Be Saved, Please Scan Photo Again"),
                         toQString("Save Selected"), MsgIcon::Exclamation);
  }
  /// A rectangle was to be saved where no photo can be put.
  Scan& saveWithoutAFolder() {
    auto& scan = openWith(page_);
    fs::rename(at("Photos"), at("Photos away"));
    writeBytes(at("Photos"), "no folder");
    draw(scan, {100, 100}, {300, 200});
    expectNotSaved();
    press(scan, "Command1");
    return scan;
  }
  std::string lastId() {
    photos().MoveLast();
    return photos().Collect("PictureID").toText();
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
  const Picture page_ = grainy({600, 400});
};

} // namespace

TEST_F(ScanSaves, WithoutARectangleNothingIsSavedAndTheUserIsTold) {
  expectNoSelection();
  const auto& scan = openWith(page_);
  press(scan, "Command1");
  EXPECT_EQ(photos().RecordCount(), 1);
  EXPECT_THAT(namesIn(at("Photos")), ElementsAre("00001.jpg"));
}

TEST_F(ScanSaves, ThreeRectanglesBecomeThreePhotos) {
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

TEST_F(ScanSaves, TheRectangleIsRed) {
  auto& scan = openWith(plain(page_.size(), white));
  draw(scan, {100, 100}, {200, 200});
  EXPECT_LT(fromRed(scan, {130, 100}), 64); // beside the handle in the middle
}

TEST_F(ScanSaves, WhatIsSavedStaysMarkedInRedOnTheScreen) {
  auto& scan = openWith(plain(page_.size(), white));
  draw(scan, {100, 100}, {200, 200});
  press(scan, "Command1");
  EXPECT_LT(fromRed(scan, {150, 100}), 64);
}

TEST_F(ScanSaves, ARectangleBeyondTheImageIsCutAtItsEdge) {
  const auto& scan = openWith(page_);
  draw(scan, {500, 300}, {700, 500});
  press(scan, "Command1");
  const PixelSize saved = readPictureInfo(at("Photos/00002.jpg")).size;
  EXPECT_NEAR(saved.width, 100, 1);
  EXPECT_NEAR(saved.height, 100, 1);
}

TEST_F(ScanSaves, APrintThatWasTurnedAndBrightenedIsSavedSo) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  const Picture region = cropped(page_, scan.page().selected());
  press(scan, "Command11");
  press(scan, "Command4");
  press(scan, "Command1");
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), jpegOf(rotated(withLightness(region, 10), -90), 0));
}

TEST_F(ScanSaves, APhotoThatCannotBeSavedIsToldAndItsRowStays) {
  const auto& scan = saveWithoutAFolder();
  EXPECT_EQ(photos().RecordCount(), 2);
  EXPECT_TRUE(scan.page().selection().isThere()) << "so that it can be tried again";
  EXPECT_TRUE(scan.page().savedMarks().empty());
  EXPECT_TRUE(isEnabled(scan, "Command1"));
  EXPECT_FALSE(Hourglass::isShown());
}

TEST_F(ScanSaves, WhileAPhotoIsSavedTheKeyboardGoesToThePageNotToClose) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  auto held = holdPool();
  control(scan, "Command1")->setFocus();
  QTest::keyClick(control(scan, "Command1"), Qt::Key_Space);
  ASSERT_TRUE(scan.isBusy());
  EXPECT_EQ(scan.focusWidget(), control(scan, "NotX1"));
  held.reset();
  settle();
}

TEST_F(ScanSaves, TheNextRectangleMayBeBegunWhileTheLastOneIsSaved) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  auto* layer = control<MarkLayer>(scan, "NotX1");
  auto held = holdPool();
  FormControls::press(scan, "Command1");
  QTest::mousePress(layer, Qt::LeftButton, {}, QPoint(20, 20));
  QTest::mouseMove(layer, QPoint(30, 30));
  held.reset();
  settle();
  EXPECT_FALSE(scan.page().selection().isThere());
  QTest::mouseMove(layer, QPoint(60, 50));
  QTest::mouseRelease(layer, Qt::LeftButton, {}, QPoint(60, 50));
  const PagePlaces places(scan.page(), *layer);
  EXPECT_NEAR(scan.page().selected().left, places.toPage({20, 20}).x, 1);
  EXPECT_NEAR(scan.page().selected().width, places.toPage({40, 0}).x, 1);
}

TEST_F(ScanSaves, ThatThePageIsZoomedOutOfSightIsToldAfterASavedPhotoToo) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  press(scan, "Command1");
  ASSERT_EQ(hintOf(scan), "Saved as photo 00002.");
  for (int step = 0; step < 4; ++step)
    press(scan, "Command16");
  EXPECT_NE(hintOf(scan).find("out of sight"), std::string::npos);
}

TEST_F(ScanSaves, ClosingWhileAPhotoIsSavedClosesOnceItIs) {
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

TEST_F(ScanSaves, WhatCouldNotBeSavedIsNotClosed) {
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

TEST_F(ScanSaves, ASaveIsTheLastThatCanBeAskedForWhileThePageIsEdited) {
  const auto& scan = openWith(page_);
  draw(scan, {100, 100}, {300, 200});
  auto held = holdPool();
  FormControls::press(scan, "Command11");
  EXPECT_TRUE(isEnabled(scan, "Command1"));
  FormControls::press(scan, "Command1");
  EXPECT_FALSE(isEnabled(scan, "Command1")) << "a second photo of it is not meant";
  EXPECT_FALSE(isEnabled(scan, "Command11"));
  held.reset();
  settle();
  EXPECT_EQ(photos().RecordCount(), 2);
  EXPECT_TRUE(isEnabled(scan, "Command1"));
}

TEST_F(ScanSaves, WhereNothingIsSelectedForAWishedSaveThePageIsNotClosed) {
  const auto& scan = openWith(page_);
  auto held = holdPool();
  for (const char* name : {"Command11", "Command1", "BtnClose"})
    FormControls::press(scan, name);
  expectNoSelection();
  held.reset();
  settle();
  EXPECT_NE(Forms::loaded<Scan>(), nullptr);
  EXPECT_TRUE(fs::exists(at("Backup/Scanned page.jpg")));
}

TEST_F(ScanSaves, APressWhoseReleaseWasTakenByABoxBeginsNoRectangle) {
  const auto& scan = openWith(page_);
  auto* layer = control<MarkLayer>(scan, "NotX1");
  auto held = holdPool();
  FormControls::press(scan, "Command11");
  QTest::mousePress(layer, Qt::LeftButton, {}, QPoint(20, 20));
  held.reset();
  settle();
  for (const QPointF at : {QPointF(60, 50), QPointF(90, 80)}) {
    QMouseEvent hovered(QEvent::MouseMove, at, layer->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(layer, &hovered);
  }
  EXPECT_FALSE(scan.page().selection().isThere());
  QTest::mouseRelease(layer, Qt::LeftButton, {}, QPoint(90, 80));
}

TEST_F(ScanSaves, ARectangleThatWasMovedOffThePageIsNone) {
  const auto& scan = openWith(page_);
  draw(scan, {570, 100}, {590, 200});
  for (int step = 0; step < 4; ++step)
    QTest::keyClick(control(scan, "NotX1"), Qt::Key_Right, Qt::ControlModifier);
  EXPECT_FALSE(scan.page().selection().isThere());
  expectNoSelection();
  press(scan, "Command1");
  EXPECT_EQ(photos().RecordCount(), 1);
}

TEST_F(ScanSaves, OnePixelBecomesAPhoto) {
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

TEST_F(ScanSaves, WhyAPhotoCannotBeSavedStandsBelowThePageUntilTheRectangleMoves) {
  const auto& scan = saveWithoutAFolder();
  EXPECT_EQ(hintOf(scan), "Cannot make the folder \"" + at("Photos").string() +
                              "\": a part of its path is not a folder.");
  QTest::keyClick(control(scan, "NotX1"), Qt::Key_Right);
  EXPECT_EQ(hintOf(scan).substr(0, 9), "Selected:");
}

TEST_F(ScanSaves, AFullDiskIsNamedWhereAPhotoCannotBeSaved) {
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

TEST_F(ScanSaves, AThumbnailThatCannotBeSavedIsReported) {
  const auto& scan = openWith(page_);
  fs::create_directories(at("Thumbnails/00002.jpg/in the way"));
  draw(scan, {100, 100}, {300, 200});
  boxes_.expectFailure(toQString("The photo is saved, but its thumbnail is not. "));
  press(scan, "Command1");
  EXPECT_TRUE(fs::exists(at("Photos/00002.jpg")));
  EXPECT_EQ(scan.page().savedMarks().size(), 1u) << "the photo is in the album";
  EXPECT_FALSE(scan.page().selection().isThere()) << "so that it is not saved once more";
}

TEST_F(ScanSaves, WithoutAPlaceForThumbnailsNothingIsSavedAndTheUserIsTold) {
  const auto& scan = openWith(page_);
  fs::rename(at("Thumbnails"), at("Thumbnails away"));
  writeBytes(at("Thumbnails"), "no folder");
  draw(scan, {100, 100}, {300, 200});
  expectNotSaved();
  press(scan, "Command1");
  EXPECT_THAT(namesIn(at("Photos")), ElementsAre("00001.jpg"));
  EXPECT_TRUE(scan.page().selection().isThere()) << "so that it can be tried again";
}

} // namespace hearthbook::test
