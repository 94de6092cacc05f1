#include "Encode.h"
#include "FileBytes.h"
#include "FoundAlbum.h"
#include "KilledTest.h"
#include "PhotoSaving.h"
#include "TestPictures.h"

#include <algorithm>
#include <string>

namespace hearthbook {
namespace {

namespace fs = std::filesystem;
using test::FoundAlbum;

class KilledUpdate : public test::KilledTest {
protected:
  KilledUpdate() {
    folder_.open();
    folder_.addPhoto("HD00002");
    folder_.close();
    fs::remove_all(folder_.at("Media")); // less to copy at each step
  }

  static std::string found(const fs::path& file) {
    return fs::exists(file) ? test::readBytes(file) : std::string();
  }

  const Picture edited_ = test::grainy({200, 150});
  test::AlbumFolder folder_;
};

TEST_F(KilledUpdate, OfAPhotoLeavesTheOldOrTheNewOneAndTheOldOneSomewhere) {
  const std::string before = test::readBytes(folder_.at("Photos/00001.jpg"));
  const std::string after = jpegBytes(edited_, photoFactor);
  const std::string thumbnail = test::readBytes(folder_.at("Thumbnails/00001.jpg"));
  killAtEachStep(
      folder_.root(),
      [this](const fs::path& root) {
        FoundAlbum found(root);
        writePhoto(edited_, placesOfCurrentPhoto(found.album()));
      },
      [&](const fs::path& root) {
        FoundAlbum album(root);
        const std::string photo = found(root / "Photos/00001.jpg");
        EXPECT_TRUE(photo == before || photo == after);
        const auto trash = root.parent_path() / "data/Trash/files/00001.jpg";
        EXPECT_TRUE(photo == before || found(trash) == before);
        const std::string small = found(root / "Thumbnails/00001.jpg");
        EXPECT_TRUE(small == thumbnail || (photo == after && small.size() > 100));
        EXPECT_EQ(album.count("SELECT * FROM PhotoAlbum"), 2);
      });
}

TEST_F(KilledUpdate, OfANewPhotoLeavesAWholePhotoOrARowWhosePictureIsMissing) {
  const std::string after = jpegBytes(edited_, photoFactor);
  killAtEachStep(
      folder_.root(),
      [this](const fs::path& root) {
        FoundAlbum found(root);
        const PhotoPlaces places = addPhotoRow(found.album(), found.data().rsPhotoAlbum);
        writePhoto(edited_, places);
      },
      [&](const fs::path& root) {
        FoundAlbum album(root);
        const bool isThere = fs::exists(root / "Photos/00003.jpg");
        EXPECT_TRUE(!isThere || found(root / "Photos/00003.jpg") == after);
        const auto rows = album.count("SELECT * FROM PhotoAlbum WHERE PictureID = 'HD00003'");
        EXPECT_TRUE(rows == 1 || !isThere) << "no file without its row";
      });
}

} // namespace
} // namespace hearthbook
