#include "ControlChecks.h"
#include "DesignerFixture.h"
#include "Look.h"
#include "PageDesign.h"

#include <QApplication>

namespace hearthbook::test {

namespace {

const Control designerControls[] = {
    {"frameLeft", "QGroupBox", "Select Template"},
    {"frmTemplate", "QGroupBox", "Wedding Template (click on boxes to select photo)"},
    {"txtTitle", "QLineEdit"},
    {"left_img", "QLabel"},
    {"right_img", "QLabel"},
    {"frameRegion", "QGroupBox", "Mark Region"},
    {"boxRegion", "QFrame"},
    {"ImgX1", "hearthbook::RegionView"},
    {"HScroll2", "QScrollBar"},
    {"VScroll2", "QScrollBar"},
    {"Command4", "QPushButton", "Select"},
    {"Command2", "QPushButton", "Customize Background..."},
    {"boxSearch", "QGroupBox", "Search For"},
    {"Command3", "QPushButton", "Cancel"},
    {"radPerson", "QRadioButton", "Person"},
    {"radPlace", "QRadioButton", "Place"},
    {"radEvent", "QRadioButton", "Event"},
    {"Combo1", "QComboBox"},
    {"Combo2", "QComboBox"},
    {"Combo3", "QComboBox"},
    {"frmThumbs", "QGroupBox", "Click to select"},
    {"VScroll1", "QScrollBar"},
    {"chkMusic", "QCheckBox", "Play Welcome Music"},
    {"regionHint", "QLabel",
     "Use the mouse to define the region to place in the export then click on the 'Select' "
     "button"},
    {"Command1", "QPushButton", "Done"},
};

class DesignerControls : public DesignerFixture {};

TEST_F(DesignerControls, TheDesignerHasEachOfItsControlsOnce) {
  expectControls(open(), "Design Export", designerControls);
}

TEST_F(DesignerControls, TheTitleStandsInAFrameOfItsOwn) {
  EXPECT_EQ(control<DesignFrame>(open(), "boxTitle")->caption(), toQString("Title"));
}

TEST_F(DesignerControls, ThereIsAnEntryForEveryDesign) {
  const auto& designer = open();
  int index = 0;
  for (const PageDesign& design : pageDesigns())
    EXPECT_EQ(member<QAbstractButton>(designer, "optTemplate", index++)->text(),
              toQString(design.name));
  EXPECT_EQ(member<QAbstractButton>(designer, "optTemplate", index), nullptr);
}

TEST_F(DesignerControls, EveryBoxHasATextAndWhereItIsForPhotosAPhoto) {
  const auto& designer = open();
  int index = 0;
  for (const PageDesign& design : pageDesigns())
    for (const DesignBox& box : design.boxes) {
      const auto* frame = member<DesignFrame>(designer, "boxTemplate", index);
      ASSERT_NE(frame, nullptr);
      EXPECT_EQ(frame->caption(), toQString(box.caption));
      EXPECT_EQ(frame->property("Tag").toString(), toQString(design.name));
      const auto* text = member<QLineEdit>(designer, "txtParents", index);
      ASSERT_NE(text, nullptr);
      EXPECT_EQ(text->parentWidget(), frame);
      EXPECT_EQ(text->property("Tag").toString(), toQString(box.tag));
      const auto* photo = member<PhotoBox>(designer, "img", index);
      EXPECT_EQ(photo != nullptr, box.hasPhoto);
      if (photo) {
        EXPECT_EQ(photo->property("Tag").toString(), toQString(box.tag));
      }
      ++index;
    }
}

TEST_F(DesignerControls, WhatCanBeUsedSaysUnderTheMouseWhatItDoes) {
  const auto& designer = open();
  for (const auto* button : designer.findChildren<QAbstractButton*>())
    EXPECT_EQ(button->toolTip().isEmpty(), button->objectName() == QStringLiteral("Image1"))
        << toUtf8(button->objectName()) << " " << toUtf8(button->text());
  for (const auto* field : designer.findChildren<QLineEdit*>())
    EXPECT_FALSE(field->toolTip().isEmpty()) << toUtf8(field->accessibleName());
}

TEST_F(DesignerControls, TabReachesEverythingBothWays) {
  auto& designer = open();
  expectTabReachesAll(designer, control(designer, "txtTitle"), 15);
}

TEST_F(DesignerControls, ItFitsASmallScreenAndGrowsWithALargeOne) {
  EXPECT_EQ(ExportDesigner::sizeOn({1024, 768}, {990, 690}), QSize(990, 690));
  EXPECT_EQ(ExportDesigner::sizeOn({3840, 2160}, {990, 690}), QSize(3072, 1728));
  applyLook(*qApp);
  auto& designer = open();
  EXPECT_EQ(designer.size(), QSize(990, 690));
  folder_.addPerson("Grandmother Wilhelmine of the house above the lake, called Mimi by all of us");
  addPhotosOf("Clara", 2);
  designer.Unload();
  auto& again = open();
  bringPhoto(again, "Bride", "Clara");
  EXPECT_EQ(again.size(), QSize(990, 690));
  press(again, "Command3");
  EXPECT_EQ(again.size(), QSize(990, 690));
}

} // namespace

} // namespace hearthbook::test
