#include "AlbumFolder.h"
#include "ClosingBackup.h"
#include "FileBytes.h"
#include "IncomingPhotos.h"
#include "PhotoFiles.h"
#include "PrivateMount.h"
#include "RunTimeError.h"
#include "SafeFile.h"
#include "Trash.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>

namespace hearthbook {
namespace {

using test::readBytes;
namespace fs = std::filesystem;

/// An album in a folder that nobody may write to, root neither.
class ReadOnlyFolder : public testing::Test {
protected:
  void SetUp() override {
    if (!test::canMountPrivately())
      GTEST_SKIP() << "this machine lets tests mount nothing";
    fs::remove_all(folder_.at("Media"));
    before_ = everyFile();
    mount_.emplace(folder_.root());
  }
  void TearDown() override {
    const bool skipped = !mount_;
    EXPECT_TRUE(skipped || everyFile() == before_) << "a file was changed";
  }

  [[nodiscard]] std::map<std::string, std::string> everyFile() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder_.root())) {
      if (entry.is_regular_file())
        files[entry.path().string()] = readBytes(entry.path());
    }
    return files;
  }

  test::AlbumFolder folder_;
  test::IncomingPhotos incoming_{folder_.root()};
  std::map<std::string, std::string> before_;
  std::optional<test::ReadOnlyMount> mount_;
};

TEST_F(ReadOnlyFolder, TheAlbumCanBeLookedAt) {
  folder_.open();
  EXPECT_EQ(folder_.album().data.rsPhotoAlbum.RecordCount(), 1);
  resolveImage(folder_.album(), "HD00001");
  EXPECT_TRUE(folder_.album().vars.ImagePicture.found);
}

TEST_F(ReadOnlyFolder, AWriteIsToldAndTheRecordSetGoesOn) {
  folder_.open();
  Recordset& photos = folder_.album().data.rsPhotoAlbum;
  photos.Collect("Year", 1990);
  EXPECT_THROW(photos.Update(), RunTimeError);
  photos.CancelUpdate();
  EXPECT_TRUE(photos.Collect("Year").isNull());
}

TEST_F(ReadOnlyFolder, ClosingTellsIt) {
  EXPECT_THROW(compactAndBackUp(ApplicationFolder(folder_.root()), [](int) {}), RunTimeError);
}

TEST_F(ReadOnlyFolder, AddingTellsItAndMovesNothing) {
  EXPECT_GT(incoming_.add(folder_.root(), true), 0);
}

TEST_F(ReadOnlyFolder, AFileThatCannotBeDeletedStays) {
  EXPECT_THROW(moveToTrash(folder_.at("Photos/00001.jpg"), folder_.at("Backup")), RunTimeError);
  EXPECT_THROW(deleteFile(folder_.at("Photos/00001.jpg")), RunTimeError);
}

} // namespace
} // namespace hearthbook
