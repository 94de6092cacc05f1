#include "Look.h"
#include "Pointer.h"
#include "SearchFixture.h"
#include "TestPictures.h"

#include <QProgressBar>

namespace hearthbook::test {

namespace {

class ResultPictures : public SearchFixture {
protected:
  /// How much of the ring of the focus is seen around a cell.
  static int ringPixels(const Search& search, int index) {
    auto* grid = search.findChild<ResultGrid*>();
    const QImage image = grid->grab().toImage();
    const QRect inner = frame(search, index).geometry().adjusted(-3, -3, 3, 3);
    const QRect outer = inner.adjusted(-3, -3, 3, 3);
    int seen = 0;
    for (int y = outer.top(); y <= outer.bottom(); ++y)
      for (int x = outer.left(); x <= outer.right(); ++x)
        if (!inner.contains(x, y) && image.valid(x, y))
          seen += distance(image.pixel(x, y), look::darkRed.rgb()) < 60 ? 1 : 0;
    return seen;
  }
};

} // namespace

TEST_F(ResultPictures, AMissingThumbnailFallsBackToThePhotoAndThatToTheNotFoundPicture) {
  folder_.addPhoto("HD00002");
  folder_.addPhoto("HD00003");
  writeJpeg(at("Photos/00002.jpg"), 60, 40, 0x102030);
  std::filesystem::remove(at("Thumbnails/00002.jpg"));
  for (const char* gone : {"Thumbnails/00003.jpg", "Photos/00003.jpg"})
    std::filesystem::remove(at(gone));
  writeJpeg(at("Media/NotFound.gif"), 60, 40, 0xb030b0);
  const auto& search = searchAmong(1);
  EXPECT_LE(distance(colourOf(search, 1), 0xff102030), 6);
  EXPECT_LE(distance(colourOf(search, 2), 0xffb030b0), 6);
  EXPECT_EQ(vars().ImagePath, at("Photos/00003.jpg"));
  EXPECT_EQ(vars().ImagePicture, (PictureSource{at("Media/NotFound.gif"), false}));
}

TEST_F(ResultPictures, APageOfMissingPhotosIsAsWholeAsAnyOther) {
  writeJpeg(at("Media/NotFound.gif"), 60, 40, 0xb030b0);
  const auto& search = searchAmong(24); // rows without files
  EXPECT_EQ(filledCells(search), 24);
  for (int index = 1; index < resultsPerPage; ++index)
    EXPECT_LE(distance(colourOf(search, index), 0xffb030b0), 6) << index;
  EXPECT_EQ(position(search), "1 to 24 of 24");
}

TEST_F(ResultPictures, ABrokenThumbnailShowsTheNotFoundPictureAndNotItsNeighbour) {
  writeJpeg(at("Media/NotFound.gif"), 60, 40, 0xb030b0);
  folder_.addPhoto("HD00002");
  folder_.addPhoto("HD00003");
  writeBytes(at("Thumbnails/00002.jpg"), "no picture at all");
  // Its head is whole, its pixels are not there.
  writeBytes(at("Thumbnails/00003.jpg"), jpegOf(plain({73, 55}, 0xff102030)).substr(0, 200));
  const auto& search = searchAmong(1);
  for (const int index : {1, 2})
    EXPECT_LE(distance(colourOf(search, index), 0xffb030b0), 6) << index;
}

TEST_F(ResultPictures, APhotoOfAForeignPrefixShowsTheOneBeforeIt) {
  writeJpeg(at("Thumbnails/00001.jpg"), 73, 55, 0x208040);
  folder_.addPhoto("XY00007", {{"Year", 1950}});
  const auto& search = searchAmong(1);
  EXPECT_EQ(filledCells(search), 2);
  for (const int index : {0, 1})
    EXPECT_LE(distance(colourOf(search, index), 0xff208040), 6) << index;
}

TEST_F(ResultPictures, PhotosOfTheDiscAreShownFromItsThumbnailsOrItsPhotos) {
  const auto disc = at("disc");
  for (const char* folder : {"Thumbnails", "Photos"})
    std::filesystem::create_directories(disc / folder);
  writeJpeg(disc / "Thumbnails/00002.jpg", 73, 55, 0x208040);
  writeJpeg(disc / "Photos/00002.jpg", 73, 55, 0x802040);
  writeJpeg(disc / "Photos/00003.jpg", 60, 40, 0x102030);
  folder_.drives().listOptical({"sr0"});
  folder_.drives().insertDisc("sr0", disc);
  for (const char* id : {"CD00002", "CD00003"})
    folder_.addRow("PhotoAlbum", {{"PictureID", id}});
  const auto& search = searchAmong(1);
  EXPECT_EQ(filledCells(search), 3);
  EXPECT_LE(distance(colourOf(search, 0), 0xff208040), 6);
  EXPECT_LE(distance(colourOf(search, 1), 0xff102030), 6);
}

TEST_F(ResultPictures, TheFilesOfTheNextPageAreLookedForBesideTheWindowsThread) {
  addRowsUpTo(30);
  const auto& search = openSearch();
  const auto letGo = holdPool();
  FormControls::press(search, "Command1");
  for (int turn = 0; turn < 5; ++turn)
    QCoreApplication::processEvents();
  for (int number = 25; number <= 30; ++number)
    writeJpeg(at("Thumbnails/" + idOf(number).substr(2) + ".jpg"), 73, 55);
  letGo();
  settleSearch();
  awaitPicturesAhead();
  FormControls::press(search, "Command2");
  // Not one turn of the event loop between.
  EXPECT_FALSE(search.isWaitingForPictures());
  settleSearch();
}

TEST_F(ResultPictures, APhotoWhosePlaceCannotBeLookedUpIsThereWithTheRestOfItsTip) {
  for (int number = 2; number <= 30; ++number)
    folder_.addRow("PhotoAlbum", {{"PictureID", idOf(number)}, {"Year", 1994}, {"PlaceID", 1}});
  const auto& search = searchAmong(1);
  data().rsPlaces.Close();
  press(search, "Command2");
  EXPECT_EQ(position(search), "25 to 30 of 30");
  EXPECT_EQ(filledCells(search), 6);
  EXPECT_EQ(vars().PagePositions[0], Value(25));
  EXPECT_EQ(tipOf(search, 0), "1994");
}

TEST_F(ResultPictures, APositionNeverStandsUnderThePictureOfAnotherPhoto) {
  writeJpeg(at("Media/NotFound.gif"), 60, 40, 0xb030b0);
  writeJpeg(at("Thumbnails/00001.jpg"), 73, 55, 0x208040);
  auto& search = searchAmong(30);
  EXPECT_LE(distance(colourOf(search, 0), 0xff208040), 6);
  result().Close();
  result().Open("SELECT Year FROM PhotoAlbum"); // nothing tells the files of its photos
  result().Move(6, Recordset::Start::First);
  search.ComposeResultPage();
  settleSearch();
  EXPECT_EQ(vars().PagePositions[0], Value(7));
  EXPECT_EQ(position(search), "7 to 30 of 30");
  EXPECT_LE(distance(colourOf(search, 0), 0xffb030b0), 6);
}

TEST_F(ResultPictures, TheHourglassStandsWhileAPageIsComposed) {
  auto& search = searchAmong(30);
  bool wasShown = false;
  Forms::provide<Progress>([&] {
    auto* progress = new Progress;
    const auto* bar = progress->findChild<QProgressBar*>();
    QObject::connect(bar, &QProgressBar::valueChanged, bar,
                     [&] { wasShown = wasShown || Hourglass::isShown(); });
    return progress;
  });
  result().MoveFirst();
  search.ComposeResultPage();
  EXPECT_TRUE(wasShown);
  EXPECT_FALSE(Hourglass::isShown());
  Forms::provide<Progress>([] { return new Progress; });
}

TEST_F(ResultPictures, ARingIsAroundThePhotoThatHasTheFocus) {
  const auto& search = searchAmong(10);
  cell(search, 3).setFocus();
  EXPECT_GT(ringPixels(search, 3), 30);
  EXPECT_EQ(ringPixels(search, 5), 0);
  QTest::keyClick(&cell(search, 3), Qt::Key_Right);
  QTest::keyClick(&cell(search, 4), Qt::Key_Right);
  EXPECT_EQ(ringPixels(search, 3), 0);
  EXPECT_GT(ringPixels(search, 5), 30);
}

} // namespace hearthbook::test
