#include "DeleteRecord.h"
#include "EditorFixture.h"
#include "FileBytes.h"
#include "PrivateMount.h"

#include <QListView>
#include <QTimer>

namespace hearthbook::test {

namespace {

namespace fs = std::filesystem;

class EditorDelete : public EditorFixture {
protected:
  void expectAsked(MsgAnswer answer) {
    boxes_.expectQuestion(toQString("Are you sure you want to delete this record?\n"
                                    "The file will be deleted as well!"),
                          toQString("Delete Record"), MsgIcon::Exclamation, MsgButtons::YesNo,
                          answer);
  }
  void expectDeleted() { boxes_.expectMessage(toQString("Record Deleted!")); }
  void erase(const DBeditor& editor) {
    expectAsked(MsgAnswer::Yes);
    expectDeleted();
    press(editor, "Command5");
  }
};

} // namespace

TEST_F(EditorDelete, TheFirstPhotoIsRefusedWhereverItStands) {
  folder_.addPhoto("CD00001");
  photos().MoveLast();
  ASSERT_EQ(currentId(), "HD00001");
  const auto& editor = openEditor();
  boxes_.expectMessage(toQString("Can't Delete First Record"), toQString("Delete Record"),
                       MsgIcon::Exclamation);
  press(editor, "Command5");
  EXPECT_EQ(photos().RecordCount(), 2);
}

TEST_F(EditorDelete, AnotherFirstRowCanBeDeleted) {
  folder_.addPhoto("CD00001");
  photos().MoveFirst();
  const auto& editor = openEditor();
  erase(editor);
  EXPECT_EQ(photos().RecordCount(), 1);
  EXPECT_EQ(currentId(), "HD00001");
}

TEST_F(EditorDelete, NoKeepsIt) {
  folder_.addPhoto("HD00002");
  photos().MoveLast();
  const auto& editor = openEditor();
  expectAsked(MsgAnswer::No);
  press(editor, "Command5");
  EXPECT_EQ(photos().RecordCount(), 2);
  EXPECT_TRUE(fs::exists(at("Photos/00002.jpg")));
}

TEST_F(EditorDelete, TheEditorStaysOnTheRecordThatFollowed) {
  addPhotosUpTo(3);
  photos().Move(1);
  const auto& editor = openEditor();
  erase(editor);
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 2");
  EXPECT_EQ(labelOf(editor, "Label4"), "Image: " + at("Photos/00003.jpg").string());
  EXPECT_FALSE(fs::exists(at("Photos/00002.jpg")));
}

TEST_F(EditorDelete, AfterTheLastItStandsOnTheNewLast) {
  addPhotosUpTo(3);
  photos().MoveLast();
  const auto& editor = openEditor();
  erase(editor);
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 2");
  EXPECT_EQ(currentId(), "HD00002");
}

TEST_F(EditorDelete, AFileThatWasOnlyLookedAtInAddFromFileStays) {
  addPhotosUpTo(2);
  photos().MoveLast();
  const auto source = at("holiday.jpg");
  writeJpeg(source);
  const auto& editor = openEditor();
  vars().LastFolder = source.parent_path();
  QTimer::singleShot(0, &editor, [&] {
    auto& picker = Forms::get<PickaPic>();
    auto* files = control<QListView>(picker, "File1");
    ASSERT_TRUE(QTest::qWaitFor([&] { return files->model()->rowCount() > 0; }));
    files->setCurrentIndex(files->model()->index(0, 0));
    QTest::mouseClick(files->viewport(), Qt::LeftButton, {},
                      files->visualRect(files->model()->index(0, 0)).center());
    picker.Unload();
  });
  press(editor, "Command1");
  vars().ImagePath = source; // as another form may have left it
  erase(editor);
  EXPECT_TRUE(fs::exists(source));
  EXPECT_FALSE(fs::exists(at("Photos/00002.jpg")));
}

TEST_F(EditorDelete, AFileThatCannotBeDeletedIsToldAndTheRowStays) {
  if (!canMountPrivately())
    GTEST_SKIP() << "this machine lets tests mount nothing";
  addPhotosUpTo(2);
  photos().MoveLast();
  const auto& editor = openEditor();
  const ReadOnlyMount locked(at("Photos"));
  expectAsked(MsgAnswer::Yes);
  boxes_.expectFailure(toQString("00002.jpg"));
  press(editor, "Command5");
  EXPECT_EQ(photos().RecordCount(), 2);
  EXPECT_EQ(currentId(), "HD00002");
  EXPECT_TRUE(fs::exists(at("Photos/00002.jpg")));
}

TEST_F(EditorDelete, WithoutARecordThereIsNothingToDelete) {
  data().AlbumDB.execute("DELETE FROM PhotoAlbum");
  photos().Requery();
  EXPECT_FALSE(isEnabled(openEditor(), "Command5"));
}

TEST_F(EditorDelete, OnlyTheRowGoesWithTheShortRoutine) {
  addPhotosUpTo(3);
  folder_.addRow("SubAlbumPhotos", {{"AlbumID", 1}, {"PhotoID", "HD00002"}, {"Index", 0}});
  photos().Move(1);
  openEditor().setCaption(toQString("Build Album"));
  boxes_.expectQuestion(toQString("Are you sure you want to delete this record?"), {},
                        MsgIcon::None, MsgButtons::YesNo, MsgAnswer::Yes);
  DeleteRecord(album());
  settle();
  const auto& editor = Forms::get<DBeditor>();
  EXPECT_TRUE(editor.isVisible());
  EXPECT_EQ(editor.caption(), toQString("Build Album"));
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 2");
  EXPECT_EQ(currentId(), "HD00003");
  EXPECT_TRUE(fs::exists(at("Photos/00002.jpg")));
  Recordset members(data().AlbumDB);
  members.Open("SELECT * FROM SubAlbumPhotos");
  EXPECT_EQ(members.RecordCount(), 1);
}

TEST_F(EditorDelete, NoToTheShortRoutineKeepsTheRow) {
  addPhotosUpTo(2);
  openEditor();
  boxes_.expectQuestion(toQString("Are you sure you want to delete this record?"), {},
                        MsgIcon::None, MsgButtons::YesNo, MsgAnswer::No);
  DeleteRecord(album());
  EXPECT_EQ(photos().RecordCount(), 2);
}

} // namespace hearthbook::test
