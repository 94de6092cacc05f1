#include "DesignerFixture.h"

#include "Decode.h"
#include "FileBytes.h"
#include "PageDesign.h"
#include "TestPictures.h"

#include <gmock/gmock.h>

namespace hearthbook::test {

namespace {

using testing::HasSubstr;

class ExportDesignerTest : public DesignerFixture {};

TEST_F(ExportDesignerTest, BeginsWithTheWeddingAndTheChoiceOfDesigns) {
  const auto& designer = open();
  EXPECT_EQ(designer.caption(), designTitle);
  EXPECT_EQ(title(designer, "frameLeft"), "Select Template");
  EXPECT_EQ(title(designer, "frmTemplate"), "Wedding Template (click on boxes to select photo)");
  EXPECT_FALSE(isSeen(designer, "boxSearch"));
  EXPECT_FALSE(isSeen(designer, "frameRegion"));
  EXPECT_NE(tagged<DesignFrame>(designer, "boxTemplate", "Wedding"), nullptr);
}

TEST_F(ExportDesignerTest, ADesignShowsItsBoxesAloneAndItsDecorations) {
  const auto& designer = open();
  for (int index = 0; index < static_cast<int>(pageDesigns().size()); ++index) {
    chooseDesign(designer, index);
    const PageDesign& design = pageDesigns()[static_cast<std::size_t>(index)];
    QStringList seen;
    for (const auto* frame : designer.findChildren<DesignFrame*>(QStringLiteral("boxTemplate")))
      if (frame->isVisible())
        seen << frame->caption();
    QStringList wanted;
    for (const DesignBox& box : design.boxes)
      wanted << toQString(box.caption);
    EXPECT_EQ(seen, wanted);
    EXPECT_TRUE(isDecorated(designer, "left_img"));
    EXPECT_TRUE(isDecorated(designer, "right_img"));
    EXPECT_THAT(title(designer, "frmTemplate"), HasSubstr(design.name));
  }
}

TEST_F(ExportDesignerTest, AClickOnABoxAsksForItsPhoto) {
  const auto& designer = open();
  QTest::mouseClick(&photoBox(designer, "BrideDad"), Qt::LeftButton);
  EXPECT_EQ(title(designer, "frameLeft"), "Select photo for Bride Dad");
  EXPECT_TRUE(isSeen(designer, "boxSearch"));
  EXPECT_TRUE(isSeen(designer, "Combo1"));
  EXPECT_FALSE(isSeen(designer, "Combo2"));
  EXPECT_FALSE(isSeen(designer, "templatePage"));
}

TEST_F(ExportDesignerTest, TheRadioButtonsShowOneListEach) {
  folder_.addPerson("Clara");
  folder_.addPlace("Lake");
  folder_.addEvent("Picnic");
  const auto& designer = open();
  QTest::mouseClick(&photoBox(designer, "Bride"), Qt::LeftButton);
  const struct {
    const char* button;
    const char* list;
    const char* prompt;
    const char* entry;
  } lists[] = {{"radPerson", "Combo1", "Search for person", "Clara"},
               {"radPlace", "Combo2", "Search for place", "Lake"},
               {"radEvent", "Combo3", "Search for event", "Picnic"}};
  for (const auto& list : lists) {
    press(designer, list.button);
    for (const auto& other : lists)
      EXPECT_EQ(isSeen(designer, other.list), other.list == list.list) << list.button;
    const auto* combo = control<QComboBox>(designer, list.list);
    EXPECT_EQ(combo->itemText(0), toQString(list.prompt));
    EXPECT_GE(combo->findText(toQString(list.entry)), 1);
  }
}

TEST_F(ExportDesignerTest, APhotoIsMarkedAndItsRegionGoesIntoTheBox) {
  addPhotosOf("Clara", 2);
  writeBytes(at("Photos/00002.jpg"), jpegOf(corners({1600, 800})));
  auto& designer = open();
  bringPhoto(designer, "Bride", "Clara");
  EXPECT_TRUE(isSeen(designer, "frameRegion"));
  EXPECT_FALSE(isSeen(designer, "frmTemplate"));
  EXPECT_TRUE(isSeen(designer, "boxRegion"));
  auto& view = region(designer);
  const auto inView = [&view](double x, double y) { return view.toView({x, y}).toPoint(); };
  QTest::mousePress(&view, Qt::LeftButton, {}, inView(820, 20));
  QTest::mouseMove(&view, inView(1000, 300));
  QTest::mouseMove(&view, inView(1040, 380));
  QTest::mouseRelease(&view, Qt::LeftButton, {}, inView(1040, 380));
  EXPECT_NEAR(view.region().left, 820, 4);
  EXPECT_NEAR(view.region().height, 360, 8);
  press(designer, "Command4");
  EXPECT_EQ(title(designer, "frameLeft"), "Select Template");
  EXPECT_FALSE(isSeen(designer, "frameRegion"));
  EXPECT_TRUE(isSeen(designer, "frmTemplate"));
  const Picture& taken = photoBox(designer, "Bride").picture();
  ASSERT_FALSE(taken.isNull());
  EXPECT_LT(distance(taken.row(taken.height() / 2)[taken.width() / 2], green), 20);
  EXPECT_NEAR(static_cast<double>(taken.width()) / taken.height(), 267.0 / 324, 0.01);
  leave(designer);
}

TEST_F(ExportDesignerTest, APhotoThatIsMissingIsShownAsNotFoundAndCannotBeMarked) {
  addPhotosOf("Clara", 2);
  writeBytes(at("Media/NotFound.gif"), encodedBy("png", plain({60, 40}, blue)));
  std::filesystem::remove(at("Photos/00002.jpg"));
  auto& designer = open();
  bringPhoto(designer, "Bride", "Clara");
  auto& view = region(designer);
  ASSERT_EQ(view.photo().size(), (PixelSize{60, 40}));
  EXPECT_LT(distance(view.photo().row(20)[30], blue), 8);
  EXPECT_FALSE(isEnabled(designer, "Command4"));
  QTest::mousePress(&view, Qt::LeftButton, {}, view.rect().center());
  QTest::mouseMove(&view, view.rect().center() + QPoint(60, 60));
  QTest::mouseRelease(&view, Qt::LeftButton, {}, view.rect().center() + QPoint(60, 60));
  QTest::keyClick(&view, Qt::Key_Plus);
  EXPECT_TRUE(view.region().isEmpty());
  EXPECT_FALSE(isEnabled(designer, "Command4"));
  EXPECT_FALSE(isSeen(designer, "boxRegion"));
}

TEST_F(ExportDesignerTest, ABrokenPhotoCannotBeMarkedEither) {
  addPhotosOf("Clara", 2);
  writeBytes(at("Photos/00002.jpg"), "no photo");
  auto& designer = open();
  bringPhoto(designer, "Bride", "Clara");
  EXPECT_FALSE(isEnabled(designer, "Command4"));
}

TEST_F(ExportDesignerTest, CancelReturnsToTheDesignsAtAnyTime) {
  addPhotosOf("Clara", 2);
  auto& designer = open();
  QTest::mouseClick(&photoBox(designer, "Bride"), Qt::LeftButton);
  press(designer, "Command3");
  EXPECT_EQ(title(designer, "frameLeft"), "Select Template");
  bringPhoto(designer, "Bride", "Clara");
  press(designer, "Command3");
  EXPECT_EQ(title(designer, "frameLeft"), "Select Template");
  EXPECT_TRUE(isSeen(designer, "frmTemplate"));
  EXPECT_TRUE(photoBox(designer, "Bride").picture().isNull());
}

TEST_F(ExportDesignerTest, APhotoThatArrivesAfterCancelIsNotShown) {
  addPhotosOf("Clara", 2);
  writeBytes(at("Photos/00002.jpg"), jpegOf(plain({300, 300}, red)));
  const auto& designer = open();
  QTest::mouseClick(&photoBox(designer, "Bride"), Qt::LeftButton);
  chooseIn(designer, "Combo1", "Clara");
  EXPECT_TRUE(waitFor([&] { return !thumbnail(designer, 0).picture().isNull(); }));
  QTest::mouseClick(&thumbnail(designer, 0), Qt::LeftButton);
  EXPECT_TRUE(designer.isWaitingForPhoto());
  press(designer, "Command3");
  EXPECT_FALSE(designer.isWaitingForPhoto());
  settlePool();
  EXPECT_EQ(title(designer, "frameLeft"), "Select Template");
  EXPECT_TRUE(isSeen(designer, "frmTemplate"));
  EXPECT_TRUE(region(designer).photo().isNull());
  EXPECT_FALSE(isEnabled(designer, "Command4"));
}

TEST_F(ExportDesignerTest, ADesignerThatIsClosedWhileAPhotoArrivesMissesNothing) {
  addPhotosOf("Clara", 2);
  auto& designer = open();
  QTest::mouseClick(&photoBox(designer, "Bride"), Qt::LeftButton);
  chooseIn(designer, "Combo1", "Clara");
  QTest::mouseClick(&thumbnail(designer, 0), Qt::LeftButton);
  EXPECT_TRUE(designer.Unload());
  settlePool();
  EXPECT_EQ(Forms::loaded<ExportDesigner>(), nullptr);
}

TEST_F(ExportDesignerTest, EscapeCancelsTheSearchAndNotTheDesign) {
  const auto& designer = open();
  QTest::mouseClick(&photoBox(designer, "Bride"), Qt::LeftButton);
  QTest::keyClick(control(designer, "Combo1"), Qt::Key_Escape);
  EXPECT_EQ(Forms::loaded<ExportDesigner>(), &designer);
  EXPECT_EQ(title(designer, "frameLeft"), "Select Template");
}

TEST_F(ExportDesignerTest, ReturnTakesTheMarkedRegionAndTheFocusIsOnItsBoxAgain) {
  addPhotosOf("Clara", 2);
  writeBytes(at("Photos/00002.jpg"), jpegOf(plain({300, 300}, red)));
  auto& designer = open();
  bringPhoto(designer, "Bride", "Clara");
  QTest::keyClick(&region(designer), Qt::Key_Return);
  EXPECT_EQ(title(designer, "frameLeft"), "Select Template");
  EXPECT_FALSE(photoBox(designer, "Bride").picture().isNull());
  EXPECT_EQ(designer.focusWidget(), &photoBox(designer, "Bride"));
  leave(designer);
}

TEST_F(ExportDesignerTest, AfterCancelTheFocusIsOnTheBoxAgain) {
  const auto& designer = open();
  QTest::mouseClick(&photoBox(designer, "Groom"), Qt::LeftButton);
  press(designer, "Command3");
  EXPECT_EQ(designer.focusWidget(), &photoBox(designer, "Groom"));
}

TEST_F(ExportDesignerTest, TheKeyboardBeginsAtTheDesignsAndEndsAtDone) {
  auto& designer = open();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&designer)); // only then is the choice one stop
  const auto* first = member<QAbstractButton>(designer, "optTemplate", 0);
  EXPECT_EQ(designer.focusWidget(), first);
  QTest::keyClick(designer.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(designer.focusWidget(), control(designer, "Command1"));
  QTest::keyClick(designer.focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(designer.focusWidget(), first);
  QTest::keyClick(designer.focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(designer.focusWidget(), control(designer, "Command2"));
}

TEST_F(ExportDesignerTest, TheLastPhotoAskedForIsTheOneThatIsShown) {
  addPhotosOf("Clara", 3);
  writeBytes(at("Photos/00002.jpg"), jpegOf(plain({300, 300}, red)));
  writeBytes(at("Photos/00003.jpg"), jpegOf(plain({300, 300}, blue)));
  auto& designer = open();
  QTest::mouseClick(&photoBox(designer, "Bride"), Qt::LeftButton);
  chooseIn(designer, "Combo1", "Clara");
  QTest::mouseClick(&thumbnail(designer, 0), Qt::LeftButton);
  QTest::mouseClick(&thumbnail(designer, 1), Qt::LeftButton);
  EXPECT_TRUE(waitFor([&] { return !designer.isWaitingForPhoto(); }));
  EXPECT_LT(distance(region(designer).photo().row(5)[5], blue), 20);
}

} // namespace

} // namespace hearthbook::test
