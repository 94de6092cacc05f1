#include "FlexGrid.h"
#include "Look.h"
#include "QtPrint.h"
#include "Stage.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

namespace hearthbook::test {
namespace {

class FlexGridTest : public testing::Test {
protected:
  FlexGridTest() {
    grid.setFormat(QStringLiteral("<Year              |<Anna|^  Lake  |>Visits"));
    for (int year = 1980; year < 2020; ++year)
      grid.addRow(QStringLiteral("%1\tAge %2\tX").arg(year).arg(year - 1980));
    grid.resize(400, 300);
    grid.show();
  }

  QPoint cellAt(int row, int col) {
    return {grid.columnViewportPosition(col) + 3, grid.rowViewportPosition(row - 1) + 3};
  }

  FlexGrid grid;
};

TEST_F(FlexGridTest, TheFormatMakesTheHeader) {
  EXPECT_EQ(grid.cols(), 4);
  EXPECT_EQ(grid.cellText(0, 0), QStringLiteral("Year"));
  EXPECT_EQ(grid.cellText(0, 2), QStringLiteral("Lake"));
  EXPECT_TRUE(grid.item(0, 0)->textAlignment() & Qt::AlignLeft);
  EXPECT_TRUE(grid.item(0, 2)->textAlignment() & Qt::AlignHCenter);
  EXPECT_TRUE(grid.item(0, 3)->textAlignment() & Qt::AlignRight);
}

TEST_F(FlexGridTest, BlanksInTheFormatWidenTheColumn) {
  FlexGrid narrow;
  narrow.setFormat(QStringLiteral("<Year|<Anna"));
  EXPECT_GT(grid.columnWidth(0), narrow.columnWidth(0));
}

TEST_F(FlexGridTest, RowsAreCountedWithTheHeader) {
  EXPECT_EQ(grid.rows(), 41);
  EXPECT_EQ(grid.cellText(1, 0), QStringLiteral("1980"));
  EXPECT_EQ(grid.cellText(1, 1), QStringLiteral("Age 0"));
  EXPECT_EQ(grid.cellText(1, 3), QString());
  EXPECT_EQ(grid.cellText(99, 0), QString());
}

TEST_F(FlexGridTest, ARowGoesInFrontOfTheOneNamed) {
  grid.addRow(QStringLiteral("first"), 1);
  EXPECT_EQ(grid.cellText(1, 0), QStringLiteral("first"));
  EXPECT_EQ(grid.cellText(2, 0), QStringLiteral("1980"));
  grid.deleteRow(1);
  EXPECT_EQ(grid.cellText(1, 0), QStringLiteral("1980"));
  grid.clearRows();
  EXPECT_EQ(grid.rows(), 1);
  EXPECT_EQ(grid.cellText(0, 0), QStringLiteral("Year"));
}

TEST_F(FlexGridTest, ANumberStandsBehindEachRow) {
  EXPECT_EQ(grid.rowData(2), 0);
  grid.setRowData(2, 17);
  grid.addRow(QStringLiteral("first"), 1);
  EXPECT_EQ(grid.rowData(3), 17);
}

TEST_F(FlexGridTest, HeightsAreToldInTwips) {
  grid.setRowTwips(1, 350);
  EXPECT_EQ(grid.rowHeight(0), 23);
  EXPECT_EQ(grid.rowTwips(1), 350);
  grid.setRowTwips(0, 300);
  EXPECT_EQ(grid.horizontalHeader()->height(), 20);
}

TEST_F(FlexGridTest, OnAStageHeightsAndTypeGrowWithIt) {
  Stage stage({3000, 3000});
  auto* child = new FlexGrid;
  child->setFormat(QStringLiteral("<Year"));
  child->addRow(QStringLiteral("1980"));
  stage.place(child, {0, 0, 3000, 3000});
  stage.resize(200, 200);
  stage.show();
  child->setRowTwips(1, 300);
  child->setCellPoints(1, 0, 16);
  EXPECT_EQ(child->rowHeight(0), 20);
  stage.resize(400, 400);
  EXPECT_EQ(child->rowHeight(0), 40);
  EXPECT_DOUBLE_EQ(child->item(0, 0)->font().pointSizeF(), 32);
}

TEST_F(FlexGridTest, AColumnWithoutWidthIsHiddenAndKeepsItsText) {
  grid.setColTwips(1, 0);
  EXPECT_TRUE(grid.isColumnHidden(1));
  EXPECT_EQ(grid.cellText(1, 1), QStringLiteral("Age 0"));
  grid.setColTwips(1, 1500);
  EXPECT_EQ(grid.columnWidth(1), 100);
}

TEST_F(FlexGridTest, ColumnsCanShareTheRoom) {
  grid.shareWidthFrom(1);
  EXPECT_NEAR(grid.columnWidth(1), grid.columnWidth(3), 1);
  grid.resize(800, 300);
  EXPECT_NEAR(grid.columnWidth(1), grid.columnWidth(3), 1);
  EXPECT_GT(grid.columnWidth(1), 150);
}

TEST_F(FlexGridTest, BeginsWithoutAChosenRow) {
  EXPECT_EQ(grid.row(), 0);
  grid.setRow(3);
  EXPECT_EQ(grid.row(), 3);
  EXPECT_EQ(grid.col(), 0);
  grid.setRow(0);
  EXPECT_EQ(grid.row(), 0);
  EXPECT_TRUE(grid.selectedItems().isEmpty());
}

TEST_F(FlexGridTest, ScrollsSoThatARowIsTheTopOne) {
  EXPECT_EQ(grid.topRow(), 1);
  grid.setTopRow(7);
  EXPECT_EQ(grid.topRow(), 7);
  grid.setTopRow(99);
  EXPECT_EQ(grid.topRow(), 7);
}

TEST_F(FlexGridTest, ATopRowCanBeToldBeforeTheGridIsInSight) {
  FlexGrid later;
  later.setFormat(QStringLiteral("<Year"));
  for (int row = 0; row < 40; ++row)
    later.addRow(QString::number(row));
  later.setRow(14);
  later.setTopRow(7);
  later.resize(200, 300);
  later.show();
  EXPECT_EQ(later.topRow(), 7);
}

TEST_F(FlexGridTest, AClickChoosesTheRowAndTellsWhereTheMouseIs) {
  const QSignalSpy clicks(&grid, &FlexGrid::gridClicked);
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cellAt(4, 1));
  EXPECT_EQ(clicks.size(), 1);
  EXPECT_EQ(grid.row(), 4);
  EXPECT_EQ(grid.mouseRow(), 4);
  EXPECT_EQ(grid.mouseCol(), 1);
}

TEST_F(FlexGridTest, AClickOnTheHeaderChoosesNothing) {
  grid.setRow(4);
  QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ(grid.row(), 4);
  EXPECT_EQ(grid.mouseRow(), 0);
  EXPECT_EQ(grid.mouseCol(), 0);
}

TEST_F(FlexGridTest, BelowTheLastRowTheMouseIsOverNone) {
  grid.clearRows();
  QTest::mouseMove(grid.viewport(), QPoint(5, 50));
  EXPECT_EQ(grid.mouseRow(), -1);
}

TEST_F(FlexGridTest, ReturnIsToldOnlyOnAChosenRow) {
  const QSignalSpy returns(&grid, &FlexGrid::returnPressed);
  QTest::keyClick(&grid, Qt::Key_Return);
  EXPECT_EQ(returns.size(), 0);
  grid.setRow(2);
  QTest::keyClick(&grid, Qt::Key_Return);
  EXPECT_EQ(returns.size(), 1);
}

TEST_F(FlexGridTest, TheChosenRowIsPaintedInItsColourWithAFrame) {
  grid.setRow(1);
  grid.setSelection(QColor(255, 200, 22), FlexGrid::FocusRect::Heavy);
  EXPECT_EQ(grid.selectionColour(), QColor(255, 200, 22));
  const QImage picture = grid.viewport()->grab().toImage();
  const QPoint inside = cellAt(1, 3) + QPoint(10, 5);
  EXPECT_EQ(picture.pixelColor(inside), QColor(255, 200, 22));
  const QColor corner = picture.pixelColor(cellAt(1, 0) - QPoint(3, 3));
  EXPECT_NE(corner, QColor(255, 200, 22));
}

TEST_F(FlexGridTest, TheLinesBetweenTheCellsDoNotCrossTheFrame) {
  grid.setRow(2);
  grid.setSelection(QColor(255, 200, 22), FlexGrid::FocusRect::Heavy);
  const QImage picture = grid.viewport()->grab().toImage();
  const QPoint corner = cellAt(2, 0) - QPoint(3, 3);
  const int end = std::min(grid.horizontalHeader()->length() - 1, picture.width());
  for (int x = 0; x < end; ++x)
    ASSERT_EQ(picture.pixelColor(x, corner.y()), look::darkRed) << x;
  const QPoint line = cellAt(5, 1) - QPoint(4, 0);
  EXPECT_NE(picture.pixelColor(line), picture.pixelColor(line - QPoint(2, 0)));
}

TEST_F(FlexGridTest, ACellShowsItsPictureBesideTheText) {
  QPixmap arrow(8, 8);
  arrow.fill(Qt::red);
  grid.setIconSize({8, 8});
  grid.setCellPicture(2, 1, arrow);
  EXPECT_FALSE(grid.item(1, 1)->icon().isNull());
  EXPECT_EQ(grid.cellText(2, 1), QStringLiteral("Age 1"));
  const QImage shown = grid.viewport()->grab().toImage();
  const QRect cell(cellAt(2, 1), QSize(12, grid.rowHeight(1) - 4));
  bool isRed = false;
  for (int y = cell.top(); y <= cell.bottom() && !isRed; ++y)
    for (int x = cell.left(); x <= cell.right() && !isRed; ++x)
      isRed = shown.pixelColor(x, y) == QColor(Qt::red);
  EXPECT_TRUE(isRed);
}

} // namespace
} // namespace hearthbook::test
