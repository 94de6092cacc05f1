#include "DesignerFixture.h"

#include "Decode.h"
#include "FileBytes.h"
#include "Guard.h"
#include "PageDesign.h"
#include "PhotoFiles.h"
#include "TestPictures.h"

#include <QCheckBox>
#include <QScrollBar>

#include <gmock/gmock.h>

namespace hearthbook::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const QString designTitle = QStringLiteral("Design Export");
const QString leaveQuestion =
    QStringLiteral("The page has not been made, and what you have put into it would be lost.\r\n"
                   "Would you like to leave it?");

class ExportDesignerTest : public DesignerFixture {
protected:
  void expectMadeQuestion(MsgAnswer answer) {
    boxes_.expectQuestion(toQString("The page was made. You can upload the content of folder: '" +
                                    at("export/testing1").string() +
                                    "' to the web.\r\n\r\nWould you like to view it?"),
                          designTitle, MsgIcon::Question, MsgButtons::YesNo, answer);
  }
  void leave(ExportDesigner& designer, MsgAnswer answer = MsgAnswer::Yes) {
    boxes_.expectQuestion(leaveQuestion, designTitle, MsgIcon::Question, MsgButtons::YesNo, answer);
    EXPECT_EQ(designer.Unload(), answer == MsgAnswer::Yes);
  }
  [[nodiscard]] std::string madePage() const { return readBytes(at("export/testing1/index.htm")); }
};

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

TEST_F(ExportDesignerTest, ATemplateWithoutALeftPictureShowsItsLeftBoxEmpty) {
  std::filesystem::remove(at("export/templates/New Baby/left_img.gif"));
  const auto& designer = open();
  EXPECT_TRUE(isDecorated(designer, "left_img"));
  chooseDesign(designer, 1);
  EXPECT_FALSE(isDecorated(designer, "left_img"));
  EXPECT_TRUE(isDecorated(designer, "right_img"));
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
  std::filesystem::remove(at("Photos/00002.jpg"));
  auto& designer = open();
  bringPhoto(designer, "Bride", "Clara");
  auto& view = region(designer);
  EXPECT_EQ(view.photo().size(), decodePicture(notFoundPicture(album())).picture.size());
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

TEST_F(ExportDesignerTest, CreatePageWritesTheTextsAndPhotosOfTheChosenDesign) {
  addPhotosOf("Clara", 2);
  auto& designer = open();
  tagged<QLineEdit>(designer, "txtParents", "Bride")->setText(QStringLiteral("Clara"));
  bringPhoto(designer, "Bride", "Clara");
  press(designer, "Command4");
  chooseDesign(designer, 1);
  control<QLineEdit>(designer, "txtTitle")->setText(QStringLiteral("Welcome, Lotte!"));
  tagged<QLineEdit>(designer, "txtParents", "Baby")->setText(QStringLiteral("Lotte"));
  bringPhoto(designer, "Baby", "Clara");
  press(designer, "Command4");
  EXPECT_EQ(designer.CreatePage(), at("export/testing1/index.htm"));
  EXPECT_THAT(madePage(), HasSubstr("<h1>Welcome, Lotte!</h1>"));
  EXPECT_THAT(madePage(), HasSubstr("<figcaption>Lotte</figcaption>"));
  EXPECT_THAT(madePage(), testing::Not(HasSubstr("^^")));
  EXPECT_EQ(decodePicture(at("export/testing1/Baby.jpg")).picture.size(),
            photoPixels(designOfName("New Baby")->boxes[0]));
  EXPECT_FALSE(fileExists(at("export/testing1/Bride.jpg")));
}

TEST_F(ExportDesignerTest, AnotherDesignKeepsWhatWasPutIntoTheFirst) {
  auto& designer = open();
  tagged<QLineEdit>(designer, "txtParents", "Bride")->setText(QStringLiteral("Clara"));
  chooseDesign(designer, 1);
  chooseDesign(designer, 0);
  EXPECT_EQ(tagged<QLineEdit>(designer, "txtParents", "Bride")->text(), QStringLiteral("Clara"));
  leave(designer);
}

TEST_F(ExportDesignerTest, DoneMakesThePageShowsItAndEnds) {
  const auto& designer = open();
  control<QLineEdit>(designer, "txtTitle")->setText(QStringLiteral("Our Day"));
  expectMadeQuestion(MsgAnswer::Yes);
  press(designer, "Command1");
  EXPECT_THAT(madePage(), HasSubstr("<title>Our Day</title>"));
  EXPECT_THAT(opened_, ElementsAre(at("export/testing1/index.htm")));
  EXPECT_EQ(Forms::loaded<ExportDesigner>(), nullptr);
}

TEST_F(ExportDesignerTest, APageThatNobodyWantsToSeeNowIsMadeAllTheSame) {
  const auto& designer = open();
  expectMadeQuestion(MsgAnswer::No);
  press(designer, "Command1");
  EXPECT_TRUE(fileExists(at("export/testing1/index.htm")));
  EXPECT_TRUE(opened_.empty());
}

TEST_F(ExportDesignerTest, WithoutABrowserItIsToldWhereThePageLies) {
  hasBrowser_ = false;
  const auto& designer = open();
  expectMadeQuestion(MsgAnswer::Yes);
  boxes_.expectMessage(toQString("The desktop has no program to show the page:\n" +
                                 at("export/testing1/index.htm").string()),
                       designTitle, MsgIcon::Exclamation);
  press(designer, "Command1");
}

TEST_F(ExportDesignerTest, ADesignWhoseFilesAreGoneIsToldAndNothingIsLost) {
  std::filesystem::remove_all(at("export/templates/Wedding"));
  auto& designer = open();
  control<QLineEdit>(designer, "txtTitle")->setText(QStringLiteral("Our Day"));
  boxes_.expectFailure(QStringLiteral("The files of the design are not there"));
  press(designer, "Command1");
  EXPECT_EQ(Forms::loaded<ExportDesigner>(), &designer);
  leave(designer);
}

TEST_F(ExportDesignerTest, APageThatWasNotMadeIsNotLeftWithoutAQuestion) {
  auto& designer = open();
  control<QLineEdit>(designer, "txtTitle")->setText(QStringLiteral("Our Day"));
  leave(designer, MsgAnswer::No);
  leave(designer);
}

TEST_F(ExportDesignerTest, AnEmptyPageIsLeftWithoutAQuestion) { EXPECT_TRUE(open().Unload()); }

TEST_F(ExportDesignerTest, ABackgroundOfOnesOwnTilesTheSurfaceAndThePage) {
  background_ = at("Media/roses.png");
  writeBytes(*background_, encodedBy("png", plain({20, 20}, red)));
  auto& designer = open();
  const auto corner = [&designer] {
    const auto* surface = designer.findChild<DesignSurface*>();
    const QPoint spot = surface->toPixels({150, 12000, 15, 15}).topLeft();
    return const_cast<DesignSurface*>(surface)->grab().toImage().pixel(spot);
  };
  EXPECT_GT(distance(corner(), red), 80);
  press(designer, "Command2");
  EXPECT_LT(distance(corner(), red), 8);
  designer.CreatePage();
  EXPECT_THAT(madePage(), HasSubstr("background.png"));
  EXPECT_EQ(readBytes(at("export/testing1/background.png")), readBytes(*background_));
}

TEST_F(ExportDesignerTest, TheBackgroundIsRepeatedInStepsOfItsWidthAndHeight) {
  constexpr PixelSize tile{64, 48};
  background_ = at("Media/four.png");
  writeBytes(*background_, encodedBy("png", corners(tile)));
  auto& designer = open();
  press(designer, "Command2");
  auto* surface = designer.findChild<DesignSurface*>();
  const QImage shown = surface->grab().toImage();
  const auto colourAt = [&](double x, double y) { // told in pixels of the drawing
    return shown.pixel(surface->toPixels({x * twipsPerPixel, y * twipsPerPixel, 15, 15}).topLeft());
  };
  for (const int column : {0, 1, 2}) // below the left picture
    for (const int row : {6, 11}) {
      const int left = column * tile.width;
      const int top = row * tile.height;
      EXPECT_LT(distance(colourAt(left + 10, top + 10), red), 40) << column << " " << row;
      EXPECT_LT(distance(colourAt(left + 54, top + 10), green), 40) << column << " " << row;
      EXPECT_LT(distance(colourAt(left + 10, top + 38), blue), 40) << column << " " << row;
      EXPECT_LT(distance(colourAt(left + 54, top + 38), white), 40) << column << " " << row;
    }
  leave(designer);
}

TEST_F(ExportDesignerTest, WithoutOneThePaperOfTheProgramTilesThePage) {
  auto& designer = open();
  press(designer, "Command2"); // cancelled
  designer.CreatePage();
  EXPECT_EQ(readBytes(at("export/testing1/background.gif")), readBytes(at("Media/WaterMark2.gif")));
}

TEST_F(ExportDesignerTest, ABackgroundOfOnesOwnThatHasGoneIsTold) {
  background_ = at("Media/roses.png");
  writeBytes(*background_, encodedBy("png", plain({20, 20}, red)));
  auto& designer = open();
  press(designer, "Command2");
  std::filesystem::remove(*background_);
  boxes_.expectFailure(QStringLiteral("roses.png\": it is not there"));
  press(designer, "Command1");
  EXPECT_FALSE(fileExists(at("export/testing1/index.htm")));
  leave(designer);
}

TEST_F(ExportDesignerTest, AMissingPaperOfTheProgramLeavesThePagePlain) {
  std::filesystem::remove(at("Media/WaterMark2.gif"));
  open().CreatePage();
  EXPECT_THAT(madePage(), HasSubstr("url('')"));
}

TEST_F(ExportDesignerTest, ABackgroundOfOnesOwnIsNotLostWithoutAQuestion) {
  background_ = at("Media/roses.png");
  writeBytes(*background_, encodedBy("png", plain({20, 20}, red)));
  auto& designer = open();
  press(designer, "Command2");
  leave(designer, MsgAnswer::No);
  leave(designer);
}

TEST_F(ExportDesignerTest, WelcomeMusicIsNotLostWithoutAQuestion) {
  music_ = at("Audio/march.wav");
  writeBytes(*music_, "a march");
  auto& designer = open();
  press(designer, "chkMusic");
  leave(designer, MsgAnswer::No);
  press(designer, "chkMusic");
  EXPECT_TRUE(designer.Unload());
}

TEST_F(ExportDesignerTest, ABackgroundThatIsNoPictureIsToldAndTheFormerStays) {
  background_ = at("Media/roses.png");
  writeBytes(*background_, "no picture");
  auto& designer = open();
  boxes_.expectFailure(QStringLiteral("roses.png"));
  press(designer, "Command2");
  designer.CreatePage();
  EXPECT_TRUE(fileExists(at("export/testing1/background.gif")));
}

TEST_F(ExportDesignerTest, WelcomeMusicGoesWithThePage) {
  music_ = at("Audio/march.wav");
  writeBytes(*music_, "a march");
  auto& designer = open();
  press(designer, "chkMusic");
  EXPECT_TRUE(control<QCheckBox>(designer, "chkMusic")->isChecked());
  EXPECT_EQ(toUtf8(control(designer, "chkMusic")->toolTip()), "march.wav");
  designer.CreatePage();
  EXPECT_THAT(madePage(), HasSubstr("var music = \"music.wav\""));
  press(designer, "chkMusic");
  designer.CreatePage();
  EXPECT_THAT(madePage(), HasSubstr("var music = \"\""));
  EXPECT_THAT(toUtf8(control(designer, "chkMusic")->toolTip()), HasSubstr("visitors of the page"));
}

TEST_F(ExportDesignerTest, MusicThatIsNotChosenLeavesTheBoxUnchecked) {
  const auto& designer = open();
  press(designer, "chkMusic");
  EXPECT_FALSE(control<QCheckBox>(designer, "chkMusic")->isChecked());
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
