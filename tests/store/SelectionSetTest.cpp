#include "SelectionSet.h"
#include "AlbumFixture.h"
#include "RunTimeError.h"

namespace hearthbook::test {

namespace {

SelectionSet selected(std::initializer_list<std::int64_t> positions) {
  SelectionSet set;
  for (const std::int64_t position : positions)
    set.select(position);
  return set;
}

std::vector<Value> array(std::initializer_list<Value> elements) { return elements; }

class SelectionStatement : public AlbumFixture {
protected:
  SelectionStatement() {
    for (const char* id : {"HD00002", "HD00003", "HD00004"})
      folder_.addPhoto(id);
  }
};

} // namespace

TEST(SelectionSet, IsOneHoleWhereNothingIsSelected) {
  const SelectionSet set;
  EXPECT_EQ(set.SelectedPositions, array({""}));
  EXPECT_EQ(set.SelectedCount, 0);
  EXPECT_EQ(set.first(), std::nullopt);
}

TEST(SelectionSet, FillsItsHoleFirstAndGrowsThen) {
  const SelectionSet set = selected({7, 3, 30});
  EXPECT_EQ(set.SelectedPositions, array({7, 3, 30}));
  EXPECT_EQ(set.SelectedCount, 3);
}

TEST(SelectionSet, LeavesAHoleWhereAPhotoWasTakenOut) {
  SelectionSet set = selected({7, 3, 30});
  set.deselect(3);
  EXPECT_EQ(set.SelectedPositions, array({7, "", 30}));
  EXPECT_EQ(set.SelectedCount, 2);
}

TEST(SelectionSet, PutsTheNextPhotoIntoTheHoleWithoutGrowing) {
  SelectionSet set = selected({7, 3, 30});
  set.deselect(7);
  set.select(12);
  EXPECT_EQ(set.SelectedPositions, array({12, 3, 30}));
  EXPECT_EQ(set.SelectedCount, 3);
}

TEST(SelectionSet, DoesNotCountAPhotoOutThatWasNotIn) {
  SelectionSet set = selected({7});
  set.deselect(8);
  EXPECT_EQ(set, selected({7}));
}

TEST(SelectionSet, DoesNotShrinkWhenItsLastPhotoIsTakenOut) {
  SelectionSet set = selected({7, 3});
  set.deselect(7);
  set.deselect(3);
  EXPECT_EQ(set.SelectedPositions, array({"", ""}));
  EXPECT_EQ(set.SelectedCount, 0);
  EXPECT_EQ(set.first(), std::nullopt);
}

TEST(SelectionSet, KnowsWhatIsInIt) {
  SelectionSet set = selected({7, 3});
  set.deselect(7);
  EXPECT_TRUE(set.contains(3));
  EXPECT_FALSE(set.contains(7));
  EXPECT_FALSE(set.contains(0));
}

TEST(SelectionSet, SelectsARangeIntoItsHolesAndLeavesOutWhatIsInIt) {
  SelectionSet set = selected({4, 9, 2});
  set.deselect(9);
  set.selectAll(2, 6);
  EXPECT_EQ(set.SelectedPositions, array({4, 3, 2, 5, 6}));
  EXPECT_EQ(set.SelectedCount, 5);
}

TEST(SelectionSet, RefusesARangeThatItsCountCannotHold) {
  SelectionSet set = selected({4});
  EXPECT_THROW(set.selectAll(1, 32768), RunTimeError);
  EXPECT_EQ(set, selected({4}));
  set.selectAll(1, 32767);
  EXPECT_EQ(set.SelectedCount, 32767);
}

TEST(SelectionSet, TheFirstIsThatWhichStandsFirstAndIsNoHole) {
  SelectionSet set = selected({7, 30, 3});
  EXPECT_EQ(set.first(), 7);
  set.deselect(7);
  EXPECT_EQ(set.first(), 30);
}

TEST(SelectionSet, ClearingLeavesOneHole) {
  SelectionSet set = selected({7, 3});
  set.clear();
  EXPECT_EQ(set, SelectionSet());
}

TEST(SelectionSet, SortsInRisingOrderWithTheHolesAtTheEnd) {
  SelectionSet set = selected({30, 7, 100, 3});
  set.deselect(7);
  set.sort();
  EXPECT_EQ(set.SelectedPositions, array({3, 30, 100, ""}));
  EXPECT_EQ(set.SelectedCount, 3);
}

TEST(SelectionSet, IsOneElementLongerBehindTheSortForAHandOver) {
  SelectionSet set = selected({30, 7, 3});
  set.sortAndGrow();
  EXPECT_EQ(set.SelectedPositions, array({3, 7, 30, ""}));
  EXPECT_EQ(set.SelectedCount, 3);
}

TEST(SelectionSet, LeavesOutPositionsFromTheLimitOnWhenItIsSorted) {
  SelectionSet set = selected({10000, 9998, 9999, 1});
  EXPECT_EQ(set.rising(), (std::vector<std::int64_t>{1, 9998}));
  set.sortAndGrow();
  EXPECT_EQ(set.SelectedPositions, array({1, 9998, "", "", ""}));
  EXPECT_EQ(set.SelectedCount, 4);
}

TEST(SelectionSet, RefusesMoreThanItsCountCanHold) {
  SelectionSet set;
  set.SelectedCount = 32767;
  const SelectionSet full = set;
  EXPECT_THROW(set.select(5), RunTimeError);
  EXPECT_EQ(set, full);
}

TEST_F(SelectionStatement, NamesTheSelectedPhotosBehindATermThatMatchesNothing) {
  EXPECT_EQ(selectedPhotosStatement(selected({2, 4}), data().rsPhotoAlbum),
            "SELECT * From PhotoAlbum Where PictureID = Null OR PictureID = 'HD00002' OR PictureID "
            "= 'HD00004'");
}

TEST_F(SelectionStatement, FindsThosePhotosInTheOrderOfTheirIds) {
  Recordset rows(data().AlbumDB);
  rows.Open(selectedPhotosStatement(selected({4, 2}), data().rsPhotoAlbum));
  ASSERT_EQ(rows.RecordCount(), 2);
  EXPECT_EQ(rows.Collect("PictureID").toText(), "HD00002");
  rows.MoveNext();
  EXPECT_EQ(rows.Collect("PictureID").toText(), "HD00004");
}

TEST_F(SelectionStatement, PassesOverHolesAndLooksNoFurtherThanTheCount) {
  SelectionSet set = selected({1, 2, 3});
  set.deselect(1);
  EXPECT_EQ(selectedPhotosStatement(set, data().rsPhotoAlbum),
            "SELECT * From PhotoAlbum Where PictureID = Null OR PictureID = 'HD00002'");
  set.sortAndGrow();
  EXPECT_EQ(selectedPhotosStatement(set, data().rsPhotoAlbum),
            "SELECT * From PhotoAlbum Where PictureID = Null OR PictureID = 'HD00002' OR PictureID "
            "= 'HD00003'");
}

TEST_F(SelectionStatement, FailsForAPositionBehindTheLastPhoto) {
  EXPECT_THROW(selectedPhotosStatement(selected({5}), data().rsPhotoAlbum), RunTimeError);
}

} // namespace hearthbook::test
