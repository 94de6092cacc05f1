#include "EditorFixture.h"

#include "Pointer.h"
#include "ProgressNote.h"
#include "QtPrint.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <algorithm>

namespace hearthbook {

namespace {

class DBeditorMoves : public test::EditorFixture {
protected:
  DBeditorMoves() { addPhotosUpTo(5); }

  void goTo(DBeditor& editor, const char* answer) {
    boxes_.expectInput(toQString("Enter Record Number:"), toQString("Go To Record"),
                       toQString(answer));
    press(editor, "Command7");
  }
  void expectRefusal() {
    boxes_.expectMessage(toQString("Please Enter A Valid Record."), toQString("Go To Record"));
  }
  void fillAllFields(const std::string& id) {
    data().AlbumDB.execute("UPDATE PhotoAlbum SET Year = 1990, PlaceID = 1, EventID = 1, "
                           "NamesInPhoto = '001,' WHERE PictureID = '" +
                           id + "'");
    photos().Requery();
  }
};

} // namespace

TEST_F(DBeditorMoves, TheEditorOpensOnTheRowOnWhichTheSetStands) {
  photos().Move(2);
  const auto& editor = openEditor();
  EXPECT_EQ(labelOf(editor, "NumRec"), "3 of 5");
}

TEST_F(DBeditorMoves, NextAndPreviousStepByOne) {
  const auto& editor = openEditor();
  press(editor, "NextPhoto");
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 5");
  press(editor, "PrevPhoto");
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 5");
}

TEST_F(DBeditorMoves, FirstAndLastGoToTheEnds) {
  const auto& editor = openEditor();
  press(editor, "Command8");
  EXPECT_EQ(labelOf(editor, "NumRec"), "5 of 5");
  press(editor, "Command6");
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 5");
}

TEST_F(DBeditorMoves, NextBehindTheLastRecordSaysSo) {
  photos().MoveLast();
  const auto& editor = openEditor();
  boxes_.expectMessage(toQString("No More Records!"), toQString("Next Photo"));
  press(editor, "NextPhoto");
  EXPECT_EQ(labelOf(editor, "NumRec"), "5 of 5");
}

TEST_F(DBeditorMoves, PreviousBeforeTheFirstRecordSaysSo) {
  const auto& editor = openEditor();
  boxes_.expectMessage(toQString("No More Records!"), toQString("Previous Photo"));
  press(editor, "PrevPhoto");
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 5");
}

TEST_F(DBeditorMoves, GoToShowsTheRecordOfThatNumber) {
  auto& editor = openEditor();
  goTo(editor, "4");
  EXPECT_EQ(labelOf(editor, "NumRec"), "4 of 5");
  EXPECT_EQ(currentId(), "HD00004");
}

TEST_F(DBeditorMoves, GoToTakesTheLastRecord) {
  auto& editor = openEditor();
  goTo(editor, "5");
  EXPECT_EQ(labelOf(editor, "NumRec"), "5 of 5");
}

TEST_F(DBeditorMoves, GoToStoresWhatWasTypedBeforeItMoves) {
  auto& editor = openEditor();
  QTest::keyClicks(control<QPlainTextEdit>(editor, "Description"), toQString("At the lake"));
  goTo(editor, "4");
  EXPECT_EQ(stored("HD00001", "Description"), Value("At the lake"));
  EXPECT_EQ(control<QPlainTextEdit>(editor, "Description")->toPlainText(), QString());
}

TEST_F(DBeditorMoves, ARefusedGoToKeepsWhatWasTyped) {
  auto& editor = openEditor();
  auto* description = control<QPlainTextEdit>(editor, "Description");
  QTest::keyClicks(description, toQString("At the lake"));
  boxes_.expectInput(toQString("Enter Record Number:"), toQString("Go To Record"),
                     toQString("six"));
  expectRefusal();
  press(editor, "Command7");
  EXPECT_EQ(description->toPlainText(), toQString("At the lake"));
}

TEST_F(DBeditorMoves, GoToNoughtStandsBeforeTheFirstRow) {
  auto& editor = openEditor();
  goTo(editor, "0");
  EXPECT_TRUE(photos().atBOF());
  EXPECT_EQ(labelOf(editor, "NumRec"), "-2 of 5");
  EXPECT_EQ(control<QLineEdit>(editor, "Year")->text(), QString());
  EXPECT_FALSE(isEnabled(editor, "Year"));
}

TEST_F(DBeditorMoves, NextLeadsBackFromBeforeTheFirstRow) {
  auto& editor = openEditor();
  goTo(editor, "0");
  press(editor, "NextPhoto");
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 5");
  EXPECT_TRUE(isEnabled(editor, "Year"));
}

TEST_F(DBeditorMoves, FindNextEmptyStopsAtTheNextRecordWithAGap) {
  for (const char* id : {"HD00002", "HD00003"})
    fillAllFields(id);
  const auto& editor = openEditor();
  press(editor, "Command18");
  EXPECT_EQ(labelOf(editor, "NumRec"), "4 of 5");
  EXPECT_EQ(Forms::loaded<Progress>(), nullptr);
}

TEST_F(DBeditorMoves, FindNextEmptyRunsItsBarFromTheRecordBeforeItToTheLast) {
  for (const char* id : {"HD00003", "HD00004"})
    fillAllFields(id);
  photos().Move(1, Recordset::Start::First);
  const auto& editor = openEditor();
  test::ProgressNote progress;
  press(editor, "Command18");
  EXPECT_EQ(progress.caption, toQString("Please Wait, Searching For Next Empty Field"));
  EXPECT_EQ(progress.minimum, 1);
  EXPECT_EQ(progress.maximum, 5);
  EXPECT_EQ(progress.values, (std::vector<int>{1, 2, 3, 4, 5}));
}

TEST_F(DBeditorMoves, FindNextEmptyFillsItsBarWhereverItFinds) {
  const auto& editor = openEditor();
  test::ProgressNote progress;
  press(editor, "Command18");
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 5");
  EXPECT_EQ(progress.values, (std::vector<int>{0, 1, 2, 5}));
}

TEST_F(DBeditorMoves, TheHourglassStandsWhileARecordIsComposed) {
  auto& editor = openEditor();
  std::vector<bool> shown;
  const auto* filled = control<QComboBox>(editor, "Combo1")->model();
  QObject::connect(filled, &QAbstractItemModel::rowsInserted, filled,
                   [&] { shown.push_back(Hourglass::isShown()); });
  EXPECT_FALSE(Hourglass::isShown());
  editor.ComposeRecord();
  EXPECT_FALSE(Hourglass::isShown());
  EXPECT_FALSE(shown.empty());
  EXPECT_EQ(std::ranges::count(shown, false), 0);
}

TEST_F(DBeditorMoves, FindNextEmptyOnTheLastRowEndsAtOnce) {
  photos().MoveLast();
  const auto& editor = openEditor();
  boxes_.expectMessage(toQString("No photos found, try from first record"),
                       toQString("Find Next Empty Field"));
  press(editor, "Command18");
  EXPECT_EQ(labelOf(editor, "NumRec"), "5 of 5");
  EXPECT_EQ(Forms::loaded<Progress>(), nullptr);
}

TEST_F(DBeditorMoves, FindNextEmptyNeverWrapsAndReturnsToItsRow) {
  for (const char* id : {"HD00004", "HD00005"})
    fillAllFields(id);
  photos().Move(2);
  const auto& editor = openEditor();
  boxes_.expectMessage(toQString("No photos found, try from first record"),
                       toQString("Find Next Empty Field"));
  press(editor, "Command18");
  EXPECT_EQ(labelOf(editor, "NumRec"), "3 of 5");
  EXPECT_EQ(currentId(), "HD00003");
}

TEST_F(DBeditorMoves, PageKeysAndEndsWalkWhereNoTextHasTheFocus) {
  auto& editor = openEditor();
  auto* button = control<QWidget>(editor, "NextPhoto");
  button->setFocus();
  QTest::keyClick(button, Qt::Key_PageDown);
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 5");
  QTest::keyClick(button, Qt::Key_End);
  EXPECT_EQ(labelOf(editor, "NumRec"), "5 of 5");
  QTest::keyClick(button, Qt::Key_PageUp);
  EXPECT_EQ(labelOf(editor, "NumRec"), "4 of 5");
  QTest::keyClick(button, Qt::Key_Home);
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 5");
}

TEST_F(DBeditorMoves, KeysInATextMoveItsCursorAndNotTheAlbum) {
  auto& editor = openEditor();
  auto* description = control<QPlainTextEdit>(editor, "Description");
  description->setFocus();
  QTest::keyClick(description, Qt::Key_End);
  QTest::keyClick(description, Qt::Key_PageDown);
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 5");
}

TEST_F(DBeditorMoves, FindPhotoOpensTheSearchWhereThereIsOne) {
  frame_.canSearch = true;
  const auto& editor = openEditor();
  press(editor, "FindPhoto");
  EXPECT_EQ(frame_.searches, 1);
}

TEST_F(DBeditorMoves, FindPhotoIsDisabledWhereThereIsNoSearch) {
  const auto& editor = openEditor();
  EXPECT_FALSE(isEnabled(editor, "FindPhoto"));
}

/// Each answer that is no record's number gets the same message.
class DBeditorRefusedNumber : public DBeditorMoves,
                              public testing::WithParamInterface<const char*> {};

TEST_P(DBeditorRefusedNumber, GoToRefusesItAndStays) {
  photos().Move(1);
  auto& editor = openEditor();
  boxes_.expectInput(toQString("Enter Record Number:"), toQString("Go To Record"),
                     toQString(GetParam()));
  expectRefusal();
  press(editor, "Command7");
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 5");
}

INSTANTIATE_TEST_SUITE_P(Answers, DBeditorRefusedNumber,
                         testing::Values("", "6", "two", "3a", "1e9"));

} // namespace hearthbook
