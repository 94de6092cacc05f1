#include "BuildAlbum.h"

#include "ShellFixture.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

class BuildAlbumTest : public test::ShellTest {
protected:
  std::string current() { return album().data.rsPhotoAlbum.Collect("PictureID").toText(); }
};

TEST_F(BuildAlbumTest, TheMenuOpensOnTheFirstPhotoWithoutAYear) {
  execute("UPDATE PhotoAlbum SET Year = 1980");
  addPhoto("HD00002", "1990");
  addPhoto("HD00003", "NULL");
  addPhoto("HD00004", "NULL");
  open();

  buildFromFirstUndatedPhoto(album());

  EXPECT_EQ(current(), "HD00003");
  EXPECT_EQ(album().vars.CallerForm, "DBeditor");
}

TEST_F(BuildAlbumTest, TheMenuOpensOnTheFirstPhotoWhereEveryPhotoHasAYear) {
  execute("UPDATE PhotoAlbum SET Year = 1980");
  addPhoto("HD00002", "1990");
  open();

  buildFromFirstUndatedPhoto(album());

  EXPECT_EQ(current(), "HD00001");
}

TEST_F(BuildAlbumTest, TheMenuClearsTheFilterToo) {
  addPhoto("HD00002", "NULL");
  open();
  album().data.rsPhotoAlbum.Filter("PictureID = 'HD00002'");

  buildFromFirstUndatedPhoto(album());

  EXPECT_EQ(album().data.rsPhotoAlbum.Filter(), "");
  EXPECT_EQ(album().data.rsPhotoAlbum.RecordCount(), 2);
}

TEST_F(BuildAlbumTest, TheMenuOpensAnAlbumWithoutPhotos) {
  execute("DELETE FROM PhotoAlbum");
  open();

  buildFromFirstUndatedPhoto(album());

  EXPECT_TRUE(album().data.rsPhotoAlbum.atEOF());
  EXPECT_EQ(album().vars.CallerForm, "DBeditor");
}

TEST_F(BuildAlbumTest, TheStartScreenStaysOnTheFirstPhotoAndClearsTheFilter) {
  execute("UPDATE PhotoAlbum SET Year = 1980");
  addPhoto("HD00002", "NULL");
  open();
  album().data.rsPhotoAlbum.Filter("PictureID = 'HD00002'");

  buildFromFirstPhoto(album());

  EXPECT_EQ(current(), "HD00001");
  EXPECT_EQ(album().data.rsPhotoAlbum.Filter(), "");
  EXPECT_EQ(album().data.rsPhotoAlbum.RecordCount(), 2);
  EXPECT_EQ(album().vars.CallerForm, "DBeditor");
}

TEST_F(BuildAlbumTest, NewNumbersMayBeMadeAfterBothWays) {
  open();
  album().data.rsPhotoAlbum.Close();
  album().data.rsPhotoAlbum.Open("SELECT * FROM PhotoAlbum Order By Year");
  ASSERT_FALSE(standsOnWholeAlbum(album().data.rsPhotoAlbum));

  buildFromFirstUndatedPhoto(album());
  EXPECT_TRUE(standsOnWholeAlbum(album().data.rsPhotoAlbum));
  buildFromFirstPhoto(album());
  EXPECT_TRUE(standsOnWholeAlbum(album().data.rsPhotoAlbum));
}

TEST_F(BuildAlbumTest, TheTwoCaptionsAreSpelledDifferently) {
  EXPECT_STREQ(menuBuildCaption, "Builing Master Album");
  EXPECT_STREQ(startBuildCaption, "Building Master Album");
}

} // namespace
} // namespace hearthbook
