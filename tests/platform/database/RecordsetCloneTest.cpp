#include "AlbumFile.h"

#include "RunTimeError.h"

namespace hearthbook::test {
namespace {

class Clones : public AlbumFile {
protected:
  Clones() {
    rows.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID");
    rows.Move(2);
    clone = rows.Clone();
  }

  Recordset rows{connection};
  std::unique_ptr<Recordset> clone;
};

TEST_F(Clones, StandOnTheFirstRowAndMoveByThemselves) {
  EXPECT_EQ(clone->AbsolutePosition(), 1);
  clone->MoveLast();
  EXPECT_EQ(rows.AbsolutePosition(), 3);
  EXPECT_EQ(clone->Source(), rows.Source());
}

TEST_F(Clones, HaveAFilterAndASortOfTheirOwn) {
  rows.Filter("Year = 1990");
  EXPECT_EQ(clone->RecordCount(), 6);
  clone->Sort("PictureID DESC");
  EXPECT_EQ(clone->Collect("PictureID"), Value("HD00005"));
  EXPECT_EQ(rows.Collect("PictureID"), Value("HD00002"));
  EXPECT_EQ(rows.Clone()->RecordCount(), 6);
}

TEST_F(Clones, ARowIsReadFromAfarWithoutGoingThere) {
  clone->Filter("Year = 1990");
  const std::int64_t last = clone->RecordCount();
  clone->MoveLast();
  const Value id = clone->Collect("PictureID");
  clone->MoveFirst();
  EXPECT_EQ(clone->CollectAt(last, "PictureID"), id);
  EXPECT_EQ(clone->AbsolutePosition(), 1);
  EXPECT_THROW(clone->CollectAt(0, "PictureID"), RunTimeError);
  EXPECT_THROW(clone->CollectAt(last + 1, "PictureID"), RunTimeError);
  EXPECT_THROW(clone->CollectAt(1, "Colour"), RunTimeError);
}

TEST_F(Clones, ShareBookmarks) {
  clone->goTo(rows.bookmark());
  EXPECT_EQ(clone->Collect("PictureID"), Value("HD00002"));
  EXPECT_EQ(clone->bookmark(), rows.bookmark());
}

TEST_F(Clones, SeeEditsWhenTheyAreStored) {
  clone->Move(2);
  rows.Collect("Year", 1960);
  EXPECT_EQ(clone->Collect("Year"), Value(1990));
  rows.Update();
  EXPECT_EQ(clone->Collect("Year"), Value(1960));
}

TEST_F(Clones, SeeAdditionsWhenTheyAreStored) {
  rows.AddNew();
  rows.Collect("PictureID", "HD00009");
  EXPECT_EQ(clone->RecordCount(), 6);
  EXPECT_EQ(rows.Clone()->RecordCount(), 6);
  rows.Update();
  EXPECT_EQ(clone->RecordCount(), 7);
  EXPECT_EQ(clone->AbsolutePosition(), 1);
  clone->MoveLast();
  EXPECT_EQ(clone->Collect("PictureID"), Value("HD00009"));
}

TEST_F(Clones, StayAtEOFWhenARowIsAdded) {
  clone->Move(100);
  rows.AddNew({"PictureID"}, {"HD00009"});
  EXPECT_TRUE(clone->atEOF());
  clone->MovePrevious();
  EXPECT_EQ(clone->Collect("PictureID"), Value("HD00009"));
}

TEST_F(Clones, ShowAnAddedRowOnlyIfTheirFilterDoes) {
  clone->Filter("Year = 1990");
  rows.AddNew({"PictureID", "Year"}, {"HD00008", 1850});
  EXPECT_EQ(clone->RecordCount(), 2);
  rows.AddNew({"PictureID", "Year"}, {"HD00009", 1990});
  EXPECT_EQ(clone->RecordCount(), 3);
}

TEST_F(Clones, KeepTheirPlaceWhereAGroupIsDeleted) {
  rows.Filter("Year = 1990"); // the third and the fourth
  clone->MoveLast();
  const auto second = rows.Clone();
  second->Move(2);
  const auto first = rows.Clone();
  rows.Delete(Recordset::Affect::Group);
  EXPECT_EQ(clone->AbsolutePosition(), 4);
  EXPECT_EQ(clone->Collect("PictureID"), Value("HD00005"));
  EXPECT_EQ(first->AbsolutePosition(), 1);
  EXPECT_EQ(second->AbsolutePosition(), 3) << "on the row that followed";
  second->MoveNext();
  EXPECT_EQ(second->Collect("PictureID"), Value("HD00004")) << "which is still the next";
}

TEST_F(Clones, StayAtEOFWhereAGroupIsDeleted) {
  clone->Move(100);
  rows.Filter("Year = 1990");
  rows.Delete(Recordset::Affect::Group);
  EXPECT_TRUE(clone->atEOF());
  clone->MovePrevious();
  EXPECT_EQ(clone->Collect("PictureID"), Value("HD00005"));
}

TEST_F(Clones, SeeDeletions) {
  clone->MoveLast();
  rows.MoveFirst();
  rows.Delete();
  EXPECT_EQ(clone->RecordCount(), 5);
  EXPECT_EQ(clone->AbsolutePosition(), 5);
  EXPECT_EQ(clone->Collect("PictureID"), Value("HD00005"));
  clone->Filter("PictureID = 'CD00002'");
  EXPECT_EQ(clone->RecordCount(), 0);
}

TEST_F(Clones, StandOnTheRowThatFollowedTheOneDeleted) {
  clone->Move(2);
  clone->Collect("Year", 1960);
  rows.Delete();
  EXPECT_EQ(clone->Collect("PictureID"), Value("HD00003"));
  EXPECT_FALSE(clone->isPending());
}

TEST_F(Clones, KeepTheirRowsWhenTheOtherIsRequeriedOrReopened) {
  rows.AddNew({"PictureID"}, {"CD00001"});
  rows.Requery();
  EXPECT_EQ(rows.Collect("PictureID"), Value("CD00001"));
  rows.Delete();
  EXPECT_EQ(rows.RecordCount(), 6);
  EXPECT_EQ(clone->RecordCount(), 7);
  rows.Open("Places");
  EXPECT_EQ(clone->RecordCount(), 7);
  EXPECT_TRUE(clone->hasField("PictureID"));
}

TEST_F(Clones, OutliveTheOriginal) {
  auto original = std::make_unique<Recordset>(connection);
  original->Open("Places");
  const auto copy = original->Clone();
  original.reset();
  EXPECT_EQ(copy->RecordCount(), 3);
  copy->Collect("PlaceName", "Garden");
  copy->Update();
  EXPECT_EQ(stored("SELECT PlaceName FROM Places WHERE PlaceID = 1"), "Garden");
}

TEST_F(Clones, CanBeReopenedOnAnotherSource) {
  clone->Close();
  clone->Open("SELECT * FROM PhotoAlbum WHERE Year = 1990");
  EXPECT_EQ(clone->RecordCount(), 2);
  EXPECT_EQ(rows.RecordCount(), 6);
}

TEST_F(Clones, AnExistingSetBecomesAClone) {
  Recordset other(connection);
  other.Open("Places");
  other.Collect("PlaceName", "Garden");
  other.becomeCloneOf(rows);
  EXPECT_EQ(other.RecordCount(), 6);
  EXPECT_EQ(other.AbsolutePosition(), 1);
  EXPECT_EQ(stored("SELECT PlaceName FROM Places WHERE PlaceID = 1"), "Garden");
  rows.Delete();
  EXPECT_EQ(other.RecordCount(), 5);
}

TEST_F(Clones, OfASetOnAnotherConnectionUseThatConnection) {
  Connection second;
  second.Open(file);
  Recordset other(second);
  other.becomeCloneOf(rows);
  EXPECT_EQ(&other.connection(), &connection);
  second.Close();
  EXPECT_TRUE(other.isOpen());
  connection.Close();
  EXPECT_FALSE(other.isOpen());
}

TEST_F(Clones, TwoThatEditTheSameRowStoreOnlyTheirFields) {
  clone->Move(2);
  rows.Collect("Year", 1960);
  clone->Collect("Description", "both");
  rows.Update();
  clone->Update();
  EXPECT_EQ(stored("SELECT Year || Description FROM PhotoAlbum WHERE PictureID = 'HD00002'"),
            "1960both");
}

} // namespace
} // namespace hearthbook::test
