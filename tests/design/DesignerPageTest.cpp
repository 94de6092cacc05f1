#include "DesignerFixture.h"

#include "Decode.h"
#include "DesignByName.h"
#include "FileBytes.h"
#include "TestPictures.h"

#include <QCheckBox>

#include <gmock/gmock.h>

namespace hearthbook::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class DesignerPage : public DesignerFixture {
protected:
  void expectMadeQuestion(MsgAnswer answer) {
    boxes_.expectQuestion(toQString("The page was made. You can upload the content of folder: '" +
                                    at("export/testing1").string() +
                                    "' to the web.\r\n\r\nWould you like to view it?"),
                          designTitle, MsgIcon::Question, MsgButtons::YesNo, answer);
  }
};

TEST_F(DesignerPage, CreatePageWritesTheTextsAndPhotosOfTheChosenDesign) {
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
            photoPixels(designOfName("New Baby").boxes[0]));
  EXPECT_FALSE(fileExists(at("export/testing1/Bride.jpg")));
  leave(designer);
}

TEST_F(DesignerPage, AnotherDesignKeepsWhatWasPutIntoTheFirst) {
  auto& designer = open();
  tagged<QLineEdit>(designer, "txtParents", "Bride")->setText(QStringLiteral("Clara"));
  chooseDesign(designer, 1);
  chooseDesign(designer, 0);
  EXPECT_EQ(tagged<QLineEdit>(designer, "txtParents", "Bride")->text(), QStringLiteral("Clara"));
  leave(designer);
}

TEST_F(DesignerPage, DoneMakesThePageShowsItAndEnds) {
  const auto& designer = open();
  control<QLineEdit>(designer, "txtTitle")->setText(QStringLiteral("Our Day"));
  expectMadeQuestion(MsgAnswer::Yes);
  press(designer, "Command1");
  EXPECT_THAT(madePage(), HasSubstr("<title>Our Day</title>"));
  EXPECT_THAT(opened_, ElementsAre(at("export/testing1/index.htm")));
  EXPECT_EQ(Forms::loaded<ExportDesigner>(), nullptr);
}

TEST_F(DesignerPage, APageThatNobodyWantsToSeeNowIsMadeAllTheSame) {
  const auto& designer = open();
  expectMadeQuestion(MsgAnswer::No);
  press(designer, "Command1");
  EXPECT_TRUE(fileExists(at("export/testing1/index.htm")));
  EXPECT_TRUE(opened_.empty());
}

TEST_F(DesignerPage, WithoutABrowserItIsToldWhereThePageLies) {
  hasBrowser_ = false;
  const auto& designer = open();
  expectMadeQuestion(MsgAnswer::Yes);
  boxes_.expectMessage(toQString("The desktop has no program to show the page:\n" +
                                 at("export/testing1/index.htm").string()),
                       designTitle, MsgIcon::Exclamation);
  press(designer, "Command1");
}

TEST_F(DesignerPage, ADesignWhoseFilesAreGoneIsToldAndNothingIsLost) {
  std::filesystem::remove_all(at("export/templates/Wedding"));
  auto& designer = open();
  control<QLineEdit>(designer, "txtTitle")->setText(QStringLiteral("Our Day"));
  boxes_.expectFailure(QStringLiteral("The files of the design are not there"));
  press(designer, "Command1");
  EXPECT_EQ(Forms::loaded<ExportDesigner>(), &designer);
  leave(designer);
}

TEST_F(DesignerPage, APageThatWasNotMadeIsNotLeftWithoutAQuestion) {
  auto& designer = open();
  control<QLineEdit>(designer, "txtTitle")->setText(QStringLiteral("Our Day"));
  leave(designer, MsgAnswer::No);
  leave(designer);
}

TEST_F(DesignerPage, WhatWasPutIntoAnotherDesignIsNotLostWithDone) {
  auto& designer = open();
  tagged<QLineEdit>(designer, "txtParents", "Bride")->setText(QStringLiteral("Clara"));
  chooseDesign(designer, 1);
  control<QLineEdit>(designer, "txtTitle")->setText(QStringLiteral("Welcome, Lotte!"));
  expectMadeQuestion(MsgAnswer::No);
  expectLossQuestion("the design Wedding", MsgAnswer::No);
  press(designer, "Command1");
  ASSERT_EQ(Forms::loaded<ExportDesigner>(), &designer);
  chooseDesign(designer, 0);
  EXPECT_EQ(tagged<QLineEdit>(designer, "txtParents", "Bride")->text(), QStringLiteral("Clara"));
  chooseDesign(designer, 3);
  tagged<QLineEdit>(designer, "txtParents", "BestDay")->setText(QStringLiteral("The sea"));
  expectLossQuestion("the design Wedding and the design Vacation", MsgAnswer::Yes);
  EXPECT_TRUE(designer.Unload());
}

TEST_F(DesignerPage, WhatIsChangedAfterThePageWasMadeIsNotLostWithoutAQuestion) {
  addPhotosOf("Clara", 2);
  auto& designer = open();
  auto* bride = tagged<QLineEdit>(designer, "txtParents", "Bride");
  bride->setText(QStringLiteral("Clara"));
  designer.CreatePage();
  bride->setText(QStringLiteral("Clara and Henry"));
  leave(designer, MsgAnswer::No);
  designer.CreatePage();
  bringPhoto(designer, "Bride", "Clara");
  press(designer, "Command4");
  leave(designer, MsgAnswer::No);
  designer.CreatePage();
  EXPECT_TRUE(designer.Unload());
}

TEST_F(DesignerPage, AnotherPageDoesNotTakeThePlaceOfTheOneBeforeWithoutAQuestion) {
  writeBytes(at("export/testing1/index.htm"), "of last summer");
  const auto& designer = open();
  const auto expectQuestion = [this](MsgAnswer answer) {
    boxes_.expectQuestion(toQString("The page that was made before lies in the folder '" +
                                    at("export/testing1").string() +
                                    "'. Copy that folder if you want to keep it.\n\n"
                                    "Would you like to put the new page in its place?"),
                          designTitle, MsgIcon::Exclamation, MsgButtons::YesNo, answer);
  };
  expectQuestion(MsgAnswer::No);
  press(designer, "Command1");
  EXPECT_EQ(madePage(), "of last summer");
  EXPECT_EQ(Forms::loaded<ExportDesigner>(), &designer);
  expectQuestion(MsgAnswer::Yes);
  expectMadeQuestion(MsgAnswer::No);
  press(designer, "Command1");
  EXPECT_THAT(madePage(), HasSubstr("<html"));
}

TEST_F(DesignerPage, WordsThatABrowserTakesForMarkupAreToldBeforeThePageIsMade) {
  auto& designer = open();
  control<QLineEdit>(designer, "txtTitle")->setText(QStringLiteral("Clara & Henry <3"));
  tagged<QLineEdit>(designer, "txtParents", "Bride")->setText(QStringLiteral("<anna@home>"));
  tagged<QLineEdit>(designer, "txtParents", "Groom")->setText(QStringLiteral("<b>Henry</b>"));
  const auto expectQuestion = [this](MsgAnswer answer) {
    boxes_.expectQuestion(
        QStringLiteral("A browser takes some of your words for markup, such as <b>, and may not "
                       "show them as they are meant:\n<anna@home>\n<b>Henry</b>\n\n"
                       "Would you like to make the page all the same?"),
        designTitle, MsgIcon::Exclamation, MsgButtons::YesNo, answer);
  };
  expectQuestion(MsgAnswer::No);
  press(designer, "Command1");
  EXPECT_FALSE(fileExists(at("export/testing1/index.htm")));
  expectQuestion(MsgAnswer::Yes);
  expectMadeQuestion(MsgAnswer::No);
  press(designer, "Command1");
  EXPECT_THAT(madePage(), HasSubstr("<figcaption><b>Henry</b></figcaption>"));
}

TEST_F(DesignerPage, TheWindowLivesWhileAPageIsMade) {
  auto& designer = open();
  holdPoolUntilTheWindowLives();
  designer.CreatePage();
  EXPECT_TRUE(hasWindowLived());
}

TEST_F(DesignerPage, TheWindowLivesWhileABackgroundIsRead) {
  background_ = at("Media/roses.png");
  writeBytes(*background_, encodedBy("png", plain({20, 20}, red)));
  auto& designer = open();
  holdPoolUntilTheWindowLives();
  press(designer, "Command2");
  EXPECT_TRUE(hasWindowLived());
  leave(designer);
}

TEST_F(DesignerPage, TheWindowLivesWhileARegionIsTaken) {
  addPhotosOf("Clara", 2);
  auto& designer = open();
  bringPhoto(designer, "Bride", "Clara");
  holdPoolUntilTheWindowLives();
  press(designer, "Command4");
  EXPECT_TRUE(hasWindowLived());
  EXPECT_FALSE(photoBox(designer, "Bride").picture().isNull());
  leave(designer);
}

TEST_F(DesignerPage, AnEmptyPageIsLeftWithoutAQuestion) { EXPECT_TRUE(open().Unload()); }

TEST_F(DesignerPage, WelcomeMusicIsNotLostWithoutAQuestion) {
  music_ = at("Audio/march.wav");
  writeBytes(*music_, "a march");
  auto& designer = open();
  press(designer, "chkMusic");
  leave(designer, MsgAnswer::No);
  press(designer, "chkMusic");
  EXPECT_TRUE(designer.Unload());
}

TEST_F(DesignerPage, WelcomeMusicGoesWithThePage) {
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

TEST_F(DesignerPage, MusicThatIsNotChosenLeavesTheBoxUnchecked) {
  const auto& designer = open();
  press(designer, "chkMusic");
  EXPECT_FALSE(control<QCheckBox>(designer, "chkMusic")->isChecked());
}

} // namespace

} // namespace hearthbook::test
