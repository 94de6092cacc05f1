#include "FileBytes.h"
#include "FoundAlbum.h"
#include "KilledTest.h"
#include "NameList.h"
#include "PhotoDeletion.h"

#include <algorithm>

namespace hearthbook {
namespace {

namespace fs = std::filesystem;
using test::FoundAlbum;

constexpr int manyPhotos = 10'000;

bool holds(const fs::path& file, const std::string& bytes) {
  return fs::exists(file) && test::readBytes(file) == bytes;
}

class KilledDeletion : public test::KilledTest {
protected:
  KilledDeletion() { folder_.open(); }

  void addMember(int album, const std::string& photo) {
    folder_.addRow("SubAlbumPhotos", {{"AlbumID", album}, {"PhotoID", photo}, {"Index", 0}});
  }

  test::AlbumFolder folder_;
};

TEST_F(KilledDeletion, OfAPhotoLeavesItWholeOrInTheTrash) {
  folder_.addPhoto("HD00002");
  folder_.addPhoto("HD00003");
  test::writeBytes(folder_.at("Audio/00002.wav"), "sound");
  addMember(1, "HD00002");
  addMember(2, "HD00002");
  addMember(2, "HD00003");
  folder_.close();
  const std::string photo = test::readBytes(folder_.at("Photos/00002.jpg"));
  killAtEachStep(
      folder_.root(),
      [](const fs::path& root) {
        FoundAlbum found(root);
        found.data().rsPhotoAlbum.Move(1);
        deletePhoto(found.album());
      },
      [&](const fs::path& root) {
        FoundAlbum found(root);
        const auto trash = root.parent_path() / "data/Trash/files";
        EXPECT_TRUE(holds(root / "Photos/00002.jpg", photo) || holds(trash / "00002.jpg", photo));
        EXPECT_TRUE(fs::exists(root / "Audio/00002.wav") || fs::exists(trash / "00002.wav"));
        const auto rows = found.count("SELECT * FROM PhotoAlbum WHERE PictureID = 'HD00002'");
        const auto places = found.count("SELECT * FROM SubAlbumPhotos WHERE PhotoID = 'HD00002'");
        EXPECT_EQ(places, 2 * rows) << "the row and its places go together";
        EXPECT_TRUE(rows == 1 || !fs::exists(root / "Photos/00002.jpg"));
        EXPECT_EQ(found.count("SELECT * FROM PhotoAlbum WHERE PictureID = 'HD00003'"), 1);
        EXPECT_EQ(found.count("SELECT * FROM SubAlbumPhotos WHERE PhotoID = 'HD00003'"), 1);
      });
}

TEST_F(KilledDeletion, OfAPlaceTakesItFromAllPhotosOrFromNone) {
  const auto lake = folder_.addPlace("Lake");
  folder_.album().data.AlbumDB.transaction([&] {
    for (int number = 2; number <= manyPhotos; ++number)
      folder_.addRow("PhotoAlbum",
                     {{"PictureID", "HD" + std::to_string(10'000 + number)}, {"PlaceID", lake}});
  });
  folder_.close();
  fs::remove_all(folder_.at("Media")); // less to copy at each step
  killAtEachStep(
      folder_.root(),
      [&](const fs::path& root) {
        FoundAlbum found(root);
        removeListName(found.data().rsPhotoAlbum, found.data().rsPlaces, placeWords, "Lake",
                       static_cast<std::int16_t>(lake));
      },
      [](const fs::path& root) {
        FoundAlbum found(root);
        const auto places = found.count("SELECT * FROM Places");
        EXPECT_EQ(found.count("SELECT * FROM PhotoAlbum WHERE PlaceID IS NOT NULL"),
                  places == 1 ? manyPhotos - 1 : 0);
        EXPECT_EQ(found.data().rsPhotoAlbum.RecordCount(), manyPhotos);
      });
}

} // namespace
} // namespace hearthbook
