#include "AlbumFile.h"
#include "BoundControls.h"
#include "QtPrint.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace hearthbook::test {

namespace {

/// Places as the combo and the list show them: 1 lake, 2 Home, 3 Évian.
class BoundListTest : public AlbumFile {
protected:
  BoundListTest() { places.Open("SELECT * FROM Places ORDER BY PlaceID"); }

  [[nodiscard]] ListSource source() { return {&places, "PlaceName", "PlaceID"}; }

  void turnWheel(QWidget& over) {
    const QPointF middle = QRectF(over.rect()).center();
    QWheelEvent event(middle, over.mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&over, &event);
  }

  Recordset places{connection};
};

QStringList textsOf(const QComboBox& combo) {
  QStringList texts;
  for (int i = 0; i < combo.count(); ++i)
    texts.append(combo.itemText(i));
  return texts;
}

} // namespace

TEST_F(BoundListTest, FillingLeavesTheRecordSetWhereItStands) {
  places.MoveLast();
  int told = 0;
  const auto watching =
      places.observe({.leaving = [&told] { ++told; }, .arrived = [&told] { ++told; }});
  DataCombo combo;
  combo.setListSource(source());
  EXPECT_EQ(textsOf(combo),
            QStringList({QStringLiteral("lake"), QStringLiteral("Home"), QStringLiteral("Évian")}));
  EXPECT_EQ(places.AbsolutePosition(), 3);
  EXPECT_EQ(told, 0);
}

TEST_F(BoundListTest, TheFilterOfTheRowsHoldsForTheEntries) {
  places.Filter("PlaceName = 'Home'");
  DataCombo combo;
  combo.setListSource(source());
  EXPECT_EQ(textsOf(combo), QStringList({QStringLiteral("Home")}));
}

TEST_F(BoundListTest, AClosedRecordSetGivesNoEntries) {
  places.Close();
  DataCombo combo;
  combo.setListSource(source());
  EXPECT_EQ(combo.count(), 0);
  EXPECT_TRUE(combo.BoundText().isNull());
}

TEST_F(BoundListTest, ATextThatCameAfterTheLastRefillIsChosenAndNotOffered) {
  DataCombo combo;
  combo.setListSource(source());
  places.AddNew({"PlaceName"}, {"Garden"});
  const Value garden = places.Collect("PlaceID");
  int chosen = 0;
  QObject::connect(&combo, &DataCombo::chosen, &combo, [&] { ++chosen; });
  combo.setText(QStringLiteral("Garden"));
  EXPECT_EQ(combo.Text(), QStringLiteral("Garden"));
  EXPECT_EQ(combo.BoundText(), garden);
  EXPECT_EQ(chosen, 1);
  auto* popup = qobject_cast<QListView*>(combo.view());
  EXPECT_TRUE(popup->isRowHidden(3));
  combo.setBoundText(1);
  QTest::keyClicks(&combo, QStringLiteral("G"));
  EXPECT_EQ(combo.Text(), QStringLiteral("lake"));
  combo.setBoundText(garden);
  EXPECT_EQ(combo.Text(), QStringLiteral("Garden"));
}

TEST_F(BoundListTest, TheNextRefillOffersIt) {
  DataCombo combo;
  combo.setListSource(source());
  places.AddNew({"PlaceName"}, {"Garden"});
  combo.setText(QStringLiteral("Garden"));
  combo.ReFill();
  EXPECT_EQ(combo.count(), 4);
  EXPECT_FALSE(qobject_cast<QListView*>(combo.view())->isRowHidden(3));
  EXPECT_EQ(combo.Text(), QStringLiteral("Garden"));
  combo.setBoundText(1);
  QTest::keyClicks(&combo, QStringLiteral("G"));
  EXPECT_EQ(combo.Text(), QStringLiteral("Garden"));
}

TEST_F(BoundListTest, ATextWithoutARowIsNotChosen) {
  DataCombo combo;
  combo.setListSource(source());
  combo.setText(QStringLiteral("Garden"));
  EXPECT_TRUE(combo.BoundText().isNull());
  EXPECT_EQ(combo.count(), 3);
}

TEST_F(BoundListTest, AComboShowsTheTextOfItsValue) {
  DataCombo combo;
  combo.setListSource(source());
  EXPECT_TRUE(combo.BoundText().isNull()) << "nothing is chosen at first";
  combo.setBoundText(3);
  EXPECT_EQ(combo.Text(), QStringLiteral("Évian"));
  combo.setBoundText(Value());
  EXPECT_TRUE(combo.Text().isEmpty());
  EXPECT_TRUE(combo.BoundText().isNull());
}

TEST_F(BoundListTest, AnUnknownValueShowsNothingUntilARowHasIt) {
  DataCombo combo;
  combo.setListSource(source());
  combo.setBoundText(4);
  EXPECT_TRUE(combo.Text().isEmpty());
  EXPECT_TRUE(combo.BoundText().isNull());
  places.AddNew({"PlaceName"}, {"Attic"});
  combo.ReFill();
  EXPECT_EQ(combo.Text(), QStringLiteral("Attic"));
}

TEST_F(BoundListTest, ReFillKeepsTheChoiceWhereverItStandsNow) {
  DataCombo combo;
  combo.setListSource(source());
  combo.setText(QStringLiteral("home"));
  QSignalSpy chosen(&combo, &DataCombo::chosen);
  places.Open("SELECT * FROM Places ORDER BY PlaceName DESC");
  combo.ReFill();
  EXPECT_EQ(combo.Text(), QStringLiteral("Home"));
  EXPECT_EQ(combo.BoundText(), Value(2));
  EXPECT_EQ(chosen.count(), 0);
}

TEST_F(BoundListTest, OnlyAUserOrATextChoosesNotAValue) {
  DataCombo combo;
  combo.setListSource(source());
  QSignalSpy chosen(&combo, &DataCombo::chosen);
  combo.setBoundText(2);
  EXPECT_EQ(chosen.count(), 0);
  combo.setText(QStringLiteral("LAKE"));
  EXPECT_EQ(chosen.count(), 1);
  EXPECT_EQ(combo.BoundText(), Value(1));
}

TEST_F(BoundListTest, TypingSeeksAmongTheEntries) {
  DataCombo combo;
  combo.setListSource(source());
  combo.show();
  QSignalSpy chosen(&combo, &DataCombo::chosen);
  QTest::keyClick(&combo, Qt::Key_H);
  EXPECT_EQ(combo.Text(), QStringLiteral("Home"));
  EXPECT_EQ(chosen.count(), 1);
}

TEST_F(BoundListTest, DeleteAndBackspaceEmptyTheChoice) {
  DataCombo combo;
  combo.setListSource(source());
  combo.show();
  for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Backspace}) {
    combo.setBoundText(2);
    QSignalSpy chosen(&combo, &DataCombo::chosen);
    QTest::keyClick(&combo, key);
    EXPECT_TRUE(combo.BoundText().isNull());
    EXPECT_EQ(chosen.count(), 1);
  }
}

TEST_F(BoundListTest, TheWheelTurnsOnlyAComboWithTheFocus) {
  DataCombo combo;
  combo.setListSource(source());
  combo.setBoundText(1);
  combo.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&combo));
  combo.clearFocus();
  turnWheel(combo);
  EXPECT_EQ(combo.BoundText(), Value(1));
  combo.setFocus();
  turnWheel(combo);
  EXPECT_EQ(combo.BoundText(), Value(2));
}

TEST_F(BoundListTest, AListShowsAndChoosesRows) {
  DataList list;
  list.setListSource(source());
  EXPECT_EQ(list.model()->rowCount(), 3);
  EXPECT_TRUE(list.BoundText().isNull());
  QSignalSpy chosen(&list, &DataList::chosen);
  list.setBoundText(2);
  EXPECT_EQ(list.Text(), QStringLiteral("Home"));
  EXPECT_EQ(chosen.count(), 0);
  list.setBoundText(77);
  EXPECT_TRUE(list.BoundText().isNull());
  EXPECT_TRUE(list.Text().isEmpty());
}

TEST_F(BoundListTest, AClickInAListChoosesOnceAndADoubleClickIsTold) {
  DataList list;
  list.setListSource(source());
  list.resize(200, 200);
  list.show();
  QSignalSpy chosen(&list, &DataList::chosen);
  QSignalSpy twice(&list, &DataList::doubleClickedRow);
  const QPoint second = list.visualRect(list.model()->index(1, 0)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(chosen.count(), 1);
  EXPECT_EQ(twice.count(), 0);
  EXPECT_EQ(list.BoundText(), Value(2));
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(twice.count(), 1);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(twice.count(), 2);
}

TEST_F(BoundListTest, AClickOnARowThatTheProgramChoseIsAChoiceToo) {
  DataList list;
  list.setListSource(source());
  list.resize(200, 200);
  list.show();
  list.setBoundText(2);
  QSignalSpy chosen(&list, &DataList::chosen);
  const QPoint second = list.visualRect(list.model()->index(1, 0)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(chosen.count(), 1);
}

TEST_F(BoundListTest, ControlOnTheChosenRowLeavesItChosen) {
  DataList list;
  list.setListSource(source());
  list.show();
  list.setBoundText(2);
  const auto row = [&] { return list.visualRect(list.model()->index(1, 0)).center(); };
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, row());
  EXPECT_EQ(list.BoundText(), Value(2));
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Space, Qt::ControlModifier);
  EXPECT_EQ(list.BoundText(), Value(2));
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier,
                    list.visualRect(list.model()->index(2, 0)).center());
  EXPECT_EQ(list.BoundText(), Value(3));
}

TEST_F(BoundListTest, AListReFilledKeepsTheChoice) {
  DataList list;
  list.setListSource(source());
  list.setBoundText(3);
  QSignalSpy chosen(&list, &DataList::chosen);
  places.Open("SELECT * FROM Places ORDER BY PlaceName");
  list.ReFill();
  EXPECT_EQ(list.Text(), QStringLiteral("Évian"));
  EXPECT_EQ(chosen.count(), 0);
}

TEST_F(BoundListTest, AListNamesItsRowsForAScreenReader) {
  DataList list;
  list.setListSource(source());
  list.show();
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&list);
  ASSERT_NE(face, nullptr);
  ASSERT_EQ(face->childCount(), 3);
  EXPECT_EQ(face->child(2)->text(QAccessible::Name), QStringLiteral("Évian"));
}

} // namespace hearthbook::test
