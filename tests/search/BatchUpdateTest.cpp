#include "BatchUpdate.h"

#include "BatchAlbum.h"
#include "BatchWalk.h"
#include "RunTimeError.h"

#include <gmock/gmock.h>

namespace hearthbook {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(BatchNames, AreAddedInTheOrderOfTheList) {
  EXPECT_EQ(withPeople(Value("004,"), {17, 2}), Value("004,017,002,"));
}

TEST(BatchNames, OfAPhotoWithoutAnyAreTheAdditionAlone) {
  EXPECT_EQ(withPeople(Value(), {4, 1234}), Value("004,1234,"));
}

TEST(BatchNames, WhoIsThereStaysThereOnce) {
  EXPECT_EQ(withPeople(Value("004,017,"), {17}), Value("004,017,"));
}

TEST(BatchNames, ANumberInsideAnotherCountsAsBeingThere) {
  EXPECT_EQ(withPeople(Value("1012,"), {12}), Value("1012,"));
  EXPECT_EQ(withPeople(Value("0123,"), {12}), Value("0123,"));
  EXPECT_EQ(withPeople(Value("001,201,"), {12}), Value("001,201,012,"));
}

TEST(BatchNames, OnlyTheOldTextIsSearched) {
  EXPECT_EQ(withPeople(Value(), {1012, 12}), Value("1012,012,"));
}

class BatchUpdate : public test::BatchAlbum {
protected:
  std::vector<std::string> update(const std::vector<std::int64_t>& positions,
                                  const BatchChanges& changes) {
    const BatchReport run = updatePhotos(results(), positions, changes);
    requireWhole(run.walk(), positions.size(), "changed");
    return run.ids;
  }
  std::string failureOf(const std::vector<std::int64_t>& positions, const BatchChanges& changes) {
    try {
      update(positions, changes);
    } catch (const RunTimeError& failure) {
      return failure.what();
    }
    return "none";
  }
};

TEST_F(BatchUpdate, WritesTheFactsIntoTheChosenPhotosAlone) {
  const BatchChanges changes{3, 5, 1985, "A Sunday", {7}};
  EXPECT_THAT(update({2, 4}, changes), ElementsAre("HD00002", "HD00004"));
  for (const char* photo : {"HD00002", "HD00004"}) {
    EXPECT_EQ(stored(photo, "PlaceID"), Value(3));
    EXPECT_EQ(stored(photo, "EventID"), Value(5));
    EXPECT_EQ(stored(photo, "Year"), Value(1985));
    EXPECT_EQ(stored(photo, "Description"), Value("A Sunday"));
    EXPECT_EQ(stored(photo, "NamesInPhoto"), Value("007,"));
  }
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE PlaceID = 3"), 2);
  EXPECT_EQ(stored("HD00003", "Year"), Value(1993));
}

TEST_F(BatchUpdate, WhatIsEmptyLeavesItsFieldAlone) {
  set("HD00002", "PlaceID = 1, EventID = 2, Description = 'old', NamesInPhoto = '001,', "
                 "NamesCords = '001-0100X0200,'");
  EXPECT_THAT(update({2}, {}), ElementsAre("HD00002"));
  EXPECT_EQ(stored("HD00002", "PlaceID"), Value(1));
  EXPECT_EQ(stored("HD00002", "EventID"), Value(2));
  EXPECT_EQ(stored("HD00002", "Year"), Value(1992));
  EXPECT_EQ(stored("HD00002", "Description"), Value("old"));
  EXPECT_EQ(stored("HD00002", "NamesInPhoto"), Value("001,"));
}

TEST_F(BatchUpdate, WithNothingEnteredEachPhotoIsStillGoneThrough) {
  EXPECT_THAT(update({1, 3, 6}, {}), ElementsAre("HD00001", "HD00003", "HD00006"));
  EXPECT_TRUE(stored("HD00003", "NamesInPhoto").isNull());
}

TEST_F(BatchUpdate, AddedNamesHaveNoMarkerAndTheMarkersStay) {
  set("HD00002", "NamesInPhoto = '001,', NamesCords = '001-0100X0200,'");
  update({2}, {.people = {1, 2}});
  EXPECT_EQ(stored("HD00002", "NamesInPhoto"), Value("001,002,"));
  EXPECT_EQ(stored("HD00002", "NamesCords"), Value("001-0100X0200,"));
}

TEST_F(BatchUpdate, TheSearchStaysWhereItStoodAndShowsWhatIsStored) {
  results().Move(3, Recordset::Start::First);
  update({1, 2}, {.year = 1985});
  EXPECT_EQ(results().AbsolutePosition(), 4);
  EXPECT_EQ(results().RecordCount(), 6);
  results().MoveFirst();
  EXPECT_EQ(results().Collect("Year"), Value(1985));
}

TEST_F(BatchUpdate, OddTextsAreStoredAsTheyAre) {
  const std::string text =
      std::string(10000, 'x') + " it's 100% \\ [_] \xF0\x9F\x8E\x82\nnext line";
  update({2}, {.description = text});
  EXPECT_EQ(stored("HD00002", "Description"), Value(text));
}

TEST_F(BatchUpdate, AStepThatFailsKeepsThoseDoneBeforeAndTellsHowMany) {
  refuse("UPDATE", "HD00004");
  const std::string failure = failureOf({2, 3, 4, 5}, {.description = "new"});
  EXPECT_THAT(failure, HasSubstr("this photo is not to be touched"));
  EXPECT_THAT(failure, HasSubstr("Of 4 selected photos 2 were changed before that."));
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE Description = 'new'"), 2);
  EXPECT_EQ(stored("HD00003", "Description"), Value("new"));
  EXPECT_TRUE(stored("HD00005", "Description").isNull()) << "it stops where it stands";
  EXPECT_TRUE(results().atEOF());
  results().Move(3, Recordset::Start::First);
  EXPECT_FALSE(results().isPending());
  EXPECT_TRUE(results().Collect("Description").isNull());
}

TEST_F(BatchUpdate, APositionWithoutAPhotoStopsItToo) {
  EXPECT_THAT(failureOf({5, 6, 7}, {.description = "new"}), HasSubstr("3 selected photos 2 were"));
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE Description = 'new'"), 2);
}

TEST_F(BatchUpdate, APhotoDeletedMeanwhileStopsItToo) {
  data().AlbumDB.execute("DELETE FROM PhotoAlbum WHERE PictureID = 'HD00003'");
  EXPECT_THAT(failureOf({2, 3, 4}, {.description = "new"}), HasSubstr("3 selected photos 1 were"));
  EXPECT_EQ(stored("HD00002", "Description"), Value("new"));
}

TEST_F(BatchUpdate, WhatTheDatabaseTakesBackIsDoneOnceMoreUpToTheStepThatFailed) {
  refuse("UPDATE", "HD00004", "ROLLBACK"); // as on a full disk
  const BatchReport run = updatePhotos(results(), {2, 3, 4, 5}, {.year = 1985, .people = {7}});
  EXPECT_TRUE(run.wasTakenBack);
  EXPECT_THAT(run.ids, ElementsAre("HD00002", "HD00003"));
  EXPECT_THAT(run.failure.value_or(""), HasSubstr("this photo is not to be touched"));
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE Year = 1985"), 2);
  EXPECT_EQ(stored("HD00003", "NamesInPhoto"), Value("007,"));
}

TEST_F(BatchUpdate, WhereNothingCanBeStoredNothingIsDone) {
  data().AlbumDB.execute("CREATE TRIGGER Full BEFORE UPDATE ON PhotoAlbum BEGIN "
                         "SELECT RAISE(ROLLBACK, 'the disk is full'); END");
  const BatchReport run = updatePhotos(results(), {2, 3}, {.year = 1985});
  EXPECT_TRUE(run.wasTakenBack);
  EXPECT_THAT(run.ids, ElementsAre());
  EXPECT_THAT(run.failure.value_or(""), HasSubstr("the disk is full"));
}

TEST_F(BatchUpdate, AStepThatFailsAloneTakesNothingBack) {
  refuse("UPDATE", "HD00004");
  EXPECT_FALSE(updatePhotos(results(), {2, 4}, {.year = 1985}).wasTakenBack);
}

TEST_F(BatchUpdate, PhotosOfAnyPrefixAreChanged) {
  folder_.addPhoto("CD00002", {{"Year", 1980}});
  folder_.addPhoto("XX00002", {{"Year", 1981}});
  results().Requery();
  EXPECT_THAT(update({1, 2}, {.year = 1970}), ElementsAre("CD00002", "XX00002"));
  EXPECT_EQ(stored("CD00002", "Year"), Value(1970));
}

class BatchPositions : public test::BatchAlbum {
protected:
  void addRows(int count) {
    data().AlbumDB.execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
        std::to_string(count) +
        ") INSERT INTO PhotoAlbum(PictureID) SELECT 'H' || (100000 + i) FROM n");
    results().Requery();
  }
  std::int16_t rowFrom(std::int64_t position) {
    results().Move(position - 1, Recordset::Start::First);
    return batchReturnRow(results());
  }
};

TEST_F(BatchPositions, OneReturnsToThePageInFrontOfTheRecordSet) {
  addRows(54); // 60 in all
  EXPECT_EQ(rowFrom(25), 0);
  EXPECT_EQ(rowFrom(26), 24);
  EXPECT_EQ(rowFrom(49), 24);
  EXPECT_EQ(rowFrom(50), 48);
  EXPECT_EQ(rowFrom(61), 48) << "behind the last row";
}

TEST_F(BatchPositions, AFullLastPageIsReturnedTo) {
  addRows(42); // 48 in all
  EXPECT_EQ(rowFrom(49), 24);
}

TEST_F(BatchPositions, BeyondSixteenBitsThereIsNoReturn) {
  addRows(32794); // 32,800 in all
  EXPECT_EQ(rowFrom(32760), 32736);
  try {
    rowFrom(32801);
    ADD_FAILURE() << "32784 fits";
  } catch (const RunTimeError& overflow) {
    EXPECT_EQ(overflow.number(), 6);
  }
}

TEST_F(BatchPositions, SeveralAreTakenInRisingOrderAndSortedInTheSet) {
  SelectionSet selection;
  for (const int position : {30, 2, 17, 5})
    selection.select(position);
  selection.deselect(2);
  EXPECT_THAT(takePositions(selection), ElementsAre(5, 17, 30));
  EXPECT_THAT(selection.SelectedPositions, ElementsAre(Value(5), Value(17), Value(30), Value("")));
  EXPECT_EQ(selection.SelectedCount, 3);
}

TEST_F(BatchPositions, ThoseFromTheLimitOnAreCutOff) {
  SelectionSet selection;
  for (const int position : {9999, 9998, 12000, 1})
    selection.select(position);
  EXPECT_THAT(takePositions(selection), ElementsAre(1, 9998));
}

TEST_F(BatchPositions, OneAloneMayStandBeyondTheLimit) {
  SelectionSet selection;
  selection.select(3);
  selection.select(12000);
  selection.deselect(3);
  EXPECT_THAT(takePositions(selection), ElementsAre(12000));
  EXPECT_THAT(selection.SelectedPositions, ElementsAre(Value(""), Value(12000))) << "not sorted";
}

TEST_F(BatchPositions, NoneIsNone) {
  SelectionSet selection;
  EXPECT_THAT(takePositions(selection), ElementsAre());
}

} // namespace
} // namespace hearthbook
