#include "ControlChecks.h"
#include "PrintFixture.h"

namespace hearthbook::test {

namespace {

const Control printControls[] = {
    {"deviceLabel", "QLabel", "Device:"},
    {"Combo1", "QComboBox"},
    {"copiesLabel", "QLabel", "Number of copies:"},
    {"Text1", "QLineEdit"},
    {"VScroll2", "QScrollBar"},
    {"Option1", "QRadioButton", "Color"},
    {"Option2", "QRadioButton", "Monochrome"},
    {"Option3", "QRadioButton", "Best"},
    {"Option4", "QRadioButton", "Normal"},
    {"Option5", "QRadioButton", "Draft"},
    {"Option6", "QRadioButton", "Landscape"},
    {"Option7", "QRadioButton", "Portrait"},
    {"Option8", "QRadioButton", "Original"},
    {"Option9", "QRadioButton", "Fit to page"},
    {"paperLabel", "QLabel", "Paper Size:"},
    {"Combo2", "QComboBox"},
    {"imageLabel", "QLabel", "Image Size:"},
    {"printerGroup", "QGroupBox", "Printer"},
    {"copiesGroup", "QGroupBox", "Copies"},
    {"colorGroup", "QGroupBox", "Color Mode"},
    {"qualityGroup", "QGroupBox", "Quality"},
    {"orientationGroup", "QGroupBox", "Orientation"},
    {"sizeGroup", "QGroupBox", "Print Size"},
    {"Frame7", "QGroupBox", "Processing Page, Please Wait..."},
    {"ProgressBar1", "QProgressBar"},
    {"Command4", "QPushButton", "Print"},
    {"Command1", "QPushButton", "Close"},
};

using PrintControls = PrintToFileFixture;

TEST_F(PrintControls, PrintHasEachOfItsControlsOnce) {
  const frmPrint& form = open("Editor", editorPage());
  EXPECT_EQ(form.caption(), QStringLiteral("Print"));
  expectControls(form, "Print", printControls);
}

TEST_F(PrintControls, TabReachesEveryControlBothWays) {
  frmPrint& form = open("Editor", editorPage());
  expectTabReachesAll(form, control(form, "Combo1"), 9);
}

TEST_F(PrintControls, ReturnPrintsAndEscapeCloses) {
  frmPrint& form = open("Editor", editorPage());
  control(form, "Text1")->setFocus();
  QTest::keyClick(&form, Qt::Key_Return);
  EXPECT_TRUE(std::filesystem::exists(*pdf_));
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(Forms::loaded<frmPrint>());
}

TEST_F(PrintControls, TheFormFitsOnASmallScreen) {
  const frmPrint& form = open("Editor", editorPage());
  EXPECT_LE(form.minimumSizeHint().width(), 1000);
  EXPECT_LE(form.minimumSizeHint().height(), 700);
}

} // namespace

} // namespace hearthbook::test
