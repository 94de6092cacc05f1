#include "RecordMoves.h"

#include "AlbumFixture.h"
#include "NameFilter.h"

namespace hearthbook {

namespace {

class RecordMoves : public test::AlbumFixture {
protected:
  Recordset& photos() { return data().rsPhotoAlbum; }
  void addFull(const std::string& id, test::AlbumFolder::Fields without = {}) {
    test::AlbumFolder::Fields fields{
        {"Year", 1990}, {"PlaceID", 1}, {"EventID", 1}, {"NamesInPhoto", "001,"}};
    for (const auto& [name, value] : without)
      fields[name] = value;
    folder_.addPhoto(id, fields);
  }
};

} // namespace

TEST(RecordOffset, CountsFromTheFirstRecord) {
  EXPECT_EQ(recordOffset("1", 5), 0);
  EXPECT_EQ(recordOffset(" 5 ", 5), 4);
}

TEST(RecordOffset, TestsTheUpperEndOnly) {
  EXPECT_EQ(recordOffset("6", 5), std::nullopt);
  EXPECT_EQ(recordOffset("1e300", 5), std::nullopt);
  EXPECT_EQ(recordOffset("0", 5), -1);
  EXPECT_EQ(recordOffset("-7", 5), -1);
  EXPECT_EQ(recordOffset("-1e300", 5), -1);
}

TEST(RecordOffset, RoundsHalfToEven) {
  EXPECT_EQ(recordOffset("2.5", 5), 2);
  EXPECT_EQ(recordOffset("3.5", 5), 2);
}

TEST(RecordOffset, IsNothingForWhatIsNoNumber) {
  for (const char* answer : {"", " ", "two", "3a"})
    EXPECT_EQ(recordOffset(answer, 5), std::nullopt) << answer;
}

TEST_F(RecordMoves, AnyOneOfTheFourFieldsIsAGap) {
  const std::vector<std::string> fields = {"Year", "PlaceID", "EventID", "NamesInPhoto"};
  int number = 10;
  for (const std::string& field : fields) {
    const std::string id = "HD000" + std::to_string(number++);
    addFull(id, {{field, Value()}});
    photos().Find("PictureID = '" + id + "'", Recordset::Start::First);
    EXPECT_TRUE(hasGap(photos())) << field;
  }
}

TEST_F(RecordMoves, AMissingDescriptionIsNoGap) {
  addFull("HD00002");
  photos().MoveLast();
  EXPECT_FALSE(hasGap(photos()));
}

TEST_F(RecordMoves, TheSearchTellsEachPositionOnItsWay) {
  for (const char* id : {"HD00002", "HD00003"})
    addFull(id);
  folder_.addPhoto("HD00004");
  std::vector<std::int64_t> positions;
  EXPECT_TRUE(FindNextEmpty(photos(), [&](std::int64_t at) { positions.push_back(at); }));
  EXPECT_EQ(positions, (std::vector<std::int64_t>{2, 3, 4}));
  EXPECT_EQ(photos().AbsolutePosition(), 4);
}

TEST_F(RecordMoves, TheSearchShowsItsEndAndNoRowOnItsWay) {
  for (const char* id : {"HD00002", "HD00003"})
    addFull(id);
  folder_.addPhoto("HD00004");
  int arrivals = 0;
  const auto watching = photos().observe({.leaving = [] {}, .arrived = [&] { ++arrivals; }});
  FindNextEmpty(photos(), [](std::int64_t) {});
  EXPECT_EQ(arrivals, 1);
}

TEST_F(RecordMoves, TheSearchStoresWhatIsPendingThoughItFindsNothing) {
  addFull("HD00002");
  photos().Collect("Description", "typed");
  EXPECT_FALSE(FindNextEmpty(photos(), [](std::int64_t) {}));
  EXPECT_FALSE(photos().isPending());
  EXPECT_EQ(photos().AbsolutePosition(), 1);
}

TEST_F(RecordMoves, NeighboursAreTheOneBehindAndTheOneBefore) {
  for (const char* id : {"HD00002", "HD00003"})
    addFull(id);
  photos().Move(1, Recordset::Start::First);
  EXPECT_EQ(neighbourIds(photos()), (std::vector<std::string>{"HD00003", "HD00001"}));
  photos().MoveFirst();
  EXPECT_EQ(neighbourIds(photos()), std::vector<std::string>{"HD00002"});
  photos().MoveLast();
  EXPECT_EQ(neighbourIds(photos()), std::vector<std::string>{"HD00002"});
  photos().MoveNext();
  EXPECT_TRUE(neighbourIds(photos()).empty());
}

TEST_F(RecordMoves, TheNameFilterLeavesThePeopleUnfilteredAndSortedByName) {
  const auto ben = folder_.addPerson("Ben");
  folder_.addPerson("Anna", ben);
  EXPECT_EQ(nameFilterEntries(data().rsAppearances),
            (std::vector<NameEntry>{
                {"Show All", 0}, {"Family Members", 0}, {"-------------------", 0}, {"Ben", ben}}));
  EXPECT_EQ(data().rsAppearances.Filter(), "");
  EXPECT_EQ(data().rsAppearances.RecordCount(), 2);
  EXPECT_EQ(data().rsAppearances.Collect("AppearancesNames"), Value("Anna"));
}

} // namespace hearthbook
