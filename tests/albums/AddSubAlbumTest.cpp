#include "SubAlbumFixture.h"
#include "WaitFor.h"

#include <QListWidget>
#include <QTabBar>
#include <QTimer>

#include <filesystem>
#include <fstream>

namespace hearthbook::test {

namespace {

class AddSubAlbumForm : public SubAlbumFixture {
protected:
  void expectName(const char* answer) {
    boxes_.expectInput(toQString("Please Enter Sub-Album Name (up to 20 characters):"),
                       toQString("Add New Sub-Album"), QString::fromUtf8(answer));
  }
  void expectTooLong() {
    boxes_.expectMessage(toQString("Please Enter No More Then 20 Character"),
                         toQString("Add Sub-Album"));
  }
  void expectDeletion(const char* name, MsgAnswer answer) {
    boxes_.expectQuestion(
        toQString("Are you sure you want to delete \"") + toQString(name) + toQString("\"?"),
        toQString("Delete Selected Sub-Album"), MsgIcon::None, MsgButtons::OkCancel, answer);
  }
  void expectDeleted() {
    boxes_.expectMessage(toQString("Sub-Album Was Successfully Deleted"),
                         toQString("Delete Selected Sub-Album"));
  }
  void create(const AddSubAlbum& form, const char* name) {
    expectName(name);
    press(form, "Command1");
  }
  static QStringList listed(const AddSubAlbum& form) {
    return textsOf(*control<DataList>(form, "SubAlbumList"));
  }
  static std::string chosen(const AddSubAlbum& form) {
    return toUtf8(control<DataList>(form, "SubAlbumList")->Text());
  }
  Value stored(std::int64_t id, const char* field) {
    Recordset rows(data().AlbumDB);
    rows.Open("SELECT * FROM SubAlbums WHERE AlbumID = " + std::to_string(id));
    return rows.atEOF() ? Value("none") : rows.Collect(field);
  }
};

} // namespace

TEST_F(AddSubAlbumForm, SaysHowManyPhotosASearchFound) {
  addPhotoRows(folder_, 5);
  auto& form = openForResult();
  EXPECT_EQ(text(form, "lblWait"), "5 Photos are in search results.");
  EXPECT_TRUE(isShown(form, "lblWait"));
  EXPECT_EQ(text(form, "Label1"), "Select Sub-Album:");
  EXPECT_FALSE(isShown(form, "frmProperties"));
}

TEST_F(AddSubAlbumForm, SaysHowManyPhotosAreSelected) {
  addPhotoRows(folder_, 5);
  for (const int position : {2, 4})
    vars().selection.select(position);
  EXPECT_EQ(text(openForResult(), "lblWait"), "2 Photos are selected from search results.");
}

TEST_F(AddSubAlbumForm, SaysThatThePhotoComesFromBuildAlbum) {
  EXPECT_EQ(text(openForEditor(), "lblWait"), "Add photo from       Build Album");
}

TEST_F(AddSubAlbumForm, OverTheAlbumPagesItEditsTheirSubAlbumAndNoOther) {
  addAlbumUpTo(4, "Home");
  const auto lake = addSubAlbum(folder_, "Lake", {3, 2});
  auto& form = openForViewer(lake);
  EXPECT_EQ(text(form, "Label1"), "Editing Lake");
  EXPECT_EQ(control<QLabel>(form, "Label1")->buddy(), nullptr); // an & in a name is shown
  EXPECT_EQ(shown(form), (Numbers{3, 2}));
  EXPECT_EQ(text(form, "lblCount"), "2 photos in sub-album");
  EXPECT_TRUE(isShown(form, "frmProperties"));
  EXPECT_EQ(text(form, "txtAlbumName"), "Lake");
  for (const char* hidden : {"SubAlbumList", "Command1", "Command2", "OKButton", "lblWait"})
    EXPECT_FALSE(isShown(form, hidden)) << hidden;
}

TEST_F(AddSubAlbumForm, ChoosingASubAlbumShowsItsPhotosAndItsProperties) {
  const auto lake = addAlbumUpTo(4);
  data().AlbumDB.execute("UPDATE SubAlbums SET Description = 'By boat'");
  data().rsSubAlbums.Requery();
  auto& form = openForEditor();
  choose(form, lake);
  EXPECT_EQ(shown(form), (Numbers{2, 3, 4}));
  EXPECT_EQ(text(form, "txtAlbumName"), "Lake");
  EXPECT_EQ(control<QPlainTextEdit>(form, "txtDescription")->toPlainText(), toQString("By boat"));
  EXPECT_TRUE(isShown(form, "frmProperties"));
  EXPECT_EQ(text(form, "lblCount"), "3 photos in sub-album");
  EXPECT_EQ(text(form, "Combo1"), "Select Auto Arrange:");
  EXPECT_EQ(text(form, "lblWait"), "Add photo from       Build Album");
}

TEST_F(AddSubAlbumForm, AClickOfTheMouseChooses) {
  addAlbumUpTo(3);
  auto& form = openForEditor();
  auto* list = control<DataList>(form, "SubAlbumList");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualRect(list->model()->index(0, 0)).center());
  settle();
  EXPECT_EQ(shown(form), (Numbers{2, 3}));
}

TEST_F(AddSubAlbumForm, GoingOnWithoutAChangeWritesNothing) {
  const auto lake = addAlbumUpTo(4);
  const auto home = addSubAlbum(folder_, "Home", {4, 3});
  auto& form = openForEditor();
  choose(form, home);
  data().AlbumDB.execute("UPDATE SubAlbumPhotos SET [Index] = 5 WHERE AlbumID = " +
                         std::to_string(home));
  choose(form, lake);
  leave();
  EXPECT_EQ(storedOrder(folder_, home), (Stored{{photoId(4), 5}, {photoId(3), 5}}));
}

TEST_F(AddSubAlbumForm, ANewSubAlbumIsEmptyChosenAndInTheMenu) {
  const auto lake = addAlbumUpTo(4);
  auto& form = openForEditor();
  choose(form, lake);
  create(form, "  Summer 1987 ");
  EXPECT_EQ(listed(form), (QStringList{toQString("Lake"), toQString("Summer 1987")}));
  EXPECT_EQ(chosen(form), "Summer 1987");
  EXPECT_EQ(text(form, "txtAlbumName"), "Summer 1987");
  EXPECT_TRUE(cells(form).empty());
  EXPECT_EQ(text(form, "lblCount"), "0 photos in sub-album");
  EXPECT_TRUE(isShown(form, "frmProperties"));
  EXPECT_EQ(menu_.told, QStringList{toQString("add 2 Summer 1987")});
  EXPECT_TRUE(stored(2, "Description").isNull());
}

TEST_F(AddSubAlbumForm, ANameOfTwentyOneCharactersIsRefusedAndAskedForAgain) {
  auto& form = openForEditor();
  expectName("Twentyone characters!");
  expectTooLong();
  expectName("Twenty characters ok");
  press(form, "Command1");
  EXPECT_EQ(chosen(form), "Twenty characters ok");
}

TEST_F(AddSubAlbumForm, CharactersAreCountedNotBytes) {
  create(openForEditor(), "Öööööööööööööööööööö");
  EXPECT_EQ(data().rsSubAlbums.RecordCount(), 1);
}

TEST_F(AddSubAlbumForm, NoNameEndsTheCommandAtAnyTurn) {
  auto& form = openForEditor();
  expectName("   ");
  press(form, "Command1");
  expectName("Much too long a name it is");
  expectTooLong();
  expectName("");
  press(form, "Command1");
  EXPECT_EQ(data().rsSubAlbums.RecordCount(), 0);
  EXPECT_TRUE(menu_.told.isEmpty());
}

TEST_F(AddSubAlbumForm, ANameWithAnApostropheIsStoredAsTyped) {
  auto& form = openForEditor();
  create(form, "Grandma's \"Lake\"");
  EXPECT_EQ(chosen(form), "Grandma's \"Lake\"");
  EXPECT_EQ(stored(1, "AlbumName"), Value("Grandma's \"Lake\""));
}

TEST_F(AddSubAlbumForm, OfTwoOfOneNameBothAreInTheListAndInTheMenu) {
  auto& form = openForEditor();
  create(form, "Lake");
  create(form, "Lake");
  EXPECT_EQ(listed(form).size(), 2);
  EXPECT_EQ(menu_.told, (QStringList{toQString("add 1 Lake"), toQString("add 2 Lake")}));
  EXPECT_EQ(control<DataList>(form, "SubAlbumList")->BoundText(), Value(1)); // the first is found
}

TEST_F(AddSubAlbumForm, ANewSubAlbumThatCannotBeStoredIsReportedAndTheFormStaysUsable) {
  data().AlbumDB.execute("INSERT INTO SubAlbums (AlbumID, albumName) VALUES (32767, 'Last')");
  data().rsSubAlbums.Requery();
  auto& form = openForEditor();
  expectName("Lake");
  boxes_.expectFailure({});
  press(form, "Command1");
  choose(form, 32767);
  EXPECT_EQ(text(form, "txtAlbumName"), "Last");
  EXPECT_TRUE(menu_.told.isEmpty());
}

TEST_F(AddSubAlbumForm, AMovedPhotoIsStoredBeforeAnotherSubAlbumIsMade) {
  const auto lake = addAlbumUpTo(4);
  auto& form = openForEditor();
  choose(form, lake);
  Q_EMIT strip(form).moveAsked(2, 0);
  EXPECT_EQ(text(form, "Combo1"), "Manually");
  create(form, "Home");
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{4, 2, 3}));
  EXPECT_EQ(text(form, "Combo1"), "Select Auto Arrange:");
}

TEST_F(AddSubAlbumForm, ADeletedSubAlbumIsGoneFromTheListAndTheMenu) {
  const auto lake = addAlbumUpTo(25);
  addSubAlbum(folder_, "Home", {2});
  auto& form = openForEditor();
  choose(form, lake);
  expectDeletion("Lake", MsgAnswer::Ok);
  expectDeleted();
  press(form, "Command2");
  EXPECT_EQ(listed(form), QStringList{toQString("Home")});
  EXPECT_EQ(chosen(form), "");
  EXPECT_EQ(menu_.told, QStringList{toQString("remove 1")});
  EXPECT_TRUE(storedNumbers(folder_, lake).empty());
  EXPECT_TRUE(cells(form).empty());
  EXPECT_FALSE(isShown(form, "frmProperties"));
  EXPECT_FALSE(scroll(form).isEnabled());
  EXPECT_EQ(data().rsPhotoAlbum.RecordCount(), 25);
}

TEST_F(AddSubAlbumForm, TheLastSubAlbumCanBeDeletedAndAnotherMade) {
  auto& form = openForEditor();
  create(form, "Lake");
  expectDeletion("Lake", MsgAnswer::Ok);
  expectDeleted();
  press(form, "Command2");
  EXPECT_TRUE(listed(form).isEmpty());
  create(form, "Home");
  EXPECT_EQ(chosen(form), "Home");
}

TEST_F(AddSubAlbumForm, DeletingNothingAsksAllTheSame) {
  addAlbumUpTo(3);
  auto& form = openForEditor();
  expectDeletion("", MsgAnswer::Ok);
  press(form, "Command2");
  EXPECT_EQ(listed(form).size(), 1);
}

TEST_F(AddSubAlbumForm, ADeletionThatIsNotConfirmedLeavesEverything) {
  const auto lake = addAlbumUpTo(3);
  auto& form = openForEditor();
  choose(form, lake);
  expectDeletion("Lake", MsgAnswer::Cancel);
  press(form, "Command2");
  EXPECT_EQ(chosen(form), "Lake");
  EXPECT_EQ(shown(form), (Numbers{2, 3}));
}

TEST_F(AddSubAlbumForm, ANewNameIsInTheListAndTheMenuWhenTheFieldIsLeft) {
  const auto lake = addAlbumUpTo(3);
  auto& form = openForEditor();
  choose(form, lake);
  enter(form, "txtAlbumName", "A name of more than twenty characters");
  EXPECT_EQ(chosen(form), "A name of more than twenty characters");
  EXPECT_EQ(stored(lake, "AlbumName"), Value("A name of more than twenty characters"));
  EXPECT_EQ(menu_.told, QStringList{toQString("rename 1 A name of more than twenty characters")});
}

TEST_F(AddSubAlbumForm, OverTheAlbumPagesTheHeadingFollowsANewName) {
  auto& form = openForViewer(addAlbumUpTo(3));
  enter(form, "txtAlbumName", "Sea");
  EXPECT_EQ(text(form, "Label1"), "Editing Sea");
}

TEST_F(AddSubAlbumForm, ANewNameWithQuotesIsStoredAsTyped) {
  const auto lake = addAlbumUpTo(3);
  auto& form = openForEditor();
  choose(form, lake);
  enter(form, "txtAlbumName", "Grandma's \"Lake\"");
  EXPECT_EQ(chosen(form), "Grandma's \"Lake\"");
  EXPECT_EQ(stored(lake, "AlbumName"), Value("Grandma's \"Lake\""));
}

TEST_F(AddSubAlbumForm, OneThatTakesTheNameOfAnotherStaysChosenAndItsOwn) {
  const auto lake = addAlbumUpTo(3);
  const auto sea = addSubAlbum(folder_, "Sea", {2});
  auto& form = openForEditor();
  choose(form, sea);
  enter(form, "txtAlbumName", "Lake");
  EXPECT_EQ(control<DataList>(form, "SubAlbumList")->BoundText(), Value(sea));
  EXPECT_EQ(menu_.told, QStringList{toQString("rename 2 Lake")});
  expectDeletion("Lake", MsgAnswer::Ok);
  expectDeleted();
  press(form, "Command2");
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{2, 3}));
  EXPECT_TRUE(storedNumbers(folder_, sea).empty());
}

TEST_F(AddSubAlbumForm, AnEmptiedNameIsNoEditAndNothingIsAddedUntilOneIsGiven) {
  const auto lake = addAlbumUpTo(3);
  auto& form = openForEditor();
  choose(form, lake);
  enter(form, "txtAlbumName", "");
  EXPECT_EQ(stored(lake, "AlbumName"), Value("Lake"));
  EXPECT_EQ(chosen(form), "Lake");
  EXPECT_EQ(text(form, "txtAlbumName"), "Lake");
  EXPECT_FALSE(isEnabled(form, "OKButton"));
  enter(form, "txtAlbumName", "Sea");
  EXPECT_TRUE(isEnabled(form, "OKButton"));
  EXPECT_EQ(stored(lake, "AlbumName"), Value("Sea"));
}

TEST_F(AddSubAlbumForm, ADescriptionIsStoredWithTheForm) {
  const auto lake = addAlbumUpTo(3);
  auto& form = openForEditor();
  choose(form, lake);
  auto* description = control<QPlainTextEdit>(form, "txtDescription");
  description->setFocus();
  description->insertPlainText(toQString("Two weeks of rain."));
  leave();
  EXPECT_EQ(stored(lake, "Description"), Value("Two weeks of rain."));
}

TEST_F(AddSubAlbumForm, TheAudioCommandSaysWhetherThereIsASound) {
  const auto lake = addAlbumUpTo(3);
  const auto home = addSubAlbum(folder_, "Home", {2});
  std::ofstream(at("Audio") / "A1.mid") << "la";
  auto& form = openForEditor();
  choose(form, lake);
  EXPECT_EQ(text(form, "Command3"), "Update Background Audio");
  choose(form, home);
  EXPECT_EQ(text(form, "Command3"), "Add Background Audio");
}

TEST_F(AddSubAlbumForm, TheAudioCommandOpensTheSoundOfTheSubAlbumAndTellsWhatBecameOfIt) {
  addAlbumUpTo(3);
  const auto home = addSubAlbum(folder_, "Home", {2});
  for (const char* tune : {"A1.mid", "A2.mid"})
    std::ofstream(at("Audio") / tune) << "la";
  auto& form = openForEditor();
  choose(form, home);
  QString task;
  QTimer::singleShot(0, &form, [&] {
    auto& dialog = Forms::get<AddAudio>();
    task = dialog.Tag;
    boxes_.expectQuestion(toQString("Are you sure you want to remove audio from current album?"),
                          toQString("Remove Audio"), MsgIcon::Information, MsgButtons::OkCancel,
                          MsgAnswer::Ok);
    FormControls::press(dialog, "Command5");
    dialog.Unload();
  });
  press(form, "Command3");
  EXPECT_EQ(task, toQString("album"));
  EXPECT_FALSE(std::filesystem::exists(at("Audio") / "A2.mid"));
  EXPECT_TRUE(std::filesystem::exists(at("Audio") / "A1.mid"));
  EXPECT_EQ(text(form, "Command3"), "Add Background Audio");
}

TEST_F(AddSubAlbumForm, ATuneThatIsAttachedIsToldByTheCaptionAndBearsTheAlbumsNumber) {
  addAlbumUpTo(3);
  const auto home = addSubAlbum(folder_, "Home", {2});
  std::filesystem::create_directories(at("Tunes"));
  std::ofstream(at("Tunes") / "waltz.mid") << "la";
  vars().LastSoundFolder = at("Tunes");
  auto& form = openForEditor();
  choose(form, home);
  QTimer::singleShot(0, &form, [&] {
    auto& dialog = Forms::get<AddAudio>();
    control<QTabBar>(dialog, "TabStrip1")->setCurrentIndex(2);
    auto* files = control<QListWidget>(dialog, "File1");
    EXPECT_TRUE(waitFor([&] { return files->count() == 1; }));
    files->setCurrentRow(0);
    boxes_.expectMessage(toQString("Audio File Attached Successfully"), toQString("Add Audio"));
    FormControls::press(dialog, "Command1");
  });
  press(form, "Command3");
  EXPECT_EQ(Forms::loaded<AddAudio>(), nullptr);
  EXPECT_TRUE(std::filesystem::exists(at("Audio") / "A2.mid"));
  EXPECT_FALSE(std::filesystem::exists(at("Audio") / "A1.mid"));
  EXPECT_EQ(text(form, "Command3"), "Update Background Audio");
}

} // namespace hearthbook::test
