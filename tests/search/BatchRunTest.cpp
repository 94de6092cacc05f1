#include "BatchEditFixture.h"
#include "FileBytes.h"
#include "PrivateMount.h"

#include <gmock/gmock.h>

namespace hearthbook::test {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class BatchRun : public BatchEditFixture {
protected:
  void addMore(int last) {
    for (int number = 7; number <= last; ++number)
      folder_.addPhoto(QStringLiteral("HD%1").arg(number, 5, 10, QLatin1Char('0')).toStdString());
  }
  std::vector<std::string> shownInEditor() {
    std::vector<std::string> ids;
    const auto walk = photos().Clone();
    for (walk->Filter(photos().Filter()); !walk->atEOF(); walk->MoveNext())
      ids.push_back(walk->Collect("PictureID").toText());
    return ids;
  }
};

} // namespace

TEST_F(BatchRun, UpdatePutsWhatIsEnteredIntoEverySelectedPhoto) {
  select({5, 2});
  set("HD00002", "NamesInPhoto = '001,', Description = 'old'");
  const auto& batch = openBatch();
  choose(batch, "PlacesDrp", "Home");
  choose(batch, "EventsDrp", "Wedding");
  type(batch, "Year", "1985");
  describe(batch, "It rained.");
  putIn(batch, "Ben");
  putIn(batch, "Anna");
  update(batch, 2);
  for (const char* photo : {"HD00002", "HD00005"}) {
    EXPECT_EQ(stored(photo, "PlaceID"), Value(2)) << photo;
    EXPECT_EQ(stored(photo, "EventID"), Value(2)) << photo;
    EXPECT_EQ(stored(photo, "Year"), Value(1985)) << photo;
    EXPECT_EQ(stored(photo, "Description"), Value("It rained.")) << photo;
  }
  EXPECT_EQ(stored("HD00002", "NamesInPhoto"), Value("001,002,"));
  EXPECT_EQ(stored("HD00005", "NamesInPhoto"), Value("002,001,"));
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE Year IS NOT NULL"), 2);
  EXPECT_FALSE(isOpen());
}

TEST_F(BatchRun, AnAlbumThatCannotBeReadBehindItIsToldOnceAndTheFormCloses) {
  select({2});
  const auto& batch = openBatch();
  type(batch, "Year", "1985");
  data().AlbumDB.execute("DROP TABLE Appearances");
  expectUpdateAsked(1, MsgAnswer::Yes);
  expectEditAsked(MsgAnswer::No);
  boxes_.expectFailure(toQString("Appearances"));
  press(batch, "Command4");
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(stored("HD00002", "Year"), Value(1985));
}

TEST_F(BatchRun, WithEverythingEmptyItStillAsksAndChangesNothing) {
  select({1, 2, 3});
  set("HD00002", "PlaceID = 1, EventID = 1, Description = 'old', NamesInPhoto = '001,'");
  update(openBatch(), 3);
  EXPECT_EQ(stored("HD00002", "PlaceID"), Value(1));
  EXPECT_EQ(stored("HD00002", "EventID"), Value(1));
  EXPECT_EQ(stored("HD00002", "Description"), Value("old"));
  EXPECT_EQ(stored("HD00002", "NamesInPhoto"), Value("001,"));
  EXPECT_FALSE(isOpen());
}

TEST_F(BatchRun, NoLeavesEverythingAndTheFormOpen) {
  select({2});
  const auto& batch = openBatch();
  type(batch, "Year", "1985");
  expectUpdateAsked(1, MsgAnswer::No);
  press(batch, "Command4");
  EXPECT_TRUE(stored("HD00002", "Year").isNull());
  EXPECT_TRUE(isOpen());
}

TEST_F(BatchRun, APhotoThatNamesAPersonKeepsTheNameOnce) {
  select({2});
  set("HD00002", "NamesInPhoto = '002,'");
  const auto& batch = openBatch();
  putIn(batch, "Ben");
  update(batch, 1);
  EXPECT_EQ(stored("HD00002", "NamesInPhoto"), Value("002,"));
}

TEST_F(BatchRun, ADescriptionIsReplacedAndNeverEmptied) {
  select({2, 3});
  set("HD00002", "Description = 'old'");
  const auto& first = openBatch();
  describe(first, "");
  update(first, 2);
  EXPECT_EQ(stored("HD00002", "Description"), Value("old"));
  select({2});
  const auto& second = openBatch();
  describe(second, "new");
  update(second, 3);
  EXPECT_EQ(stored("HD00002", "Description"), Value("new"));
}

TEST_F(BatchRun, SearchIsToldToWhichPageToReturn) {
  watch();
  addMore(30);
  results().Requery();
  results().Move(24, Recordset::Start::First); // behind the first page
  select({3, 28});
  update(openBatch(), 2);
  ASSERT_EQ(watch().told.size(), 1);
  EXPECT_EQ(watch().told.front().by, RowsChanged::By::BatchEdited);
  EXPECT_EQ(watch().told.front().resultRow, 0);
  EXPECT_EQ(results().AbsolutePosition(), 25);
}

TEST_F(BatchRun, TheLastPageIsReturnedToWhereTheDeletionBegan) {
  watch();
  addMore(30);
  results().Requery();
  results().Move(30, Recordset::Start::First);
  select({29, 30});
  const auto& batch = openBatch();
  expectDeletionAsked(2, MsgAnswer::Yes);
  expectAllDeleted();
  press(batch, "Command5");
  ASSERT_EQ(watch().told.size(), 1);
  EXPECT_EQ(watch().told.front().resultRow, 24);
}

TEST_F(BatchRun, AfterTheRunThePhotosStandOnTheFirstAndEverybodyIsThere) {
  select({6});
  const auto& batch = openBatch();
  photos().MoveLast();
  type(batch, "Year", "1985");
  update(batch, 1);
  EXPECT_EQ(photos().AbsolutePosition(), 1);
  EXPECT_EQ(data().rsAppearances.RecordCount(), 3);
  photos().MoveLast();
  EXPECT_EQ(photos().Collect("Year"), Value(1985)) << "not what it was when they were read";
}

// Separate editing

TEST_F(BatchRun, YesOpensTheEditorOnTheChangedPhotosAlone) {
  watch();
  select({5, 2});
  const auto& batch = openBatch();
  describe(batch, "new");
  expectUpdateAsked(2, MsgAnswer::Yes);
  expectEditAsked(MsgAnswer::Yes);
  press(batch, "Command4");
  EXPECT_FALSE(isOpen());
  auto* editor = Forms::loaded<DBeditor>();
  ASSERT_NE(editor, nullptr);
  EXPECT_TRUE(editor->isShown());
  EXPECT_EQ(editor->caption(), toQString("Editing Search Results For: Lake, From 1990 "));
  EXPECT_EQ(labelOf(*editor, "NumRec"), "1 of 2");
  EXPECT_EQ(photos().Filter(), "PictureID = 'HD00002' Or PictureID = 'HD00005'");
  EXPECT_EQ(photos().Source(), "SELECT * FROM PhotoAlbum Order By PictureID");
  EXPECT_THAT(shownInEditor(), ElementsAre("HD00002", "HD00005"));
  EXPECT_FALSE(isEnabled(*editor, "Command1"));
  EXPECT_FALSE(isEnabled(*editor, "Command13"));
  EXPECT_EQ(watch().told.size(), 1) << "Search is refreshed at once";
  press(*editor, "NextPhoto");
  EXPECT_EQ(currentId(), "HD00005");
  EXPECT_EQ(toUtf8(control<QPlainTextEdit>(*editor, "Description")->toPlainText()), "new");
}

TEST_F(BatchRun, TheEditorClearsTheFilterWhenItCloses) {
  select({2});
  const auto& batch = openBatch();
  expectUpdateAsked(1, MsgAnswer::Yes);
  expectEditAsked(MsgAnswer::Yes);
  press(batch, "Command4");
  ASSERT_EQ(photos().RecordCount(), 1);
  press(Forms::get<DBeditor>(), "Command4");
  EXPECT_EQ(photos().RecordCount(), 6);
}

TEST_F(BatchRun, AnOpenEditorTakesTheChangedPhotosOver) {
  auto& editor = openEditor();
  select({3});
  const auto& batch = openBatch();
  type(batch, "Year", "1985");
  expectUpdateAsked(1, MsgAnswer::Yes);
  expectEditAsked(MsgAnswer::Yes);
  press(batch, "Command4");
  EXPECT_EQ(Forms::loaded<DBeditor>(), &editor);
  EXPECT_EQ(currentId(), "HD00003");
  EXPECT_EQ(toUtf8(control<QLineEdit>(editor, "Year")->text()), "1985");
}

TEST_F(BatchRun, WhatWasTypedInAnOpenEditorIsStoredFirst) {
  const auto& editor = openEditor();
  QTest::keyClicks(control<QLineEdit>(editor, "Year"), toQString("1950"));
  select({2});
  const auto& batch = openBatch();
  describe(batch, "new");
  update(batch, 1);
  EXPECT_EQ(stored("HD00001", "Year"), Value(1950));
}

// What fails

TEST_F(BatchRun, AStepThatFailsIsToldWithHowManyAreDoneAndTheFormStays) {
  select({2, 3, 4});
  data().AlbumDB.execute("CREATE TRIGGER Refuse BEFORE UPDATE ON PhotoAlbum WHEN OLD.PictureID = "
                         "'HD00004' BEGIN SELECT RAISE(ABORT, 'not this one'); END");
  const auto& batch = openBatch();
  type(batch, "Year", "1985");
  expectUpdateAsked(3, MsgAnswer::Yes);
  boxes_.expectFailure(toQString("Of 3 selected photos 2 were changed before that."));
  press(batch, "Command4");
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE Year = 1985"), 2);
  EXPECT_TRUE(isOpen());
  data().AlbumDB.execute("DROP TRIGGER Refuse");
  update(batch, 3);
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE Year = 1985"), 3);
}

TEST_F(BatchRun, WhereTheDatabaseTakesStepsBackSearchIsReadAgain) {
  watch();
  select({2, 3, 4});
  data().AlbumDB.execute("CREATE TRIGGER Refuse BEFORE UPDATE ON PhotoAlbum WHEN OLD.PictureID = "
                         "'HD00004' BEGIN SELECT RAISE(ROLLBACK, 'no room'); END");
  const auto& batch = openBatch();
  type(batch, "Year", "1985");
  expectUpdateAsked(3, MsgAnswer::Yes);
  boxes_.expectFailure(toQString("Of 3 selected photos 2 were changed before that."));
  press(batch, "Command4");
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE Year = 1985"), 2);
  EXPECT_EQ(watch().told.size(), 1) << "it shows the third as changed";
  EXPECT_FALSE(isOpen());
}

TEST_F(BatchRun, ASelectionOfAnEarlierSearchFindsNoPhotos) {
  select({2, 3});
  search("SELECT * FROM PhotoAlbum WHERE Year = 1066 ORDER BY Year, PictureID");
  const auto& batch = openBatch();
  expectUpdateAsked(2, MsgAnswer::Yes);
  boxes_.expectFailure(toQString("Of 2 selected photos 0 were changed before that."));
  press(batch, "Command4");
  EXPECT_TRUE(isOpen());
}

// Delete

TEST_F(BatchRun, DeleteTakesThePhotosTheirFilesAndTheirPlacesAway) {
  watch();
  select({6, 2, 4});
  folder_.addRow("SubAlbumPhotos", {{"AlbumID", 1}, {"PhotoID", "HD00004"}, {"Index", 0}});
  writeBytes(at("Audio/00004.wav"), "sound");
  const auto& batch = openBatch();
  expectDeletionAsked(3, MsgAnswer::Yes);
  expectAllDeleted();
  press(batch, "Command5");
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum"), 3);
  EXPECT_EQ(rowsOf("SELECT * FROM SubAlbumPhotos"), 0);
  for (const char* file :
       {"Photos/00002.jpg", "Thumbnails/00004.jpg", "Photos/00006.jpg", "Audio/00004.wav"})
    EXPECT_FALSE(fs::exists(at(file))) << file;
  EXPECT_EQ(photos().RecordCount(), 3);
  EXPECT_EQ(watch().told.size(), 1);
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(Forms::loaded<Progress>(), nullptr);
}

TEST_F(BatchRun, OneSelectedPhotoIsDeletedWithoutASort) {
  vars().selection.SelectedPositions = {Value(""), Value(3), Value("")};
  vars().selection.SelectedCount = 1;
  const auto& batch = openBatch();
  expectDeletionAsked(1, MsgAnswer::Yes);
  expectAllDeleted();
  press(batch, "Command5");
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE PictureID = 'HD00003'"), 0);
  EXPECT_THAT(vars().selection.SelectedPositions, ElementsAre(Value(""), Value(3), Value("")));
}

TEST_F(BatchRun, NoDeletesNothing) {
  select({2});
  const auto& batch = openBatch();
  expectDeletionAsked(1, MsgAnswer::No);
  press(batch, "Command5");
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum"), 6);
  EXPECT_TRUE(isOpen());
}

TEST_F(BatchRun, TheFirstPhotoIsPassedOverWithItsMessage) {
  select({1, 2});
  const auto& batch = openBatch();
  expectDeletionAsked(2, MsgAnswer::Yes);
  boxes_.expectMessage(toQString("Can't Delete First Record"), toQString("Delete Record"),
                       MsgIcon::Exclamation);
  expectAllDeleted();
  press(batch, "Command5");
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum"), 5);
  EXPECT_TRUE(fs::exists(at("Photos/00001.jpg")));
}

TEST_F(BatchRun, TheFirstPhotoAloneLeavesNothingToDo) {
  watch();
  select({1});
  const auto& batch = openBatch();
  expectDeletionAsked(1, MsgAnswer::Yes);
  boxes_.expectMessage(toQString("Can't Delete First Record"), toQString("Delete Record"),
                       MsgIcon::Exclamation);
  press(batch, "Command5");
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum"), 6);
  EXPECT_TRUE(isOpen());
  EXPECT_TRUE(watch().told.empty());
}

TEST_F(BatchRun, ADeletionThatIsStoppedIsToldAndSearchIsRefreshedAllTheSame) {
  if (!canMountPrivately())
    GTEST_SKIP() << "this machine lets tests mount nothing";
  watch();
  fs::remove(at("Photos/00002.jpg"));
  select({2, 3, 4});
  const auto& batch = openBatch();
  const ReadOnlyMount locked(at("Photos"));
  expectDeletionAsked(3, MsgAnswer::Yes);
  boxes_.expectFailure(toQString("Of 3 selected photos 1 were deleted before that."));
  press(batch, "Command5");
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum"), 5);
  EXPECT_EQ(watch().told.size(), 1) << "the positions are those of other photos now";
  EXPECT_FALSE(isOpen());
}

} // namespace hearthbook::test
