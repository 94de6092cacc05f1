#include "ControlChecks.h"
#include "StartupFixture.h"

#include <utility>

namespace hearthbook::test {
namespace {

const QString buildText = QStringLiteral(
    "Build or maintain your family album. Scan or choose from files and fill in the pictures "
    "date, event, place and family members.");
const QString searchText = QStringLiteral(
    "Search for specific photos by Events, Places or Appearances. View results and select images "
    "to Edit, View or Add to Sub-Albums.");
const QString viewText = QStringLiteral(
    "View the Master Album or the Sub-Albums you created before. Edit selected photos or Remove "
    "them from the Album.");

const QString exportText = QStringLiteral(
    "Export your Sub-Albums into CD or Hard Drive. The exported sub album can also be upload to "
    "the internet as a web-site.");

const Control startControls[] = {
    {"Image1", "QWidget"},
    {"Image2", "hearthbook::CoverPicture"},
    {"Image3", "hearthbook::PictureCommand", "Build Album"},
    {"Image4", "hearthbook::PictureCommand", "Search Photos"},
    {"Image5", "hearthbook::PictureCommand", "View Albums"},
    {"Image6", "hearthbook::PictureCommand", "Export Album"},
    {"Image7", "hearthbook::PictureCommand", "Exit"},
    {"Label1", "QLabel"},
    {"Shape4", "QFrame"},
    {"MSFlexGrid1", "hearthbook::FlexGrid"},
    {"Text1", "QLabel"},
};

class StartupTest : public StartupFixture {};

TEST_F(StartupTest, HasEachOfItsControlsOnce) {
  show();
  expectControls(*startup, "", startControls);
}

TEST_F(StartupTest, BuildAndExitWorkByMouse) {
  show();

  QTest::mouseClick(command("Image3"), Qt::LeftButton);
  QTest::mouseClick(command("Image7"), Qt::LeftButton);

  EXPECT_EQ(built, 1);
  EXPECT_EQ(exited, 1);
}

TEST_F(StartupTest, BuildAndExitWorkByKeyboard) {
  show();
  command("Image3")->setFocus();

  QTest::keyClick(command("Image3"), Qt::Key_Space);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(command("Image7")->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);

  EXPECT_EQ(built, 1);
  EXPECT_EQ(exited, 1);
}

TEST_F(StartupTest, WhatTheProgramDoesNotHaveYetIsThereAndDisabled) {
  show();

  for (const char* name : {"Image4", "Image5", "Image6"}) {
    EXPECT_TRUE(command(name)->isVisible()) << name;
    EXPECT_FALSE(command(name)->isEnabled()) << name;
  }
}

TEST_F(StartupTest, EveryCommandHasANameForTheScreenReader) {
  show();

  for (const char* name : {"Image3", "Image4", "Image5", "Image6", "Image7"})
    EXPECT_FALSE(command(name)->text().isEmpty()) << name;
}

TEST_F(StartupTest, AtFirstNothingIsPointedAt) {
  show();

  for (const char* name : {"Image3", "Image4", "Image5", "Image6", "Image7"})
    EXPECT_FALSE(command(name)->isPointedAt()) << name;
  EXPECT_EQ(description(), QString());
  EXPECT_FALSE(isFramed());
  EXPECT_TRUE(command("Image3")->hasFocus());
}

TEST_F(StartupTest, TheCommandUnderTheMouseIsDescribedUntilTheMouseIsOverThePicture) {
  commands.viewAlbum = [](int, const QString&, const auto&) {};
  show();

  moveTo(command("Image3"));
  EXPECT_TRUE(command("Image3")->isPointedAt());
  EXPECT_EQ(description(), buildText);
  EXPECT_TRUE(isFramed());

  moveTo(command("Image5"));
  EXPECT_FALSE(command("Image3")->isPointedAt());
  EXPECT_TRUE(command("Image5")->isPointedAt());
  EXPECT_EQ(description(), viewText);

  moveToBackground();
  EXPECT_FALSE(command("Image5")->isPointedAt());
  EXPECT_EQ(description(), QString());
  EXPECT_FALSE(isFramed());
}

TEST_F(StartupTest, TheMouseOverEachCommandShowsItsDescription) {
  commands.search = [] {};
  commands.viewAlbum = [](int, const QString&, const auto&) {};
  commands.exportAlbum = [] {};
  show();

  for (const auto& [name, text] : {std::pair("Image3", buildText), std::pair("Image4", searchText),
                                   std::pair("Image5", viewText), std::pair("Image6", exportText),
                                   std::pair("Image7", QString())}) {
    moveTo(command(name));
    EXPECT_TRUE(command(name)->isPointedAt()) << name;
    EXPECT_EQ(description(), text) << name;
  }
}

TEST_F(StartupTest, ExitIsPointedAtWithoutADescription) {
  show();
  moveTo(command("Image3"));

  moveTo(command("Image7"));

  EXPECT_TRUE(command("Image7")->isPointedAt());
  EXPECT_EQ(description(), QString());
  EXPECT_FALSE(isFramed());
}

TEST_F(StartupTest, ACommandThatIsDisabledIsNotPointedAt) {
  show();
  moveTo(command("Image3"));

  moveTo(command("Image4"));

  EXPECT_FALSE(command("Image4")->isPointedAt());
  EXPECT_FALSE(command("Image3")->isPointedAt());
  EXPECT_EQ(description(), QString());
}

TEST_F(StartupTest, LeavingTheStartScreenPointsAtNothing) {
  show();
  moveTo(command("Image3"));

  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(startup, &leave);

  EXPECT_FALSE(command("Image3")->isPointedAt());
}

TEST_F(StartupTest, TheCommandReachedByTabIsDescribed) {
  show();

  QTest::keyClick(command("Image3"), Qt::Key_Tab);
  EXPECT_TRUE(command("Image7")->isPointedAt());
  QTest::keyClick(command("Image7"), Qt::Key_Backtab, Qt::ShiftModifier);

  EXPECT_TRUE(command("Image3")->isPointedAt());
  EXPECT_EQ(description(), buildText);
}

TEST_F(StartupTest, ACommandShowsItsHoverPictureWhileItIsPointedAt) {
  putPicture("build.png", Qt::blue);
  putPicture("build2.png", Qt::green);
  show();
  ASSERT_TRUE(QTest::qWaitFor([this] { return pictureColour("Image3") == QColor(Qt::blue); }));

  moveTo(command("Image3"));
  EXPECT_TRUE(QTest::qWaitFor([this] { return pictureColour("Image3") == QColor(Qt::green); }));

  moveToBackground();
  EXPECT_EQ(pictureColour("Image3"), QColor(Qt::blue));
}

} // namespace
} // namespace hearthbook::test
