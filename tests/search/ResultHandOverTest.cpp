#include "SearchFixture.h"

#include "BoundControls.h"
#include "ProgressNote.h"

namespace hearthbook::test {

namespace {

class ResultHandOver : public SearchFixture {
protected:
  /// A result of `count` photos of which each was taken a year before the one in front of it.
  Search& searchBackwards(int count) {
    for (int number = 2; number <= count; ++number)
      folder_.addPhoto(idOf(number), {{"Year", 2100 - number}});
    auto& search = openSearch();
    type(search, "FromYear", "1900");
    press(search, "Command1");
    return search;
  }
  std::vector<std::string> editedIds() {
    std::vector<std::string> ids;
    const auto walker = photos().Clone();
    for (; !walker->atEOF(); walker->MoveNext())
      ids.push_back(walker->Collect("PictureID").toText());
    return ids;
  }
  static void closeEditor() {
    Forms::get<DBeditor>().Unload();
    settleSearch();
  }
};

using Ids = std::vector<std::string>;

} // namespace

TEST_F(ResultHandOver, ViewGivesTheAlbumPagesTheWholeResult) {
  auto& search = searchBackwards(5);
  click(search, 1);
  press(search, "Command4");
  EXPECT_EQ(windows_.calls, (QStringList{toQString("unload Viewer"),
                                         toQString("Viewing Search Results For: From 1900 ")}));
  EXPECT_EQ(vars().CallerForm, "Search");
  EXPECT_EQ(vars().rsViewer->Source(), result().Source());
  EXPECT_EQ(vars().rsViewer->RecordCount(), 4);
  EXPECT_EQ(selection().SelectedCount, 1); // the album pages make their choice of it
}

TEST_F(ResultHandOver, EditWithoutASelectionOpensTheWholeResultOnItsFirst) {
  const auto& search = searchBackwards(4);
  press(search, "Command5");
  const auto& editor = Forms::get<DBeditor>();
  EXPECT_EQ(editor.caption(), toQString("Editing Search Results For: From 1900 "));
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 3");
  EXPECT_EQ(editedIds(), (Ids{"HD00004", "HD00003", "HD00002"}));
  EXPECT_EQ(photos().Source(), result().Source());
  EXPECT_FALSE(isEnabled(editor, "Command1"));
  EXPECT_FALSE(isEnabled(editor, "Command13"));
  EXPECT_TRUE(editor.isShown());
}

TEST_F(ResultHandOver, EditOfOnePhotoOpensTheWholeResultOnThat) {
  const auto& search = searchBackwards(4);
  click(search, 0);
  click(search, 1);
  click(search, 0);
  press(search, "Command5");
  EXPECT_EQ(labelOf(Forms::get<DBeditor>(), "NumRec"), "2 of 3");
  EXPECT_EQ(currentId(), "HD00003");
}

TEST_F(ResultHandOver, EditOfSeveralOpensThoseInTheOrderOfTheirIds) {
  const auto& search = searchBackwards(6);
  for (const int index : {4, 0, 2})
    click(search, index);
  press(search, "Command5");
  EXPECT_EQ(photos().Source(),
            "SELECT * From PhotoAlbum Where PictureID = Null OR PictureID = 'HD00006' OR PictureID "
            "= 'HD00004' OR PictureID = 'HD00002'");
  EXPECT_EQ(editedIds(), (Ids{"HD00002", "HD00004", "HD00006"}));
  EXPECT_EQ(selection().SelectedPositions, (std::vector<Value>{1, 3, 5, ""}));
  EXPECT_EQ(selection().SelectedCount, 3);
  EXPECT_FALSE(isEnabled(Forms::get<DBeditor>(), "Command1"));
}

TEST_F(ResultHandOver, EditTakesTheFilterOfTheEditorAway) {
  const auto& search = searchBackwards(4);
  photos().Filter("PictureID = 'HD00002'");
  press(search, "Command5");
  EXPECT_EQ(photos().RecordCount(), 3);
}

TEST_F(ResultHandOver, EditLeavesPositionsBehindTheLimitOut) {
  data().AlbumDB.execute(
      "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 10008) "
      "INSERT INTO PhotoAlbum (PictureID) SELECT printf('HD%05d', i) FROM n");
  const auto& search = searchAmong(1);
  press(search, "Command13");
  EXPECT_EQ(labelOf(search, "PosLabel"), "9985 to 10008 of 10008");
  for (const int index : {13, 14}) // positions 9998 and 9999
    click(search, index);
  press(search, "Command5");
  EXPECT_EQ(editedIds(), Ids{"HD09998"});
}

TEST_F(ResultHandOver, EditOfThousandsIsOneStatement) {
  addRowsUpTo(3000);
  const auto& search = searchAmong(1);
  click(search, 0);
  press(search, "Command13");
  click(search, 23, Qt::ShiftModifier);
  press(search, "Command5");
  EXPECT_EQ(photos().RecordCount(), 3000);
}

TEST_F(ResultHandOver, EditOfPhotosThatAreGoneIsReportedAndEverythingStaysUsable) {
  const auto& search = searchBackwards(5);
  click(search, 2);
  click(search, 3);
  data().AlbumDB.execute("DELETE FROM PhotoAlbum WHERE Year > 0");
  boxes_.expectFailure({});
  press(search, "Command5");
  EXPECT_EQ(Forms::loaded<DBeditor>(), nullptr);
  EXPECT_TRUE(photos().isOpen());
  boxes_.expectMessage(toQString("No Records Found!"));
  press(search, "Command1");
}

TEST_F(ResultHandOver, TheResultGoesToTheSubAlbums) {
  const auto& search = searchBackwards(4);
  press(search, "Command10");
  EXPECT_EQ(windows_.calls, QStringList{toQString("add to sub-album")});
}

TEST_F(ResultHandOver, BatchEditChangesTheSelectionAndComesBackToTheResult) {
  auto& search = searchBackwards(61);
  press(search, "Command2");
  for (const int index : {0, 3})
    click(search, index);
  inBatch([&](const BatchEdit& batch) {
    EXPECT_TRUE(isEnabled(batch, "Command5"));
    control<QLineEdit>(batch, "Year")->setText(toQString("1890"));
    boxes_.expectQuestion(toQString("Are you sure you want to Update 2 selected records?"), {},
                          MsgIcon::None, MsgButtons::YesNo, MsgAnswer::Yes);
    boxes_.expectQuestion(toQString("Do you want to separately edit the selected photos?"),
                          toQString("Batch Edit"), MsgIcon::Question, MsgButtons::YesNo,
                          MsgAnswer::No);
    EditorFixture::press(batch, "Command4");
  });
  press(search, "Command11");
  EXPECT_EQ(stored(idOf(61 - 24), "Year"), Value(1890));
  EXPECT_EQ(stored(idOf(61 - 27), "Year"), Value(1890));
  EXPECT_EQ(result().RecordCount(), 58);
  EXPECT_EQ(labelOf(search, "PosLabel"), "25 to 48 of 58");
  EXPECT_EQ(selection(), SelectionSet());
}

TEST_F(ResultHandOver, BatchEditKeepsThePlacesThatWereSearchedForAndNotThoseChosenSince) {
  folder_.addPlace("Home");
  folder_.addPlace("Lake");
  folder_.addPhoto("HD00002", {{"PlaceID", 1}});
  auto& search = openSearch();
  choose(search, "List1", "Home");
  press(search, "Command1");
  click(search, 0);
  press(search, "Command6");
  choose(search, "List1", "Lake");
  inBatch([&](const BatchEdit& batch) {
    control<DataCombo>(batch, "PlacesDrp")->setText(toQString("Home"));
    boxes_.expectMessage(toQString("Can't delete Place that is in the search criteria"),
                         toQString("Delete Event"));
    EditorFixture::press(batch, "Command13");
  });
  press(search, "Command11");
  EXPECT_EQ(data().rsPlaces.RecordCount(), 2);
}

TEST_F(ResultHandOver, ClosingTheEditorComesBackToThePage) {
  const auto& search = searchBackwards(61);
  press(search, "Command2");
  click(search, 2);
  press(search, "Command5");
  EXPECT_EQ(currentId(), "HD00035");
  ProgressNote progress;
  closeEditor();
  EXPECT_EQ(progress.caption, toQString("Updating Search Results, Please Wait"));
  EXPECT_EQ(labelOf(search, "PosLabel"), "25 to 48 of 60");
  EXPECT_EQ(selection(), SelectionSet());
  EXPECT_TRUE(framed(search).empty());
  EXPECT_FALSE(isEnabled(search, "Command14"));
  EXPECT_EQ(text(search, "Command14"), "No Selection");
  EXPECT_FALSE(isEnabled(search, "Command11"));
}

TEST_F(ResultHandOver, ClosingTheEditorComesBackToALastPageToo) {
  const auto& search = searchBackwards(61);
  press(search, "Command13");
  press(search, "Command5");
  closeEditor();
  EXPECT_EQ(labelOf(search, "PosLabel"), "49 to 60 of 60");
}

TEST_F(ResultHandOver, ClosingTheEditorShowsWhatBecameOfTheResult) {
  const auto& search = searchBackwards(4);
  press(search, "Command5");
  const auto& editor = Forms::get<DBeditor>();
  control<QLineEdit>(editor, "Year")->setText(toQString("1899")); // of HD00004
  press(editor, "NextPhoto");
  closeEditor();
  EXPECT_EQ(labelOf(search, "PosLabel"), "1 to 2 of 2");
  EXPECT_EQ(filledCells(search), 2);
}

TEST_F(ResultHandOver, ClosingTheEditorFillsTheListsAgain) {
  auto& search = searchBackwards(4);
  press(search, "Command5");
  folder_.addPlace("Lake");
  folder_.addEvent("Wedding");
  folder_.addPerson("Ann");
  closeEditor();
  for (const char* list : {"List1", "List2", "List3"})
    EXPECT_EQ(control<QListWidget>(search, list)->count(), 1) << list;
  EXPECT_EQ(data().rsAppearances.Source(), sources::appearances);
}

TEST_F(ResultHandOver, WithOnePhotoLeftTheSelectionStays) {
  const auto& search = searchBackwards(3);
  click(search, 0);
  click(search, 1);
  press(search, "Command5");
  const SelectionSet handedOver = selection();
  data().AlbumDB.execute("DELETE FROM PhotoAlbum WHERE PictureID = 'HD00002'");
  closeEditor();
  EXPECT_EQ(labelOf(search, "PosLabel"), "1 to 1 of 1");
  EXPECT_EQ(selection(), handedOver);
  EXPECT_FALSE(isEnabled(search, "Command14"));
  EXPECT_EQ(text(search, "Command14"), "No Selection");
  EXPECT_TRUE(isEnabled(search, "Command11"));
}

TEST_F(ResultHandOver, WithNoPhotoLeftTheResultIsEmpty) {
  auto& search = searchBackwards(3);
  press(search, "Command5");
  data().AlbumDB.execute("UPDATE PhotoAlbum SET Year = 1800");
  boxes_.expectMessage(toQString("No Records Found!"));
  closeEditor();
  EXPECT_EQ(search.caption(), toQString("No Results For: From 1900 "));
  EXPECT_EQ(filledCells(search), 0);
  for (const char* command : {"Command2", "Command3", "Command12", "Command13", "Command4",
                              "Command5", "Command10", "Command14"})
    EXPECT_FALSE(isEnabled(search, command)) << command;
}

TEST_F(ResultHandOver, AResultThatIsFilledAgainCanBeUsedAgain) {
  const auto& search = searchBackwards(3);
  press(search, "Command5");
  data().AlbumDB.execute("UPDATE PhotoAlbum SET Year = 1800");
  boxes_.expectMessage(toQString("No Records Found!"));
  closeEditor();
  data().AlbumDB.execute("UPDATE PhotoAlbum SET Year = 1990");
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  settleSearch();
  EXPECT_EQ(labelOf(search, "PosLabel"), "1 to 3 of 3");
  EXPECT_TRUE(isEnabled(search, "Command5"));
}

TEST_F(ResultHandOver, ABatchReturnsToThePageThatItTells) {
  const auto& search = searchBackwards(61);
  click(search, 3);
  folder_.addPlace("Lake");
  Forms::tellRowsChanged({RowsChanged::By::BatchEdited, 24});
  settleSearch();
  EXPECT_EQ(labelOf(search, "PosLabel"), "25 to 48 of 60");
  EXPECT_EQ(selection(), SelectionSet());
  EXPECT_TRUE(isEnabled(search, "Command4"));
  EXPECT_EQ(control<QListWidget>(search, "List1")->count(), 0); // until the batch is left
}

TEST_F(ResultHandOver, ABatchThatTookThePageAwayReturnsToTheFirst) {
  const auto& search = searchBackwards(31);
  press(search, "Command13");
  data().AlbumDB.execute("DELETE FROM PhotoAlbum WHERE PictureID < 'HD00012'");
  Forms::tellRowsChanged({RowsChanged::By::BatchEdited, 24});
  settleSearch();
  EXPECT_EQ(labelOf(search, "PosLabel"), "1 to 20 of 20");
}

TEST_F(ResultHandOver, AnOrderThatWasWrittenLeavesThePageAlone) {
  const auto& search = searchBackwards(31);
  click(search, 3);
  Forms::tellRowsChanged({RowsChanged::By::OrderWritten});
  EXPECT_EQ(selection().SelectedCount, 1);
}

} // namespace hearthbook::test
