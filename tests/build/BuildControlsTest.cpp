#include "ControlChecks.h"
#include "EditorControls.h"
#include "EditorFixture.h"
#include "FaceChecks.h"
#include "HelpRows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QProgressBar>

#include <string>
#include <vector>

namespace hearthbook::test {

namespace {

// Every control with the kind that it is, the caption that it bears at first and the item by
// which its help is found.
const Control pickerControls[] = {
    {"Label1", "QLabel",
     "Pick the Picture you want to add to your Album: (Supported Files- Jpg, "
     "Bmp, Tif, Png, Tga, "
     "Ico, Pcx)"},
    {"Drive1", "QComboBox", "", "Drive"},
    {"Dir1", "QTreeView", "", "Directory List"},
    {"File1", "QListView", "", "File List"},
    {"Preview", "QFrame"},
    {"ImgX1", "hearthbook::PictureBox"},
    {"transferMethod", "QGroupBox", "Transfer Method", "Transfer Method"},
    {"Option1", "QRadioButton", "Copy Files", "Copy Files"},
    {"Option2", "QRadioButton", "Move Files", "Move Files"},
    {"chkSize", "QCheckBox", "Reduce size for images over 300k"},
    {"OK", "QPushButton", "Insert Single", "Add Files"},
    {"Cancel", "QPushButton", "Cancel"},
    {"frmProgress", "QGroupBox", "Adding New Photos, Please Wait"},
    {"ProgressBar1", "QProgressBar"},
    {"Help", "QGroupBox", "Help"},
    {"Text1", "QPlainTextEdit"},
};

const Faces editorFaces = {
    {"Btn_Gry.jpg",
     {"FindPhoto", "Command18", "Command7", "Command6", "Command8", "PrevPhoto", "NextPhoto"}},
    {"Btn_Org.jpg", {"Command1", "Command5", "Command13", "Command14", "Command15"}},
    {"Btn_Brn.jpg", {"Command4"}},
    {"Btn_Red.jpg", {"Command16", "Command17"}},
    {"Btn_Grn.jpg", {"Command9", "Command10", "Command11", "Command19"}},
    {"Btn_Ylw.jpg", {"markName", "Command12"}},
};

class BuildControls : public EditorFixture {};

} // namespace

TEST_F(BuildControls, TheEditorHasEachOfItsControlsOnce) {
  expectControls(openEditor(), "Build Album", editorControls);
}

TEST_F(BuildControls, AddFromFileHasEachOfItsControlsOnce) {
  const auto& picker = Forms::get<PickaPic>();
  EXPECT_EQ(picker.caption(), toQString("Add From File"));
  expectControls(picker, "Add From File", pickerControls);
}

TEST_F(BuildControls, EachButtonOfTheEditorTakesItsFaceFromMedia) {
  paintFaces(at("Media"), editorFaces);
  expectFaces(openEditor(), editorFaces);
}

TEST_F(BuildControls, EveryHelpKeyHasItsRow) {
  expectHelpRows(openEditor(), *vars().rsHelp);
  expectHelpRows(Forms::get<PickaPic>(), *vars().rsHelp);
}

TEST_F(BuildControls, TheMouseOverAddFromFileExplainsEachControlInThePane) {
  auto& picker = Forms::get<PickaPic>();
  picker.Show();
  waitUntil([&] { return !picker.isReading(); });
  const auto pane = [&picker] {
    return HelpEntry{toUtf8(control<QGroupBox>(picker, "Help")->title()),
                     toUtf8(control<QPlainTextEdit>(picker, "Text1")->toPlainText())};
  };
  EXPECT_EQ(pane(), findHelp(*vars().rsHelp, "Add From File*Help"));
  EXPECT_EQ(expectMouseExplains(picker, "Add From File", pickerControls, pane, *vars().rsHelp), 7);
}

TEST_F(BuildControls, TabReachesEveryControlOfTheEditorBothWays) {
  auto& editor = openEditor();
  expectTabReachesAll(editor, control<QWidget>(editor, "Year"));
}

TEST_F(BuildControls, TabReachesEveryControlOfAddFromFileBothWays) {
  auto& picker = Forms::get<PickaPic>();
  picker.Show();
  expectTabReachesAll(picker, control<QWidget>(picker, "File1"));
}

TEST_F(BuildControls, EveryCaptionOfTheEditorFitsItsControl) {
  auto& editor = openEditor();
  for (const QSize size : {QSize(1012, 669), QSize(3000, 1982)}) {
    editor.resize(size);
    for (const QAbstractButton* button : editor.findChildren<QAbstractButton*>())
      EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text()), button->width() - 8)
          << toUtf8(button->text());
    for (const QLabel* label : editor.findChildren<QLabel*>()) {
      if (label->objectName() == toQString("Label4"))
        continue; // leaves the middle of a long path out
      EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width())
          << toUtf8(label->text());
    }
  }
}

} // namespace hearthbook::test
