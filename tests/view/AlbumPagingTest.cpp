#include "AlbumPaging.h"

#include "AlbumFixture.h"
#include "AlbumPage.h"

namespace hearthbook::test {
namespace {

/// An album of so many photos, read page by page as the form does it.
class AlbumPagingTest : public AlbumFixture {
protected:
  void openAlbumOf(int count) {
    for (int number = 2; number <= count; ++number)
      folder_.addRow("PhotoAlbum", {{"PictureID", idOf(number)}});
    vars().rsViewer = std::make_unique<Recordset>(data().AlbumDB);
    vars().rsViewer->Open("SELECT * FROM PhotoAlbum ORDER BY PictureID");
    composeFrom(1);
  }
  static std::string idOf(int number) { return "HD" + std::to_string(100000 + number).substr(1); }

  void composeFrom(std::int64_t position) {
    photos().Move(position - 1, Recordset::Start::First);
    for (shown_ = 0; shown_ < photosOnPage && !photos().atEOF(); ++shown_)
      photos().MoveNext();
  }
  Recordset& photos() { return *vars().rsViewer; }
  AlbumPaging paging() { return albumPaging(photos(), shown_); }
  std::string firstIdOn(std::int64_t position) {
    composeFrom(position);
    return idOf(static_cast<int>(position));
  }
  /// The ids with which a search's results begin.
  std::string current() { return photos().Collect("PictureID").toText(); }

  int shown_ = 0;
};

TEST_F(AlbumPagingTest, UpToFourPhotosAreOnePage) {
  for (const int count : {1, 2, 3, 4}) {
    openAlbumOf(count == 1 ? 1 : count);
    EXPECT_TRUE(photos().atEOF()) << count;
    EXPECT_EQ(paging().label(), "Page 1 of 1") << count;
    EXPECT_EQ(paging().next(), std::nullopt) << count;
    EXPECT_EQ(paging().previous(), std::nullopt) << count;
    AlbumData::execute(data().rsPhotoAlbum, "DELETE FROM PhotoAlbum WHERE PictureID > 'HD00001'");
  }
}

TEST_F(AlbumPagingTest, OfFivePhotosTheSecondPageHasOne) {
  openAlbumOf(5);
  EXPECT_EQ(paging().label(), "Page 1 of 2");
  ASSERT_EQ(paging().next(), 5);
  composeFrom(5);
  EXPECT_EQ(shown_, 1);
  EXPECT_EQ(paging().label(), "Page 2 of 2");
  EXPECT_EQ(paging().next(), std::nullopt);
  EXPECT_EQ(paging().previous(), 1);
}

TEST_F(AlbumPagingTest, TheFirstPageStandingFullHasNothingBeforeIt) {
  openAlbumOf(9);
  EXPECT_EQ(photos().AbsolutePosition(), 5);
  EXPECT_EQ(paging().previous(), std::nullopt);
}

TEST_F(AlbumPagingTest, PagesAreCountedByThePositionBehindThem) {
  openAlbumOf(10);
  EXPECT_EQ(paging().label(), "Page 1 of 3");
  composeFrom(5);
  EXPECT_EQ(photos().AbsolutePosition(), 9);
  EXPECT_EQ(paging().label(), "Page 2 of 3");
  EXPECT_EQ(paging().previous(), 1);
  EXPECT_EQ(paging().last(), 9);
  composeFrom(9);
  EXPECT_EQ(paging().label(), "Page 3 of 3");
  EXPECT_EQ(paging().previous(), 5);
  EXPECT_EQ(paging().firstLabel(), "Page 1 of 3");
}

TEST_F(AlbumPagingTest, APageThatDoesNotBeginWithAMultipleIsTheNearestOne) {
  openAlbumOf(20);
  composeFrom(2); // behind it stands 6: one and a half, and of two as near the even one
  EXPECT_EQ(paging().label(), "Page 2 of 5");
  composeFrom(6); // two and a half
  EXPECT_EQ(paging().label(), "Page 2 of 5");
  composeFrom(3);
  EXPECT_EQ(paging().label(), "Page 2 of 5");
  EXPECT_EQ(paging().previous(), 1); // four and four records back: off the beginning
}

TEST_F(AlbumPagingTest, AnEmptyAlbumHasNoPage) {
  openAlbumOf(1);
  photos().Close();
  photos().Open("SELECT * FROM PhotoAlbum WHERE PictureID = Null");
  shown_ = 0;
  EXPECT_EQ(paging().label(), "Page 0 of 0");
  EXPECT_EQ(paging().next(), std::nullopt);
  EXPECT_EQ(paging().previous(), std::nullopt);
  EXPECT_TRUE(neighbourPages(photos(), shown_).empty());
}

TEST_F(AlbumPagingTest, TheNeighboursAreTheNextPageAndThePreviousOne) {
  openAlbumOf(10);
  composeFrom(5);
  EXPECT_EQ(
      neighbourPages(photos(), shown_),
      (std::vector<PlaceOnPage>{
          {idOf(9), 0}, {idOf(10), 1}, {idOf(1), 0}, {idOf(2), 1}, {idOf(3), 2}, {idOf(4), 3}}));
  EXPECT_EQ(photos().AbsolutePosition(), 9);
}

TEST_F(AlbumPagingTest, AfterTheEditorOneReturnsToThePageShown) {
  openAlbumOf(10);
  EXPECT_EQ(paging().returnRowOfEditor(), 0);
  composeFrom(5);
  EXPECT_EQ(paging().returnRowOfEditor(), 4);
  composeFrom(9);
  EXPECT_EQ(paging().returnRowOfEditor(), 8);
  EXPECT_EQ(albumPaging(photos(), 0).returnRowOfEditor(), 5);
}

TEST_F(AlbumPagingTest, AfterABatchAPageOfOnePhotoIsNotReturnedTo) {
  openAlbumOf(9);
  composeFrom(9);
  EXPECT_EQ(paging().returnRowOfEditor(), 8);
  EXPECT_EQ(paging().returnRowOfBatch(), 4);
}

TEST_F(AlbumPagingTest, WithoutASelectionResultsBeginWithTheFirstPhoto) {
  openAlbumOf(10);
  beginWithSelection(vars());
  EXPECT_EQ(current(), idOf(1));
}

TEST_F(AlbumPagingTest, WithOneSelectedPhotoResultsBeginWithItsPage) {
  openAlbumOf(10);
  for (const auto& [selected, first] : {std::pair{1, 1}, {4, 1}, {5, 5}, {8, 5}, {10, 9}}) {
    vars().selection.clear();
    vars().selection.select(3);
    vars().selection.select(selected);
    if (selected != 3)
      vars().selection.deselect(3); // leaves a hole in front
    beginWithSelection(vars());
    EXPECT_EQ(current(), idOf(first)) << selected;
    EXPECT_EQ(photos().RecordCount(), 10);
  }
}

TEST_F(AlbumPagingTest, SeveralSelectedPhotosAreTheWholeSet) {
  openAlbumOf(10);
  for (const int position : {9, 2, 7})
    vars().selection.select(position);
  beginWithSelection(vars());
  EXPECT_EQ(photos().Source(), "SELECT * From PhotoAlbum Where PictureID = Null OR PictureID = "
                               "'HD00002' OR PictureID = 'HD00007' OR PictureID = 'HD00009'");
  EXPECT_EQ(photos().RecordCount(), 3);
  EXPECT_EQ(current(), idOf(2));
  EXPECT_EQ(vars().selection.SelectedPositions,
            (std::vector<Value>{Value(2), Value(7), Value(9), Value("")}));
}

TEST_F(AlbumPagingTest, AnEmptyResultBeginsNowhere) {
  openAlbumOf(1);
  photos().Close();
  photos().Open("SELECT * FROM PhotoAlbum WHERE PictureID = Null");
  beginWithSelection(vars());
  EXPECT_TRUE(photos().atEOF());
}

} // namespace
} // namespace hearthbook::test
