#include "EditorFixture.h"

#include "FileBytes.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>

namespace hearthbook {

namespace {

class DBeditorTest : public test::EditorFixture {
protected:
  using FormControls::textsOf;
  static QStringList textsOf(const QComboBox& combo) {
    QStringList texts;
    for (int row = 0; row < combo.count(); ++row)
      texts << combo.itemText(row);
    return texts;
  }
  static QRgb shownColour(const QWidget& editor) {
    const Picture& picture = control<PictureBox>(editor, "Image1")->picture();
    return picture.isNull() ? 0 : picture.row(picture.height() / 2)[picture.width() / 2];
  }
  void addPhotoOf(const std::string& id, int width, int height, unsigned colour) {
    folder_.addPhoto(id);
    test::writeJpeg(at("Photos/" + id.substr(2) + ".jpg"), width, height, colour);
  }
};

bool isAbout(QRgb colour, unsigned wanted) {
  const auto near = [](int left, int right) { return std::abs(left - right) < 12; };
  return near(qRed(colour), qRed(wanted)) && near(qGreen(colour), qGreen(wanted)) &&
         near(qBlue(colour), qBlue(wanted));
}

struct RowsChangedListener : Form {
  RowsChangedListener() : Form(toQString("Listener"), Kind::Work) {}
  void rowsChanged(const RowsChanged& change) override { heard.push_back(change.by); }
  std::vector<RowsChanged::By> heard;
};

} // namespace

// ---- the composer

TEST_F(DBeditorTest, TheCaptionIsTheDesignersUntilTheOpenerReplacesIt) {
  EXPECT_EQ(openEditor().caption(), toQString("Data Editor"));
}

TEST_F(DBeditorTest, ThePathOfThePhotoStandsJustAboveIt) {
  const auto& editor = openEditor();
  EXPECT_EQ(labelOf(editor, "Label4"), "Image: " + at("Photos/00001.jpg").string());
  const TwipsRect image = rectOf(editor, "Image1");
  const TwipsRect label = rectOf(editor, "Label4");
  EXPECT_DOUBLE_EQ(label.top, image.top - label.height + 10);
}

TEST_F(DBeditorTest, ALandscapePhotoTakesTheBoxesWidthAndIsCentred) {
  addPhotoOf("HD00002", 400, 200, 0x336699);
  photos().MoveLast();
  const auto& editor = openEditor();
  const TwipsRect image = rectOf(editor, "Image1");
  EXPECT_DOUBLE_EQ(image.width, 5760);
  EXPECT_DOUBLE_EQ(image.height, 2880);
  EXPECT_TRUE(isAbout(shownColour(editor), 0x336699));
}

TEST_F(DBeditorTest, APortraitPhotoTakesTheBoxesHeight) {
  const TwipsRect box{240, 480, 5760, 5760};
  addPhotoOf("HD00002", 200, 400, 0x336699);
  photos().MoveLast();
  const auto& editor = openEditor();
  EXPECT_EQ(rectOf(editor, "Image1"), (TwipsRect{box.left + 1440, box.top, 2880, 5760}));
}

TEST_F(DBeditorTest, FittingOnePhotoAfterTheOtherComesBackToTheSameBox) {
  addPhotoOf("HD00002", 200, 400, 0x336699);
  const auto& editor = openEditor();
  const TwipsRect first = rectOf(editor, "Image1");
  for (int round = 0; round < 3; ++round) {
    press(editor, "NextPhoto");
    press(editor, "PrevPhoto");
  }
  EXPECT_EQ(rectOf(editor, "Image1"), first);
}

TEST_F(DBeditorTest, ThePhotoIsDecodedForTheDevicesPixels) {
  const auto& editor = openEditor();
  const auto* image = control<PictureBox>(editor, "Image1");
  EXPECT_EQ(image->picture().size(), image->wantedSize());
}

TEST_F(DBeditorTest, ALargerFormGetsALargerPicture) {
  auto& editor = openEditor();
  editor.resize(editor.size() * 2);
  settle();
  const auto* image = control<PictureBox>(editor, "Image1");
  EXPECT_EQ(image->picture().size(), image->wantedSize());
}

TEST_F(DBeditorTest, APhotoThatIsNotOnTheDiskIsShownAsNotFoundAndItsRowStays) {
  folder_.addPhoto("HD00002", {{"Year", 1990}});
  std::filesystem::remove(at("Photos/00002.jpg"));
  photos().MoveLast();
  const auto& editor = openEditor();
  EXPECT_FALSE(vars().ImagePicture.found);
  EXPECT_TRUE(control<PictureBox>(editor, "Image1")->hasPicture());
  EXPECT_EQ(labelOf(editor, "Label4"), "Image: " + at("Photos/00002.jpg").string());
  press(editor, "PrevPhoto");
  EXPECT_EQ(stored("HD00002", "Year"), Value(1990));
}

TEST_F(DBeditorTest, ADamagedImageLeavesTheLastPictureWithTheOtherFieldsFilledIn) {
  addPhotoOf("HD00002", 200, 400, 0x336699);
  folder_.addPhoto("HD00003", {{"Year", 1990}, {"NamesInPhoto", "001,"}});
  folder_.addPerson("Anna");
  test::writeBytes(at("Photos/00003.jpg"), "this is no picture");
  photos().Move(1);
  const auto& editor = openEditor();
  const TwipsRect place = rectOf(editor, "Image1");
  press(editor, "NextPhoto");
  EXPECT_TRUE(isAbout(shownColour(editor), 0x336699));
  EXPECT_EQ(rectOf(editor, "Image1"), place);
  EXPECT_EQ(labelOf(editor, "NumRec"), "3 of 3");
  EXPECT_EQ(control<QLineEdit>(editor, "Year")->text(), toQString("1990"));
  EXPECT_EQ(textsOf(*control<QListWidget>(editor, "List2")), QStringList{toQString("Anna")});
}

TEST_F(DBeditorTest, AnEmptyImageFileLeavesTheLastPictureToo) {
  addPhotoOf("HD00002", 200, 400, 0x336699);
  folder_.addPhoto("HD00003");
  test::writeBytes(at("Photos/00003.jpg"), "");
  photos().Move(1);
  const auto& editor = openEditor();
  press(editor, "NextPhoto");
  EXPECT_TRUE(isAbout(shownColour(editor), 0x336699));
}

TEST_F(DBeditorTest, AnIdOfAnotherPrefixShowsTheImageOfThePreviousRecord) {
  addPhotoOf("HD00002", 200, 400, 0x336699);
  folder_.addPhoto("XX00001", {{"Year", 1990}});
  photos().Move(1);
  const auto& editor = openEditor();
  press(editor, "NextPhoto");
  EXPECT_EQ(currentId(), "XX00001");
  EXPECT_EQ(labelOf(editor, "Label4"), "Image: " + at("Photos/00002.jpg").string());
  EXPECT_TRUE(isAbout(shownColour(editor), 0x336699));
  EXPECT_EQ(control<QLineEdit>(editor, "Year")->text(), toQString("1990"));
}

TEST_F(DBeditorTest, APhotoWithNeitherNamesNorSoundShowsAnEmptyListAndAddAudio) {
  const auto& editor = openEditor();
  EXPECT_EQ(control<QListWidget>(editor, "List2")->count(), 0);
  EXPECT_EQ(labelOf(editor, "Label5"), "Add Audio");
}

TEST_F(DBeditorTest, APhotoWithASoundOffersToUpdateIt) {
  test::writeBytes(at("Audio/00001.wav"), "sound");
  EXPECT_EQ(labelOf(openEditor(), "Label5"), "Update Audio");
}

TEST_F(DBeditorTest, WhetherThereIsASoundIsFoundOutBesideTheWindow) {
  test::writeBytes(at("Audio/00001.wav"), "sound");
  auto& editor = openEditor();
  control<QLabel>(editor, "Label5")->clear();
  const auto free = holdPool();
  editor.ComposeRecord();
  EXPECT_TRUE(editor.isLookingForSound());
  EXPECT_EQ(labelOf(editor, "Label5"), "");
  free();
  settle();
  EXPECT_EQ(labelOf(editor, "Label5"), "Update Audio");
}

TEST_F(DBeditorTest, TheSoundOfAPhotoThatWasLeftMeanwhileIsNotShown) {
  addPhotosUpTo(2);
  test::writeBytes(at("Audio/00001.wav"), "sound");
  auto& editor = openEditor();
  const auto free = holdPool();
  editor.ComposeRecord();
  photos().MoveLast();
  editor.ComposeRecord();
  free();
  settle();
  EXPECT_EQ(labelOf(editor, "Label5"), "Add Audio");
}

TEST_F(DBeditorTest, TheNamesStandInTheOrderOfTheFieldWithAStarWhereMarked) {
  folder_.addPerson("Anna");
  folder_.addPerson("Ben");
  set("HD00001", "NamesInPhoto = '002,001,', NamesCords = '001-0341X1022,'");
  const auto& editor = openEditor();
  const auto* names = control<QListWidget>(editor, "List2");
  EXPECT_EQ(textsOf(*names), (QStringList{toQString("Ben"), toQString("*Anna")}));
  EXPECT_EQ(names->item(0)->data(Qt::UserRole).toInt(), 2);
}

TEST_F(DBeditorTest, TheNamesOfTheLastPhotoAreCleared) {
  folder_.addPerson("Anna");
  folder_.addPhoto("HD00002");
  set("HD00001", "NamesInPhoto = '001,'");
  const auto& editor = openEditor();
  press(editor, "NextPhoto");
  EXPECT_EQ(control<QListWidget>(editor, "List2")->count(), 0);
}

TEST_F(DBeditorTest, TheFilterHoldsAllTheFamilyALineAndEachFamilyMember) {
  folder_.addPerson("Ben");
  const auto anna = folder_.addPerson("Anna");
  folder_.addPerson("Neighbour", anna);
  const auto& editor = openEditor();
  const auto* filter = control<QComboBox>(editor, "Combo1");
  EXPECT_EQ(textsOf(*filter),
            (QStringList{toQString("Show All"), toQString("Family Members"),
                         toQString("-------------------"), toQString("Anna"), toQString("Ben")}));
  EXPECT_EQ(filter->itemData(1).toInt(), 0);
  EXPECT_EQ(filter->itemData(3).toInt(), anna);
  EXPECT_EQ(filter->currentText(), toQString("Family Members"));
}

TEST_F(DBeditorTest, TheFilterKeepsItsChoiceFromRecordToRecord) {
  folder_.addPerson("Anna");
  folder_.addPhoto("HD00002");
  const auto& editor = openEditor();
  auto* filter = control<QComboBox>(editor, "Combo1");
  filter->setCurrentText(toQString("Anna"));
  press(editor, "NextPhoto");
  EXPECT_EQ(filter->currentText(), toQString("Anna"));
}

TEST_F(DBeditorTest, TheListOfPeopleBeginsWithTheFamily) {
  const auto anna = folder_.addPerson("Anna");
  folder_.addPerson("Neighbour", anna);
  const auto& editor = openEditor();
  EXPECT_EQ(textsOf(*control<QAbstractItemView>(editor, "DataList1")),
            QStringList{toQString("Anna")});
}

TEST_F(DBeditorTest, AStepThatFailsDoesNotStopThoseBehindIt) {
  test::writeBytes(at("Audio/00001.wav"), "sound");
  set("HD00001", "NamesInPhoto = '001,'");
  auto& editor = openEditor();
  data().AlbumDB.execute("ALTER TABLE Appearances RENAME TO Gone");
  control<QLabel>(editor, "Label5")->clear();
  editor.ComposeRecord();
  settle();
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 1");
  EXPECT_EQ(labelOf(editor, "Label5"), "Update Audio");
  data().AlbumDB.execute("ALTER TABLE Gone RENAME TO Appearances");
}

TEST_F(DBeditorTest, AnEmptyAlbumIsShownWithoutARecord) {
  data().AlbumDB.execute("DELETE FROM PhotoAlbum");
  photos().Requery();
  const auto& editor = openEditor();
  for (const char* name :
       {"Command6", "PrevPhoto", "NextPhoto", "Command8", "Command7", "FindPhoto", "Command18",
        "Year", "Description", "PlacesDrp", "EventsDrp"})
    EXPECT_FALSE(isEnabled(editor, name)) << name;
  EXPECT_TRUE(isEnabled(editor, "Command1"));
  EXPECT_TRUE(isEnabled(editor, "Command4"));
}

TEST_F(DBeditorTest, WhenItBecomesActiveOnAnotherRowItComposesAgain) {
  folder_.addPhoto("HD00002");
  auto& editor = openEditor();
  editor.Hide();
  QCoreApplication::processEvents();
  photos().MoveLast();
  editor.Show();
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 2");
}

// ---- what is written, and when

TEST_F(DBeditorTest, WhatWasTypedIsStoredAtTheNextMove) {
  folder_.addPhoto("HD00002");
  const auto place = folder_.addPlace("Lake");
  const auto event = folder_.addEvent("Birthday");
  const auto& editor = openEditor();
  QTest::keyClicks(control<QLineEdit>(editor, "Year"), toQString("1985"));
  QTest::keyClicks(control<QPlainTextEdit>(editor, "Description"), toQString("At the lake"));
  control<DataCombo>(editor, "PlacesDrp")->setText(toQString("Lake"));
  control<DataCombo>(editor, "EventsDrp")->setText(toQString("Birthday"));
  press(editor, "NextPhoto");
  EXPECT_EQ(stored("HD00001", "Year").toInteger(), 1985);
  EXPECT_EQ(stored("HD00001", "Description"), Value("At the lake"));
  EXPECT_EQ(stored("HD00001", "PlaceID"), Value(place));
  EXPECT_EQ(stored("HD00001", "EventID"), Value(event));
  EXPECT_EQ(control<QLineEdit>(editor, "Year")->text(), QString());
}

TEST_F(DBeditorTest, EveryMoveStoresWhatWasTyped) {
  addPhotosUpTo(3);
  const auto& editor = openEditor();
  int typed = 1980;
  for (const char* move : {"NextPhoto", "PrevPhoto", "Command8", "Command6", "Command18"}) {
    photos().Move(1, Recordset::Start::First);
    auto* year = control<QLineEdit>(editor, "Year");
    year->selectAll();
    QTest::keyClicks(year, QString::number(++typed));
    press(editor, move);
    EXPECT_EQ(stored("HD00002", "Year"), Value(typed)) << move;
  }
}

TEST_F(DBeditorTest, AnEmptiedDescriptionIsNull) {
  folder_.addPhoto("HD00002");
  set("HD00001", "Description = 'At the lake'");
  const auto& editor = openEditor();
  auto* description = control<QPlainTextEdit>(editor, "Description");
  description->selectAll();
  QTest::keyClick(description, Qt::Key_Delete);
  press(editor, "NextPhoto");
  EXPECT_TRUE(stored("HD00001", "Description").isNull());
}

TEST_F(DBeditorTest, TheYearTakesFourCharactersAtMost) {
  const auto& editor = openEditor();
  auto* year = control<QLineEdit>(editor, "Year");
  QTest::keyClicks(year, toQString("19855"));
  EXPECT_EQ(year->text(), toQString("1985"));
}

TEST_F(DBeditorTest, AYearThatIsNoNumberIsBlankedWhenItLosesTheFocus) {
  const auto& editor = openEditor();
  auto* year = control<QLineEdit>(editor, "Year");
  year->setFocus();
  QTest::keyClicks(year, toQString("198x"));
  control<QWidget>(editor, "Description")->setFocus();
  EXPECT_EQ(year->text(), QString());
}

TEST_F(DBeditorTest, AnEmptiedYearIsNotWrittenAndTheStoredOneComesBack) {
  folder_.addPhoto("HD00002");
  set("HD00001", "Year = 1985");
  const auto& editor = openEditor();
  auto* year = control<QLineEdit>(editor, "Year");
  year->setFocus();
  year->selectAll();
  QTest::keyClick(year, Qt::Key_Delete);
  press(editor, "NextPhoto");
  EXPECT_EQ(stored("HD00001", "Year").toInteger(), 1985);
  press(editor, "PrevPhoto");
  EXPECT_EQ(year->text(), toQString("1985"));
}

TEST_F(DBeditorTest, AYearThatIsNoNumberNeverReachesTheAlbumThoughAKeyMoves) {
  folder_.addPhoto("HD00002");
  set("HD00001", "Year = 1985");
  auto& editor = openEditor();
  auto* year = control<QLineEdit>(editor, "Year");
  editor.activateWindow();
  year->setFocus();
  year->selectAll();
  QTest::keyClicks(year, toQString("12a"));
  control<QAbstractButton>(editor, "NextPhoto")->click(); // as a shortcut does: the focus stays
  EXPECT_EQ(stored("HD00001", "Year").toInteger(), 1985);
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 2");
}

// ---- closing

TEST_F(DBeditorTest, DoneHidesAndUnloads) {
  press(openEditor(), "Command4");
  EXPECT_EQ(Forms::loaded<DBeditor>(), nullptr);
}

TEST_F(DBeditorTest, ClosingStoresWhatWasTyped) {
  const auto& editor = openEditor();
  QTest::keyClicks(control<QLineEdit>(editor, "Year"), toQString("1985"));
  press(editor, "Command4");
  EXPECT_EQ(stored("HD00001", "Year").toInteger(), 1985);
}

TEST_F(DBeditorTest, ClosingClearsTheFilterAndShowsAllPeopleAgain) {
  addPhotosUpTo(3);
  const auto anna = folder_.addPerson("Anna");
  folder_.addPerson("Neighbour", anna);
  openEditor();
  photos().Filter("PictureID = 'HD00002'");
  Forms::get<DBeditor>().Unload();
  EXPECT_EQ(photos().Filter(), "");
  EXPECT_EQ(photos().RecordCount(), 3);
  EXPECT_EQ(data().rsAppearances.Source(), sources::appearances);
  EXPECT_EQ(data().rsAppearances.RecordCount(), 2);
}

TEST_F(DBeditorTest, ClosingTellsTheOtherForms) {
  Forms::provide<RowsChangedListener>([] { return new RowsChangedListener; });
  const auto& listener = Forms::get<RowsChangedListener>();
  openEditor();
  Forms::get<DBeditor>().Unload();
  EXPECT_EQ(listener.heard, std::vector<RowsChanged::By>{RowsChanged::By::EditorClosed});
}

TEST_F(DBeditorTest, AnAlbumThatCannotBeReadAnyMoreIsToldOnceAndTheEditorCloses) {
  openEditor();
  data().AlbumDB.execute("DROP TABLE Appearances");
  boxes_.expectFailure(toQString("Appearances"));
  Forms::get<DBeditor>().close();
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_EQ(Forms::loaded<DBeditor>(), nullptr);
}

// ---- adding

TEST_F(DBeditorTest, AddFromFileIsDisabledWhereTheSetIsNotTheWholeAlbum) {
  photos().Close();
  photos().Open("SELECT * FROM PhotoAlbum WHERE PictureID = 'HD00001'");
  EXPECT_FALSE(isEnabled(openEditor(), "Command1"));
}

TEST_F(DBeditorTest, TheRecordIsComposedAfterAddFromFileOnCancelToo) {
  folder_.addPhoto("HD00002");
  const auto& editor = openEditor();
  QMetaObject::invokeMethod(
      qApp,
      [&] {
        control<QLabel>(editor, "NumRec")->clear();
        photos().MoveLast();
        press(Forms::get<PickaPic>(), "Cancel");
      },
      Qt::QueuedConnection);
  press(editor, "Command1");
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 2");
}

TEST_F(DBeditorTest, WhatWasTypedSurvivesACancelledAddFromFile) {
  const auto& editor = openEditor();
  auto* year = control<QLineEdit>(editor, "Year");
  QTest::keyClicks(year, toQString("1985"));
  QMetaObject::invokeMethod(
      qApp, [&] { press(Forms::get<PickaPic>(), "Cancel"); }, Qt::QueuedConnection);
  press(editor, "Command1");
  EXPECT_EQ(year->text(), toQString("1985"));
  press(editor, "Command4");
  EXPECT_EQ(stored("HD00001", "Year").toInteger(), 1985);
}

// ---- help

TEST_F(DBeditorTest, TheHelpIsSetUpWhenItBecomesActive) {
  openEditor();
  EXPECT_EQ(frame_.active, toQString("Build Album"));
}

TEST_F(DBeditorTest, TheMouseOverAControlAsksForItsHelp) {
  const auto& editor = openEditor();
  QTest::mouseMove(control<QWidget>(editor, "Year"));
  EXPECT_TRUE(frame_.keys.contains(toQString("Build Album*Year")));
}

TEST_F(DBeditorTest, TheFilterAsksForItsHelpWhenItGetsTheFocus) {
  const auto& editor = openEditor();
  auto* filter = control<QWidget>(editor, "Combo1");
  frame_.keys.clear();
  QFocusEvent focus(QEvent::FocusIn);
  QCoreApplication::sendEvent(filter, &focus);
  EXPECT_EQ(frame_.keys, QStringList{toQString("Build Album*Family Members")});
}

} // namespace hearthbook
