#include "AlbumFixture.h"
#include "RunTimeError.h"

#include <type_traits>

namespace hearthbook {
namespace {

class AlbumDataTest : public test::AlbumFixture {
protected:
  Recordset& photos() { return data().rsPhotoAlbum; }
  void reopen(std::string_view source) {
    photos().Close();
    photos().Open(source);
  }
};

TEST_F(AlbumDataTest, TheSixRecordSetsAreOpenOnTheirSources) {
  EXPECT_EQ(data().rsEvents.Source(), "Select * From Events Order By EventName");
  EXPECT_EQ(photos().Source(), "SELECT * FROM PhotoAlbum ORDER BY PictureID");
  EXPECT_EQ(data().rsPlaces.Source(), "Select * From Places Order By PlaceName");
  EXPECT_EQ(data().rsAppearances.Source(), "Select * From Appearances Order By AppearancesNames");
  EXPECT_EQ(data().rsSubAlbums.Source(), "SELECT * From SubAlbums Order By AlbumName ");
  for (const Recordset* set : {&data().rsEvents, &photos(), &data().rsPlaces, &data().rsAppearances,
                               &data().rsSubAlbums, &data().rsSubAlbumPhotos})
    EXPECT_TRUE(set->isOpen()) << set->Source();
}

TEST_F(AlbumDataTest, TheMembersOfSubAlbumsAreTheWholeTable) {
  folder_.addRow("SubAlbumPhotos", {{"AlbumID", 1}, {"PhotoID", "HD00001"}, {"Index", 0}});
  data().rsSubAlbumPhotos.Requery();
  EXPECT_EQ(data().rsSubAlbumPhotos.RecordCount(), 1);
  EXPECT_EQ(data().rsSubAlbumPhotos.Collect("PhotoID").toText(), "HD00001");
}

TEST_F(AlbumDataTest, ANewPhotoIsKnownByItsIdAlone) {
  EXPECT_EQ(photos().Collect("PictureID").toText(), "HD00001");
  for (const char* field :
       {"Year", "PlaceID", "EventID", "NamesInPhoto", "NamesCords", "Description"})
    EXPECT_TRUE(photos().Collect(field).isNull()) << field;
}

TEST_F(AlbumDataTest, FindingAYearThatIsNullWhereNoneIsLeavesTheEnd) {
  data().AlbumDB.execute("UPDATE PhotoAlbum SET Year = 1990");
  photos().Requery();
  photos().Find("Year = Null");
  EXPECT_TRUE(photos().atEOF());
}

TEST_F(AlbumDataTest, AnAlbumWithoutRowsIsAtBothEnds) {
  data().AlbumDB.execute("DELETE FROM PhotoAlbum");
  photos().Requery();
  EXPECT_TRUE(photos().atBOF());
  EXPECT_TRUE(photos().atEOF());
}

TEST_F(AlbumDataTest, ANameWithAnApostropheIsFoundOnlyWhenDoubled) {
  folder_.addPerson("O'Hara");
  Recordset& people = data().rsAppearances;
  people.Find("AppearancesNames = 'O''Hara'");
  EXPECT_FALSE(people.atEOF());
  people.MoveFirst();
  EXPECT_THROW(people.Find("AppearancesNames = 'O'Hara'"), RunTimeError);
}

TEST_F(AlbumDataTest, AStatementThatChangesRowsLeavesTheSetOnItsSource) {
  folder_.addRow("SubAlbumPhotos", {{"AlbumID", 1}, {"PhotoID", "HD00001"}, {"Index", 0}});
  AlbumData::execute(data().rsSubAlbumPhotos, "DELETE FROM SubAlbumPhotos WHERE AlbumID = 1");
  EXPECT_TRUE(data().rsSubAlbumPhotos.isOpen());
  EXPECT_EQ(data().rsSubAlbumPhotos.Source(), sources::subAlbumPhotos);
  EXPECT_EQ(data().rsSubAlbumPhotos.RecordCount(), 0);
}

TEST_F(AlbumDataTest, AStatementThatFailsLeavesTheSetOnItsSourceToo) {
  EXPECT_THROW(AlbumData::execute(photos(), "DELETE FROM NoSuchTable"), RunTimeError);
  EXPECT_TRUE(photos().isOpen());
  EXPECT_EQ(photos().Source(), sources::photoAlbum);
  EXPECT_EQ(photos().RecordCount(), 1);
}

TEST_F(AlbumDataTest, TheWholeAlbumInItsOrderIsKnownInEveryWording) {
  EXPECT_TRUE(standsOnWholeAlbum(photos()));
  reopen("SELECT * FROM PhotoAlbum Order By PictureID");
  EXPECT_TRUE(standsOnWholeAlbum(photos()));
  reopen("  select *   from photoalbum\n order by PICTUREID ");
  EXPECT_TRUE(standsOnWholeAlbum(photos()));
}

TEST_F(AlbumDataTest, AnotherStatementOrAFilterIsNotTheWholeAlbum) {
  photos().Filter("PictureID = 'HD00001'");
  EXPECT_FALSE(standsOnWholeAlbum(photos()));
  photos().Filter("");
  EXPECT_TRUE(standsOnWholeAlbum(photos()));
  reopen("SELECT * FROM PhotoAlbum ORDER BY Year");
  EXPECT_FALSE(standsOnWholeAlbum(photos()));
  reopen("SELECT * FROM PhotoAlbum WHERE Year = 1990 ORDER BY PictureID");
  EXPECT_FALSE(standsOnWholeAlbum(photos()));
  photos().Close();
  EXPECT_FALSE(standsOnWholeAlbum(photos()));
}

TEST_F(AlbumDataTest, WhatAFormWritesIsThereAtTheNextStart) {
  photos().Collect("Year", 1990);
  photos().Update();
  folder_.close();
  folder_.open();
  EXPECT_EQ(photos().Collect("Year"), Value(1990));
}

TEST(ApplicationState, EverythingIsEmptyAtTheStart) {
  const PublicVar vars;
  EXPECT_EQ(vars.CallerForm, "");
  EXPECT_TRUE(vars.ImagePath.empty());
  EXPECT_EQ(vars.NextPhotoNumber, 0);
  EXPECT_TRUE(vars.WizardPlaceID.isNull());
  EXPECT_FALSE(vars.LastFolder);
  EXPECT_FALSE(vars.rsSearch || vars.rsViewer || vars.rsZoom || vars.rsHelp);
  EXPECT_EQ(vars.selection, SelectionSet());
  EXPECT_EQ(vars.chosenAlbum.id, 0);
}

TEST(ApplicationState, NumbersHaveTheWidthThatTheRestReliesOn) {
  EXPECT_TRUE((std::is_same_v<decltype(PublicVar::NextPhotoNumber), std::int16_t>));
  EXPECT_TRUE((std::is_same_v<decltype(PublicVar::CurrentPersonID), std::int16_t>));
  EXPECT_TRUE((std::is_same_v<decltype(PublicVar::PageThumbCount), std::int16_t>));
  EXPECT_TRUE((std::is_same_v<decltype(SelectionSet::SelectedCount), std::int16_t>));
  EXPECT_TRUE((std::is_same_v<decltype(PublicVar::ViewPageCount), std::int16_t>));
  EXPECT_EQ(PublicVar().PagePositions.size(), 25U);
}

} // namespace
} // namespace hearthbook
