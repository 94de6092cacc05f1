#include "AddPhotos.h"
#include "AlbumFolder.h"
#include "BatchUpdate.h"
#include "ClosingBackup.h"
#include "FileBytes.h"
#include "IncomingPhotos.h"
#include "PhotoSaving.h"
#include "PrivateMount.h"
#include "RunTimeError.h"
#include "SafeFile.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"
#include "Trash.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include <unistd.h>

namespace hearthbook {
namespace {

using test::namesIn;
using test::readBytes;
namespace fs = std::filesystem;

constexpr std::size_t diskSize = std::size_t{3} << 20;
constexpr std::size_t step = std::size_t{24} << 10;
constexpr std::size_t enough = std::size_t{1} << 20;

/// An album on a disk of its own that can be filled up.
class FullDisk : public testing::Test {
protected:
  void SetUp() override {
    if (!test::canMountPrivately())
      GTEST_SKIP() << "this machine lets tests mount nothing";
    prepared_.open();
    for (int number = 2; number < 10; ++number)
      prepared_.addRow("PhotoAlbum", {{"PictureID", "HD0000" + std::to_string(number)},
                                      {"Description", std::string(9000, 'a')}});
    prepared_.close();
  }

  /// `work` with more and more room left on the disk, then `check` once there is room again.
  void withMoreAndMoreRoom(const std::function<void()>& work, const std::function<void()>& check) {
    for (std::size_t room = 0; room < enough && !HasFailure(); room += step) {
      SCOPED_TRACE("with room for " + std::to_string(room) + " bytes");
      const test::SmallDisk disk(place_.path(), diskSize);
      fs::copy(prepared_.root(), root_, fs::copy_options::recursive);
      disk.fillUpTo(room);
      work();
      disk.makeRoom();
      check();
    }
  }

  void expectEveryPhoto() const {
    AlbumData data;
    data.AlbumDB.Open(live_);
    EXPECT_TRUE(data.AlbumDB.passesQuickCheck());
    data.openRecordsets();
    EXPECT_GE(data.rsPhotoAlbum.RecordCount(), 9);
  }

  test::AlbumFolder prepared_;
  test::TemporaryFolder place_;
  fs::path root_ = place_.path() / "Hearthbook";
  fs::path live_ = root_ / "Data/Photo_Album.mdb";
};

TEST_F(FullDisk, ClosingTellsItAndLosesNoPhoto) {
  bool failed = false;
  bool succeeded = false;
  const auto close = [&] {
    try {
      compactAndBackUp(ApplicationFolder(root_), [](int) {});
      succeeded = true;
    } catch (const RunTimeError&) {
      failed = true;
    }
  };
  withMoreAndMoreRoom(close, [&] {
    if (!fileExists(live_))
      restoreBackup(ApplicationFolder(root_));
    expectEveryPhoto();
    EXPECT_THAT(namesIn(root_ / "Data"), testing::ElementsAre("Help.mdb", "Photo_Album.mdb"));
  });
  EXPECT_TRUE(failed && succeeded);
}

TEST_F(FullDisk, ARestoreTellsItAndCanBeDoneAgain) {
  compactAndBackUp(ApplicationFolder(prepared_.root()), [](int) {});
  fs::remove(prepared_.at("Data/Photo_Album.mdb"));
  bool failed = false;
  const auto restore = [&] {
    try {
      restoreBackup(ApplicationFolder(root_));
    } catch (const RunTimeError&) {
      failed = true;
      EXPECT_THAT(namesIn(root_ / "Data"), testing::ElementsAre("Help.mdb"));
    }
  };
  withMoreAndMoreRoom(restore, [&] {
    if (!fileExists(live_))
      restoreBackup(ApplicationFolder(root_));
    expectEveryPhoto();
  });
  EXPECT_TRUE(failed);
}

TEST_F(FullDisk, WhatCannotBeWrittenIsToldAndTheRecordSetGoesOn) {
  const test::SmallDisk disk(place_.path(), diskSize);
  fs::copy(prepared_.root(), root_, fs::copy_options::recursive);
  AlbumData data;
  data.AlbumDB.Open(live_);
  data.openRecordsets();
  disk.fillUpTo(0);
  data.rsPhotoAlbum.Collect("Description", std::string(200000, 'b'));
  EXPECT_THROW(data.rsPhotoAlbum.Update(), RunTimeError);
  data.rsPhotoAlbum.CancelUpdate();
  EXPECT_TRUE(data.rsPhotoAlbum.Collect("Description").isNull());
  disk.makeRoom();
  data.rsPhotoAlbum.Collect("Year", 1990);
  EXPECT_NO_THROW(data.rsPhotoAlbum.Update());
  EXPECT_TRUE(data.AlbumDB.passesQuickCheck());
}

TEST_F(FullDisk, ABatchOfChangesKeepsWhatFitsAndTellsHowMuch) {
  std::size_t done = 0;
  int stopped = 0;
  int stoppedOnTheWay = 0;
  const auto update = [&] {
    AlbumData data;
    data.AlbumDB.Open(live_);
    Recordset result(data.AlbumDB);
    result.Open("SELECT * FROM PhotoAlbum  ORDER BY Year, PictureID");
    const BatchReport run = updatePhotos(result, {2, 3, 4, 5, 6, 7, 8, 9},
                                         {.year = 1985, .description = std::string(40000, 'b')});
    done = run.ids.size();
    stopped += run.failure.has_value();
    stoppedOnTheWay += run.failure && done > 0;
  };
  withMoreAndMoreRoom(update, [&] {
    expectEveryPhoto();
    AlbumData data;
    data.AlbumDB.Open(live_);
    Recordset changed(data.AlbumDB);
    changed.Open("SELECT * FROM PhotoAlbum WHERE Year = 1985");
    EXPECT_EQ(changed.RecordCount(), done);
  });
  EXPECT_GT(stopped, stoppedOnTheWay) << "without any room nothing is done";
  EXPECT_GT(stoppedOnTheWay, 0);
  EXPECT_EQ(done, 8);
}

TEST_F(FullDisk, AddingTellsItAndLosesNoPhoto) {
  const test::IncomingPhotos incoming(prepared_.root());
  const std::string trash = ".Trash-" + std::to_string(getuid());
  int failures = 0;
  withMoreAndMoreRoom([&] { failures += incoming.add(root_, true); },
                      [&] {
                        expectEveryPhoto();
                        incoming.expectNoneLost(root_, place_.path() / trash / "files");
                        test::IncomingPhotos::expectWholePictures(root_);
                        for (const char* folder : {"Photos", "Thumbnails"})
                          EXPECT_FALSE(namesIn(root_ / folder).front().starts_with("."));
                      });
  EXPECT_GT(failures, 0);
}

TEST_F(FullDisk, APhotoThatIsUpdatedIsTheOldOneOrTheNewOneWhole) {
  const std::string before = readBytes(prepared_.at("Photos/00001.jpg"));
  const Picture edited = test::grainy({300, 200});
  const std::string after = test::jpegOf(edited);
  bool failed = false;
  bool succeeded = false;
  const auto update = [&] {
    Album album((ApplicationFolder(root_)));
    album.data.AlbumDB.Open(live_);
    album.data.openRecordsets();
    try {
      writePhoto(edited, placesOfCurrentPhoto(album));
      succeeded = true;
    } catch (const RunTimeError&) {
      failed = true;
    }
  };
  withMoreAndMoreRoom(update, [&] {
    const std::string photo = readBytes(root_ / "Photos/00001.jpg");
    EXPECT_TRUE(photo == before || photo == after);
    for (const char* folder : {"Photos", "Thumbnails"})
      EXPECT_FALSE(namesIn(root_ / folder).front().starts_with("."));
  });
  EXPECT_TRUE(failed && succeeded);
}

TEST_F(FullDisk, TheFirstPhotosTakeTheRoomThatIsLeft) {
  const test::SmallDisk disk(place_.path(), diskSize);
  fs::copy(prepared_.root(), root_, fs::copy_options::recursive);
  Album album((ApplicationFolder(root_)));
  album.data.AlbumDB.Open(live_);
  album.data.openRecordsets();
  const test::TemporaryFolder camera;
  AddPhotosRequest request;
  constexpr std::size_t length = std::size_t{300} << 10;
  const std::string photo = test::jpegOfLength(test::corners({120, 90}), length);
  for (const char* name : {"a.jpg", "b.jpg", "c.jpg", "d.jpg"}) {
    test::writeBytes(camera.path() / name, photo);
    request.list.push_back(camera.path() / name);
  }
  request.selected.assign(request.list.size(), true);
  disk.fillUpTo(length * 3 / 2);
  std::vector<std::string> failed;
  AddPhotosListener listener;
  listener.failed = [&](const fs::path& source, const std::exception&) {
    failed.push_back(source.filename().string());
  };
  WorkPool pool(2);
  addPhotos(album, pool, request, listener);
  EXPECT_TRUE(readBytes(root_ / "Photos/00010.jpg") == photo);
  EXPECT_TRUE(fs::exists(root_ / "Thumbnails/00010.jpg"));
  EXPECT_THAT(failed, testing::Contains("d.jpg"));
  EXPECT_THAT(failed, testing::Not(testing::Contains("a.jpg")));
  EXPECT_THAT(namesIn(root_ / "Photos"), testing::Each(testing::Not(testing::StartsWith("."))));
}

TEST_F(FullDisk, AFileThatTheTrashCannotNoteIsKeptInBackup) {
  const test::SmallDisk disk(place_.path(), diskSize);
  fs::copy(prepared_.root(), root_, fs::copy_options::recursive);
  const std::string bytes = readBytes(root_ / "Photos/00001.jpg");
  disk.fillUpTo(0);
  moveToTrash(root_ / "Photos/00001.jpg", root_ / "Backup");
  EXPECT_TRUE(readBytes(root_ / "Backup/00001.jpg") == bytes);
}

} // namespace
} // namespace hearthbook
