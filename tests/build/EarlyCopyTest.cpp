#include "EarlyCopy.h"

#include "FileBytes.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace hearthbook {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

class EarlyCopyTest : public testing::Test {
protected:
  EarlyCopyTest() {
    writeBytes(source_, "a photo");
    fs::create_directory(photos_);
  }

  std::shared_ptr<EarlyCopy> made() { return EarlyCopy::make(source_, photos_, 0); }

  TemporaryFolder folder_;
  fs::path source_ = folder_.path() / "Camera" / "a.jpg";
  fs::path photos_ = folder_.path() / "Photos";
};

TEST_F(EarlyCopyTest, TakesItsPlace) {
  const auto copy = made();
  ASSERT_TRUE(copy);
  EXPECT_TRUE(copy->place(source_, photos_ / "00002.jpg"));
  EXPECT_THAT(namesIn(photos_), ElementsAre("00002.jpg"));
  EXPECT_EQ(readBytes(photos_ / "00002.jpg"), "a photo");
  EXPECT_EQ(readBytes(source_), "a photo");
}

TEST_F(EarlyCopyTest, LeavesNothingWhereItIsNotWanted) {
  made().reset();
  EXPECT_THAT(namesIn(photos_), IsEmpty());
}

TEST_F(EarlyCopyTest, OfASourceThatHasChangedTakesNoPlace) {
  const auto copy = made();
  writeBytes(folder_.path() / "b.jpg", "another");
  fs::rename(folder_.path() / "b.jpg", source_);
  EXPECT_FALSE(copy->place(source_, photos_ / "00002.jpg"));
  EXPECT_FALSE(fs::exists(photos_ / "00002.jpg"));
}

TEST_F(EarlyCopyTest, ThatCannotBeMadeIsNone) {
  EXPECT_FALSE(EarlyCopy::make(folder_.path() / "none.jpg", photos_, 0));
  EXPECT_FALSE(EarlyCopy::make(source_, folder_.path() / "none", 0));
  EXPECT_THAT(namesIn(photos_), IsEmpty());
}

TEST_F(EarlyCopyTest, TakesNoRoomOnANearlyFullDisk) {
  const std::uintmax_t room = fs::space(photos_).available;
  EXPECT_FALSE(EarlyCopy::make(source_, photos_, room));
  EXPECT_THAT(namesIn(photos_), IsEmpty());
}

} // namespace
} // namespace hearthbook
