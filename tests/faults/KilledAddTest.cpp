#include "FileBytes.h"
#include "IncomingPhotos.h"
#include "KilledTest.h"
#include "SafeFile.h"

#include <algorithm>

namespace hearthbook {
namespace {

using test::namesIn;
using test::readBytes;
namespace fs = std::filesystem;

class KilledAdd : public test::KilledTest {
protected:
  void addKilledAtEachStep(bool move) {
    killAtEachStep(
        folder_.root(), [&](const fs::path& root) { incoming_.add(root, move); },
        [&](const fs::path& root) {
          startAgain(root);
          incoming_.expectNoneLost(root, root.parent_path() / "data/Trash/files");
          test::IncomingPhotos::expectWholePictures(root);
        });
  }

  /// What was there before is there with its bytes, and nothing half-made is left.
  void startAgain(const fs::path& root) {
    for (const char* folder : {"Photos", "Thumbnails", "Backup"}) {
      removeLeftovers(root / folder);
      for (const std::string& name : namesIn(root / folder))
        EXPECT_FALSE(name.starts_with(".")) << name;
    }
    AlbumData data;
    data.AlbumDB.Open(root / "Data/Photo_Album.mdb");
    EXPECT_TRUE(data.AlbumDB.passesQuickCheck());
    data.openRecordsets();
    EXPECT_EQ(data.rsPhotoAlbum.Collect("PictureID").toText(), "HD00001");
    expectFirstPhoto(root);
  }

  /// The first photo's file; a new one of its number writes it over only once it is kept.
  void expectFirstPhoto(const fs::path& root) {
    const auto names = namesIn(root / "Backup");
    EXPECT_TRUE(readBytes(root / "Photos/00001.jpg") == first_ ||
                std::ranges::any_of(names, [&](const std::string& name) {
                  return readBytes(root / "Backup" / name) == first_;
                }));
  }

  test::AlbumFolder folder_;
  test::IncomingPhotos incoming_{folder_.root()};
  std::string first_ = readBytes(folder_.at("Photos/00001.jpg"));
};

TEST_F(KilledAdd, CopyingPhotosInLosesNone) { addKilledAtEachStep(false); }

TEST_F(KilledAdd, MovingPhotosInLosesNone) { addKilledAtEachStep(true); }

TEST_F(KilledAdd, WhereNumbersBeginAgainTheOldPhotoIsKeptFirst) {
  folder_.open();
  folder_.addPhoto("HD10000");
  folder_.close();
  addKilledAtEachStep(true);
}

} // namespace
} // namespace hearthbook
