#include "AlbumFile.h"

#include "RunTimeError.h"

namespace hearthbook::test {
namespace {

class Walk : public AlbumFile {
protected:
  Walk() { rows.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID"); }

  std::string id() { return rows.Collect("PictureID").toText(); }

  Recordset rows{connection};
};

TEST_F(Walk, StandsOnTheFirstRowAfterOpening) {
  EXPECT_EQ(id(), "CD00002");
  EXPECT_FALSE(rows.atBOF());
  EXPECT_FALSE(rows.atEOF());
}

TEST_F(Walk, MovesByOneRow) {
  rows.MoveNext();
  EXPECT_EQ(id(), "HD00001");
  rows.MovePrevious();
  EXPECT_EQ(id(), "CD00002");
  rows.MoveLast();
  EXPECT_EQ(id(), "HD00005");
  rows.MoveFirst();
  EXPECT_EQ(id(), "CD00002");
}

TEST_F(Walk, StandsAtEOFBehindTheLastRow) {
  rows.MoveLast();
  rows.MoveNext();
  EXPECT_TRUE(rows.atEOF());
  EXPECT_FALSE(rows.atBOF());
  EXPECT_LT(rows.AbsolutePosition(), 0);
  EXPECT_THROW(rows.MoveNext(), RunTimeError);
  EXPECT_THROW(static_cast<void>(id()), RunTimeError);
  rows.MovePrevious();
  EXPECT_EQ(id(), "HD00005");
}

TEST_F(Walk, StandsAtBOFBeforeTheFirstRow) {
  rows.MovePrevious();
  EXPECT_TRUE(rows.atBOF());
  EXPECT_FALSE(rows.atEOF());
  EXPECT_LT(rows.AbsolutePosition(), 0);
  EXPECT_THROW(rows.MovePrevious(), RunTimeError);
  rows.MoveNext();
  EXPECT_EQ(id(), "CD00002");
}

TEST_F(Walk, StandsOnARowBetweenTheEndsOfAnOpenSetAlone) {
  EXPECT_TRUE(standsOnRow(rows));
  rows.MoveLast();
  EXPECT_TRUE(standsOnRow(rows));
  rows.MoveNext();
  EXPECT_FALSE(standsOnRow(rows));
  rows.Move(-100);
  EXPECT_FALSE(standsOnRow(rows));
  rows.AddNew();
  EXPECT_TRUE(standsOnRow(rows));
  rows.CancelUpdate();
  rows.Close();
  EXPECT_FALSE(standsOnRow(rows));
}

TEST_F(Walk, MoveCountsFromTheCurrentRow) {
  rows.Move(3);
  EXPECT_EQ(rows.AbsolutePosition(), 4);
  rows.Move(-2);
  EXPECT_EQ(rows.AbsolutePosition(), 2);
  rows.Move(0);
  EXPECT_EQ(rows.AbsolutePosition(), 2);
}

TEST_F(Walk, MoveCountsFromTheFirstRowWhereTold) {
  rows.MoveLast();
  rows.Move(2, Recordset::Start::First);
  EXPECT_EQ(rows.AbsolutePosition(), 3);
  rows.Move(-1, Recordset::Start::First);
  EXPECT_TRUE(rows.atBOF());
  rows.Move(6, Recordset::Start::First);
  EXPECT_TRUE(rows.atEOF());
}

TEST_F(Walk, MovePastAnEndStandsThere) {
  rows.Move(100);
  EXPECT_TRUE(rows.atEOF());
  rows.Move(INT64_MAX);
  EXPECT_TRUE(rows.atEOF());
  rows.Move(INT64_MIN);
  EXPECT_TRUE(rows.atBOF());
}

TEST_F(Walk, MoveFromEofCountsFromBehindTheLastRow) {
  rows.Move(6);
  rows.Move(-6);
  EXPECT_EQ(id(), "CD00002");
  rows.Move(100);
  rows.Move(-1);
  EXPECT_EQ(id(), "HD00005");
}

TEST_F(Walk, BookmarkReturnsToItsRow) {
  rows.Move(2);
  const auto mark = rows.bookmark();
  rows.MoveLast();
  rows.goTo(mark);
  EXPECT_EQ(id(), "HD00002");
  rows.Filter("Year = 1990");
  rows.goTo(mark);
  EXPECT_EQ(id(), "HD00002");
  rows.Filter("");
  rows.Sort("Year DESC");
  rows.goTo(mark);
  EXPECT_EQ(id(), "HD00002");
}

TEST_F(Walk, BookmarkOfARowThatIsGoneThrows) {
  const auto mark = rows.bookmark();
  rows.Delete();
  rows.MoveLast();
  EXPECT_THROW(rows.goTo(mark), RunTimeError);
  EXPECT_EQ(id(), "HD00005");
  EXPECT_THROW(rows.goTo({}), RunTimeError);
}

TEST_F(Walk, BookmarkOfAFilteredRowThrows) {
  const auto mark = rows.bookmark();
  rows.Filter("Year = 1990");
  EXPECT_THROW(rows.goTo(mark), RunTimeError);
}

TEST_F(Walk, BookmarkDoesNotOutliveARequery) {
  const auto mark = rows.bookmark();
  rows.Requery();
  EXPECT_THROW(rows.goTo(mark), RunTimeError);
}

TEST_F(Walk, ThereIsNoBookmarkAtEOF) {
  rows.Move(100);
  EXPECT_THROW(static_cast<void>(rows.bookmark()), RunTimeError);
}

class EmptyWalk : public EmptyAlbumFile {
protected:
  EmptyWalk() { rows.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID"); }
  Recordset rows{connection};
};

TEST_F(EmptyWalk, AnEmptySetIsAtBothEnds) {
  EXPECT_TRUE(rows.atBOF());
  EXPECT_TRUE(rows.atEOF());
  EXPECT_EQ(rows.RecordCount(), 0);
  EXPECT_LT(rows.AbsolutePosition(), 0);
}

TEST_F(EmptyWalk, AnEmptySetStandsOnNoRow) { EXPECT_FALSE(standsOnRow(rows)); }

TEST_F(EmptyWalk, AnEmptySetCanBeAskedForItsEnds) {
  rows.MoveLast();
  EXPECT_TRUE(rows.atBOF() && rows.atEOF());
  rows.MoveFirst();
  EXPECT_TRUE(rows.atBOF() && rows.atEOF());
  rows.Move(-3);
  EXPECT_TRUE(rows.atBOF() && rows.atEOF());
  EXPECT_THROW(rows.MoveNext(), RunTimeError);
  EXPECT_THROW(rows.MovePrevious(), RunTimeError);
}

TEST_F(EmptyWalk, FindInAnEmptySetFindsNothing) {
  rows.Find("Year = Null");
  EXPECT_TRUE(rows.atEOF());
}

} // namespace
} // namespace hearthbook::test
