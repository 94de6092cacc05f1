#include "DesignerFixture.h"

#include "Decode.h"
#include "FileBytes.h"
#include "PhotoFiles.h"
#include "TestPictures.h"

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>

namespace hearthbook::test {

namespace {

class FoundPhotosTest : public DesignerFixture {
protected:
  const ExportDesigner& openFor(const char* person) {
    const auto& designer = open();
    QTest::mouseClick(&photoBox(designer, "Bride"), Qt::LeftButton);
    chooseIn(designer, "Combo1", person);
    return designer;
  }
  /// The colour in the middle of a thumbnail, once it is there.
  static std::uint32_t colourOf(const ExportDesigner& designer, int index) {
    const PhotoBox& shown = thumbnail(designer, index);
    EXPECT_TRUE(waitFor([&] { return !shown.picture().isNull(); }));
    return shown.picture().row(shown.picture().height() / 2)[shown.picture().width() / 2];
  }
  static void turn(const ExportDesigner& designer, int angle, int pixels = 0) {
    auto* found = control(designer, "frmThumbCells");
    const QPointF place = found->rect().center();
    QWheelEvent event(place, found->mapToGlobal(place), {0, pixels}, {0, angle}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(found, &event);
  }
  static int topRow(const ExportDesigner& designer) {
    return control<QScrollBar>(designer, "VScroll1")->value();
  }
  /// Of the photo that the keyboard is on: the year, from which addPhotosOf counts.
  static std::string focused() {
    const auto* at = QApplication::focusWidget();
    return at ? toUtf8(at->toolTip().left(4)) : std::string();
  }
  static void focusOn(const ExportDesigner& designer, int index) {
    const_cast<ExportDesigner&>(designer).activateWindow();
    EXPECT_TRUE(waitFor([&] { return designer.isActiveWindow(); }));
    thumbnail(designer, index).setFocus();
  }
  static void strike(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
};

TEST_F(FoundPhotosTest, AChoiceShowsThePhotosAndTheBarPagesThroughThem) {
  addPhotosOf("Clara", 22);
  const auto& designer = open();
  QTest::mouseClick(&photoBox(designer, "Bride"), Qt::LeftButton);
  chooseIn(designer, "Combo1", "Clara");
  EXPECT_EQ(thumbnail(designer, 0).toolTip(), QStringLiteral("1952,  in "));
  auto* bar = control<QScrollBar>(designer, "VScroll1");
  EXPECT_EQ(bar->maximum(), 11 - FoundPhotos::rows);
  bar->setValue(bar->maximum());
  EXPECT_EQ(thumbnail(designer, 0).toolTip(), QStringLiteral("1964,  in "));
  EXPECT_EQ(thumbnail(designer, 8).toolTip(), QStringLiteral("1972,  in "));
  EXPECT_FALSE(thumbnail(designer, 9).isEnabled());
  EXPECT_TRUE(waitFor([&] { return !thumbnail(designer, 8).picture().isNull(); }));
}

TEST_F(FoundPhotosTest, TheFirstLineOfAListShowsNothing) {
  addPhotosOf("Clara", 3);
  const auto& designer = open();
  QTest::mouseClick(&photoBox(designer, "Bride"), Qt::LeftButton);
  chooseIn(designer, "Combo1", "Clara");
  chooseIn(designer, "Combo1", "Search for person");
  EXPECT_FALSE(thumbnail(designer, 0).isEnabled());
}

TEST_F(FoundPhotosTest, APhotoWithoutAThumbnailIsShownItself) {
  addPhotosOf("Clara", 2);
  std::filesystem::remove(at("Thumbnails/00002.jpg"));
  writeBytes(at("Photos/00002.jpg"), jpegOf(plain({300, 200}, green)));
  EXPECT_LT(distance(colourOf(openFor("Clara"), 0), green), 8);
}

TEST_F(FoundPhotosTest, OnALargeScreenThePhotoTakesThePlaceOfItsBlurredThumbnail) {
  addPhotosOf("Clara", 3);
  for (const char* name : {"00002.jpg", "00003.jpg"})
    writeBytes(at(std::string("Thumbnails/") + name), jpegOf(plain({73, 55}, green)));
  writeBytes(at("Photos/00002.jpg"), jpegOf(plain({800, 600}, red)));
  writeBytes(at("Photos/00003.jpg"), "no photo");
  auto& designer = open();
  designer.resize(ExportDesigner::sizeOn({3840, 2160}, {990, 690}));
  QTest::mouseClick(&photoBox(designer, "Bride"), Qt::LeftButton);
  QCoreApplication::processEvents();
  chooseIn(designer, "Combo1", "Clara");
  EXPECT_TRUE(waitFor([&] { return distance(colourOf(designer, 0), red) < 8; }));
  EXPECT_GT(thumbnail(designer, 0).picture().width(), 200);
  settlePool();
  EXPECT_LT(distance(colourOf(designer, 1), green), 8);
}

TEST_F(FoundPhotosTest, WhereNeitherIsThereThePictureOfOneThatIsNotFoundStands) {
  addPhotosOf("Clara", 2);
  writeBytes(at("Media/NotFound.gif"), jpegOf(plain({60, 40}, blue)));
  std::filesystem::remove(at("Thumbnails/00002.jpg"));
  std::filesystem::remove(at("Photos/00002.jpg"));
  EXPECT_LT(distance(colourOf(openFor("Clara"), 0), blue), 8);
}

TEST_F(FoundPhotosTest, ABrokenThumbnailHasThePictureOfOneThatIsNotFoundToo) {
  addPhotosOf("Clara", 2);
  writeBytes(at("Media/NotFound.gif"), jpegOf(plain({60, 40}, blue)));
  writeBytes(at("Thumbnails/00002.jpg"), "no picture");
  EXPECT_LT(distance(colourOf(openFor("Clara"), 0), blue), 8);
}

TEST_F(FoundPhotosTest, PhotosOfTheDiscAreShownFromItAndCanBeMarked) {
  const auto disc = at("disc");
  for (const char* folder : {"Thumbnails", "Photos"})
    std::filesystem::create_directories(disc / folder);
  writeBytes(disc / "Thumbnails/00002.jpg", jpegOf(plain({73, 55}, green)));
  writeBytes(disc / "Photos/00002.jpg", jpegOf(plain({400, 300}, red)));
  writeBytes(disc / "Photos/00003.jpg", jpegOf(plain({400, 300}, blue)));
  folder_.drives().listOptical({"sr0"});
  folder_.drives().insertDisc("sr0", disc);
  folder_.addPerson("Clara");
  for (const char* id : {"CD00002", "CD00003"})
    folder_.addRow("PhotoAlbum", {{"PictureID", id}, {"NamesInPhoto", "001,"}, {"Year", 1950}});
  const auto& designer = openFor("Clara");
  EXPECT_LT(distance(colourOf(designer, 0), green), 8);
  EXPECT_LT(distance(colourOf(designer, 1), blue), 8);
  settlePool();
  EXPECT_LT(distance(colourOf(designer, 0), green), 8);
  QTest::mouseClick(&thumbnail(designer, 0), Qt::LeftButton);
  EXPECT_TRUE(waitFor([&] { return !designer.isWaitingForPhoto(); }));
  EXPECT_LT(distance(region(designer).photo().row(5)[5], red), 8);
  EXPECT_TRUE(isEnabled(designer, "Command4"));
}

TEST_F(FoundPhotosTest, WithoutADiscItsPhotosAreNotFound) {
  writeBytes(at("Media/NotFound.gif"), jpegOf(plain({60, 40}, blue)));
  folder_.addPerson("Clara");
  folder_.addRow("PhotoAlbum", {{"PictureID", "CD00002"}, {"NamesInPhoto", "001,"}});
  const auto& designer = openFor("Clara");
  EXPECT_LT(distance(colourOf(designer, 0), blue), 8);
  QTest::mouseClick(&thumbnail(designer, 0), Qt::LeftButton);
  EXPECT_TRUE(waitFor([&] { return !designer.isWaitingForPhoto(); }));
  EXPECT_FALSE(isEnabled(designer, "Command4"));
}

TEST_F(FoundPhotosTest, ASearchThatFindsNothingSaysSo) {
  folder_.addPerson("Otto");
  const auto& designer = open();
  QTest::mouseClick(&photoBox(designer, "Bride"), Qt::LeftButton);
  auto* found = control(designer, "frmThumbCells");
  const QImage before = found->grab().toImage();
  EXPECT_EQ(toUtf8(found->accessibleDescription()), "");
  chooseIn(designer, "Combo1", "Otto");
  EXPECT_NE(found->grab().toImage(), before);
  EXPECT_EQ(toUtf8(found->accessibleDescription()), "There are no such photos.");
  chooseIn(designer, "Combo1", "Search for person");
  EXPECT_EQ(found->grab().toImage(), before);
  EXPECT_EQ(toUtf8(found->accessibleDescription()), "");
}

TEST_F(FoundPhotosTest, EachNotchOfTheWheelIsARowAndATouchPadCountsUpToOne) {
  addPhotosOf("Clara", 41);
  const auto& designer = openFor("Clara");
  turn(designer, -120);
  EXPECT_EQ(topRow(designer), 1);
  for (int part = 0; part < 4; ++part)
    turn(designer, -24);
  EXPECT_EQ(topRow(designer), 1);
  turn(designer, -24);
  EXPECT_EQ(topRow(designer), 2);
  turn(designer, -120, -2);
  EXPECT_EQ(topRow(designer), 2);
  turn(designer, 240);
  EXPECT_EQ(topRow(designer), 0);
}

TEST_F(FoundPhotosTest, TheKeyboardWalksThroughAllPhotosAndChoosesOne) {
  addPhotosOf("Clara", 26);
  const auto& designer = openFor("Clara");
  focusOn(designer, 0);
  strike(Qt::Key_Right);
  EXPECT_EQ(focused(), "1953");
  strike(Qt::Key_Down);
  EXPECT_EQ(focused(), "1955");
  strike(Qt::Key_PageDown);
  EXPECT_EQ(focused(), "1965");
  strike(Qt::Key_End);
  EXPECT_EQ(focused(), "1976");
  EXPECT_EQ(topRow(designer), 13 - FoundPhotos::rows);
  strike(Qt::Key_Right);
  EXPECT_EQ(focused(), "1976");
  strike(Qt::Key_PageUp);
  EXPECT_EQ(focused(), "1966");
  strike(Qt::Key_Up);
  EXPECT_EQ(focused(), "1964");
  strike(Qt::Key_Left);
  EXPECT_EQ(focused(), "1963");
  strike(Qt::Key_Home);
  EXPECT_EQ(focused(), "1952");
  EXPECT_EQ(topRow(designer), 0);
  strike(Qt::Key_PageUp);
  EXPECT_EQ(focused(), "1952");
  strike(Qt::Key_PageDown);
  strike(Qt::Key_PageDown);
  strike(Qt::Key_PageDown);
  EXPECT_EQ(focused(), "1976");
  strike(Qt::Key_Space);
  EXPECT_TRUE(isSeen(designer, "frameRegion"));
}

TEST_F(FoundPhotosTest, TheKeyboardStaysOnAPhotoWhenTheLastRowIsShort) {
  addPhotosOf("Clara", 24);
  const auto& designer = openFor("Clara");
  focusOn(designer, 9);
  control<QScrollBar>(designer, "VScroll1")->setValue(100);
  EXPECT_FALSE(thumbnail(designer, 9).isEnabled());
  EXPECT_EQ(focused(), "1974");
}

TEST_F(FoundPhotosTest, TabReachesOnePhotoTheOneThatWasLastWalkedTo) {
  addPhotosOf("Clara", 12);
  const auto& designer = openFor("Clara");
  focusOn(designer, 0);
  strike(Qt::Key_Down);
  strike(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), control(designer, "Command3"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(focused(), "1954");
}

} // namespace

} // namespace hearthbook::test
