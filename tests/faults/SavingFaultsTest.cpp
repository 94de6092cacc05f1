// A scanned page and a photo that is put right: neither is lost where the disk does not play along.

#include "Decode.h"
#include "FileBytes.h"
#include "KilledTest.h"
#include "PhotoSaving.h"
#include "RunTimeError.h"
#include "SafeFile.h"
#include "TestPictures.h"

#include <gmock/gmock.h>

namespace hearthbook {
namespace {

using test::namesIn;
using test::readBytes;
namespace fs = std::filesystem;

constexpr const char* photoName = "Photos/00001.jpg";
constexpr const char* thumbnailName = "Thumbnails/00001.jpg";
constexpr const char* keptName = "Backup/Scanned page.jpg";

const Picture& edited() {
  static const Picture picture = test::grainy({220, 160}, 7);
  return picture;
}

class KilledSaving : public test::KilledTest {
protected:
  KilledSaving() { fs::remove_all(folder_.at("Media")); } // less to copy at each step

  static void expectNothingHalfMade(const fs::path& root) {
    for (const char* folder : {"Photos", "Thumbnails", "Backup"}) {
      removeLeftovers(root / folder);
      EXPECT_THAT(namesIn(root / folder), testing::Each(testing::Not(testing::StartsWith("."))));
    }
  }

  test::AlbumFolder folder_;
  std::string new_ = test::jpegOf(edited());
};

TEST_F(KilledSaving, TheScannedPageIsOnTheDiskWholeUntilItIsForgotten) {
  const Picture first = test::grainy({90, 60}, 1);
  const auto keepTwo = [&](const fs::path& root) {
    KeptPage page{ApplicationFolder(root)};
    page.keep(first);
    page.keep(edited());
    page.forget();
  };
  const std::string firstBytes = test::jpegOf(first);
  enum State { NotYet, First, Second, Forgotten };
  State last = NotYet;
  killAtEachStep(folder_.root(), keepTwo, [&](const fs::path& root) {
    State now = last == NotYet ? NotYet : Forgotten;
    if (fs::exists(root / keptName)) {
      now = readBytes(root / keptName) == new_ ? Second : First;
      EXPECT_THAT(readBytes(root / keptName), testing::AnyOf(firstBytes, new_));
    }
    EXPECT_GE(now, last);
    EXPECT_LE(now, last + 1) << "a page was lost in between";
    last = now;
    expectNothingHalfMade(root);
  });
  EXPECT_EQ(last, Forgotten);
}

/// An album on a disk of its own, or in a folder that cannot be written to.
class RefusedSaving : public testing::Test {
protected:
  void SetUp() override {
    if (!test::canMountPrivately())
      GTEST_SKIP() << "this machine lets tests mount nothing";
  }

  test::AlbumFolder folder_;
  std::string old_ = readBytes(folder_.at(photoName));
  std::string oldThumbnail_ = readBytes(folder_.at(thumbnailName));
  std::string new_ = test::jpegOf(edited());
};

TEST_F(RefusedSaving, OnAFullDiskTheOldPhotoStaysWhole) {
  constexpr std::size_t diskSize = std::size_t{2} << 20;
  constexpr std::size_t enough = std::size_t{700} << 10;
  constexpr std::size_t step = std::size_t{20} << 10;
  fs::remove_all(folder_.at("Media"));
  const test::TemporaryFolder place;
  const fs::path root = place.path() / "Hearthbook";
  int failed = 0;
  int saved = 0;
  for (std::size_t room = 0; room < enough && !HasFailure(); room += step) {
    SCOPED_TRACE("with room for " + std::to_string(room) + " bytes");
    const test::SmallDisk disk(place.path(), diskSize);
    fs::copy(folder_.root(), root, fs::copy_options::recursive);
    disk.fillUpTo(room);
    try {
      writePhoto(edited(), {root / photoName, root / thumbnailName, root / "Backup"});
      ++saved;
      EXPECT_EQ(readBytes(root / photoName), new_);
      EXPECT_FALSE(decodePicture(root / thumbnailName).cut);
    } catch (const RunTimeError&) {
      ++failed;
      EXPECT_EQ(readBytes(root / photoName), old_);
      EXPECT_EQ(readBytes(root / thumbnailName), oldThumbnail_);
    }
    EXPECT_EQ(namesIn(root / "Photos").size(), 1U);
    EXPECT_EQ(namesIn(root / "Thumbnails").size(), 1U);
  }
  EXPECT_GT(failed, 0);
  EXPECT_GT(saved, 0);
}

TEST_F(RefusedSaving, InAFolderThatCannotBeWrittenToTheUpdateIsToldAndNothingChanges) {
  {
    const test::ReadOnlyMount mount(folder_.root());
    EXPECT_THROW(writePhoto(edited(), {folder_.at(photoName), folder_.at(thumbnailName),
                                       folder_.at("Backup")}),
                 RunTimeError);
    KeptPage page{ApplicationFolder(folder_.root())};
    EXPECT_THROW(page.keep(edited()), RunTimeError);
  }
  EXPECT_EQ(readBytes(folder_.at(photoName)), old_);
  EXPECT_EQ(readBytes(folder_.at(thumbnailName)), oldThumbnail_);
  EXPECT_FALSE(fs::exists(folder_.trash() / "00001.jpg"));
}

TEST_F(RefusedSaving, WhereTheThumbnailCannotBeWrittenThePhotoStaysToo) {
  {
    const test::ReadOnlyMount mount(folder_.at("Thumbnails"));
    EXPECT_THROW(writePhoto(edited(), {folder_.at(photoName), folder_.at(thumbnailName),
                                       folder_.at("Backup")}),
                 RunTimeError);
  }
  EXPECT_EQ(readBytes(folder_.at(photoName)), old_);
}

TEST(MeanwhileSaving, APhotoThatAnotherProgramHasReplacedIsKeptToo) {
  const test::AlbumFolder folder;
  test::writeBytes(folder.at(photoName), "painted by another program");
  writePhoto(edited(), {folder.at(photoName), folder.at(thumbnailName), folder.at("Backup")});
  EXPECT_EQ(readBytes(folder.at(photoName)), test::jpegOf(edited()));
  EXPECT_EQ(readBytes(folder.trash() / "00001.jpg"), "painted by another program");
}

TEST(MeanwhileSaving, APhotoThatSomebodyHasDeletedIsThereAgain) {
  const test::AlbumFolder folder;
  fs::remove(folder.at(photoName));
  writePhoto(edited(), {folder.at(photoName), folder.at(thumbnailName), folder.at("Backup")});
  EXPECT_EQ(readBytes(folder.at(photoName)), test::jpegOf(edited()));
}

} // namespace
} // namespace hearthbook
