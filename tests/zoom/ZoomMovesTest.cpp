#include "ZoomMoves.h"

#include "AlbumFixture.h"

#include <gmock/gmock.h>

namespace hearthbook::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The photos HD00001 to HD0000n, shown one by one as the zoom view does.
class ZoomMoves : public AlbumFixture {
protected:
  Recordset& photosUpTo(int last) {
    for (int number = 2; number <= last; ++number)
      folder_.addPhoto("HD0000" + std::to_string(number));
    photos_ = data().rsPhotoAlbum.Clone();
    show();
    return *photos_;
  }
  /// Shows the photo on which the set stands; the set then stands behind it.
  std::string show() {
    shown_ = photos_->Collect("PictureID").toText();
    moveBehindShown(*photos_);
    return shown_;
  }
  std::string showPrevious() { return goPrevious(*photos_) ? show() : "none"; }
  void remove(const std::string& id) {
    data().rsPhotoAlbum.Find("PictureID = '" + id + "'", Recordset::Start::First);
    data().rsPhotoAlbum.Delete();
  }
  void showLast() {
    photos_->MoveLast();
    show();
  }

  std::unique_ptr<Recordset> photos_;
  std::string shown_;
};

} // namespace

TEST_F(ZoomMoves, NextIsThePhotoOnWhichTheSetStands) {
  photosUpTo(2);
  EXPECT_TRUE(canGoNext(*photos_));
  EXPECT_EQ(show(), "HD00002");
  EXPECT_FALSE(canGoNext(*photos_));
}

TEST_F(ZoomMoves, PreviousGoesTwoBack) {
  photosUpTo(3);
  show();
  EXPECT_EQ(showPrevious(), "HD00001");
}

TEST_F(ZoomMoves, PreviousOfTheFirstIsNoneAndMovesNothing) {
  photosUpTo(3);
  EXPECT_EQ(photos_->AbsolutePosition(), 2);
  EXPECT_EQ(showPrevious(), "none");
  EXPECT_EQ(photos_->AbsolutePosition(), 2);
}

TEST_F(ZoomMoves, PreviousOfTheLastCountsFromTheEnd) {
  photosUpTo(3);
  showLast();
  EXPECT_EQ(showPrevious(), "HD00002");
}

TEST_F(ZoomMoves, AnOnlyPhotoHasNoPreviousOne) {
  photosUpTo(1);
  EXPECT_EQ(showPrevious(), "none");
  EXPECT_TRUE(photos_->atEOF());
}

TEST_F(ZoomMoves, AShowGoesRoundWithAStepThatShowsNothing) {
  photosUpTo(2);
  EXPECT_TRUE(goNextAround(*photos_));
  EXPECT_EQ(show(), "HD00002");
  EXPECT_FALSE(goNextAround(*photos_));
  EXPECT_TRUE(goNextAround(*photos_));
  EXPECT_EQ(show(), "HD00001");
}

TEST_F(ZoomMoves, WhereTheShowHasJustGoneRoundTheLastPhotoIsStillTheOneShown) {
  photosUpTo(3);
  showLast();
  goNextAround(*photos_);
  EXPECT_EQ(showPrevious(), "HD00002");
  showLast();
  goNextAround(*photos_);
  goBackToShown(*photos_);
  EXPECT_EQ(show(), "HD00003");
}

TEST_F(ZoomMoves, BackToThePhotoShown) {
  photosUpTo(3);
  goBackToShown(*photos_);
  EXPECT_EQ(show(), "HD00001");
  showLast();
  goBackToShown(*photos_);
  EXPECT_EQ(show(), "HD00003");
}

TEST_F(ZoomMoves, TheLabelTellsThePhotoAndHowManyThereAre) {
  photosUpTo(3);
  photos_->MoveFirst();
  EXPECT_EQ(positionLabel(*photos_), "1 Of 3");
  photos_->MoveLast();
  EXPECT_EQ(positionLabel(*photos_), "3 Of 3");
}

TEST_F(ZoomMoves, TheNeighboursAreTheNextThePreviousAndTheOneAfterTheNext) {
  photosUpTo(5);
  show(); // 2
  EXPECT_THAT(slideNeighbourIds(*photos_), ElementsAre("HD00003", "HD00001", "HD00004"));
}

TEST_F(ZoomMoves, BehindTheLastPhotoComesTheFirst) {
  photosUpTo(4);
  showLast();
  EXPECT_THAT(slideNeighbourIds(*photos_), ElementsAre("HD00001", "HD00003", "HD00002"));
}

TEST_F(ZoomMoves, AnOnlyPhotoHasNoNeighbours) {
  photosUpTo(1);
  EXPECT_THAT(slideNeighbourIds(*photos_), IsEmpty());
}

TEST_F(ZoomMoves, LookingForNeighboursLeavesTheSetWhereItStands) {
  photosUpTo(3);
  slideNeighbourIds(*photos_);
  EXPECT_EQ(photos_->AbsolutePosition(), 2);
}

TEST_F(ZoomMoves, ReadAgainThePhotoShownIsTheOneToShow) {
  photosUpTo(3);
  show(); // 2
  EXPECT_TRUE(readAgain(*photos_, shown_));
  EXPECT_EQ(show(), "HD00002");
}

TEST_F(ZoomMoves, WhereThePhotoShownIsGoneTheOneBehindItComes) {
  photosUpTo(4);
  show(); // 2
  remove("HD00002");
  EXPECT_TRUE(readAgain(*photos_, shown_));
  EXPECT_EQ(show(), "HD00003");
}

TEST_F(ZoomMoves, WhereTheFirstPhotoWasShownAndIsGoneTheSecondComes) {
  photosUpTo(3);
  remove("HD00001");
  EXPECT_TRUE(readAgain(*photos_, shown_));
  EXPECT_EQ(show(), "HD00002");
}

TEST_F(ZoomMoves, WhereTheLastPhotoWasShownAndIsGoneTheOneBeforeItComes) {
  photosUpTo(3);
  showLast();
  remove("HD00003");
  EXPECT_TRUE(readAgain(*photos_, shown_));
  EXPECT_EQ(show(), "HD00002");
}

TEST_F(ZoomMoves, WhereItsNeighboursAreGoneTooThePlaceOfThePhotoIsKept) {
  photosUpTo(6);
  show();
  show(); // 3
  data().AlbumDB.execute("DELETE FROM PhotoAlbum WHERE PictureID IN ('HD00003', 'HD00004')");
  EXPECT_TRUE(readAgain(*photos_, shown_));
  EXPECT_EQ(show(), "HD00005");
}

TEST_F(ZoomMoves, WhereNoPhotoIsLeftThereIsNothingToShow) {
  photosUpTo(1);
  remove("HD00001");
  EXPECT_FALSE(readAgain(*photos_, shown_));
}

TEST_F(ZoomMoves, PhotosThatAreDeletedMeanwhileAreLeftOut) {
  photosUpTo(4);
  show(); // 2; the set stands on 3
  remove("HD00003");
  EXPECT_TRUE(goNextAround(*photos_));
  EXPECT_EQ(show(), "HD00004");
  EXPECT_FALSE(canGoNext(*photos_));
  remove("HD00001");
  EXPECT_EQ(showPrevious(), "HD00002");
}

} // namespace hearthbook::test
