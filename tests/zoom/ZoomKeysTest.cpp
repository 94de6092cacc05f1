#include "ZoomFixture.h"

#include <QApplication>
#include <QScrollArea>

namespace hearthbook::test {

namespace {

class ZoomKeyboard : public ZoomFixture {
protected:
  void nameSomebody() {
    const auto id = std::to_string(1000 + folder_.addPerson("Anna")).substr(1);
    set("HD00001", "NamesInPhoto = '" + id + ",'");
  }
  /// A key where the keyboard is.
  static void strike(Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key);
    settleZoom();
  }
};

} // namespace

TEST_F(ZoomKeyboard, TheKeysWalkAndZoomAndMoveAPhotoThatIsLargerThanThePanel) {
  auto& zoom = openZoomOf(3);
  key(zoom, Qt::Key_Right);
  EXPECT_EQ(position(zoom), "2 Of 3");
  key(zoom, Qt::Key_Left);
  EXPECT_EQ(position(zoom), "1 Of 3");
  key(zoom, Qt::Key_End);
  EXPECT_EQ(position(zoom), "3 Of 3");
  key(zoom, Qt::Key_PageUp);
  key(zoom, Qt::Key_Home);
  key(zoom, Qt::Key_PageDown);
  EXPECT_EQ(position(zoom), "2 Of 3");
  for (int step = 0; step < 6; ++step)
    key(zoom, Qt::Key_Plus);
  key(zoom, Qt::Key_Right);
  key(zoom, Qt::Key_Down);
  EXPECT_EQ(bar(zoom, "HScroll1").value(), 100);
  EXPECT_EQ(bar(zoom, "VScroll1").value(), 100);
  EXPECT_EQ(position(zoom), "2 Of 3");
  for (int step = 0; step < 6; ++step)
    key(zoom, Qt::Key_Minus);
  key(zoom, Qt::Key_Right);
  EXPECT_EQ(position(zoom), "3 Of 3");
}

TEST_F(ZoomKeyboard, ArrowsWalkWhereverTheKeyboardIs) {
  auto& zoom = openZoomOf(3);
  press(zoom, "Command2");
  control(zoom, "Command2")->setFocus();
  QTest::keyClick(control(zoom, "Command2"), Qt::Key_Right);
  settleZoom();
  EXPECT_EQ(position(zoom), "3 Of 3");
}

TEST_F(ZoomKeyboard, TheKeysAreThePhotosWhereverTheKeyboardIs) {
  nameSomebody();
  const auto& zoom = openZoomOf(3);
  press(zoom, "Command4");
  press(zoom, "Command4");
  for (const char* place : {"Command2", "Check1", "HScroll1", "VScroll1", "Command8", "VScroll2",
                            "gridNames(0)", "Image1"}) {
    SCOPED_TRACE(place);
    for (int step = 0; step < 6; ++step)
      press(zoom, "Command4");
    control(zoom, place)->setFocus();
    ASSERT_TRUE(control(zoom, place)->hasFocus());
    strike(Qt::Key_Home);
    EXPECT_EQ(position(zoom), "1 Of 3");
    control(zoom, place)->setFocus();
    strike(Qt::Key_PageDown);
    EXPECT_EQ(position(zoom), "2 Of 3");
    strike(Qt::Key_End);
    EXPECT_EQ(position(zoom), "3 Of 3");
    strike(Qt::Key_PageUp);
    EXPECT_EQ(position(zoom), "2 Of 3");
    const double width = photoRect(zoom).width;
    strike(Qt::Key_Plus);
    EXPECT_NEAR(photoRect(zoom).width, width * 1.5, 0.01);
    strike(Qt::Key_Minus);
    EXPECT_NEAR(photoRect(zoom).width, width, 0.01);
  }
}

TEST_F(ZoomKeyboard, UpAndDownMoveTheMagnifiedPhotoAlsoBehindAClick) {
  const auto& zoom = openPhoto(1200, 900);
  press(zoom, "Command4");
  for (const char* place : {"Command4", "Check1", "VScroll1"}) {
    SCOPED_TRACE(place);
    control(zoom, place)->setFocus();
    strike(Qt::Key_Down);
    EXPECT_EQ(bar(zoom, "VScroll1").value(), 100);
    strike(Qt::Key_Up);
    EXPECT_EQ(bar(zoom, "VScroll1").value(), 0);
    EXPECT_TRUE(control(zoom, place)->hasFocus());
  }
}

TEST_F(ZoomKeyboard, AButtonThatEndsUnderTheKeyboardHandsItToThePhoto) {
  auto& zoom = openZoom();
  for (const char* button : {"Command4", "Command5"}) {
    control(zoom, button)->setFocus();
    for (int step = 0; step < 12 && control(zoom, button)->isEnabled(); ++step)
      strike(Qt::Key_Space);
    EXPECT_FALSE(control(zoom, button)->isEnabled()) << button;
    EXPECT_TRUE(photo(zoom).hasFocus()) << button;
  }
}

TEST_F(ZoomKeyboard, UpAndDownChooseAmongTheNamesAndReadTheDescription) {
  QString longText;
  for (int line = 0; line < 60; ++line)
    longText += toQString("We were there all day long. ");
  nameSomebody();
  set("HD00001", "Description = '" + toUtf8(longText) + "'");
  const auto& zoom = openZoom();
  names(zoom).setFocus();
  strike(Qt::Key_Down);
  EXPECT_EQ(names(zoom).row(), 1);
  press(zoom, "Image2(0)");
  auto* text = control(zoom, "CommentsBox")->findChild<QScrollArea*>();
  waitUntil([&] { return text->verticalScrollBar()->maximum() > 0 && text->height() > 100; });
  text->setFocus();
  strike(Qt::Key_Down);
  EXPECT_GT(text->verticalScrollBar()->value(), 0);
  strike(Qt::Key_Escape);
  EXPECT_TRUE(control(zoom, "CommentsBox")->isHidden());
}

} // namespace hearthbook::test
