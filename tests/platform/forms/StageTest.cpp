#include "Stage.h"
#include "Look.h"
#include "PictureBox.h"
#include "QtPrint.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTest>

#include <gtest/gtest.h>

#include <stdexcept>

namespace hearthbook::test {

namespace {

/// A stage of the standard work form at a size in pixels.
class StageTest : public testing::Test {
protected:
  void showAt(double scale) { showAt(QSize(qRound(790 * scale), qRound(522 * scale))); }
  void showAt(QSize size) {
    stage.resize(size);
    stage.show();
  }

  Stage stage{workFormSize};
};

constexpr TwipsRect photoBox{150, 300, 5760, 5760};

} // namespace

TEST_F(StageTest, AtStandardSizeFifteenTwipsAreOnePixel) {
  auto* child = new QWidget;
  stage.place(child, photoBox);
  showAt(1);
  EXPECT_DOUBLE_EQ(stage.scale(), 1);
  EXPECT_EQ(child->geometry(), QRect(10, 20, 384, 384));
}

TEST_F(StageTest, ScalesUniformlyAndCentresInTheRoom) {
  auto* child = new QWidget;
  stage.place(child, photoBox);
  showAt(QSize(790 * 2 + 100, 522 * 2));
  EXPECT_DOUBLE_EQ(stage.scale(), 2);
  EXPECT_EQ(child->geometry(), QRect(50 + 20, 40, 768, 768));
}

TEST_F(StageTest, AMovedRectangleIsSeenAtOnce) {
  auto* child = new QWidget;
  stage.place(child, photoBox);
  showAt(1);
  stage.setRect(child, {1500, 0, 1500, 750});
  EXPECT_EQ(child->geometry(), QRect(100, 0, 100, 50));
  EXPECT_EQ(stage.rect(child), (TwipsRect{1500, 0, 1500, 750}));
}

TEST_F(StageTest, NeighboursMeetWithoutAGapAtEverySize) {
  auto* left = new QWidget;
  auto* right = new QWidget;
  stage.place(left, {0, 0, 1090, 1090});
  stage.place(right, {1090, 0, 1090, 1090});
  for (int width = 500; width < 1700; width += 37) {
    showAt(QSize(width, width));
    EXPECT_EQ(left->geometry().right() + 1, right->geometry().left()) << width;
  }
}

TEST_F(StageTest, ButtonsAndFieldsFillTheirRectanglesAtAnySize) {
  auto* button = new QPushButton(QStringLiteral("Find Photo"));
  auto* edit = new QLineEdit;
  auto* combo = new QComboBox;
  int top = 0;
  for (QWidget* child :
       {static_cast<QWidget*>(button), static_cast<QWidget*>(edit), static_cast<QWidget*>(combo)}) {
    stage.place(child, {0, static_cast<double>(top), 1500, 390});
    top += 500;
  }
  showAt(4);
  for (QWidget* child :
       {static_cast<QWidget*>(button), static_cast<QWidget*>(edit), static_cast<QWidget*>(combo)})
    EXPECT_EQ(child->size(), QSize(400, 104));
}

TEST_F(StageTest, TypeGrowsInQuarterPoints) {
  auto* label = new QLabel(QStringLiteral("Year:"));
  stage.place(label, {0, 0, 900, 300});
  showAt(1.29);
  EXPECT_DOUBLE_EQ(label->font().pointSizeF() * label->logicalDpiY() / 96.0, 10.5);
  showAt(4);
  EXPECT_DOUBLE_EQ(label->font().pointSizeF() * label->logicalDpiY() / 96.0, 33);
}

TEST_F(StageTest, TypeOfAnotherSizeKeepsItsProportion) {
  auto* heading = new QLabel(QStringLiteral("Album"));
  stage.place(heading, {0, 0, 900, 300}, 14);
  showAt(2);
  EXPECT_DOUBLE_EQ(heading->font().pointSizeF() * heading->logicalDpiY() / 96.0, 28);
}

TEST_F(StageTest, IconsTicksAndScrollBarsGrow) {
  auto* button = new QPushButton;
  auto* box = new QCheckBox;
  auto* bar = new QScrollBar;
  button->setIconSize(QSize(16, 16));
  int left = 0;
  for (QWidget* child :
       {static_cast<QWidget*>(button), static_cast<QWidget*>(box), static_cast<QWidget*>(bar)})
    stage.place(child, {static_cast<double>(left += 1000), 0, 900, 900});
  const auto metric = [](QWidget* widget, QStyle::PixelMetric which) {
    return widget->style()->pixelMetric(which, nullptr, widget);
  };
  showAt(1);
  const int tick = metric(box, QStyle::PM_IndicatorWidth);
  const int extent = metric(bar, QStyle::PM_ScrollBarExtent);
  showAt(4);
  EXPECT_EQ(button->iconSize(), QSize(64, 64));
  EXPECT_EQ(metric(box, QStyle::PM_IndicatorWidth), 4 * tick);
  EXPECT_EQ(metric(bar, QStyle::PM_ScrollBarExtent), 4 * extent);
}

TEST_F(StageTest, TheArrowOfADropDownListGrows) {
  auto* combo = new QComboBox;
  stage.place(combo, {0, 0, 3000, 315});
  const auto arrowWidth = [combo] {
    QStyleOptionComboBox option;
    option.initFrom(combo);
    option.editable = false;
    return combo->style()
        ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, combo)
        .width();
  };
  showAt(1);
  const int standard = arrowWidth();
  showAt(4);
  EXPECT_GE(arrowWidth(), 3 * standard);
}

TEST_F(StageTest, APointInPixelsIsAPointOfTheDesign) {
  showAt(QSize(790 * 2 + 100, 522 * 2));
  EXPECT_EQ(stage.toTwips(QPointF(50 + 20, 40)), (TwipsPoint{150, 300}));
  EXPECT_EQ(stage.toPixels(photoBox), QRect(70, 40, 768, 768));
}

TEST_F(StageTest, TellsWhenItsChildrenHaveNewPlaces) {
  auto* child = new QWidget;
  stage.place(child, photoBox);
  showAt(1);
  QSignalSpy scaled(&stage, &Stage::scaled);
  QRect seen;
  QObject::connect(&stage, &Stage::scaled, &stage, [&] { seen = child->geometry(); });
  showAt(2);
  EXPECT_EQ(scaled.count(), 1);
  EXPECT_EQ(seen, QRect(20, 40, 768, 768));
}

TEST_F(StageTest, AnotherDesignLaysOutAgain) {
  auto* child = new QWidget;
  stage.place(child, {0, 0, 1500, 1500});
  showAt(1);
  stage.setDesign({11850 * 2, 7830 * 2});
  EXPECT_DOUBLE_EQ(stage.scale(), 0.5);
  EXPECT_EQ(child->size(), QSize(50, 50));
}

TEST_F(StageTest, AChildThatIsGoneIsForgotten) {
  auto* child = new QWidget;
  stage.place(child, photoBox);
  delete child;
  showAt(1.5);
  EXPECT_THROW(static_cast<void>(stage.rect(child)), std::logic_error);
}

TEST_F(StageTest, AChildHiddenOnPurposeStaysHidden) {
  auto* hidden = new QWidget;
  hidden->hide();
  auto* shown = new QWidget;
  showAt(1);
  stage.place(hidden, photoBox);
  stage.place(shown, photoBox);
  EXPECT_FALSE(hidden->isVisible());
  EXPECT_TRUE(shown->isVisible());
}

TEST_F(StageTest, AFormsDrawingIsTheFirstTable) {
  QWidget drawn;
  auto* label = new QLabel(QStringLiteral("Year:"), &drawn);
  label->setGeometry(10, 20, 60, 15);
  QFont large = label->font();
  large.setPointSizeF(12);
  auto* heading = new QLabel(QStringLiteral("Album"), &drawn);
  heading->setGeometry(0, 0, 100, 20);
  heading->setFont(large);
  auto* table = new Stage(workFormSize, &drawn);
  table->placeAsDrawn(&drawn);
  EXPECT_EQ(table->rect(label), (TwipsRect{150, 300, 900, 225}));
  drawn.resize(1580, 1044);
  drawn.show();
  EXPECT_EQ(label->geometry(), QRect(20, 40, 120, 30));
  EXPECT_DOUBLE_EQ(label->font().pointSizeF() * label->logicalDpiY() / 96.0, 16.5);
  EXPECT_DOUBLE_EQ(heading->font().pointSizeF() * heading->logicalDpiY() / 96.0, 24);
}

TEST_F(StageTest, TheOrderOfTheTabKeyIsThatOfTheDrawing) {
  QWidget drawn;
  QList<QLineEdit*> fields;
  for (int i = 0; i < 3; ++i)
    fields.append(new QLineEdit(&drawn));
  QWidget::setTabOrder(fields[0], fields[2]);
  QWidget::setTabOrder(fields[2], fields[1]);
  auto* table = new Stage(workFormSize, &drawn);
  table->placeAsDrawn(&drawn);
  drawn.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&drawn));
  fields[0]->setFocus();
  QTest::keyClick(fields[0], Qt::Key_Tab);
  EXPECT_TRUE(fields[2]->hasFocus());
  QTest::keyClick(fields[2], Qt::Key_Tab);
  EXPECT_TRUE(fields[1]->hasFocus());
}

namespace {

Picture plainPicture(PixelSize size, std::uint32_t colour) {
  Picture picture(size);
  for (int y = 0; y < size.height; ++y)
    std::fill_n(picture.writableRow(y), size.width, colour);
  return picture;
}

} // namespace

TEST(PictureBox, FillsItselfWithThePicture) {
  PictureBox box;
  box.resize(40, 30);
  box.setPicture(plainPicture({8, 6}, 0xff204060));
  const QImage shown = box.grab().toImage();
  for (const QPoint corner : {QPoint(0, 0), QPoint(39, 0), QPoint(0, 29), QPoint(39, 29)})
    EXPECT_EQ(shown.pixel(corner), 0xff204060);
}

TEST(PictureBox, ShowsAPictureOfItsOwnSizePixelByPixel) {
  PictureBox box;
  box.resize(4, 2);
  Picture picture = plainPicture({4, 2}, 0xff000000);
  picture.writableRow(1)[2] = 0xffffffff;
  box.setPicture(picture);
  const QImage shown = box.grab().toImage();
  EXPECT_EQ(shown.pixel(2, 1), 0xffffffff);
  EXPECT_EQ(shown.pixel(1, 1), 0xff000000);
}

TEST(PictureBox, TheNewPictureReplacesTheOldOne) {
  PictureBox box;
  box.resize(4, 4);
  EXPECT_FALSE(box.hasPicture());
  box.setPicture(plainPicture({4, 4}, 0xff0000ff));
  static_cast<void>(box.grab());
  box.setPicture(plainPicture({4, 4}, 0xffff0000));
  EXPECT_EQ(box.grab().toImage().pixel(1, 1), 0xffff0000);
  box.clear();
  EXPECT_FALSE(box.hasPicture());
}

TEST(PictureBox, TellsWhereItWasPressedAndWhatToDecodeForIt) {
  PictureBox box;
  box.resize(400, 300);
  EXPECT_EQ(box.wantedSize(), (PixelSize{400, 300}));
  QSignalSpy pressed(&box, &PictureBox::pressed);
  QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(30, 20));
  ASSERT_EQ(pressed.count(), 1);
  EXPECT_EQ(pressed[0][0].toPointF(), QPointF(30, 20));
}

TEST(PictureBox, IsAPictureForAScreenReader) {
  PictureBox box;
  box.setAccessibleName(QStringLiteral("Photo"));
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&box);
  ASSERT_NE(face, nullptr);
  EXPECT_EQ(face->role(), QAccessible::Graphic);
  EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Photo"));
}

TEST_F(StageTest, AStageOnAStageIsAPanelOfItsScale) {
  auto* panel = new Stage({2175, 3375});
  auto* text = new QLabel(QStringLiteral("1987"));
  stage.place(panel, {105, -15, 2175, 3375});
  panel->place(text, {15, 390, 2145, 720});
  showAt(2);
  EXPECT_EQ(panel->geometry(), QRect(14, -2, 290, 450));
  EXPECT_EQ(text->geometry(), QRect(2, 52, 286, 96));
  EXPECT_DOUBLE_EQ(Stage::scaleOf(text), 2);
}

TEST_F(StageTest, APanelThatGrowsClipsItsChildrenAndScalesNothing) {
  auto* panel = new Stage({2175, 2250});
  auto* text = new QLabel;
  stage.place(panel, {0, 3000, 2175, 0});
  panel->place(text, {0, 0, 2175, 2250});
  showAt(1);
  for (const double height : {0.0, 5.0, 1000.0, 2250.0}) {
    stage.setRect(panel, {0, 3000 - height, 2175, height});
    EXPECT_EQ(text->size(), QSize(145, 150)) << height;
  }
  showAt(3);
  EXPECT_EQ(text->size(), QSize(435, 450));
}

TEST_F(StageTest, AHiddenPanelHasTheScaleOfTheStageWhenItIsShown) {
  auto* panel = new Stage({2175, 3375});
  auto* text = new QLabel;
  stage.place(panel, {105, 0, 2175, 3375});
  panel->place(text, {0, 0, 1500, 1500});
  panel->hide();
  showAt(1);
  showAt(2);
  panel->show();
  EXPECT_EQ(text->size(), QSize(200, 200));
}

} // namespace hearthbook::test
