#include "ZoomFixture.h"

#include "FileBytes.h"
#include "Pointer.h"
#include "TestPictures.h"

#include <QAbstractItemModel>

#include <algorithm>

namespace hearthbook::test {

namespace {

class ZoomView : public ZoomFixture {
protected:
  /// A photo with a marker for a person, whose row is then chosen.
  Zoom& openMarked(int width, int height) {
    const auto person = folder_.addPerson("Anna");
    writeJpeg(at("Photos/00001.jpg"), width, height);
    set("HD00001",
        "NamesInPhoto = '" + three(person) + ",', NamesCords = '" + three(person) + "-2880X1440,'");
    auto& zoom = openZoom();
    names(zoom).setRow(1);
    return zoom;
  }
  void remove(const std::string& id) {
    photos().Find("PictureID = '" + id + "'", Recordset::Start::First);
    photos().Delete();
  }
  static std::string three(std::int64_t id) { return std::to_string(1000 + id).substr(1); }
  void addName() {
    ids_ += three(folder_.addPerson("Person " + std::to_string(ids_.size()))) + ",";
    set("HD00001", "NamesInPhoto = '" + ids_ + "'");
  }
  static void expectArrowAt(const Zoom& zoom, double x, double y) {
    EXPECT_FALSE(control(zoom, "Picture1")->isHidden());
    EXPECT_NEAR(arrowOf(zoom).left, x - 100, 0.01);
    EXPECT_NEAR(arrowOf(zoom).top, y - 288, 0.01);
  }

  std::string ids_;
};

} // namespace

TEST_F(ZoomView, OpensOnThePhotoOfItsSetAndStandsBehindIt) {
  const auto& zoom = openZoomOf(3, 2);
  EXPECT_EQ(position(zoom), "2 Of 3");
  EXPECT_EQ(slides().AbsolutePosition(), 3);
  EXPECT_TRUE(photo(zoom).hasPicture());
}

TEST_F(ZoomView, ALargePhotoFillsTheBoxFromItsCorner) {
  const auto& zoom = openPhoto(1200, 900);
  expectPlace(photoRect(zoom), {0, 0, 8285, 6213.75});
  EXPECT_FALSE(isEnabled(zoom, "HScroll1"));
  EXPECT_FALSE(isEnabled(zoom, "VScroll1"));
}

TEST_F(ZoomView, ASmallPhotoKeepsItsSizeAndItsBarsSleepUntilItIsLargerThanThePanel) {
  const auto& zoom = openPhoto(300, 200);
  expectPlace(photoRect(zoom), {0, 0, 4500, 3000});
  press(zoom, "Command4");
  EXPECT_FALSE(isEnabled(zoom, "HScroll1"));
  press(zoom, "Command4");
  EXPECT_TRUE(isEnabled(zoom, "HScroll1"));
  EXPECT_FALSE(isEnabled(zoom, "VScroll1"));
  EXPECT_EQ(bar(zoom, "HScroll1").maximum(), 10125 - 8535 + 255);
  EXPECT_EQ(bar(zoom, "HScroll1").singleStep(), 100);
  EXPECT_EQ(bar(zoom, "HScroll1").pageStep(), 200);
  EXPECT_EQ(photo(zoom).cursor().shape(), Qt::SizeAllCursor);
}

TEST_F(ZoomView, ThePressThatCannotMagnifyAnyMoreOnlyDisablesTheButton) {
  const auto& zoom = openPhoto(1200, 900);
  for (int press = 0; press < 3; ++press)
    ZoomFixture::press(zoom, "Command4");
  EXPECT_NEAR(photoRect(zoom).width, 8285 * 3.375, 0.01);
  EXPECT_TRUE(isEnabled(zoom, "Command4"));
  press(zoom, "Command4");
  EXPECT_NEAR(photoRect(zoom).width, 8285 * 3.375, 0.01);
  EXPECT_FALSE(isEnabled(zoom, "Command4"));
  press(zoom, "Command5");
  EXPECT_TRUE(isEnabled(zoom, "Command4"));
}

TEST_F(ZoomView, ThePressThatCannotReduceAnyMoreOnlyDisablesTheButton) {
  const auto& zoom = openPhoto(60, 40); // 900 twips wide
  press(zoom, "Command5");
  EXPECT_FALSE(isEnabled(zoom, "Command5"));
  expectPlace(photoRect(zoom), {0, 0, 900, 600});
  press(zoom, "Command4");
  EXPECT_TRUE(isEnabled(zoom, "Command5"));
}

TEST_F(ZoomView, TheScrollBarsMoveThePhoto) {
  const auto& zoom = openPhoto(1200, 900);
  press(zoom, "Command4");
  bar(zoom, "HScroll1").setValue(700);
  bar(zoom, "VScroll1").setValue(300);
  EXPECT_NEAR(photoRect(zoom).left, -700, 0.01);
  EXPECT_NEAR(photoRect(zoom).top, -300, 0.01);
  press(zoom, "Command5");
  EXPECT_NEAR(photoRect(zoom).left, 0, 0.01);
}

TEST_F(ZoomView, ADragScrollsByAHundredForEachMoveOfTheMouse) {
  const auto& zoom = openPhoto(1200, 900);
  press(zoom, "Command4");
  press(zoom, "Command4");
  auto& image = photo(zoom);
  QTest::mouseMove(&image, {50, 50});
  QTest::mousePress(&image, Qt::LeftButton, {}, {50, 50});
  QTest::mouseMove(&image, {60, 50}); // without the button told: QTest knows none
  EXPECT_EQ(bar(zoom, "HScroll1").value(), 100);
  EXPECT_EQ(bar(zoom, "VScroll1").value(), 0);
  QTest::mouseRelease(&image, Qt::LeftButton, {}, {60, 50});
}

TEST_F(ZoomView, ADragScrollsUpAndDownBetweenTheEndsOfTheBar) {
  const auto& zoom = openPhoto(1200, 900);
  press(zoom, "Command4");
  auto& image = photo(zoom);
  const auto& down = bar(zoom, "VScroll1");
  const auto move = [&](int to, Qt::MouseButtons buttons) {
    QMouseEvent event(QEvent::MouseMove, QPointF(50, to), image.mapToGlobal(QPointF(50, to)),
                      Qt::NoButton, buttons, {});
    QCoreApplication::sendEvent(&image, &event);
  };
  const auto drag = [&](int to) { move(to, Qt::LeftButton); };
  move(50, Qt::NoButton);
  for (int to = 51; to <= 53; ++to)
    drag(to);
  EXPECT_EQ(down.value(), 300);
  EXPECT_NEAR(photoRect(zoom).top, -300, 0.01);
  EXPECT_EQ(bar(zoom, "HScroll1").value(), 0);
  drag(52);
  EXPECT_EQ(down.value(), 200);
  drag(51);
  drag(50);
  EXPECT_EQ(down.value(), 100); // nearer to the end no drag goes
  for (int to = 60; to < 160; ++to)
    drag(to);
  EXPECT_LE(down.value(), down.maximum());
  EXPECT_GE(down.value(), down.maximum() - 100);
}

TEST_F(ZoomView, AMarkerPointsAtThePersonOnTheLongerSide) {
  const auto& zoom = openMarked(1200, 900);
  expectArrowAt(zoom, 2880 * 8285 / 5760.0, 1440 * 8285 / 5760.0);
}

TEST_F(ZoomView, AMarkerStaysOnThePersonAtEveryScaleAndPlace) {
  const auto& zoom = openMarked(900, 1200); // 5220 by 6960 twips
  expectArrowAt(zoom, 2880 * 6960 / 5760.0, 1440 * 6960 / 5760.0);
  press(zoom, "Command4");
  expectArrowAt(zoom, 2880 * 10440 / 5760.0, 1440 * 10440 / 5760.0);
  bar(zoom, "VScroll1").setValue(500);
  expectArrowAt(zoom, 2880 * 10440 / 5760.0, 1440 * 10440 / 5760.0 - 500);
  press(zoom, "Command5");
  press(zoom, "Command5");
  expectArrowAt(zoom, 2880 * 4640 / 5760.0, 1440 * 4640 / 5760.0);
}

TEST_F(ZoomView, AnEmptyRowOfNamesHidesTheMarkerAndTheNextPhotoDoesToo) {
  addPhotosUpTo(2);
  const auto& zoom = openMarked(1200, 900);
  names(zoom).setRow(3);
  EXPECT_TRUE(control(zoom, "Picture1")->isHidden());
  names(zoom).setRow(1);
  press(zoom, "Command2");
  EXPECT_TRUE(control(zoom, "Picture1")->isHidden());
}

TEST_F(ZoomView, SevenNamesFillTheGridAndTheEighthGetsAScrollBar) {
  for (int name = 0; name < 7; ++name)
    addName();
  EXPECT_EQ(names(openZoom()).names(), 7);
  EXPECT_EQ(names(openZoom()).verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
  addName();
  EXPECT_EQ(names(openZoom()).names(), 8);
  EXPECT_EQ(names(openZoom()).verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
}

TEST_F(ZoomView, TellsTheFactsOfThePhoto) {
  const auto place = folder_.addPlace("Lake");
  const auto event = folder_.addEvent("Wedding");
  set("HD00001", "Year = 1987, PlaceID = " + std::to_string(place) +
                     ", EventID = " + std::to_string(event) + ", Description = 'By the boat'");
  const auto& zoom = openZoom();
  EXPECT_EQ(labelOf(zoom, "txtYear(0)"), "1987");
  EXPECT_EQ(labelOf(zoom, "txtPlace(0)"), "Wedding in Lake");
  EXPECT_TRUE(control(zoom, "Image2(0)")->isVisible());
  EXPECT_FALSE(control(zoom, "Image3(0)")->isVisible());
}

TEST_F(ZoomView, ASoundIsLookedForBesideTheWindow) {
  writeBytes(at("Audio/00002.wav"), "x");
  const auto& zoom = openZoomOf(2);
  EXPECT_FALSE(control(zoom, "Image3(0)")->isVisible());
  const auto freePool = holdPool();
  FormControls::press(zoom, "Command2");
  EXPECT_TRUE(zoom.isLookingForSound());
  EXPECT_FALSE(control(zoom, "Image3(0)")->isVisible());
  freePool();
  settleZoom();
  EXPECT_TRUE(control(zoom, "Image3(0)")->isVisible());
}

TEST_F(ZoomView, AtEverySizeOfTheWindowTheNeighboursAreDecodedAhead) {
  addPhotosUpTo(4);
  for (const char* photo : {"1", "2", "3", "4"})
    writeJpeg(at("Photos/0000" + std::string(photo) + ".jpg"), 1200, 900);
  auto& zoom = openZoom(2);
  for (const QSize window : {QSize(790, 522), QSize(1012, 669), QSize(1920, 1000)}) {
    zoom.resize(window);
    settleZoom();
    for (const char* command : {"Command2", "Command3"}) {
      awaitPicturesAhead();
      FormControls::press(zoom, command);
      EXPECT_FALSE(zoom.isWaitingForPicture()) << window.width() << " " << command;
      settleZoom();
    }
  }
}

TEST_F(ZoomView, TheDescriptionRisesFromTheFootOfTheFactsAndGoesAtAClick) {
  set("HD00001", "Description = 'By the boat'");
  const auto& zoom = openZoom();
  press(zoom, "Image2(0)");
  auto* box = control<QWidget>(zoom, "CommentsBox");
  auto* stage = zoom.findChild<Stage*>(QString(), Qt::FindDirectChildrenOnly);
  waitUntil([&] { return stage->rect(box).height >= 3675; });
  expectPlace(stage->rect(box), {120, 5475 - 3675, 2865, 3675});
  EXPECT_EQ(labelOf(zoom, "lblComments"), "By the boat");
  EXPECT_TRUE(slides().atEOF()); // the place of the view has stayed
  FormControls::press(zoom, "Label3");
  EXPECT_TRUE(box->isHidden());
}

TEST_F(ZoomView, TheXOfTheDescriptionClosesIt) {
  set("HD00001", "Description = 'By the boat'");
  const auto& zoom = openZoom();
  press(zoom, "Image2(0)");
  const auto* box = control<Stage>(zoom, "CommentsBox");
  waitUntil([&] { return control(zoom, "Command10")->y() > 0 && box->height() > 200; });
  FormControls::press(zoom, "Command10");
  EXPECT_TRUE(box->isHidden());
}

TEST_F(ZoomView, AnotherPhotoTakesTheDescriptionAway) {
  addPhotosUpTo(2);
  set("HD00001", "Description = 'By the boat'");
  const auto& zoom = openZoom();
  press(zoom, "Image2(0)");
  EXPECT_FALSE(control(zoom, "CommentsBox")->isHidden());
  press(zoom, "Command2");
  EXPECT_TRUE(control(zoom, "CommentsBox")->isHidden());
}

TEST_F(ZoomView, WalksThroughThePhotosAndTellsTheEnds) {
  const auto& zoom = openZoomOf(3);
  expectNoMore("Previous Photo");
  press(zoom, "Command3");
  EXPECT_EQ(position(zoom), "1 Of 3");
  press(zoom, "Command2");
  EXPECT_EQ(position(zoom), "2 Of 3");
  press(zoom, "Command7");
  EXPECT_EQ(position(zoom), "3 Of 3");
  expectNoMore("Next Photo");
  press(zoom, "Command2");
  EXPECT_EQ(position(zoom), "3 Of 3");
  press(zoom, "Command3");
  EXPECT_EQ(position(zoom), "2 Of 3");
  press(zoom, "Command6");
  EXPECT_EQ(position(zoom), "1 Of 3");
  EXPECT_TRUE(boxes_.isDone());
}

TEST_F(ZoomView, AnOnlyPhotoHasNoPreviousOne) {
  const auto& zoom = openZoom();
  expectNoMore("Previous Photo");
  press(zoom, "Command3");
  EXPECT_EQ(position(zoom), "1 Of 1");
}

TEST_F(ZoomView, APhotoOfTwoHundredMegapixelsIsShownAndMagnified) {
  writeBytes(at("Photos/00001.jpg"), plainGreyJpeg({16000, 12500}, 180));
  const auto& zoom = openZoom();
  expectPlace(photoRect(zoom), {0, 0, 8285, 8285 * 12500.0 / 16000});
  EXPECT_EQ(photo(zoom).picture().size(), photo(zoom).wantedSize());
  press(zoom, "Command4");
  EXPECT_EQ(photo(zoom).picture().size(), photo(zoom).wantedSize());
}

TEST_F(ZoomView, TheHourglassStandsWhileAPhotoIsComposed) {
  auto& zoom = openZoomOf(2);
  std::vector<bool> shown;
  const auto* filled = names(zoom).model();
  QObject::connect(filled, &QAbstractItemModel::rowsInserted, filled,
                   [&] { shown.push_back(Hourglass::isShown()); });
  press(zoom, "Command2");
  EXPECT_FALSE(Hourglass::isShown());
  EXPECT_FALSE(shown.empty());
  EXPECT_EQ(std::ranges::count(shown, false), 0);
}

TEST_F(ZoomView, AMagnifiedPhotoIsSharpAsSoonAsItsPixelsAreThere) {
  const auto& zoom = openPhoto(1200, 900);
  const auto fresh = photo(zoom).picture().size();
  const auto freePool = holdPool();
  FormControls::press(zoom, "Command4");
  EXPECT_EQ(photo(zoom).picture().size(), fresh); // what there is, stretched
  EXPECT_NEAR(photoRect(zoom).width, 8285 * 1.5, 0.01);
  freePool();
  settleZoom();
  EXPECT_EQ(photo(zoom).picture().size(), photo(zoom).wantedSize());
}

TEST_F(ZoomView, ThePhotoBeforeDoesNotStandForLongBesideTheFactsOfTheNext) {
  const auto& zoom = openZoomOf(2);
  const auto freePool = holdPool();
  writePhoto(2, 300, 200);
  FormControls::press(zoom, "Command2");
  EXPECT_TRUE(photo(zoom).hasPicture());
  waitUntil([&] { return !photo(zoom).hasPicture(); });
  EXPECT_TRUE(zoom.isWaitingForPicture());
  EXPECT_TRUE(photo(zoom).isVisible()); // and keeps the keyboard
  EXPECT_EQ(zoom.area().picture().shown(), std::nullopt);
  freePool();
  settleZoom();
  EXPECT_EQ(pixels(zoom), QSize(300, 200));
}

TEST_F(ZoomView, APhotoThatIsReadAnewStaysUntilItsNewPixelsAreThere) {
  const auto& zoom = openPhoto(1200, 900);
  const auto freePool = holdPool();
  writePhoto(1, 300, 200);
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  ASSERT_TRUE(zoom.isWaitingForPicture());
  waitUntil([&] { return !zoom.findChild<QTimer*>(toQString("patience"))->isActive(); });
  EXPECT_TRUE(photo(zoom).hasPicture());
  freePool();
  settleZoom();
  EXPECT_EQ(pixels(zoom), QSize(300, 200));
}

TEST_F(ZoomView, APhotoThatWasOnItsWayWhileTheWindowGrewIsSharpToo) {
  addPhotosUpTo(2);
  writePhoto(2, 1200, 900);
  auto& zoom = openZoom();
  awaitPicturesAhead(); // how large it is, is known
  const auto freePool = holdPool();
  zoom.resize(900, 594);
  FormControls::press(zoom, "Command2");
  ASSERT_TRUE(zoom.isWaitingForPicture());
  zoom.resize(1012, 669);
  freePool();
  settleZoom();
  EXPECT_EQ(photo(zoom).picture().size(), photo(zoom).wantedSize());
}

TEST_F(ZoomView, MorePixelsThanTheFileHasAreNeverDecoded) {
  const auto& zoom = openPhoto(600, 450);
  for (int step = 0; step < 3; ++step)
    press(zoom, "Command4");
  EXPECT_EQ(photo(zoom).picture().size(), (PixelSize{600, 450}));
}

TEST_F(ZoomView, AMissingPhotoIsStoodInFor) {
  std::filesystem::remove(at("Photos/00001.jpg"));
  const auto& zoom = openZoom();
  EXPECT_TRUE(photo(zoom).hasPicture());
  EXPECT_FALSE(vars().ImagePicture.found);
}

TEST_F(ZoomView, ABrokenPhotoIsToldOnceAndTheNextOneComes) {
  addPhotosUpTo(2);
  writeBytes(at("Photos/00001.jpg"), "no photo at all");
  expectTryAgain();
  auto& zoom = openZoom();
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_TRUE(photo(zoom).note().contains(toQString("00001.jpg cannot be read")));
  EXPECT_EQ(photo(zoom).accessibleDescription(), photo(zoom).note());
  zoom.resize(1012, 669);
  settleZoom();
  press(zoom, "Command2");
  EXPECT_EQ(position(zoom), "2 Of 2");
  EXPECT_EQ(photo(zoom).note(), QString());
  EXPECT_EQ(photo(zoom).accessibleDescription(), QString()); // nothing is known of it
}

TEST_F(ZoomView, AFailureWhileComposingIsTold) {
  auto& zoom = openZoomOf(2);
  slides().Close();
  expectTryAgain();
  zoom.ComposeZoomView();
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_FALSE(Hourglass::isShown());
  EXPECT_EQ(position(zoom), "1 Of 2");
  EXPECT_NE(photo(zoom).note(), QString()); // what the failure was
}

TEST_F(ZoomView, APhotoBehindTheEndShowsNothing) {
  auto& zoom = openZoom();
  ASSERT_TRUE(slides().atEOF());
  zoom.ComposeZoomView();
  EXPECT_FALSE(photo(zoom).isVisible());
  EXPECT_TRUE(control(zoom, "Info(0)")->isHidden());
}

TEST_F(ZoomView, ThePhotoShownIsTheCurrentOne) {
  openZoomOf(2, 2);
  EXPECT_EQ(vars().ImagePath.filename(), "00002.jpg");
}

TEST_F(ZoomView, RowsThatChangedAreReadAgainAndThePhotoStays) {
  const auto& zoom = openZoomOf(3, 2);
  data().AlbumDB.execute("UPDATE PhotoAlbum SET Year = 1999 WHERE PictureID = 'HD00002'");
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  settleZoom();
  EXPECT_EQ(position(zoom), "2 Of 3");
  EXPECT_EQ(labelOf(zoom, "txtYear(0)"), "1999");
}

TEST_F(ZoomView, WhereThePhotoShownWasDeletedItsNeighbourIsShown) {
  const auto& zoom = openZoomOf(4, 3);
  remove("HD00003");
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  settleZoom();
  EXPECT_EQ(position(zoom), "3 Of 3");
  EXPECT_EQ(vars().ImagePath.filename(), "00004.jpg");
}

TEST_F(ZoomView, WhereTheOnlyPhotoWasDeletedTheViewCloses) {
  openZoom();
  remove("HD00001");
  Forms::tellRowsChanged({RowsChanged::By::EditorClosed});
  EXPECT_EQ(Forms::loaded<Zoom>(), nullptr);
}

TEST_F(ZoomView, DoneUnloadsIt) {
  const auto& zoom = openZoom();
  FormControls::press(zoom, "Command1");
  EXPECT_EQ(Forms::loaded<Zoom>(), nullptr);
}

TEST_F(ZoomView, ComingToTheFrontTellsTheHelp) {
  openZoom();
  EXPECT_EQ(frame_.active, toQString("Zoom"));
}

} // namespace hearthbook::test
