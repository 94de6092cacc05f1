#include "BatchDeletion.h"
#include "BatchUpdate.h"
#include "FileBytes.h"
#include "FoundAlbum.h"
#include "KilledTest.h"

namespace hearthbook {
namespace {

namespace fs = std::filesystem;
using test::FoundAlbum;

constexpr int batchPhotos = 5;

std::string batchId(int number) { return "HD0000" + std::to_string(number); }

class KilledBatch : public test::KilledTest {
protected:
  KilledBatch() { folder_.open(); }

  static std::unique_ptr<Recordset> search(FoundAlbum& found) {
    auto result = std::make_unique<Recordset>(found.data().AlbumDB);
    result->Open("SELECT * FROM PhotoAlbum  ORDER BY Year, PictureID");
    return result;
  }

  test::AlbumFolder folder_;
};

TEST_F(KilledBatch, AnUpdateOfManyPhotosIsDoneWholeOrNotAtAll) {
  for (int number = 2; number <= batchPhotos; ++number)
    folder_.addRow("PhotoAlbum",
                   {{"PictureID", batchId(number)}, {"Description", std::string(3000, 'a')}});
  folder_.close();
  fs::remove_all(folder_.at("Media")); // less to copy at each step
  killAtEachStep(
      folder_.root(),
      [](const fs::path& root) {
        FoundAlbum found(root);
        updatePhotos(*search(found), {2, 3, 5},
                     {.year = 1985, .description = std::string(3000, 'b'), .people = {7}});
      },
      [](const fs::path& root) {
        FoundAlbum found(root);
        const auto changed = found.count("SELECT * FROM PhotoAlbum WHERE Year = 1985");
        EXPECT_TRUE(changed == 0 || changed == 3) << changed;
        EXPECT_EQ(found.count("SELECT * FROM PhotoAlbum WHERE NamesInPhoto = '007,'"), changed);
        EXPECT_EQ(found.data().rsPhotoAlbum.RecordCount(), batchPhotos);
      });
}

TEST_F(KilledBatch, ADeletionOfManyPhotosLeavesEachWholeOrInTheTrash) {
  for (int number = 2; number <= 5; ++number) {
    folder_.addPhoto(batchId(number));
    folder_.addRow("SubAlbumPhotos",
                   {{"AlbumID", 1}, {"PhotoID", batchId(number)}, {"Index", number}});
  }
  folder_.close();
  fs::remove_all(folder_.at("Media"));
  killAtEachStep(
      folder_.root(),
      [](const fs::path& root) {
        FoundAlbum found(root);
        deletePhotos(found.album(), *search(found), {2, 4}, [](std::size_t) {});
      },
      [](const fs::path& root) {
        FoundAlbum found(root);
        const auto rows = found.count("SELECT * FROM PhotoAlbum");
        EXPECT_TRUE(rows == 5 || rows == 3) << rows;
        EXPECT_EQ(found.count("SELECT * FROM SubAlbumPhotos"), rows - 1);
        const fs::path trash = root.parent_path() / "data/Trash/files";
        for (const char* photo : {"00002.jpg", "00004.jpg"})
          EXPECT_TRUE(fs::exists(root / "Photos" / photo) || fs::exists(trash / photo)) << photo;
        for (const char* photo : {"00001.jpg", "00003.jpg", "00005.jpg"})
          EXPECT_TRUE(fs::exists(root / "Photos" / photo)) << photo;
      });
}

} // namespace
} // namespace hearthbook
