#include "NameList.h"

#include "AlbumFixture.h"
#include "RunTimeError.h"

namespace hearthbook {
namespace {

class NameList : public test::AlbumFixture {
protected:
  NewName judge(std::string_view name) { return judgeNewName(data().rsPlaces, placeWords, name); }
  std::int64_t count(const std::string& select) {
    Recordset rows(data().AlbumDB);
    rows.Open(select);
    return rows.RecordCount();
  }
  void remove(const std::string& name, std::int64_t id) {
    removeListName(data().rsPhotoAlbum, data().rsPlaces, placeWords, name,
                   static_cast<std::int16_t>(id));
  }
};

TEST_F(NameList, AnEmptyNameIsNone) { EXPECT_EQ(judge(""), NewName::Empty); }

TEST_F(NameList, TwentyCharactersFitAndTwentyOneDoNot) {
  EXPECT_EQ(judge(std::string(20, 'a')), NewName::Fits);
  EXPECT_EQ(judge(std::string(21, 'a')), NewName::TooLong);
}

TEST_F(NameList, CharactersAreCountedNotBytes) {
  std::string twenty;
  for (int i = 0; i < 20; ++i)
    twenty += "é";
  EXPECT_EQ(judge(twenty), NewName::Fits);
  EXPECT_EQ(judge(twenty + "é"), NewName::TooLong);
}

TEST_F(NameList, ACombiningAccentIsACharacterOfItsOwn) {
  const std::string accented = "e\xCC\x81"; // e and an acute accent
  std::string twenty;
  for (int i = 0; i < 10; ++i)
    twenty += accented;
  EXPECT_EQ(judge(twenty), NewName::Fits);
  EXPECT_EQ(judge(twenty + "a"), NewName::TooLong);
  addListName(data().rsPlaces, placeWords, twenty);
}

TEST_F(NameList, ANameThatDiffersOnlyInCaseIsThere) {
  folder_.addPlace("Évian");
  EXPECT_EQ(judge("éVIAN"), NewName::AlreadyThere);
  EXPECT_EQ(judge("Evian"), NewName::Fits);
}

TEST_F(NameList, ANameWithAnApostropheIsFoundAgain) {
  folder_.addPlace("Grandma's");
  EXPECT_EQ(judge("GRANDMA'S"), NewName::AlreadyThere);
  EXPECT_EQ(judge("Grandpa's"), NewName::Fits);
}

TEST_F(NameList, NumbersAreNamesToo) {
  folder_.addPlace("1000");
  EXPECT_EQ(judge("1e3"), NewName::Fits);
  EXPECT_EQ(judge("1000"), NewName::AlreadyThere);
}

TEST_F(NameList, JudgingMovesNothing) {
  folder_.addPlace("Home");
  folder_.addPlace("Lake");
  data().rsPlaces.MoveLast();
  judge("Home");
  EXPECT_EQ(data().rsPlaces.AbsolutePosition(), 2);
}

TEST_F(NameList, EveryScriptCanBeStored) {
  for (const char* name : {"בית סבתא", "Ο κήπος", "\"Home\", sweet", "e\xCC\x81te\xCC\x81", "'"}) {
    EXPECT_EQ(judge(name), NewName::Fits) << name;
    addListName(data().rsPlaces, placeWords, name);
    EXPECT_EQ(judge(name), NewName::AlreadyThere) << name;
    EXPECT_EQ(data().rsPlaces.AbsolutePosition(), 1);
  }
  EXPECT_EQ(count("SELECT * FROM Places"), 5);
}

TEST_F(NameList, ARemovedNameLeavesAllPhotos) {
  const auto lake = folder_.addPlace("Lake");
  const auto home = folder_.addPlace("Home");
  folder_.addPhoto("HD00002", {{"PlaceID", lake}});
  folder_.addPhoto("HD00003", {{"PlaceID", home}});
  folder_.addPhoto("HD00004", {{"PlaceID", lake}});
  Recordset& photos = data().rsPhotoAlbum;
  photos.Move(1);
  remove("Lake", lake);
  EXPECT_EQ(count("SELECT * FROM PhotoAlbum WHERE PlaceID IS NOT NULL"), 1);
  EXPECT_EQ(count("SELECT * FROM Places"), 1);
  EXPECT_EQ(photos.AbsolutePosition(), 2);
  EXPECT_TRUE(photos.Filter().empty());
  EXPECT_TRUE(photos.Collect("PlaceID").isNull());
  photos.MoveNext();
  EXPECT_EQ(photos.Collect("PlaceID"), Value(home));
  photos.MoveNext();
  EXPECT_TRUE(photos.Collect("PlaceID").isNull());
}

TEST_F(NameList, ARemovedNameLeavesThePhotosOutsideTheOpenOnesToo) {
  const auto lake = folder_.addPlace("Lake");
  const auto home = folder_.addPlace("Home");
  folder_.addPhoto("HD00002", {{"PlaceID", lake}, {"Year", 1990}});
  folder_.addPhoto("HD00003", {{"PlaceID", lake}, {"Year", 1990}});
  folder_.addPhoto("HD00004", {{"PlaceID", lake}});
  folder_.addPhoto("HD00005", {{"PlaceID", home}});
  Recordset& photos = data().rsPhotoAlbum;
  photos.Open("SELECT PhotoAlbum.* FROM PhotoAlbum WHERE Year = 1990");
  photos.MoveLast();
  remove("Lake", lake);
  EXPECT_EQ(count("SELECT * FROM PhotoAlbum WHERE PlaceID = " + std::to_string(lake)), 0);
  EXPECT_EQ(count("SELECT * FROM PhotoAlbum WHERE PlaceID = " + std::to_string(home)), 1);
  EXPECT_EQ(photos.RecordCount(), 2);
  EXPECT_EQ(photos.AbsolutePosition(), 2);
  EXPECT_TRUE(photos.Collect("PlaceID").isNull());
}

TEST_F(NameList, ARemovalThatFailsIsTakenBackOutsideTheOpenPhotosToo) {
  const auto lake = folder_.addPlace("Lake");
  folder_.addPhoto("HD00002", {{"PlaceID", lake}, {"Year", 1990}});
  folder_.addPhoto("HD00003", {{"PlaceID", lake}});
  data().rsPhotoAlbum.Open("SELECT * FROM PhotoAlbum WHERE Year = 1990");
  data().AlbumDB.execute("CREATE TRIGGER Refuse BEFORE DELETE ON Places "
                         "BEGIN SELECT RAISE(ABORT, 'no'); END");
  EXPECT_THROW(remove("Lake", lake), RunTimeError);
  EXPECT_EQ(count("SELECT * FROM PhotoAlbum WHERE PlaceID IS NOT NULL"), 2);
}

TEST_F(NameList, ClonesOfThePhotosSeeIt) {
  const auto lake = folder_.addPlace("Lake");
  folder_.addPhoto("HD00002", {{"PlaceID", lake}});
  const auto clone = data().rsPhotoAlbum.Clone();
  remove("Lake", lake);
  clone->MoveLast();
  EXPECT_TRUE(clone->Collect("PlaceID").isNull());
}

TEST_F(NameList, APhotoThatWasPendingIsStored) {
  const auto lake = folder_.addPlace("Lake");
  data().rsPhotoAlbum.Collect("PlaceID", lake);
  data().rsPhotoAlbum.Collect("Year", 1990);
  remove("Lake", lake);
  EXPECT_EQ(count("SELECT * FROM PhotoAlbum WHERE PlaceID IS NULL AND Year = 1990"), 1);
  EXPECT_FALSE(data().rsPhotoAlbum.isPending());
}

TEST_F(NameList, AFilteredAlbumStandsOnItsPhotoUnfiltered) {
  const auto lake = folder_.addPlace("Lake");
  folder_.addPhoto("HD00002", {{"PlaceID", lake}});
  folder_.addPhoto("HD00003", {{"Year", 1990}});
  data().rsPhotoAlbum.Filter("Year = 1990");
  remove("Lake", lake);
  EXPECT_EQ(data().rsPhotoAlbum.AbsolutePosition(), 3);
  EXPECT_EQ(count("SELECT * FROM PhotoAlbum WHERE PlaceID IS NOT NULL"), 0);
}

TEST_F(NameList, WithAnApostropheTheSearchFailsAndNothingIsChanged) {
  const auto place = folder_.addPlace("Grandma's");
  folder_.addPhoto("HD00002", {{"PlaceID", place}});
  data().rsPhotoAlbum.MoveLast();
  EXPECT_THROW(remove("Grandma's", place), RunTimeError);
  EXPECT_EQ(data().rsPhotoAlbum.Collect("PlaceID"), Value(place));
  EXPECT_EQ(count("SELECT * FROM PhotoAlbum WHERE PlaceID IS NOT NULL"), 1);
  EXPECT_EQ(count("SELECT * FROM Places"), 1);
}

TEST_F(NameList, ARemovalThatFailsHalfWayIsTakenBack) {
  const auto lake = folder_.addPlace("Lake");
  folder_.addPhoto("HD00002", {{"PlaceID", lake}});
  data().rsPhotoAlbum.MoveLast();
  data().AlbumDB.execute("CREATE TRIGGER Refuse BEFORE DELETE ON Places "
                         "BEGIN SELECT RAISE(ABORT, 'no'); END");
  EXPECT_THROW(remove("Lake", lake), RunTimeError);
  EXPECT_EQ(count("SELECT * FROM PhotoAlbum WHERE PlaceID IS NOT NULL"), 1);
  EXPECT_EQ(data().rsPhotoAlbum.AbsolutePosition(), 2);
  EXPECT_EQ(data().rsPhotoAlbum.Collect("PlaceID"), Value(lake));
  EXPECT_EQ(data().rsPlaces.RecordCount(), 1);
}

TEST_F(NameList, EventsHaveFieldsOfTheirOwn) {
  const auto feast = folder_.addEvent("Feast");
  folder_.addPhoto("HD00002", {{"EventID", feast}, {"PlaceID", feast}});
  EXPECT_EQ(judgeNewName(data().rsEvents, eventWords, "FEAST"), NewName::AlreadyThere);
  EXPECT_EQ(judge("Feast"), NewName::Fits);
  removeListName(data().rsPhotoAlbum, data().rsEvents, eventWords, "Feast",
                 static_cast<std::int16_t>(feast));
  EXPECT_EQ(count("SELECT * FROM PhotoAlbum WHERE EventID IS NOT NULL"), 0);
  EXPECT_EQ(count("SELECT * FROM PhotoAlbum WHERE PlaceID IS NOT NULL"), 1);
}

} // namespace
} // namespace hearthbook
