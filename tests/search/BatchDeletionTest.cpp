#include "BatchDeletion.h"

#include "BatchAlbum.h"
#include "FileBytes.h"
#include "PrivateMount.h"
#include "RunTimeError.h"

#include <gmock/gmock.h>

namespace hearthbook {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;
namespace fs = std::filesystem;

class BatchDeletion : public test::BatchAlbum {
protected:
  void erase(const std::vector<std::int64_t>& positions) {
    deletePhotos(album(), results(), positions,
                 [this](std::size_t done) { told_.push_back(done); });
  }
  std::string failureOf(const std::vector<std::int64_t>& positions) {
    try {
      erase(positions);
    } catch (const RunTimeError& failure) {
      return failure.what();
    }
    return "none";
  }
  void addMember(int album, const std::string& photo) {
    folder_.addRow("SubAlbumPhotos", {{"AlbumID", album}, {"PhotoID", photo}, {"Index", 0}});
    data().rsSubAlbumPhotos.Requery();
  }
  std::vector<std::string> photosLeft() {
    std::vector<std::string> ids;
    Recordset rows(data().AlbumDB);
    for (rows.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID"); !rows.atEOF(); rows.MoveNext())
      ids.push_back(rows.Collect("PictureID").toText());
    return ids;
  }
  bool hasFiles(const char* stem) {
    return fs::exists(at(std::string("Photos/") + stem + ".jpg")) &&
           fs::exists(at(std::string("Thumbnails/") + stem + ".jpg"));
  }

  std::vector<std::size_t> told_;
};

TEST_F(BatchDeletion, TakesRowsFilesSoundsAndPlacesInSubAlbumsAway) {
  test::writeBytes(at("Audio/00003.wav"), "sound");
  for (const char* photo : {"HD00003", "HD00005", "HD00002"})
    addMember(1, photo);
  addMember(2, "HD00003");
  erase({3, 5});
  EXPECT_THAT(photosLeft(), ElementsAre("HD00001", "HD00002", "HD00004", "HD00006"));
  for (const char* stem : {"00003", "00005"}) {
    EXPECT_FALSE(fs::exists(at(std::string("Photos/") + stem + ".jpg")));
    EXPECT_FALSE(fs::exists(at(std::string("Thumbnails/") + stem + ".jpg")));
  }
  EXPECT_FALSE(fs::exists(at("Audio/00003.wav")));
  EXPECT_TRUE(hasFiles("00004"));
  EXPECT_EQ(rowsOf("SELECT * FROM SubAlbumPhotos"), 1);
  EXPECT_THAT(test::namesIn(folder_.trash()),
              UnorderedElementsAre("00003.jpg", "00003.wav", "00005.jpg"));
  EXPECT_THAT(told_, ElementsAre(1, 2));
}

TEST_F(BatchDeletion, TheRowsBehindDoNotShiftMeanwhile) {
  erase({1, 2, 3, 4, 6});
  EXPECT_THAT(photosLeft(), ElementsAre("HD00005"));
  EXPECT_EQ(results().RecordCount(), 1);
  EXPECT_TRUE(results().atEOF());
}

TEST_F(BatchDeletion, OneAloneGoesTheSameWay) {
  erase({4});
  EXPECT_THAT(photosLeft(), ElementsAre("HD00001", "HD00002", "HD00003", "HD00005", "HD00006"));
}

TEST_F(BatchDeletion, TheFilesOfOtherPrefixesStay) {
  folder_.addPhoto("CD00002", {{"Year", 1980}});
  folder_.addPhoto("XX00003", {{"Year", 1981}});
  results().Requery();
  erase({1, 2});
  EXPECT_EQ(rowsOf("SELECT * FROM PhotoAlbum WHERE Year < 1990"), 0);
  EXPECT_TRUE(hasFiles("00002"));
  EXPECT_TRUE(hasFiles("00003"));
}

TEST_F(BatchDeletion, TheFirstPhotoIsNotDeletable) {
  EXPECT_THAT(deletablePositions(results(), {1, 2, 3}), ElementsAre(2, 3));
  EXPECT_THAT(deletablePositions(results(), {1}), ElementsAre());
  EXPECT_THAT(deletablePositions(results(), {5, 99}), ElementsAre(5, 99));
}

TEST_F(BatchDeletion, AFileThatCannotBeDeletedStopsItAndThoseDoneAreGone) {
  if (!test::canMountPrivately())
    GTEST_SKIP() << "this machine lets tests mount nothing";
  fs::remove(at("Photos/00002.jpg")); // so that the second photo is the first with a file
  const test::ReadOnlyMount locked(at("Photos"));
  const std::string failure = failureOf({2, 3, 4});
  EXPECT_THAT(failure, HasSubstr("00003.jpg"));
  EXPECT_THAT(failure, HasSubstr("Of 3 selected photos 1 were deleted before that."));
  EXPECT_THAT(photosLeft(), ElementsAre("HD00001", "HD00003", "HD00004", "HD00005", "HD00006"));
  EXPECT_TRUE(hasFiles("00004"));
}

TEST_F(BatchDeletion, RowsThatCannotBeDeletedAreStillShown) {
  addMember(1, "HD00002");
  refuse("DELETE", "HD00003");
  const std::string failure = failureOf({2, 3});
  EXPECT_THAT(failure, HasSubstr("this photo is not to be touched"));
  EXPECT_THAT(failure, HasSubstr("2 photos are in the trash"));
  EXPECT_EQ(photosLeft().size(), 6);
  EXPECT_EQ(results().RecordCount(), 6);
  EXPECT_TRUE(results().atEOF());
  EXPECT_EQ(rowsOf("SELECT * FROM SubAlbumPhotos"), 1);
}

TEST_F(BatchDeletion, APositionWithoutAPhotoStopsIt) {
  EXPECT_THAT(failureOf({6, 7}), HasSubstr("2 selected photos 1 were deleted"));
  EXPECT_EQ(photosLeft().size(), 5);
}

} // namespace
} // namespace hearthbook
