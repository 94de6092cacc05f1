#include "ViewerFixture.h"

#include "Pointer.h"
#include "ProgressNote.h"
#include "TestPictures.h"

#include <algorithm>
#include <stdexcept>

namespace hearthbook::test {

namespace {

class ViewerPages : public ViewerFixture {
protected:
  static bool hasPhotoIn(const Viewer& viewer, int cell) {
    const auto& shown = viewer.cells().at(cell);
    return shown.facts->isVisible() && shown.frame->isVisible() && shown.border->isVisible() &&
           shown.photo->hasPicture();
  }
  static bool isEmpty(const Viewer& viewer, int cell) {
    const auto& shown = viewer.cells().at(cell);
    return shown.facts->isHidden() && shown.frame->isHidden() && shown.border->isHidden() &&
           !shown.photo->hasPicture();
  }
};

} // namespace

TEST_F(ViewerPages, TheCellsStandInTwoRowsOfTwo) {
  const auto& viewer = openAlbumOf(4);
  const std::pair<TwipsPoint, TwipsPoint> corners[] = {
      {{2400, 0}, {105, -15}},
      {{8280, 0}, {6000, -15}},
      {{2400, 3480}, {105, 3465}},
      {{8280, 3480}, {6000, 3465}},
  };
  for (int cell = 0; cell < photosOnPage; ++cell) {
    const auto& shown = viewer.cells().at(cell);
    const auto& [photo, info] = corners[cell];
    EXPECT_EQ(placeOf(viewer, shown.frame), (TwipsRect{photo.x, photo.y, 3375, 3375})) << cell;
    EXPECT_EQ(placeOf(viewer, shown.facts), (TwipsRect{info.x, info.y, 2175, 3375})) << cell;
    EXPECT_EQ(placeOf(viewer, shown.border), placeOf(viewer, shown.facts)) << cell;
  }
}

TEST_F(ViewerPages, APhotoIsFittedIntoItsBoxByItsOwnOrientation) {
  addPhotosUpTo(4);
  writeJpeg(at("Photos/00001.jpg"), 80, 60);
  writeJpeg(at("Photos/00002.jpg"), 30, 60);
  const auto& viewer = openPages();
  expectPlace(placeOf(viewer, viewer.cells().at(0).photo),
              {2400, (3375 - 3375 * 0.75) / 2, 3375, 3375 * 0.75});
  expectPlace(placeOf(viewer, viewer.cells().at(1).photo),
              {8280 + 3375 / 4.0, 0, 3375 / 2.0, 3375});
}

TEST_F(ViewerPages, AfterManyPagesAPhotoStillStandsInItsBox) {
  addPhotosUpTo(8);
  for (int number = 1; number <= 8; ++number)
    writeJpeg(at("Photos/0000" + std::to_string(number) + ".jpg"), 40 + number * 7, 60);
  const auto& viewer = openPages();
  const TwipsRect first = placeOf(viewer, viewer.cells().at(3).photo);
  for (int round = 0; round < 5; ++round) {
    press(viewer, "Command1");
    press(viewer, "Command2");
  }
  expectPlace(placeOf(viewer, viewer.cells().at(3).photo), first);
}

TEST_F(ViewerPages, CellsWithoutAPhotoAreHidden) {
  const auto& viewer = openAlbumOf(3);
  for (int cell = 0; cell < 3; ++cell)
    EXPECT_TRUE(hasPhotoIn(viewer, cell)) << cell;
  EXPECT_TRUE(isEmpty(viewer, 3));
  EXPECT_EQ(viewer.cells().at(2).photo->accessibleName(), toQString("Photo 3"));
  EXPECT_EQ(viewer.cells().at(3).photo->accessibleName(), QString());
}

TEST_F(ViewerPages, UpToThreePhotosAreOnePageWithNothingBesideIt) {
  for (const int count : {1, 2, 3}) {
    if (count > 1)
      folder_.addPhoto("HD0000" + std::to_string(count));
    auto& viewer = openPages();
    EXPECT_EQ(shownIds(viewer), ids(1, count));
    EXPECT_EQ(position(viewer), "Page 1 of 1");
    EXPECT_TRUE(pages().atEOF());
    EXPECT_EQ(vars().ViewPageCount, count);
    expectNoMoreRecords();
    press(viewer, "Command1");
    expectNoMoreRecords();
    press(viewer, "Command2");
    EXPECT_EQ(shownIds(viewer), ids(1, count));
    viewer.Unload();
  }
}

TEST_F(ViewerPages, FourPhotosLeaveTheSetAtItsEnd) {
  const auto& viewer = openAlbumOf(4);
  EXPECT_EQ(position(viewer), "Page 1 of 1");
  EXPECT_TRUE(pages().atEOF());
  expectNoMoreRecords();
  press(viewer, "Command1");
}

TEST_F(ViewerPages, OfFivePhotosTheSecondPageHasOneAndOneComesBackFromIt) {
  const auto& viewer = openAlbumOf(5);
  EXPECT_EQ(position(viewer), "Page 1 of 2");
  press(viewer, "Command1");
  EXPECT_EQ(shownIds(viewer), ids(5, 5));
  EXPECT_EQ(position(viewer), "Page 2 of 2");
  EXPECT_EQ(vars().ViewPageCount, 1);
  press(viewer, "Command2");
  EXPECT_EQ(shownIds(viewer), ids(1, 4));
  EXPECT_EQ(position(viewer), "Page 1 of 2");
  EXPECT_EQ(pages().AbsolutePosition(), 5);
}

TEST_F(ViewerPages, TheFirstPageHasNoneBeforeIt) {
  const auto& viewer = openAlbumOf(9);
  expectNoMoreRecords();
  press(viewer, "Command2");
  EXPECT_EQ(shownIds(viewer), ids(1, 4));
  EXPECT_EQ(pages().AbsolutePosition(), 5);
}

TEST_F(ViewerPages, FirstAndLastGoToTheEnds) {
  const auto& viewer = openAlbumOf(10);
  press(viewer, "Command8");
  EXPECT_EQ(shownIds(viewer), ids(9, 10));
  EXPECT_EQ(position(viewer), "Page 3 of 3");
  press(viewer, "Command2");
  EXPECT_EQ(shownIds(viewer), ids(5, 8));
  EXPECT_EQ(position(viewer), "Page 2 of 3");
  press(viewer, "Command7");
  EXPECT_EQ(shownIds(viewer), ids(1, 4));
  EXPECT_EQ(position(viewer), "Page 1 of 3");
}

TEST_F(ViewerPages, TheLastOfAWholeNumberOfPagesStandsFull) {
  const auto& viewer = openAlbumOf(8);
  press(viewer, "Command8");
  EXPECT_EQ(shownIds(viewer), ids(5, 8));
  EXPECT_EQ(position(viewer), "Page 2 of 2");
}

TEST_F(ViewerPages, AnEmptyMasterAlbumIsAPageOfNothing) {
  execute("DELETE FROM PhotoAlbum");
  const auto& viewer = openPages();
  for (int cell = 0; cell < photosOnPage; ++cell)
    EXPECT_TRUE(isEmpty(viewer, cell)) << cell;
  EXPECT_EQ(position(viewer), "Page 0 of 0");
  for (const char* command : {"Command1", "Command2"}) {
    expectNoMoreRecords();
    press(viewer, command);
  }
  for (const char* command : {"Command7", "Command8"})
    press(viewer, command);
  EXPECT_FALSE(isEnabled(viewer, "Command3"));
  EXPECT_FALSE(isEnabled(viewer, "Command6"));
  EXPECT_FALSE(isEnabled(viewer, "Command9"));
}

TEST_F(ViewerPages, AResultWithoutASelectionBeginsWithItsFirstPhoto) {
  addPhotosUpTo(6);
  const auto& viewer = openResults();
  EXPECT_EQ(shownIds(viewer), ids(1, 4));
}

TEST_F(ViewerPages, AResultWithOneSelectedPhotoBeginsWithItsPage) {
  addPhotosUpTo(10);
  vars().selection.select(7);
  const auto& viewer = openResults();
  EXPECT_EQ(shownIds(viewer), ids(5, 8));
  EXPECT_EQ(position(viewer), "Page 2 of 3");
}

TEST_F(ViewerPages, SeveralSelectedPhotosOfAResultAreTheWholeAlbum) {
  addPhotosUpTo(10);
  for (const int selected : {9, 2, 7})
    vars().selection.select(selected);
  const auto& viewer = openResults();
  EXPECT_EQ(shownIds(viewer), (std::vector<std::string>{"HD00002", "HD00007", "HD00009"}));
  EXPECT_EQ(position(viewer), "Page 1 of 1");
}

TEST_F(ViewerPages, TheMasterAlbumTakesNoNoticeOfASelection) {
  addPhotosUpTo(10);
  vars().selection.select(7);
  EXPECT_EQ(shownIds(openPages()), ids(1, 4));
}

TEST_F(ViewerPages, PageKeysTurnThePages) {
  auto& viewer = openAlbumOf(10);
  const auto strike = [&viewer](Qt::Key key) {
    QTest::keyClick(&viewer, key);
    settlePages();
    return shownIds(viewer);
  };
  EXPECT_EQ(strike(Qt::Key_PageDown), ids(5, 8));
  EXPECT_EQ(strike(Qt::Key_End), ids(9, 10));
  EXPECT_EQ(strike(Qt::Key_PageUp), ids(5, 8));
  EXPECT_EQ(strike(Qt::Key_Home), ids(1, 4));
}

TEST_F(ViewerPages, ArrowKeysWalkFromPhotoToPhotoAndOverThePages) {
  auto& viewer = openAlbumOf(6);
  viewer.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&viewer));
  viewer.cells().at(0).photo->setFocus();
  const auto strike = [&viewer](Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key);
    settlePages();
    return viewer.cells().focused();
  };
  EXPECT_EQ(strike(Qt::Key_Right), 1);
  EXPECT_EQ(strike(Qt::Key_Down), 3);
  EXPECT_EQ(strike(Qt::Key_Left), 2);
  EXPECT_EQ(strike(Qt::Key_Up), 0);
  EXPECT_EQ(strike(Qt::Key_Up), 0); // the first page: nothing before it, and no message
  viewer.cells().at(3).photo->setFocus();
  EXPECT_EQ(strike(Qt::Key_Right), 0);
  EXPECT_EQ(shownIds(viewer), ids(5, 6));
  EXPECT_EQ(strike(Qt::Key_Left), 3);
  EXPECT_EQ(shownIds(viewer), ids(1, 4));
}

TEST_F(ViewerPages, AfterTheEditorOneIsBackOnThePage) {
  const auto& viewer = openAlbumOf(10);
  press(viewer, "Command1");
  execute("UPDATE PhotoAlbum SET Year = 1944 WHERE PictureID = 'HD00006'");
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  settlePages();
  // Read again in the order of the years.
  EXPECT_EQ(shownIds(viewer),
            (std::vector<std::string>{"HD00005", "HD00007", "HD00008", "HD00009"}));
  EXPECT_EQ(position(viewer), "Page 2 of 3");
}

TEST_F(ViewerPages, WhenTheLastPageHasGoneTheFirstOneIsShown) {
  const auto& viewer = openAlbumOf(9);
  press(viewer, "Command8");
  execute("DELETE FROM PhotoAlbum WHERE PictureID = 'HD00009'");
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  settlePages();
  EXPECT_EQ(shownIds(viewer), ids(1, 4)); // position 9 has gone
}

TEST_F(ViewerPages, OfOnePhotoLeftThePageIsShown) {
  const auto& viewer = openAlbumOf(6);
  press(viewer, "Command1");
  execute("DELETE FROM PhotoAlbum WHERE PictureID <> 'HD00003'");
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  settlePages();
  EXPECT_EQ(shownIds(viewer), ids(3, 3));
}

TEST_F(ViewerPages, WithNoPhotoLeftThePagesClose) {
  openAlbumOf(2);
  execute("DELETE FROM PhotoAlbum");
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  EXPECT_EQ(Forms::loaded<Viewer>(), nullptr);
}

TEST_F(ViewerPages, AfterABatchAPageOfOneGoesBackByFive) {
  const auto& viewer = openAlbumOf(9);
  press(viewer, "Command8");
  const ProgressNote progress;
  Forms::tellRowsChanged({RowsChanged::By::BatchEdited});
  settlePages();
  EXPECT_EQ(shownIds(viewer), ids(5, 8));
  EXPECT_EQ(progress.caption, toQString("Updating Viewer, Please Wait"));
  EXPECT_EQ(Forms::loaded<Progress>(), nullptr);
}

TEST_F(ViewerPages, AfterABatchOneOrNoPhotoIsNothingToWaitFor) {
  const auto& viewer = openAlbumOf(2);
  const ProgressNote progress;
  execute("DELETE FROM PhotoAlbum WHERE PictureID = 'HD00002'");
  Forms::tellRowsChanged({RowsChanged::By::BatchEdited});
  settlePages();
  EXPECT_EQ(shownIds(viewer), ids(1, 1));
  execute("DELETE FROM PhotoAlbum");
  Forms::tellRowsChanged({RowsChanged::By::BatchEdited});
  EXPECT_EQ(Forms::loaded<Viewer>(), nullptr);
  EXPECT_TRUE(progress.values.empty());
}

TEST_F(ViewerPages, AMissingPhotoIsStoodInForAndStopsNothing) {
  addPhotosUpTo(3);
  writeJpeg(at("Media/NotFound.gif"), 50, 50, 0x112233);
  std::filesystem::remove(at("Photos/00002.jpg"));
  const auto& viewer = openPages();
  for (int cell = 0; cell < 3; ++cell)
    EXPECT_TRUE(hasPhotoIn(viewer, cell)) << cell;
  EXPECT_EQ(viewer.cells().at(1).photo->picture().size().width,
            viewer.cells().at(1).photo->picture().size().height);
}

TEST_F(ViewerPages, ABrokenPhotoIsStoodInForAndStopsNothing) {
  addPhotosUpTo(5);
  writeJpeg(at("Media/NotFound.gif"), 50, 50, 0x112233);
  writeBytes(at("Photos/00001.jpg"), "");
  writeBytes(at("Photos/00002.jpg"), "no picture at all");
  const auto& viewer = openPages();
  for (int cell = 0; cell < photosOnPage; ++cell)
    EXPECT_TRUE(hasPhotoIn(viewer, cell)) << cell;
  press(viewer, "Command1");
  press(viewer, "Command2");
  EXPECT_TRUE(hasPhotoIn(viewer, 0));
}

TEST_F(ViewerPages, APhotoOfTwoHundredMegapixelsIsOneLikeTheOthers) {
  addPhotosUpTo(2);
  writeBytes(at("Photos/00001.jpg"), plainGreyJpeg({16000, 12500}, 180));
  const auto& viewer = openPages();
  EXPECT_TRUE(hasPhotoIn(viewer, 0));
  EXPECT_TRUE(hasPhotoIn(viewer, 1));
  const auto& photo = *viewer.cells().at(0).photo;
  EXPECT_EQ(photo.picture().size(), photo.wantedSize());
  EXPECT_LE(distance(photo.picture().row(50)[50], 0xffb4b4b4), 2);
}

TEST_F(ViewerPages, WithoutTheStandInABrokenPhotoIsAnEmptyFrame) {
  std::filesystem::remove(at("Media/NotFound.gif"));
  writeBytes(at("Photos/00001.jpg"), "no picture at all");
  const auto& viewer = openPages();
  EXPECT_TRUE(viewer.cells().at(0).frame->isVisible());
  EXPECT_FALSE(viewer.cells().at(0).photo->hasPicture());
  EXPECT_TRUE(viewer.cells().at(0).photo->hasSource());
}

TEST_F(ViewerPages, APhotoOfADiscThatIsNotThereIsStoodInFor) {
  folder_.addRow("PhotoAlbum", {{"PictureID", "CD00002"}});
  const auto& viewer = openPages();
  EXPECT_EQ(shownIds(viewer), (std::vector<std::string>{"CD00002", "HD00001"}));
  EXPECT_TRUE(hasPhotoIn(viewer, 0));
}

TEST_F(ViewerPages, APhotoThatWasReplacedMeanwhileIsReadAgain) {
  writeJpeg(at("Photos/00001.jpg"), 60, 40, 0xaa0000);
  const auto& viewer = openPages();
  writeJpeg(at("Photos/00001.jpg"), 64, 40, 0x0000aa);
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  settlePages();
  const QImage shown = viewer.cells().at(0).photo->grab().toImage();
  EXPECT_LT(distance(shown.pixel(shown.width() / 3, shown.height() / 3), 0xff0000aa), 12);
}

TEST_F(ViewerPages, TheNeighboursOfThePageAreDecodedAheadAtTheSizeShown) {
  const auto& viewer = openAlbumOf(12);
  press(viewer, "Command1");
  for (const char* command : {"Command1", "Command2", "Command2"}) {
    awaitPicturesAhead();
    FormControls::press(viewer, command);
    // Not one turn of the event loop between.
    EXPECT_FALSE(viewer.isWaitingForPictures()) << command;
    settlePages();
  }
}

TEST_F(ViewerPages, AtEverySizeOfTheWindowTheNeighboursAreDecodedAheadForTheirOwnCells) {
  addPhotosUpTo(12);
  for (int number = 1; number <= 12; ++number)
    writeJpeg(at("Photos/" + ids(number, number).front().substr(2) + ".jpg"), 80, 60);
  auto& viewer = openPages();
  for (const QSize window : {QSize(1012, 669), QSize(1024, 700), QSize(1920, 1000)}) {
    viewer.resize(window);
    settlePages();
    for (const char* command : {"Command1", "Command2"}) {
      awaitPicturesAhead();
      FormControls::press(viewer, command);
      EXPECT_FALSE(viewer.isWaitingForPictures()) << window.width() << " " << command;
      settlePages();
    }
  }
}

TEST_F(ViewerPages, AStepThatFailsStopsNoOther) {
  auto& viewer = openAlbumOf(6);
  press(viewer, "Command1");
  pages().MoveFirst();
  const auto stubborn = pages().observe({[] { throw std::runtime_error("no way on"); }, {}});
  viewer.ComposeAlbumPage();
  settlePages();
  EXPECT_EQ(shownIds(viewer),
            (std::vector<std::string>{"HD00001", "HD00001", "HD00001", "HD00001"}));
  for (int cell = 0; cell < photosOnPage; ++cell)
    EXPECT_TRUE(hasPhotoIn(viewer, cell)) << cell;
  EXPECT_NE(position(viewer), "Page 2 of 2");
}

TEST_F(ViewerPages, TheHourglassStandsWhileAPageIsComposed) {
  auto& viewer = openAlbumOf(2);
  std::vector<bool> shown;
  const auto* filled = names(viewer, 1).model();
  QObject::connect(filled, &QAbstractItemModel::rowsInserted, filled,
                   [&] { shown.push_back(Hourglass::isShown()); });
  EXPECT_FALSE(Hourglass::isShown());
  pages().MoveFirst();
  viewer.ComposeAlbumPage();
  EXPECT_FALSE(Hourglass::isShown());
  EXPECT_FALSE(shown.empty());
  EXPECT_EQ(std::ranges::count(shown, false), 0);
}

TEST_F(ViewerPages, AllPeopleCanBeNamedWhateverTheEditorsFilterLeft) {
  const auto anna = folder_.addPerson("Anna");
  set("HD00001", "NamesInPhoto = '" + std::to_string(1000 + anna).substr(1) + ",'");
  data().rsAppearances.Close();
  data().rsAppearances.Open("SELECT * FROM Appearances WHERE AppearancesID = 0");
  const auto& viewer = openPages();
  EXPECT_EQ(names(viewer, 0).nameText(0), toQString("Anna"));
  EXPECT_EQ(data().rsAppearances.Source(), "Select * From Appearances Order By AppearancesNames");
}

TEST_F(ViewerPages, AtAnotherSizeThePhotosAreDecodedForIt) {
  addPhotosUpTo(4);
  auto& viewer = openPages();
  for (int cell = 0; cell < photosOnPage; ++cell)
    writeJpeg(at("Photos/" + viewer.cells().at(cell).tag.substr(2) + ".jpg"), 1600, 1200);
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  settlePages();
  viewer.resize(3000, 1982);
  settlePages();
  const auto& photo = *viewer.cells().at(2).photo;
  EXPECT_EQ(photo.picture().size(), photo.wantedSize());
  EXPECT_GT(photo.picture().size().width, 800);
}

TEST_F(ViewerPages, ClosedWhilePhotosAreOnTheirWayNothingComesBack) {
  addPhotosUpTo(8);
  for (int number = 1; number <= 8; ++number)
    writeJpeg(at("Photos/0000" + std::to_string(number) + ".jpg"), 2000, 1500);
  vars().CallerForm = "Viewer";
  vars().rsViewer = data().rsPhotoAlbum.Clone();
  auto& viewer = Forms::get<Viewer>();
  viewer.Show();
  viewer.Unload();
  QCoreApplication::processEvents();
  EXPECT_EQ(Forms::loaded<Viewer>(), nullptr);
}

} // namespace hearthbook::test
