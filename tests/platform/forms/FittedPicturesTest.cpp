#include "FittedPictures.h"

#include "FileBytes.h"
#include "Guard.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <optional>

namespace hearthbook::test {
namespace {

class FittedPicturesTest : public testing::Test {
protected:
  std::filesystem::path jpeg(const std::string& name, PixelSize size, std::uint32_t pixel = red) {
    writeBytes(folder_.path() / name, jpegOf(plain(size, pixel)));
    return folder_.path() / name;
  }

  FittedPictures::Ticket load(const std::filesystem::path& file) {
    arrived_.reset();
    return pictures_.load(file, half, [this](const auto& loaded) { arrived_ = loaded; });
  }
  void wait() {
    waitUntil([this] { return arrived_.has_value(); });
  }
  /// All that was asked of the pool so far has been done and told.
  void settle() {
    pool_.run([] {}).wait();
    QCoreApplication::sendPostedEvents();
    pool_.run([] {}).wait();
    QCoreApplication::sendPostedEvents();
  }

  static PixelSize half(PixelSize picture) { return {picture.width / 2, picture.height / 2}; }

  TemporaryFolder folder_;
  WorkPool pool_{1};
  PictureLoader loader_{pool_, [](std::function<void()> task) {
                          QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(task),
                                                    Qt::QueuedConnection);
                        }};
  FittedPictures pictures_{loader_, pool_};
  std::optional<FittedPictures::Loaded> arrived_;
};

TEST_F(FittedPicturesTest, ThePicturesOwnSidesDecideTheSizeAtWhichItComes) {
  const auto ticket = load(jpeg("a.jpg", {80, 40}));
  EXPECT_FALSE(arrived_);
  wait();
  EXPECT_EQ(arrived_->fullSize, (PixelSize{80, 40}));
  EXPECT_EQ(arrived_->picture.size(), (PixelSize{40, 20}));
}

TEST_F(FittedPicturesTest, WhatWasDecodedAheadIsThereAtOnce) {
  const auto file = jpeg("a.jpg", {80, 40});
  pictures_.decodeAhead({file}, half);
  settle();
  const auto ticket = load(file);
  ASSERT_TRUE(arrived_);
  EXPECT_EQ(arrived_->picture.size(), (PixelSize{40, 20}));
}

TEST_F(FittedPicturesTest, EachPictureAheadHasASizeOfItsOwn) {
  const auto first = jpeg("a.jpg", {80, 40});
  const auto second = jpeg("b.jpg", {80, 40});
  const auto third = [](PixelSize picture) {
    return PixelSize{picture.width / 4, picture.height / 4};
  };
  pictures_.decodeAhead({{first, third}, {{}, half}, {second, half}});
  settle();
  settle(); // one picture to each turn
  const auto ticket = load(second);
  ASSERT_TRUE(arrived_);
  EXPECT_EQ(arrived_->picture.size(), (PixelSize{40, 20}));
  std::optional<FittedPictures::Loaded> smaller;
  const auto other = pictures_.load(first, third, [&](const auto& loaded) { smaller = loaded; });
  ASSERT_TRUE(smaller);
  EXPECT_EQ(smaller->picture.size(), (PixelSize{20, 10}));
}

TEST_F(FittedPicturesTest, AReplacedFileIsLookedAtAgain) {
  const auto file = jpeg("a.jpg", {80, 40});
  pictures_.decodeAhead({file}, half);
  settle();
  jpeg("a.jpg", {20, 60});
  const auto ticket = load(file);
  wait();
  EXPECT_EQ(arrived_->fullSize, (PixelSize{20, 60}));
}

TEST_F(FittedPicturesTest, ABrokenFileIsToldByItsName) {
  writeBytes(folder_.path() / "broken.jpg", "no picture");
  const auto ticket = load(folder_.path() / "broken.jpg");
  wait();
  EXPECT_TRUE(arrived_->picture.isNull());
  EXPECT_NE(arrived_->error.find("broken.jpg"), std::string::npos);
}

TEST_F(FittedPicturesTest, AMissingFileIsToldToo) {
  const auto ticket = load(folder_.path() / "nowhere.jpg");
  wait();
  EXPECT_TRUE(arrived_->picture.isNull());
  EXPECT_FALSE(arrived_->error.empty());
}

TEST_F(FittedPicturesTest, WhatStandsInForABrokenFileComesInItsPlaceAndTheFileIsTold) {
  const auto standIn = jpeg("instead.jpg", {60, 20}, blue);
  FittedPictures pictures(loader_, pool_, standIn);
  writeBytes(folder_.path() / "broken.jpg", "no picture");
  for (const auto& file : {folder_.path() / "broken.jpg", folder_.path() / "nowhere.jpg"}) {
    arrived_.reset();
    const auto ticket =
        pictures.load(file, half, [this](const auto& loaded) { arrived_ = loaded; });
    wait();
    EXPECT_EQ(arrived_->file, standIn);
    EXPECT_EQ(arrived_->fullSize, (PixelSize{60, 20}));
    EXPECT_EQ(arrived_->picture.size(), (PixelSize{30, 10}));
    EXPECT_NE(arrived_->error.find(file.filename().string()), std::string::npos);
  }
}

TEST_F(FittedPicturesTest, WhereWhatStandsInIsBrokenTooNothingComesAndTheFirstIsTold) {
  writeBytes(folder_.path() / "instead.jpg", "no picture");
  FittedPictures pictures(loader_, pool_, folder_.path() / "instead.jpg");
  const auto ticket = pictures.load(folder_.path() / "nowhere.jpg", half,
                                    [this](const auto& loaded) { arrived_ = loaded; });
  wait();
  EXPECT_TRUE(arrived_->picture.isNull());
  EXPECT_NE(arrived_->error.find("nowhere.jpg"), std::string::npos);
}

TEST_F(FittedPicturesTest, BrokenFilesDoNotKeepOthersFromBeingDecodedAhead) {
  writeBytes(folder_.path() / "broken.jpg", "no picture");
  const auto file = jpeg("a.jpg", {80, 40});
  pictures_.decodeAhead({folder_.path() / "broken.jpg", file}, half);
  settle();
  const auto ticket = load(file);
  EXPECT_TRUE(arrived_);
}

TEST_F(FittedPicturesTest, ARequestThatIsLetGoIsNotAnswered) {
  const auto file = jpeg("a.jpg", {80, 40});
  auto ticket = load(file);
  ticket.reset();
  settle();
  settle();
  EXPECT_FALSE(arrived_);
}

TEST_F(FittedPicturesTest, AnAnswerMayLetItsOwnRequestGo) {
  const auto file = jpeg("a.jpg", {80, 40});
  FittedPictures::Ticket ticket;
  bool isTold = false;
  ticket = pictures_.load(file, half, [&](const FittedPictures::Loaded& loaded) {
    ticket.reset();
    isTold = !loaded.picture.isNull();
  });
  waitUntil([&] { return isTold; });
  EXPECT_FALSE(ticket);
}

} // namespace
} // namespace hearthbook::test
