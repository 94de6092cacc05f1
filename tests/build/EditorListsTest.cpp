#include "EditorFixture.h"

#include <QLineEdit>
#include <QListView>

namespace hearthbook::test {

namespace {

/// The place or the event of the editor, and the words that are said about it.
struct List {
  const char* dropDown;
  const char* add;
  const char* remove;
  const char* field;
  const char* what;  ///< "Place"
  const char* lower; ///< "place"
  const char* article;
};

const List lists[] = {{"PlacesDrp", "Command9", "Command17", "PlaceID", "Place", "place", "A"},
                      {"EventsDrp", "Command10", "Command16", "EventID", "Event", "event", "An"}};

class EditorLists : public EditorFixture, public testing::WithParamInterface<List> {
protected:
  QString words(const char* text) {
    return toQString(text).replace(toQString("%1"), toQString(GetParam().what));
  }
  void expectAsked(const char* answer) {
    boxes_.expectInput(words("Please Type %1 Name (up to 20 characters):"), words("New %1"),
                       toQString(answer));
  }
  void expectAskedAgain(const char* with, const char* answer) {
    boxes_.expectMessage(toQString("Please Enter No More Then 20 Character"), words("Add %1"));
    boxes_.expectInputOf(toQString(with), words("Please Type %1 Name (up to 20 characters):"),
                         words("New %1"), toQString(answer));
  }
  void expectDeletionAsked(MsgAnswer answer) {
    boxes_.expectQuestion(words("Are you sure you want to delete this %1?\n"
                                "It will be removed from all photos."),
                          words("Delete Selected %1"), MsgIcon::None, MsgButtons::OkCancel, answer);
  }
  void expectDeleted() {
    boxes_.expectMessage(toQString("The ") + toQString(GetParam().lower) +
                             toQString(" was successfully deleted"),
                         words("Delete Selected %1"));
  }
  void add(const DBeditor& editor) { press(editor, GetParam().add); }
  void remove(const DBeditor& editor) { press(editor, GetParam().remove); }
  DataCombo& dropDown(const DBeditor& editor) {
    return *control<DataCombo>(editor, GetParam().dropDown);
  }
  Recordset& rows() { return isPlace() ? data().rsPlaces : data().rsEvents; }
  static bool isPlace() { return GetParam().what == std::string("Place"); }
  std::int64_t addRow(const char* name) {
    return isPlace() ? folder_.addPlace(name) : folder_.addEvent(name);
  }
  int offered(const DBeditor& editor) {
    const auto* popup = qobject_cast<QListView*>(dropDown(editor).view());
    int count = 0;
    for (int row = 0; row < dropDown(editor).count(); ++row)
      count += popup->isRowHidden(row) ? 0 : 1;
    return count;
  }
  Value storedIn(const std::string& photo) { return stored(photo, GetParam().field); }
};

} // namespace

TEST_P(EditorLists, AnAddedNameIsStoredTrimmedAndChosenForThePhoto) {
  folder_.addPhoto("HD00002");
  const auto& editor = openEditor();
  expectAsked("  Lake ");
  add(editor);
  EXPECT_EQ(dropDown(editor).Text(), toQString("Lake"));
  EXPECT_EQ(rows().RecordCount(), 1);
  EXPECT_EQ(rows().Collect(std::string(GetParam().what) + "Name"), Value("Lake"));
  const Value id = rows().Collect(GetParam().field);
  EXPECT_TRUE(storedIn("HD00001").isNull()) << "it is written when the editor moves on";
  press(editor, "NextPhoto");
  EXPECT_EQ(storedIn("HD00001"), id);
  EXPECT_TRUE(dropDown(editor).Text().isEmpty());
  press(editor, "PrevPhoto");
  EXPECT_EQ(dropDown(editor).Text(), toQString("Lake"));
}

TEST_P(EditorLists, OnlyTheEventsDropDownIsFilledAgainAtOnce) {
  addRow("Home");
  const auto& editor = openEditor();
  expectAsked("Lake");
  add(editor);
  EXPECT_EQ(offered(editor), isPlace() ? 1 : 2);
}

TEST_P(EditorLists, OnlyStoredNamesCanBeChosenAndNoneTyped) {
  addRow("Home");
  const auto& editor = openEditor();
  EXPECT_FALSE(dropDown(editor).isEditable());
  QTest::keyClicks(&dropDown(editor), QStringLiteral("Xanadu"));
  EXPECT_TRUE(dropDown(editor).Text().isEmpty());
  EXPECT_EQ(rows().RecordCount(), 1);
}

TEST_P(EditorLists, ANameThatIsThereIsRefusedWhateverItsCase) {
  addRow("Lake");
  const auto& editor = openEditor();
  expectAsked(" LAKE");
  boxes_.expectMessage(words("%1 Is Already In List!"), words("Add %1"));
  add(editor);
  EXPECT_EQ(rows().RecordCount(), 1);
  EXPECT_TRUE(dropDown(editor).Text().isEmpty());
}

TEST_P(EditorLists, TwentyOneCharactersAreAskedAgainUntilTheyAreTwenty) {
  const auto& editor = openEditor();
  expectAsked(" 123456789012345678901 ");
  expectAskedAgain("123456789012345678901", "12345678901234567890");
  add(editor);
  EXPECT_EQ(dropDown(editor).Text(), toQString("12345678901234567890"));
}

TEST_P(EditorLists, ATooLongNameCanBeGivenUp) {
  const auto& editor = openEditor();
  expectAsked("123456789012345678901");
  expectAskedAgain("123456789012345678901", "");
  add(editor);
  EXPECT_EQ(rows().RecordCount(), 0);
}

TEST_P(EditorLists, AnEmptyAnswerIsTheEndWithoutAWord) {
  const auto& editor = openEditor();
  expectAsked("   ");
  add(editor);
  EXPECT_EQ(rows().RecordCount(), 0);
}

TEST_P(EditorLists, OddNamesAreNames) {
  const auto& editor = openEditor();
  int count = 0;
  for (const char* name : {"Grandma's", "\"Home\", sweet", "e\xCC\x81te\xCC\x81", "בית סבתא"}) {
    expectAsked(name);
    add(editor);
    EXPECT_EQ(rows().RecordCount(), ++count);
    EXPECT_EQ(toUtf8(dropDown(editor).Text()), name);
  }
}

TEST_P(EditorLists, DeletingWithoutAChoiceEndsWithoutAWord) {
  addRow("Lake");
  const auto& editor = openEditor();
  remove(editor);
  EXPECT_EQ(rows().RecordCount(), 1);
}

TEST_P(EditorLists, CancelIsAnsweredWithNotChosenAndNothingIsDeleted) {
  const auto lake = addRow("Lake");
  folder_.addPhoto("HD00002", {{GetParam().field, lake}});
  photos().MoveLast();
  const auto& editor = openEditor();
  expectDeletionAsked(MsgAnswer::Cancel);
  boxes_.expectMessage(toQString("Please Select ") + toQString(GetParam().article) +
                           toQString(" ") + words("%1 From The list"),
                       words("Delete Selected %1"));
  remove(editor);
  EXPECT_EQ(rows().RecordCount(), 1);
  EXPECT_EQ(storedIn("HD00002"), Value(lake));
}

TEST_P(EditorLists, ADeletedNameLeavesAllPhotosTheCurrentOneToo) {
  const auto lake = addRow("Lake");
  const auto home = addRow("Home");
  for (const char* id : {"HD00002", "HD00003"})
    folder_.addPhoto(id, {{GetParam().field, lake}});
  folder_.addPhoto("HD00004", {{GetParam().field, home}});
  photos().Move(1);
  const auto& editor = openEditor();
  expectDeletionAsked(MsgAnswer::Ok);
  expectDeleted();
  remove(editor);
  EXPECT_TRUE(dropDown(editor).Text().isEmpty());
  EXPECT_EQ(currentId(), "HD00002");
  EXPECT_FALSE(photos().isPending());
  EXPECT_TRUE(storedIn("HD00002").isNull());
  EXPECT_TRUE(storedIn("HD00003").isNull());
  EXPECT_EQ(storedIn("HD00004"), Value(home));
  EXPECT_EQ(offered(editor), 1);
  EXPECT_EQ(rows().AbsolutePosition(), 1);
  press(editor, "NextPhoto");
  EXPECT_TRUE(dropDown(editor).Text().isEmpty());
}

TEST_P(EditorLists, ANameDeletedOnASearchResultLeavesThePhotosOutsideItToo) {
  const auto lake = addRow("Lake");
  folder_.addPhoto("HD00002", {{GetParam().field, lake}});
  folder_.addPhoto("HD00003", {{GetParam().field, lake}, {"Year", 1990}});
  folder_.addPhoto("HD00004", {{GetParam().field, lake}, {"Year", 1990}});
  photos().Open("SELECT PhotoAlbum.* FROM PhotoAlbum WHERE Year = 1990");
  photos().MoveLast();
  const auto& editor = openEditor();
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 2");
  expectDeletionAsked(MsgAnswer::Ok);
  expectDeleted();
  remove(editor);
  for (const char* photo : {"HD00002", "HD00003", "HD00004"})
    EXPECT_TRUE(storedIn(photo).isNull()) << photo;
  EXPECT_EQ(currentId(), "HD00004");
  EXPECT_EQ(photos().RecordCount(), 2);
  EXPECT_TRUE(dropDown(editor).Text().isEmpty());
  press(editor, "PrevPhoto");
  EXPECT_TRUE(photos().Collect(GetParam().field).isNull());
  EXPECT_TRUE(dropDown(editor).Text().isEmpty());
}

TEST_P(EditorLists, WhatWasTypedInTheMeantimeIsStored) {
  const auto lake = addRow("Lake");
  folder_.addPhoto("HD00002", {{GetParam().field, lake}});
  photos().MoveLast();
  const auto& editor = openEditor();
  QTest::keyClicks(control<QLineEdit>(editor, "Year"), toQString("1985"));
  expectDeletionAsked(MsgAnswer::Ok);
  expectDeleted();
  remove(editor);
  EXPECT_EQ(stored("HD00002", "Year"), Value(1985));
}

TEST_P(EditorLists, ANameJustAddedCanBeDeletedAtOnce) {
  const auto& editor = openEditor();
  expectAsked("Lake");
  add(editor);
  expectDeletionAsked(MsgAnswer::Ok);
  expectDeleted();
  remove(editor);
  EXPECT_EQ(rows().RecordCount(), 0);
  EXPECT_TRUE(storedIn("HD00001").isNull());
  EXPECT_EQ(offered(editor), 0);
}

TEST_P(EditorLists, ANameWithAnApostropheIsSearchedAsItStandsAndStays) {
  const auto place = addRow("Grandma's");
  folder_.addPhoto("HD00002", {{GetParam().field, place}});
  photos().MoveLast();
  const auto& editor = openEditor();
  expectDeletionAsked(MsgAnswer::Ok);
  boxes_.expectFailure(toQString("Grandma's"));
  remove(editor);
  EXPECT_EQ(rows().RecordCount(), 1);
  EXPECT_EQ(storedIn("HD00002"), Value(place));
  EXPECT_EQ(currentId(), "HD00002");
}

INSTANTIATE_TEST_SUITE_P(Of, EditorLists, testing::ValuesIn(lists),
                         [](const auto& info) { return info.param.what + std::string("s"); });

} // namespace hearthbook::test
