#include "OpenAlbum.h"

#include "ShellFixture.h"

#include <gtest/gtest.h>

#include <vector>

namespace hearthbook {
namespace {

class OpenAlbumTest : public test::ShellTest {
protected:
  void SetUp() override {
    addPhoto("HD00002", "1990");
    addPhoto("HD00003", "1985");
    addPhoto("HD00004", "NULL");
    addSubAlbum(7, "Lake", {"HD00003", "HD00001", "HD00002"});
    addSubAlbum(9, "Nothing yet", {});
    open();
  }

  std::optional<OpenedAlbum> openAndNoteBar(int id, const std::string& name) {
    return openAlbum(album(), id, name, [this](int value) { bar.push_back(value); });
  }

  std::vector<std::string> photosShown() {
    std::vector<std::string> ids;
    Recordset& rows = *album().vars.rsViewer;
    for (; !rows.atEOF(); rows.MoveNext())
      ids.push_back(rows.Collect("PictureID").toText());
    return ids;
  }

  std::vector<int> bar;
};

TEST_F(OpenAlbumTest, ASubAlbumIsReadInItsOwnOrder) {
  const auto opened = openAndNoteBar(7, "Lake");

  EXPECT_EQ(opened, (OpenedAlbum{"Viewing Album: Lake", "7", true}));
  EXPECT_EQ(photosShown(), (std::vector<std::string>{"HD00003", "HD00001", "HD00002"}));
  EXPECT_EQ(album().vars.CallerForm, "Viewer");
}

TEST_F(OpenAlbumTest, TheBarOfASubAlbumMovesInTheToldSteps) {
  openAndNoteBar(7, "Lake");

  EXPECT_EQ(bar, (std::vector<int>{0, 20, 30, 40, 50, 60, 100}));
}

TEST_F(OpenAlbumTest, ASubAlbumWithoutPhotosOpensNothing) {
  EXPECT_FALSE(openAndNoteBar(9, "Nothing yet"));
  EXPECT_EQ(bar, (std::vector<int>{0, 20}));
  EXPECT_EQ(album().vars.CallerForm, "Viewer");
}

TEST_F(OpenAlbumTest, TheMasterAlbumIsReadByYearTheUndatedFirst) {
  const auto opened = openAndNoteBar(0, "Master Album");

  EXPECT_EQ(opened, (OpenedAlbum{"Viewing Master Album", "0", false}));
  EXPECT_EQ(photosShown(), (std::vector<std::string>{"HD00001", "HD00004", "HD00003", "HD00002"}));
}

TEST_F(OpenAlbumTest, TheBarOfTheMasterAlbumMovesInTheToldSteps) {
  openAndNoteBar(0, "Master Album");

  EXPECT_EQ(bar, (std::vector<int>{0, 10, 20, 30, 40, 50, 60, 80, 100}));
}

TEST_F(OpenAlbumTest, TheSharedSetOfPhotosStaysWhereItWas) {
  album().data.rsPhotoAlbum.MoveLast();

  openAndNoteBar(7, "Lake");

  EXPECT_EQ(album().data.rsPhotoAlbum.RecordCount(), 4);
  EXPECT_EQ(album().data.rsPhotoAlbum.AbsolutePosition(), 4);
}

} // namespace
} // namespace hearthbook
