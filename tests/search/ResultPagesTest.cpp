#include "SearchFixture.h"

#include "ProgressNote.h"
#include "TestPictures.h"

#include <QPaintEvent>

#include <utility>

namespace hearthbook::test {

namespace {

class ResultPages : public SearchFixture {
protected:
  void expectNoMore(const Search& search, const char* command) {
    boxes_.expectMessage(toQString("No More Records!"));
    const std::string before = position(search);
    press(search, command);
    EXPECT_EQ(position(search), before);
    EXPECT_TRUE(boxes_.isDone());
  }
  static TwipsRect rectOf(const Search& search, int index) {
    return search.findChild<ResultGrid*>()->rect(&cell(search, index));
  }
};

constexpr TwipsRect firstCell{240, 120, 1095, 1095};

/// What of a widget has been painted since it was last asked.
class PaintedRegion : public QObject {
public:
  explicit PaintedRegion(QObject* watched) { watched->installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint)
      region_ += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
  QRegion take() { return std::exchange(region_, {}); }

private:
  QRegion region_;
};

} // namespace

TEST_F(ResultPages, The24CellsStandInEightColumnsAndThreeRows) {
  const auto& search = openSearch();
  auto* grid = search.findChild<ResultGrid*>();
  for (int index = 0; index < resultsPerPage; ++index) {
    const TwipsRect place{firstCell.left + index % 8 * 1320.0, firstCell.top + index / 8 * 1320.0,
                          1095, 1095};
    EXPECT_EQ(grid->rect(&cell(search, index)), place) << index;
    EXPECT_EQ(grid->rect(&frame(search, index)), place) << index;
  }
  EXPECT_NEAR(grid->scale(), 1, 0.005);
}

TEST_F(ResultPages, OnePageOf24HasNothingBehindOrBefore) {
  const auto& search = searchAmong(24);
  EXPECT_EQ(position(search), "1 to 24 of 24");
  EXPECT_EQ(filledCells(search), 24);
  EXPECT_TRUE(result().atEOF());
  expectNoMore(search, "Command2");
  expectNoMore(search, "Command3");
}

TEST_F(ResultPages, TheSecondPageOf25HasOnePhotoAnd23ClearedCells) {
  addRowsUpTo(25);
  data().AlbumDB.execute("UPDATE PhotoAlbum SET [Year] = 1990");
  const auto& search = searchAmong(1);
  EXPECT_EQ(position(search), "1 to 24 of 25");
  press(search, "Command2");
  EXPECT_EQ(position(search), "25 to 25 of 25");
  EXPECT_EQ(filledCells(search), 1);
  for (int index = 1; index < resultsPerPage; ++index) {
    EXPECT_FALSE(cell(search, index).hasPicture()) << index;
    EXPECT_EQ(tipOf(search, index), "1990") << index; // as the page before left it
  }
  EXPECT_EQ(vars().PageThumbCount, 1);
  EXPECT_EQ(vars().PagePositions[0], Value(25));
  EXPECT_EQ(vars().PagePositions[1], Value(2)); // as the page before left it
  expectNoMore(search, "Command2");
  press(search, "Command3");
  EXPECT_EQ(position(search), "1 to 24 of 25");
  EXPECT_TRUE(vars().AtFirstPage);
}

TEST_F(ResultPages, TheLastPageOf48BeginsWith25AndIsLeftToTheFirst) {
  const auto& search = searchAmong(48);
  press(search, "Command13");
  EXPECT_EQ(position(search), "25 to 48 of 48");
  EXPECT_FALSE(vars().AtFirstPage);
  press(search, "Command3");
  EXPECT_EQ(position(search), "1 to 24 of 48");
  EXPECT_EQ(vars().PagePositions[0], Value(1));
}

TEST_F(ResultPages, TheLastPageOf60IsLeftTo25) {
  const auto& search = searchAmong(60);
  press(search, "Command13");
  EXPECT_EQ(position(search), "49 to 60 of 60");
  press(search, "Command3");
  EXPECT_EQ(position(search), "25 to 48 of 60");
  EXPECT_EQ(vars().PagePositions[0], Value(25));
  EXPECT_FALSE(vars().AtFirstPage);
  press(search, "Command3");
  EXPECT_EQ(position(search), "1 to 24 of 60");
  expectNoMore(search, "Command3");
}

TEST_F(ResultPages, TheFirstPageComesBackFromAnywhere) {
  const auto& search = searchAmong(60);
  press(search, "Command2");
  EXPECT_EQ(position(search), "25 to 48 of 60");
  EXPECT_FALSE(vars().AtFirstPage);
  press(search, "Command12");
  EXPECT_EQ(position(search), "1 to 24 of 60");
  EXPECT_TRUE(vars().AtFirstPage);
}

TEST_F(ResultPages, ANewSearchDoesNotSayThatItIsOnItsFirstPage) {
  const auto& search = searchAmong(60);
  press(search, "Command13");
  press(search, "Command1");
  EXPECT_EQ(position(search), "1 to 24 of 60");
  EXPECT_FALSE(vars().AtFirstPage);
  press(search, "Command3"); // runs off the beginning
  EXPECT_EQ(position(search), "1 to 24 of 60");
  EXPECT_TRUE(vars().AtFirstPage);
}

TEST_F(ResultPages, EachWayOfPagingHasItsProgress) {
  const auto& search = searchAmong(60);
  ProgressNote progress;
  press(search, "Command2");
  EXPECT_EQ(progress.caption, toQString("Processing Next Page, Please Wait"));
  press(search, "Command3");
  EXPECT_EQ(progress.caption, toQString("Processing Previouse Page, Please Wait"));
  press(search, "Command13");
  EXPECT_EQ(progress.caption, toQString("Search In Progress"));
  press(search, "Command12");
  EXPECT_EQ(progress.caption, toQString("Search In Progress"));
}

TEST_F(ResultPages, TheFramesOfAPageComeBackWithIt) {
  const auto& search = searchAmong(60);
  click(search, 3);
  press(search, "Command2");
  EXPECT_TRUE(framed(search).empty());
  click(search, 3);
  click(search, 7);
  EXPECT_EQ(text(search, "Command14"), "Clear Selection (3)");
  press(search, "Command12");
  EXPECT_EQ(framed(search), std::vector<int>{3});
  press(search, "Command2");
  EXPECT_EQ(framed(search), (std::vector<int>{3, 7}));
}

TEST_F(ResultPages, EachPictureIsFittedIntoItsCellByItsOwnOrientation) {
  folder_.addPhoto("HD00002");
  folder_.addPhoto("HD00003");
  writeJpeg(at("Thumbnails/00001.jpg"), 73, 55);
  writeJpeg(at("Thumbnails/00002.jpg"), 36, 73);
  writeJpeg(at("Thumbnails/00003.jpg"), 73, 73);
  const auto& search = searchAmong(1);
  const TwipsRect wide = rectOf(search, 0);
  EXPECT_DOUBLE_EQ(wide.left, 242.5);
  EXPECT_DOUBLE_EQ(wide.width, 1090);
  EXPECT_NEAR(wide.height, 1090 * 55 / 73.0, 1e-6);
  EXPECT_NEAR(wide.top + wide.height / 2, 120 + 1095 / 2.0, 1e-6);
  const TwipsRect high = rectOf(search, 1);
  EXPECT_DOUBLE_EQ(high.height, 1090);
  EXPECT_NEAR(high.width, 1090 * 36 / 73.0, 1e-6);
  EXPECT_EQ(rectOf(search, 2), (TwipsRect{240 + 2 * 1320 + 2.5, 122.5, 1090, 1090}));
}

TEST_F(ResultPages, WhatIsAroundAPictureIsPaintedAgainWhenItComes) {
  writeJpeg(at("Thumbnails/00001.jpg"), 73, 36);
  const auto& search = openSearch();
  auto* grid = search.findChild<ResultGrid*>();
  PaintedRegion painted(grid);
  EditorFixture::press(search, "Command1");
  grid->repaint();
  painted.take();
  settleSearch();
  EXPECT_TRUE(painted.take().contains(grid->toPixels(firstCell).topLeft() - QPoint(2, 2)));
}

TEST_F(ResultPages, TheToolTipTellsYearPlaceAndEvent) {
  const auto lake = folder_.addPlace("Lake");
  const auto wedding = folder_.addEvent("Wedding");
  folder_.addPhoto("HD00002", {{"Year", 1994}, {"PlaceID", lake}, {"EventID", wedding}});
  folder_.addPhoto("HD00003", {{"Year", 1995}, {"EventID", wedding}});
  folder_.addPhoto("HD00004", {{"Year", 1996}, {"PlaceID", 99}, {"EventID", 99}});
  const auto& search = searchAmong(1);
  EXPECT_EQ(tipOf(search, 0), "");
  EXPECT_EQ(tipOf(search, 1), "1994 - Lake - Wedding");
  EXPECT_EQ(tipOf(search, 2), "1995 - Wedding");
  EXPECT_EQ(tipOf(search, 3), "1996");
}

TEST_F(ResultPages, AnUndatedPhotoOfAPlaceHasATipThatBeginsWithTheDash) {
  folder_.addPhoto("HD00002", {{"PlaceID", folder_.addPlace("Lake")}});
  EXPECT_EQ(tipOf(searchAmong(1), 1), " - Lake");
}

TEST_F(ResultPages, AScreenReaderIsToldWhichPhotoItIs) {
  folder_.addPhoto("HD00002", {{"Year", 1994}, {"PlaceID", folder_.addPlace("Lake")}});
  const auto& search = searchAmong(1);
  EXPECT_EQ(cell(search, 0).accessibleName(), toQString("Photo 1"));
  EXPECT_EQ(cell(search, 1).accessibleName(), toQString("Photo 2, 1994 - Lake"));
}

TEST_F(ResultPages, PicturesFollowTheSizeOfTheForm) {
  auto& search = searchAmong(1);
  const int before = cell(search, 0).picture().size().width;
  search.resize(790 * 3, 522 * 3);
  settleSearch();
  EXPECT_NEAR(cell(search, 0).picture().size().width, 3 * before, 3);
  EXPECT_EQ(rectOf(search, 0).width, 1090);
}

TEST_F(ResultPages, ComposingStartsFromTheRowOnWhichTheResultStands) {
  auto& search = searchAmong(60);
  result().Move(9, Recordset::Start::First);
  search.ComposeResultPage();
  EXPECT_EQ(position(search), "10 to 33 of 60");
  EXPECT_EQ(vars().PagePositions[0], Value(10));
  EXPECT_EQ(result().AbsolutePosition(), 34);
}

TEST_F(ResultPages, TheLastPageOfAHundredThousandResultsIsThere) {
  data().AlbumDB.execute(
      "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
      "INSERT INTO PhotoAlbum (PictureID) "
      "SELECT CASE i WHEN 100000 THEN 'CD00001' ELSE printf('HD%05d', i) END FROM n");
  const auto& search = searchAmong(1);
  EXPECT_EQ(position(search), "1 to 24 of 100000");
  press(search, "Command13");
  EXPECT_EQ(position(search), "99985 to 100000 of 100000");
  press(search, "Command3");
  EXPECT_EQ(position(search), "99961 to 99984 of 100000");
}

TEST_F(ResultPages, PhotosDeletedBehindTheResultAreStillOnItsPages) {
  const auto& search = searchAmong(30);
  data().AlbumDB.execute("DELETE FROM PhotoAlbum WHERE PictureID > 'HD00010'");
  press(search, "Command2");
  EXPECT_EQ(position(search), "25 to 30 of 30");
  EXPECT_EQ(filledCells(search), 6);
}

TEST_F(ResultPages, PageDownAndPageUpTurnThePages) {
  auto& search = searchAmong(60);
  cell(search, 5).setFocus();
  QTest::keyClick(&cell(search, 5), Qt::Key_PageDown);
  EXPECT_EQ(position(search), "25 to 48 of 60");
  EXPECT_TRUE(cell(search, 5).hasFocus());
  QTest::keyClick(&cell(search, 5), Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(position(search), "49 to 60 of 60");
  QTest::keyClick(&cell(search, 5), Qt::Key_PageUp);
  EXPECT_EQ(position(search), "25 to 48 of 60");
  QTest::keyClick(&cell(search, 5), Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(position(search), "1 to 24 of 60");
  QTest::keyClick(control<QLineEdit>(search, "Description"), Qt::Key_PageDown);
  EXPECT_EQ(position(search), "25 to 48 of 60");
}

TEST_F(ResultPages, PageDownBeforeTheFirstSearchDoesNothing) {
  auto& search = openSearch();
  QTest::keyClick(control<QLineEdit>(search, "Description"), Qt::Key_PageDown);
  EXPECT_EQ(position(search), "");
}

TEST_F(ResultPages, TheFocusGoesToTheLastPhotoWhereItsCellIsEmptyNow) {
  auto& search = searchAmong(25);
  cell(search, 20).setFocus();
  QTest::keyClick(&cell(search, 20), Qt::Key_PageDown);
  EXPECT_TRUE(cell(search, 0).hasFocus());
}

} // namespace hearthbook::test
