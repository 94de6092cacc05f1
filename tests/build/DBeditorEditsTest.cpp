#include "EditorFixture.h"

#include "BoundControls.h"
#include "RunTimeError.h"

#include <QLineEdit>
#include <QPlainTextEdit>

#include <utility>

namespace hearthbook {

namespace {

class DBeditorEdits : public test::EditorFixture {
protected:
  void refuseUpdates(const std::string& condition) {
    data().AlbumDB.execute("CREATE TRIGGER Refuse BEFORE UPDATE ON PhotoAlbum WHEN " + condition +
                           " BEGIN SELECT RAISE(ABORT, 'no such photo'); END");
  }
  /// What is asked at closing while the edit cannot be stored.
  QString closeWithoutIt() {
    try {
      photos().Update();
    } catch (const RunTimeError& failure) {
      return toQString("The last change could not be stored: ") + toQString(failure.what()) +
             toQString("\nClose without it?");
    }
    return {};
  }
};

} // namespace

TEST_F(DBeditorEdits, AnEmptiedYearComesBackAtOnce) {
  set("HD00001", "Year = 1985");
  const auto& editor = openEditor();
  auto* year = control<QLineEdit>(editor, "Year");
  year->setFocus();
  year->clear();
  control<QWidget>(editor, "Description")->setFocus();
  EXPECT_EQ(year->text(), toQString("1985"));
}

TEST_F(DBeditorEdits, AYearIsWrittenAsTheWholeNumberThatItIs) {
  const auto& editor = openEditor();
  auto* year = control<QLineEdit>(editor, "Year");
  const std::pair<const char*, const char*> years[] = {
      {"$19", "19"},  {"1,99", "199"}, {"(85)", "-85"}, {"&H7C", "124"}, {"19-", "-19"},
      {"54.5", "54"}, {"53.5", "54"},  {"1e3", "1000"}, {" 85 ", "85"},  {"1985", "1985"}};
  for (const auto& [typed, number] : years) {
    year->setFocus();
    year->setText(toQString(typed));
    control<QWidget>(editor, "Description")->setFocus();
    EXPECT_EQ(year->text(), toQString(number)) << typed;
    photos().Update();
    EXPECT_EQ(stored("HD00001", "Year"), Value(std::stoi(number))) << typed;
  }
}

TEST_F(DBeditorEdits, AYearOfMoreDigitsThanTheFieldShowsIsNotTaken) {
  set("HD00001", "Year = 1985");
  const auto& editor = openEditor();
  auto* year = control<QLineEdit>(editor, "Year");
  year->setFocus();
  year->setText(toQString("1e9"));
  control<QWidget>(editor, "Description")->setFocus();
  EXPECT_EQ(year->text(), toQString("1985"));
}

TEST_F(DBeditorEdits, AnEmptiedYearGivesUpTheOneThatCouldNotBeStored) {
  folder_.addPhoto("HD00002");
  set("HD00001", "Year = 1985");
  refuseUpdates("new.Year = 1");
  const auto& editor = openEditor();
  auto* year = control<QLineEdit>(editor, "Year");
  year->setFocus();
  year->setText(toQString("1"));
  boxes_.expectFailure(toQString("no such photo"));
  press(editor, "NextPhoto");
  EXPECT_EQ(year->text(), toQString("1"));
  year->setFocus();
  year->clear();
  press(editor, "NextPhoto");
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 2");
  EXPECT_EQ(stored("HD00001", "Year").toInteger(), 1985);
}

TEST_F(DBeditorEdits, EscapeInAFieldGivesUpTheEditsOfTheRecord) {
  folder_.addPhoto("HD00002");
  set("HD00001", "Year = 1985");
  refuseUpdates("1");
  folder_.addPlace("Lake");
  data().rsPlaces.Requery();
  for (const char* field : {"Year", "Description", "PlacesDrp"}) {
    photos().MoveFirst();
    auto& editor = openEditor();
    control<DataCombo>(editor, "PlacesDrp")->setText(toQString("Lake"));
    control<QPlainTextEdit>(editor, "Description")->setPlainText(toQString("At the lake"));
    boxes_.expectFailure(toQString("no such photo"));
    press(editor, "NextPhoto");
    EXPECT_EQ(currentId(), "HD00001");
    EXPECT_EQ(control<QPlainTextEdit>(editor, "Description")->toPlainText(),
              toQString("At the lake"));
    editor.activateWindow();
    control<QWidget>(editor, field)->setFocus();
    QTest::keyClick(control<QWidget>(editor, field), Qt::Key_Escape);
    EXPECT_EQ(control<QLineEdit>(editor, "Year")->text(), toQString("1985"));
    EXPECT_EQ(control<QPlainTextEdit>(editor, "Description")->toPlainText(), QString()) << field;
    EXPECT_EQ(control<DataCombo>(editor, "PlacesDrp")->Text(), QString()) << field;
    press(editor, "NextPhoto");
    EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 2") << field;
  }
}

TEST_F(DBeditorEdits, AnEditThatCannotBeStoredKeepsTheEditorInSight) {
  refuseUpdates("1");
  auto& editor = openEditor();
  control<QLineEdit>(editor, "Year")->setText(toQString("1985"));
  boxes_.expectQuestion(closeWithoutIt(), {}, MsgIcon::Exclamation, MsgButtons::YesNo,
                        MsgAnswer::No);
  press(editor, "Command4");
  ASSERT_EQ(Forms::loaded<DBeditor>(), &editor);
  EXPECT_TRUE(editor.isShown());
  EXPECT_TRUE(editor.isVisible());
  EXPECT_EQ(control<QLineEdit>(editor, "Year")->text(), toQString("1985"));
  data().AlbumDB.execute("DROP TRIGGER Refuse"); // the fixture closes the editor
}

TEST_F(DBeditorEdits, TheEditorCanBeClosedWithoutAnEditThatCannotBeStored) {
  refuseUpdates("1");
  auto& editor = openEditor();
  control<QLineEdit>(editor, "Year")->setText(toQString("1985"));
  boxes_.expectQuestion(closeWithoutIt(), {}, MsgIcon::Exclamation, MsgButtons::YesNo,
                        MsgAnswer::Yes);
  press(editor, "Command4");
  EXPECT_EQ(Forms::loaded<DBeditor>(), nullptr);
  EXPECT_FALSE(photos().isPending());
  EXPECT_TRUE(stored("HD00001", "Year").isNull());
}

} // namespace hearthbook
