#include "PhotoOrder.h"

#include "AlbumFixture.h"
#include "RunTimeError.h"
#include "SubAlbumFolder.h"
#include "SubAlbums.h"

#include <numeric>

namespace hearthbook::test {

namespace {

using Numbers = std::vector<int>;

std::vector<OrderedPhoto> orderOf(const Numbers& numbers) {
  std::vector<OrderedPhoto> order;
  for (const int number : numbers)
    order.push_back({photoId(number), {}});
  return order;
}

Numbers upTo(int last) {
  Numbers numbers(static_cast<std::size_t>(last));
  std::iota(numbers.begin(), numbers.end(), 1);
  return numbers;
}

class PhotoOrderTest : public AlbumFixture {
protected:
  PhotoOrder& readAlbum(std::int64_t id, std::string_view clause = byIndex) {
    members().Open(stripQuery(std::to_string(id), clause));
    order_.read(members());
    return order_;
  }
  Recordset& members() { return data().rsSubAlbumPhotos; }
  [[nodiscard]] Numbers numbers() const {
    Numbers numbers;
    for (const OrderedPhoto& photo : order_.photos())
      numbers.push_back(std::stoi(photo.id.substr(2)));
    return numbers;
  }

  PhotoOrder order_;
};

} // namespace

TEST(Moved, FromFiveToTwoLetsTheOthersGoBack) {
  EXPECT_EQ(moved(orderOf({0, 1, 2, 3, 4, 5, 6}), 5, 2), orderOf({0, 1, 5, 2, 3, 4, 6}));
}

TEST(Moved, FromTwoToFiveLetsTheOthersComeForward) {
  EXPECT_EQ(moved(orderOf({0, 1, 2, 3, 4, 5, 6}), 2, 5), orderOf({0, 1, 3, 4, 5, 2, 6}));
}

TEST(Moved, ToTheEndsAndNowhere) {
  EXPECT_EQ(moved(orderOf({1, 2, 3}), 2, 0), orderOf({3, 1, 2}));
  EXPECT_EQ(moved(orderOf({1, 2, 3}), 0, 2), orderOf({2, 3, 1}));
  EXPECT_EQ(moved(orderOf({1, 2, 3}), 1, 1), orderOf({1, 2, 3}));
  EXPECT_EQ(moved(orderOf({1, 2, 3}), 1, 3), orderOf({1, 2, 3}));
  EXPECT_EQ(moved(orderOf({}), 0, 0), orderOf({}));
}

TEST_F(PhotoOrderTest, APhotoPutOnItsOwnPlaceIsNoChange) {
  readAlbum(addSubAlbum(folder_, "Lake", {1, 2, 3})).markAsStored();
  EXPECT_FALSE(order_.move(1, 1));
  EXPECT_FALSE(order_.isDirty());
  EXPECT_TRUE(order_.move(1, 0));
  EXPECT_TRUE(order_.isDirty());
}

TEST_F(PhotoOrderTest, EveryReadingMakesItDirtyAndAWriteBackLeavesItSo) {
  readAlbum(addSubAlbum(folder_, "Lake", {1, 2}));
  EXPECT_TRUE(order_.isDirty());
  order_.writeBack(members());
  EXPECT_TRUE(order_.isDirty());
}

TEST_F(PhotoOrderTest, ACaptionTellsTheYearTheEventAndThePlace) {
  folder_.addPhoto("HD00002", {{"Year", 1987},
                               {"EventID", folder_.addEvent("Wedding")},
                               {"PlaceID", folder_.addPlace("Lake")}});
  readAlbum(addSubAlbum(folder_, "Lake", {2, 1}));
  EXPECT_EQ(order_.photos().at(0).caption, "1987, Wedding in Lake");
  EXPECT_EQ(order_.photos().at(1).caption, ",  in ");
}

TEST_F(PhotoOrderTest, AMemberWhosePhotoIsGoneStaysInTheOrder) {
  readAlbum(addSubAlbum(folder_, "Lake", {1, 99}));
  EXPECT_EQ(numbers(), (Numbers{1, 99}));
  order_.move(1, 0);
  order_.writeBack(members());
  EXPECT_EQ(storedNumbers(folder_, 1), (Numbers{99, 1}));
}

TEST_F(PhotoOrderTest, AWriteBackNumbersFromZeroWithoutGaps) {
  addPhotoRows(folder_, 6);
  const auto id = addSubAlbum(folder_, "Lake", {1, 2, 3, 4, 5, 6});
  data().AlbumDB.execute("DELETE FROM SubAlbumPhotos WHERE PhotoID = 'HD00003'");
  readAlbum(id).move(4, 1);
  order_.writeBack(members());
  EXPECT_EQ(
      storedOrder(folder_, id),
      (Stored{
          {photoId(1), 0}, {photoId(6), 1}, {photoId(2), 2}, {photoId(4), 3}, {photoId(5), 4}}));
  EXPECT_EQ(members().Source(), stripQuery(std::to_string(id)));
  EXPECT_EQ(members().Collect("PhotoID").toText(), photoId(1));
}

TEST_F(PhotoOrderTest, WhatIsNotDirtyIsNotWritten) {
  const auto id = addSubAlbum(folder_, "Lake", {1, 2});
  readAlbum(id).markAsStored();
  data().AlbumDB.execute("UPDATE SubAlbumPhotos SET [Index] = 7");
  order_.writeBack(members());
  EXPECT_EQ(storedOrder(folder_, id), (Stored{{photoId(1), 7}, {photoId(2), 7}}));
}

TEST_F(PhotoOrderTest, APhotoInTwoSubAlbumsTakesThePlaceOfTheOneWrittenLastInBoth) {
  addPhotoRows(folder_, 5);
  const auto lake = addSubAlbum(folder_, "Lake", {1, 2, 3});
  const auto home = addSubAlbum(folder_, "Home", {4, 5, 1});
  readAlbum(home).move(2, 0); // 1, 4, 5
  order_.writeBack(members());
  readAlbum(lake).move(0, 2);
  order_.writeBack(members());
  EXPECT_EQ(storedOrder(folder_, lake),
            (Stored{{photoId(2), 0}, {photoId(3), 1}, {photoId(1), 2}}));
  EXPECT_EQ(storedOrder(folder_, home),
            (Stored{{photoId(4), 1}, {photoId(5), 2}, {photoId(1), 2}}));
}

TEST_F(PhotoOrderTest, AWriteBackThatFailsLeavesTheFormerOrderAndTheSetOpen) {
  addPhotoRows(folder_, 4);
  const auto id = addSubAlbum(folder_, "Lake", {1, 2, 3, 4});
  readAlbum(id).move(3, 0);
  data().AlbumDB.execute("CREATE TEMP TRIGGER Full BEFORE UPDATE ON SubAlbumPhotos WHEN "
                         "NEW.[Index] = 2 BEGIN SELECT RAISE(ABORT, 'full'); END");
  EXPECT_THROW(order_.writeBack(members()), RunTimeError);
  EXPECT_EQ(storedNumbers(folder_, id), (Numbers{1, 2, 3, 4}));
  EXPECT_EQ(members().RecordCount(), 4);
}

TEST_F(PhotoOrderTest, ASubAlbumOfNothingIsReadAndWritten) {
  readAlbum(addSubAlbum(folder_, "Lake", {}));
  order_.writeBack(members());
  EXPECT_EQ(order_.count(), 0u);
  EXPECT_TRUE(members().isOpen());
}

TEST_F(PhotoOrderTest, ASortIsByItsFieldThenByThePhotoAndWhatIsUnknownComesFirst) {
  const auto zoo = folder_.addEvent("Zoo");
  const auto ball = folder_.addEvent("ball");
  const auto lake = folder_.addPlace("Lake");
  folder_.addPhoto("HD00002", {{"Year", 1990}, {"EventID", zoo}, {"PlaceID", lake}});
  folder_.addPhoto("HD00003", {{"Year", 1980}, {"EventID", ball}});
  folder_.addPhoto("HD00004", {{"Year", 1990}, {"EventID", ball}, {"PlaceID", lake}});
  const auto id = addSubAlbum(folder_, "Album", {4, 3, 2, 1});
  const auto sorted = [&](const char* choice) {
    readAlbum(id, *arrangeClause(choice));
    return numbers();
  };
  EXPECT_EQ(sorted("By Year"), (Numbers{1, 3, 2, 4}));
  EXPECT_EQ(sorted("By Event"), (Numbers{1, 3, 4, 2}));
  EXPECT_EQ(sorted("By Place"), (Numbers{1, 3, 2, 4}));
  EXPECT_EQ(sorted("By scan order"), (Numbers{1, 2, 3, 4}));
  EXPECT_FALSE(arrangeClause(manually));
  EXPECT_FALSE(arrangeClause(autoArrangeTitle));
}

TEST_F(PhotoOrderTest, AnOrderOfManyIsWrittenWhole) {
  constexpr int many = 1000;
  addPhotoRows(folder_, many);
  const auto id = addSubAlbum(folder_, "Album", upTo(many));
  readAlbum(id, *arrangeClause("By Year")); // they grow older with their numbers
  order_.writeBack(members());
  const Numbers stored = storedNumbers(folder_, id);
  EXPECT_EQ(stored.front(), 1); // without a year
  EXPECT_EQ(stored.at(1), many);
  EXPECT_EQ(stored.back(), 2);
}

} // namespace hearthbook::test
