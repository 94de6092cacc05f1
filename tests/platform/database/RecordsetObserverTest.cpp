#include "AlbumFile.h"

#include "RunTimeError.h"

#include <optional>

namespace hearthbook::test {
namespace {

class Observed : public AlbumFile {
protected:
  Observed() {
    rows.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID");
    subscription = rows.observe({[this] { told += "leaving " + place() + "; "; },
                                 [this] { told += "arrived " + place() + "; "; }});
  }

  std::string place() { return std::to_string(rows.AbsolutePosition()); }

  std::string tells(const std::function<void()>& operation) {
    told.clear();
    operation();
    return told;
  }

  Recordset rows{connection};
  std::string told;
  Recordset::Subscription subscription;
};

TEST_F(Observed, MovesTellBeforeAndAfter) {
  EXPECT_EQ(tells([&] { rows.MoveNext(); }), "leaving 1; arrived 2; ");
  EXPECT_EQ(tells([&] { rows.MoveLast(); }), "leaving 2; arrived 6; ");
}

TEST_F(Observed, AWalkInsideOneOperationTellsItsEndOnly) {
  EXPECT_EQ(tells([&] { rows.Find("PictureID = 'HD00004'"); }), "leaving 1; arrived 5; ");
  EXPECT_EQ(tells([&] { rows.Move(-3); }), "leaving 5; arrived 2; ");
}

TEST_F(Observed, LeavingIsNotToldWhereThereIsNoRow) {
  rows.Move(100);
  EXPECT_EQ(tells([&] { rows.MoveFirst(); }), "arrived 1; ");
}

TEST_F(Observed, FilterSortAndRequeryTell) {
  EXPECT_EQ(tells([&] { rows.Filter("Year = 1990"); }), "leaving 1; arrived 1; ");
  EXPECT_EQ(tells([&] { rows.Sort("Year"); }), "leaving 1; arrived 1; ");
  EXPECT_EQ(tells([&] { rows.Requery(); }), "leaving 1; arrived 1; ");
}

TEST_F(Observed, CloseTellsBeforeAndOpenAfter) {
  EXPECT_EQ(tells([&] { rows.Close(); }), "leaving 1; ");
  EXPECT_EQ(tells([&] { rows.Open(); }), "arrived 1; ");
  EXPECT_EQ(tells([&] { connection.Close(); }), "leaving 1; ");
}

TEST_F(Observed, NewRowsTellBothRows) {
  EXPECT_EQ(tells([&] { rows.AddNew(); }), "leaving 1; arrived 7; ");
  EXPECT_EQ(tells([&] { rows.CancelUpdate(); }), "arrived 1; ");
  EXPECT_EQ(tells([&] { rows.AddNew({"PictureID"}, {"HD00009"}); }), "leaving 1; arrived 7; ");
}

TEST_F(Observed, DeleteTellsOnlyAfter) {
  EXPECT_EQ(tells([&] { rows.Delete(); }), "arrived 1; ");
}

TEST_F(Observed, DeleteThroughACloneTellsTheSetThatStoodThere) {
  const auto clone = rows.Clone();
  EXPECT_EQ(tells([&] { clone->Delete(); }), "arrived 1; ");
  clone->MoveLast();
  EXPECT_EQ(tells([&] { clone->Delete(); }), "");
}

TEST_F(Observed, WhatIsWrittenOnLeavingIsStored) {
  const auto writing = rows.observe({[&] { rows.Collect("Year", 1960); }, {}});
  rows.MoveNext();
  EXPECT_EQ(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'CD00002'"), "1960");
}

TEST_F(Observed, UpdateAsksForWhatIsToBeWritten) {
  const auto writing = rows.observe({[&] { rows.Collect("Year", 1960); }, {}});
  rows.Update();
  EXPECT_EQ(stored("SELECT Year FROM PhotoAlbum WHERE PictureID = 'CD00002'"), "1960");
}

TEST_F(Observed, StoringWhileLeavingIsNotToldAgain) {
  int times = 0;
  const auto storing = rows.observe({[&] {
                                       ++times;
                                       rows.Collect("Year", 1960);
                                       rows.Update();
                                     },
                                     {}});
  rows.MoveNext();
  EXPECT_EQ(times, 1);
  EXPECT_EQ(rows.AbsolutePosition(), 2);
}

TEST_F(Observed, AnObserverThatThrowsKeepsTheSetOnItsRow) {
  auto refusing = std::optional(rows.observe({[] { throw RunTimeError("not yet"); }, {}}));
  EXPECT_THROW(rows.MoveNext(), RunTimeError);
  EXPECT_THROW(rows.MoveNext(), RunTimeError);
  EXPECT_EQ(rows.AbsolutePosition(), 1);
  refusing.reset();
  rows.MoveNext();
  EXPECT_EQ(rows.AbsolutePosition(), 2);
}

TEST_F(Observed, EndsWithItsSubscription) {
  subscription = {};
  EXPECT_EQ(tells([&] { rows.MoveNext(); }), "");
}

TEST_F(Observed, AnObserverMayEndItselfAndOthers) {
  int calls = 0;
  Recordset::Subscription other;
  auto ending = rows.observe({{}, [&] {
                                ++calls;
                                other = {};
                              }});
  other = rows.observe({{}, [&] { ++calls; }});
  rows.MoveNext();
  EXPECT_EQ(calls, 1);
}

TEST_F(Observed, SubscriptionMayOutliveTheSet) {
  Recordset::Subscription lasting;
  int calls = 0;
  {
    Recordset passing(connection);
    passing.Open("Places");
    lasting = passing.observe({[&] { ++calls; }, [&] { ++calls; }});
  }
  lasting = {};
  EXPECT_EQ(calls, 0);
}

TEST_F(Observed, AnObserverMayMoveTheSet) {
  bool moved = false;
  const auto moving = rows.observe({{}, [&] {
                                      if (!moved) {
                                        moved = true;
                                        rows.MoveLast();
                                      }
                                    }});
  rows.MoveNext();
  EXPECT_EQ(rows.AbsolutePosition(), 6);
}

TEST_F(Observed, DeletingMayCloseACloneThatStoodThere) {
  auto clone = rows.Clone();
  const auto closing = rows.observe({{}, [&] { clone.reset(); }});
  rows.Delete();
  EXPECT_EQ(clone, nullptr);
  EXPECT_EQ(rows.RecordCount(), 5);
}

} // namespace
} // namespace hearthbook::test
