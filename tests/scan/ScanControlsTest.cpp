#include "ScanFixture.h"

#include "ControlChecks.h"
#include "FaceChecks.h"

#include <QComboBox>

namespace hearthbook::test {

namespace {

const Control scanControls[] = {
    {"ImgX1", "hearthbook::PageView"},
    {"NotX1", "hearthbook::MarkLayer"},
    {"Command1", "QPushButton", "Save Selected"},
    {"Command2", "QPushButton", "Scan Again"},
    {"Command3", "QPushButton", "Flip"},
    {"Command4", "QPushButton", "Rotate Right"},
    {"Command5", "QPushButton", "Rotate Left"},
    {"Command6", "QPushButton", "Crop To Selection"},
    {"Command7", "QPushButton", "Cut And Save As New"},
    {"Command9", "QPushButton", "Original Size"},
    {"Command10", "QPushButton", "Auto Levels"},
    {"Command11", "QPushButton", "Brighter"},
    {"Command12", "QPushButton", "Darken"},
    {"Command13", "QPushButton", "Soften"},
    {"Command14", "QPushButton", "Sharpen"},
    {"Command15", "QPushButton", "(+)  Zoom In"},
    {"Command16", "QPushButton", "(--)  Zoom Out"},
    {"BtnClose", "QPushButton", "Close"},
};

const Faces scanFaces = {
    {"Btn_Grn.jpg", {"Command1", "Command2", "Command7"}},
    {"Btn_Org.jpg",
     {"Command3", "Command4", "Command5", "Command6", "Command9", "Command10", "Command11",
      "Command12", "Command13", "Command14", "Command15", "Command16"}},
};

class ScanControls : public ScanFixture {};

} // namespace

TEST_F(ScanControls, TheFormHasEachOfItsControlsOnce) {
  const auto& scan = Forms::get<Scan>();
  EXPECT_EQ(scan.caption(), toQString("Scan Photos"));
  expectControls(scan, "Scan", scanControls);
}

TEST_F(ScanControls, EachButtonTakesItsFaceFromMedia) {
  paintFaces(at("Media"), scanFaces);
  auto& scan = openPhoto();
  expectFaces(scan, scanFaces);
}

TEST_F(ScanControls, TabReachesEveryControlBothWays) {
  auto& scan = openPhoto();
  expectTabReachesAll(scan, control<QWidget>(scan, "Command1"), 15);
}

TEST_F(ScanControls, EveryCaptionFitsItsControl) {
  for (const bool isEdit : {true, false}) {
    auto& scan = isEdit ? openPhoto() : openWith(grainy({300, 200}));
    for (const QSize size : {QSize(976, 520), QSize(3400, 1812)}) {
      scan.resize(size);
      for (const QAbstractButton* button : scan.findChildren<QAbstractButton*>()) {
        if (!button->isVisible())
          continue;
        EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text()), button->width() - 8)
            << toUtf8(button->text());
      }
    }
    scan.Unload();
  }
}

} // namespace hearthbook::test
