#include "BatchEditFixture.h"
#include "ControlChecks.h"

#include <gmock/gmock.h>

namespace hearthbook::test {

namespace {

const Control batchControls[] = {
    {"Label1", "QLabel",
     "This window is the same as the editor except that the changes you make will effect all "
     "selected photos in the search results."},
    {"EventsDrp", "hearthbook::DataCombo"},
    {"PlacesDrp", "hearthbook::DataCombo"},
    {"Description", "QPlainTextEdit"},
    {"Year", "QLineEdit"},
    {"List2", "QListWidget"},
    {"Combo1", "QComboBox"},
    {"DataList1", "hearthbook::DataList"},
    {"Command2", "QPushButton", ">>"},
    {"Command3", "QPushButton", "<<"},
    {"Command9", "QPushButton", "Add"},
    {"Command10", "QPushButton", "Add"},
    {"Command19", "QPushButton", "Add"},
    {"Command13", "QPushButton", "Delete"},
    {"Command8", "QPushButton", "Delete"},
    {"Command11", "QPushButton", "Update"},
    {"Command12", "QPushButton", "Find Year"},
    {"Command4", "QPushButton", "Update"},
    {"Command5", "QPushButton", "Delete"},
    {"Command1", "QPushButton", "Cancel"},
    {"Command6", "QPushButton", "Rotate Left"},
    {"Command7", "QPushButton", "Rotate Right"},
    {"placeLabel", "QLabel", " Place:"},
    {"eventLabel", "QLabel", " Event:"},
    {"namesLabel", "QLabel", "Names In Photo:"},
    {"yearLabel", "QLabel", " Year:"},
    {"descriptionLabel", "QLabel", " Description:"},
};

class BatchEditForm : public BatchEditFixture {};

} // namespace

TEST_F(BatchEditForm, HasEachOfItsControlsOnce) {
  const auto& batch = openBatch();
  EXPECT_EQ(batch.caption(), toQString("Batch Editing"));
  expectControls(batch, "", batchControls);
}

TEST_F(BatchEditForm, NothingRotatesHere) {
  const auto& batch = openBatch();
  for (const char* name : {"Command6", "Command7"})
    EXPECT_TRUE(control<QWidget>(batch, name)->isHidden()) << name;
}

TEST_F(BatchEditForm, TabReachesEveryControlBothWays) {
  select({2});
  auto& batch = openBatch();
  expectTabReachesAll(batch, control<QWidget>(batch, "Year"), 16);
}

TEST_F(BatchEditForm, FitsIntoASmallScreen) {
  const auto& batch = openBatch();
  EXPECT_LE(batch.minimumSizeHint().width(), 1000);
  EXPECT_LE(batch.minimumSizeHint().height(), 680);
}

TEST_F(BatchEditForm, TellsHowManyPhotosItIsAbout) {
  select({2, 3, 5});
  const auto& batch = openBatch();
  EXPECT_EQ(labelOf(batch, "countLabel"),
            "3 photos are selected. What you leave empty stays as it is in each of them.");
  EXPECT_THAT(control<QWidget>(batch, "Command4")->accessibleName().toStdString(),
              testing::HasSubstr("selected"));
}

TEST_F(BatchEditForm, TellsOfOnePhotoInItsOwnWords) {
  select({2});
  EXPECT_EQ(labelOf(openBatch(), "countLabel"),
            "1 photo is selected. What you leave empty stays as it is in each of them.");
}

TEST_F(BatchEditForm, BeginsEmptyWithTheFamily) {
  photos().MoveLast();
  const auto& batch = openBatch();
  EXPECT_TRUE(control<DataCombo>(batch, "PlacesDrp")->Text().isEmpty());
  EXPECT_TRUE(control<DataCombo>(batch, "EventsDrp")->Text().isEmpty());
  EXPECT_TRUE(control<QLineEdit>(batch, "Year")->text().isEmpty());
  EXPECT_TRUE(control<QPlainTextEdit>(batch, "Description")->toPlainText().isEmpty());
  EXPECT_EQ(names(batch).count(), 0);
  const auto* filter = control<QComboBox>(batch, "Combo1");
  QStringList entries;
  for (int entry = 0; entry < filter->count(); ++entry)
    entries << filter->itemText(entry);
  EXPECT_EQ(entries, texts({"Show All", "Family Members", "-------------------", "Anna", "Ben"}));
  EXPECT_EQ(filter->currentText(), toQString("Family Members"));
  EXPECT_EQ(textsOf(people(batch)), texts({"Anna", "Ben"}));
  EXPECT_EQ(photos().AbsolutePosition(), 1);
}

TEST_F(BatchEditForm, PhotosCanBeDeletedOnceItWorksOnASearch) {
  EXPECT_FALSE(isEnabled(Forms::get<BatchEdit>(), "Command5"));
  EXPECT_TRUE(isEnabled(openBatch(), "Command5"));
}

TEST_F(BatchEditForm, CancelChangesNothing) {
  select({2});
  const auto& batch = openBatch();
  type(batch, "Year", "1985");
  press(batch, "Command1");
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(stored("HD00002", "Year").isNull());
}

TEST_F(BatchEditForm, EscapeIsCancel) {
  auto& batch = openBatch();
  QTest::keyClick(&batch, Qt::Key_Escape);
  EXPECT_FALSE(isOpen());
}

TEST_F(BatchEditForm, AnAlbumThatCannotBeReadAnyMoreIsToldAndTheFormCloses) {
  const auto& batch = openBatch();
  data().AlbumDB.execute("DROP TABLE Appearances");
  boxes_.expectFailure(toQString("Appearances"));
  press(batch, "Command1");
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_FALSE(isOpen());
}

TEST_F(BatchEditForm, LeavesEverybodyInThePeopleWhenItCloses) {
  const auto& batch = openBatch();
  press(batch, "Command1");
  EXPECT_EQ(data().rsAppearances.RecordCount(), 3);
}

TEST_F(BatchEditForm, AYearThatIsNoNumberIsEmptiedWhenItsFieldIsLeft) {
  const auto& batch = openBatch();
  for (const auto& [typed, left] :
       {std::pair("198x", ""), {"1985", "1985"}, {"&H13", "19"}, {"", ""}, {"$20", "20"}}) {
    type(batch, "Year", typed);
    QTest::keyClick(control<QWidget>(batch, "Year"), Qt::Key_Tab);
    EXPECT_EQ(toUtf8(control<QLineEdit>(batch, "Year")->text()), left) << typed;
  }
}

TEST_F(BatchEditForm, AYearStillTypedIsTidiedBeforeTheUpdate) {
  select({2});
  const auto& batch = openBatch();
  type(batch, "Year", "198x");
  update(batch, 1);
  EXPECT_TRUE(stored("HD00002", "Year").isNull());
}

// Names

TEST_F(BatchEditForm, NamesGoInAndOutWithoutTouchingAPhoto) {
  const auto& batch = openBatch();
  EXPECT_FALSE(isEnabled(batch, "Command2"));
  EXPECT_FALSE(isEnabled(batch, "Command3"));
  putIn(batch, "Ben");
  putIn(batch, "Anna");
  putIn(batch, "Ben");
  EXPECT_EQ(textsOf(names(batch)), texts({"Ben", "Anna"}));
  chooseName(batch, 0);
  press(batch, "Command3");
  EXPECT_EQ(textsOf(names(batch)), texts({"Anna"}));
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE NamesInPhoto IS NOT NULL"), 0);
  EXPECT_FALSE(photos().isPending());
}

TEST_F(BatchEditForm, ADoubleClickMovesANameToo) {
  const auto& batch = openBatch();
  choosePerson(batch, "Ben");
  Q_EMIT people(batch).doubleClickedRow();
  EXPECT_EQ(textsOf(names(batch)), texts({"Ben"}));
  chooseName(batch, 0);
  Q_EMIT names(batch).itemDoubleClicked(names(batch).item(0));
  EXPECT_EQ(names(batch).count(), 0);
}

TEST_F(BatchEditForm, TheFilterShowsWhoBelongsToAPerson) {
  const auto& batch = openBatch();
  filterBy(batch, "Anna");
  EXPECT_EQ(textsOf(people(batch)), texts({"Cousin"}));
  filterBy(batch, "Show All");
  EXPECT_EQ(textsOf(people(batch)), texts({"Anna", "Ben", "Cousin"}));
  filterBy(batch, "-------------------");
  EXPECT_EQ(control<QComboBox>(batch, "Combo1")->currentText(), toQString("Family Members"));
  EXPECT_EQ(textsOf(people(batch)), texts({"Anna", "Ben"}));
}

TEST_F(BatchEditForm, ThePeopleManagerRenamesTheListAndPutsNobodyElseIn) {
  set("HD00001", "NamesInPhoto = '002,'");
  photos().Requery();
  const auto& batch = openBatch();
  putIn(batch, "Anna");
  choosePerson(batch, "Anna");
  inDialog<NamesManager>([](NamesManager& manager) {
    control<QLineEdit>(manager, "txtAppearancesNames")->setText(toQString("Annabel"));
    press(manager, "OKButton");
  });
  press(batch, "Command11");
  EXPECT_EQ(textsOf(names(batch)), texts({"Annabel"}));
  EXPECT_EQ(textsOf(people(batch)), texts({"Annabel", "Ben"}));
}

TEST_F(BatchEditForm, AnAddedPersonCanBePutInAtOnce) {
  const auto& batch = openBatch();
  boxes_.expectInput(toQString("Please Type Screen Name (up to 20 characters):"),
                     toQString("New Name"), toQString("Dora"));
  inDialog<NamesManager>([](NamesManager& manager) { press(manager, "OKButton"); });
  press(batch, "Command19");
  EXPECT_EQ(people(batch).Text(), toQString("Dora"));
  putIn(batch, "Dora");
  EXPECT_EQ(textsOf(names(batch)), texts({"Dora"}));
}

} // namespace hearthbook::test
