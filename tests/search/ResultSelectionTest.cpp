#include "SearchFixture.h"

#include <QAccessible>
#include <QAccessibleActionInterface>

namespace hearthbook::test {

namespace {

class ResultSelecting : public SearchFixture {
protected:
  void expectCommands(const Search& search, int count) {
    EXPECT_EQ(selection().SelectedCount, count);
    EXPECT_EQ(isEnabled(search, "Command11"), count > 0);
    EXPECT_EQ(isEnabled(search, "Command14"), count > 0);
    EXPECT_EQ(text(search, "Command14"),
              count > 0 ? "Clear Selection (" + std::to_string(count) + ")" : "No Selection");
    EXPECT_EQ(text(search, "Command10"), count > 0 ? "Add To Sub-Album" : "Add All To Sub-Album");
  }
  std::vector<Value> array() { return selection().SelectedPositions; }
};

using Cells = std::vector<int>;
using Values = std::vector<Value>;

} // namespace

TEST_F(ResultSelecting, ReleasingAnyMouseButtonOverAPhotoSelectsIt) {
  const auto& search = searchAmong(30);
  click(search, 0);
  click(search, 2, {}, Qt::RightButton);
  click(search, 4, {}, Qt::MiddleButton);
  EXPECT_EQ(framed(search), (Cells{0, 2, 4}));
  EXPECT_EQ(array(), (Values{1, 3, 5}));
  expectCommands(search, 3);
}

TEST_F(ResultSelecting, AnotherClickTakesThePhotoOut) {
  const auto& search = searchAmong(30);
  click(search, 0);
  click(search, 2);
  click(search, 0);
  EXPECT_EQ(framed(search), Cells{2});
  EXPECT_EQ(array(), (Values{"", 3}));
  expectCommands(search, 1);
  click(search, 2);
  expectCommands(search, 0);
}

TEST_F(ResultSelecting, TheNextPhotoGoesIntoTheHole) {
  const auto& search = searchAmong(30);
  for (const int index : {0, 1, 2})
    click(search, index);
  click(search, 1);
  press(search, "Command2");
  click(search, 5);
  EXPECT_EQ(array(), (Values{1, 30, 3}));
  expectCommands(search, 3);
}

TEST_F(ResultSelecting, AMouseReleasedBesideThePhotoSelectsNothing) {
  const auto& search = searchAmong(2);
  auto& image = cell(search, 0);
  QTest::mousePress(&image, Qt::LeftButton);
  QTest::mouseRelease(&image, Qt::LeftButton, {}, QPoint(-5, -5));
  expectCommands(search, 0);
}

TEST_F(ResultSelecting, AClickOnAnEmptyCellChangesNothing) {
  const auto& search = searchAmong(2);
  click(search, 2);
  click(search, 2, Qt::ShiftModifier);
  expectCommands(search, 0);
  EXPECT_TRUE(framed(search).empty());
}

TEST_F(ResultSelecting, ClearSelectionEmptiesItOnAllPages) {
  const auto& search = searchAmong(60);
  click(search, 0);
  press(search, "Command2");
  click(search, 1);
  press(search, "Command14");
  EXPECT_EQ(selection(), SelectionSet());
  EXPECT_TRUE(framed(search).empty());
  expectCommands(search, 0);
  press(search, "Command12");
  EXPECT_TRUE(framed(search).empty());
}

TEST_F(ResultSelecting, ClickingEndsTheEntryOfAYear) {
  auto& search = searchAmong(2);
  search.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&search));
  auto* year = control<QLineEdit>(search, "FromYear");
  year->setFocus();
  QTest::keyClicks(year, toQString("soon"));
  click(search, 0);
  EXPECT_EQ(year->text(), QString());
  expectCommands(search, 1);
}

TEST_F(ResultSelecting, ControlTogglesAsAPlainClickDoes) {
  const auto& search = searchAmong(30);
  click(search, 3, Qt::ControlModifier);
  click(search, 4);
  click(search, 3, Qt::ControlModifier);
  EXPECT_EQ(framed(search), Cells{4});
}

TEST_F(ResultSelecting, ShiftSelectsAllFromTheLastClickOn) {
  const auto& search = searchAmong(30);
  click(search, 9);
  click(search, 6, Qt::ShiftModifier);
  EXPECT_EQ(framed(search), (Cells{6, 7, 8, 9}));
  click(search, 11, Qt::ShiftModifier);
  EXPECT_EQ(framed(search), (Cells{6, 7, 8, 9, 10, 11}));
  expectCommands(search, 6);
}

TEST_F(ResultSelecting, ShiftSelectsOverPages) {
  const auto& search = searchAmong(60);
  click(search, 22);
  press(search, "Command2");
  press(search, "Command2");
  click(search, 1, Qt::ShiftModifier);
  expectCommands(search, 28);
  EXPECT_EQ(framed(search), (Cells{0, 1}));
  press(search, "Command12");
  EXPECT_EQ(framed(search), (Cells{22, 23}));
}

TEST_F(ResultSelecting, ShiftAloneSelectsOnePhotoAndBeginsThere) {
  const auto& search = searchAmong(30);
  click(search, 5, Qt::ShiftModifier);
  click(search, 7, Qt::ShiftModifier);
  EXPECT_EQ(framed(search), (Cells{5, 6, 7}));
}

TEST_F(ResultSelecting, ANewSearchForgetsWhereShiftBegan) {
  const auto& search = searchAmong(30);
  click(search, 5);
  press(search, "Command1");
  click(search, 8, Qt::ShiftModifier);
  EXPECT_EQ(framed(search), Cells{8});
}

TEST_F(ResultSelecting, MoreThanTheCountCanHoldIsReportedAndNothingIsSelected) {
  data().AlbumDB.execute(
      "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 33000) "
      "INSERT INTO PhotoAlbum (PictureID) SELECT printf('HD%05d', i) FROM n");
  const auto& search = searchAmong(1);
  click(search, 0);
  press(search, "Command13");
  boxes_.expectFailure(toQString("too large"));
  click(search, 3, Qt::ShiftModifier);
  expectCommands(search, 1);
}

TEST_F(ResultSelecting, ArrowsWalkAndSpaceSelects) {
  const auto& search = searchAmong(30);
  cell(search, 0).setFocus();
  const auto walk = [&](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
  const auto at = [&] { return qobject_cast<ResultCell*>(QApplication::focusWidget())->index(); };
  walk(Qt::Key_Right);
  EXPECT_EQ(at(), 1);
  walk(Qt::Key_Down);
  EXPECT_EQ(at(), 9);
  walk(Qt::Key_Space);
  EXPECT_EQ(framed(search), Cells{9});
  walk(Qt::Key_Left);
  EXPECT_EQ(at(), 8);
  walk(Qt::Key_Up);
  walk(Qt::Key_Up);
  walk(Qt::Key_Left);
  EXPECT_EQ(at(), 0);
  walk(Qt::Key_End);
  EXPECT_EQ(at(), 23);
  walk(Qt::Key_Down);
  walk(Qt::Key_Right);
  EXPECT_EQ(at(), 23);
  walk(Qt::Key_Home);
  EXPECT_EQ(at(), 0);
  EXPECT_EQ(framed(search), Cells{9});
}

TEST_F(ResultSelecting, ArrowsStayOnTheFilledCellsOfAShortPage) {
  const auto& search = searchAmong(10);
  cell(search, 3).setFocus();
  QTest::keyClick(&cell(search, 3), Qt::Key_Down);
  EXPECT_TRUE(cell(search, 3).hasFocus());
  QTest::keyClick(&cell(search, 3), Qt::Key_End);
  EXPECT_TRUE(cell(search, 9).hasFocus());
}

TEST_F(ResultSelecting, ShiftAndArrowsSelectOnTheirWay) {
  const auto& search = searchAmong(30);
  cell(search, 0).setFocus();
  const auto walk = [&](Qt::Key key, Qt::KeyboardModifiers held = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, held);
  };
  walk(Qt::Key_Right);
  walk(Qt::Key_Right, Qt::ShiftModifier);
  walk(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(framed(search), (Cells{1, 2, 3}));
  walk(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(framed(search).size(), 24U);
  expectCommands(search, 24);
}

TEST_F(ResultSelecting, ADoubleClickLooksCloserAndLeavesTheSelectionAsItWas) {
  auto& search = searchAmong(60);
  type(search, "ToYear", "");
  press(search, "Command2");
  doubleClick(search, 3);
  EXPECT_EQ(windows_.calls, QStringList{toQString("Full Size Results For: ")});
  EXPECT_EQ(vars().rsZoom->AbsolutePosition(), 28);
  EXPECT_EQ(vars().rsZoom->Source(), result().Source());
  expectCommands(search, 0);
}

TEST_F(ResultSelecting, ADoubleClickOnAnEmptyCellOpensWhatThePageBeforeHadThere) {
  const auto& search = searchAmong(25);
  press(search, "Command2");
  doubleClick(search, 7);
  EXPECT_EQ(windows_.calls.size(), 1);
  EXPECT_EQ(vars().rsZoom->AbsolutePosition(), 8);
}

TEST_F(ResultSelecting, ADoubleClickOnACellThatNeverHadAPhotoDoesNothing) {
  const auto& search = searchAmong(3);
  doubleClick(search, 7);
  EXPECT_TRUE(windows_.calls.isEmpty());
}

TEST_F(ResultSelecting, ReturnLooksCloserToo) {
  const auto& search = searchAmong(3);
  cell(search, 2).setFocus();
  QTest::keyClick(&cell(search, 2), Qt::Key_Return);
  EXPECT_EQ(windows_.calls, QStringList{toQString("Full Size Results For: ")});
  EXPECT_EQ(vars().rsZoom->AbsolutePosition(), 3);
}

TEST_F(ResultSelecting, AScreenReaderMeetsAListItemThatCanBeToggled) {
  const auto& search = searchAmong(3);
  auto* accessible = QAccessible::queryAccessibleInterface(&cell(search, 1));
  EXPECT_EQ(accessible->role(), QAccessible::ListItem);
  EXPECT_TRUE(accessible->state().selectable);
  EXPECT_FALSE(accessible->state().selected);
  auto* actions = accessible->actionInterface();
  ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));
  actions->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(framed(search), Cells{1});
  EXPECT_TRUE(accessible->state().selected);

  auto* empty = QAccessible::queryAccessibleInterface(&cell(search, 9));
  EXPECT_FALSE(empty->state().selectable);
  EXPECT_FALSE(
      empty->actionInterface()->actionNames().contains(QAccessibleActionInterface::toggleAction()));
}

} // namespace hearthbook::test
