#include "PictureLoader.h"

#include "FileBytes.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <deque>
#include <mutex>

namespace hearthbook {
namespace {

using namespace test;

/// Stands for the window's event loop: what is delivered runs when the test comes round to it.
class Mailbox {
public:
  PictureLoader::Deliver deliver() {
    return [this](std::function<void()> letter) {
      const std::lock_guard lock(mutex_);
      letters_.push_back(std::move(letter));
      arrived_.notify_all();
    };
  }

  /// Waits for the next delivery and runs it.
  void runNext() {
    std::function<void()> letter;
    {
      std::unique_lock lock(mutex_);
      arrived_.wait(lock, [&] { return !letters_.empty(); });
      letter = std::move(letters_.front());
      letters_.pop_front();
    }
    letter();
  }

  std::size_t waiting() {
    const std::lock_guard lock(mutex_);
    return letters_.size();
  }

private:
  std::mutex mutex_;
  std::condition_variable arrived_;
  std::deque<std::function<void()>> letters_;
};

class PictureLoaderTest : public testing::Test {
protected:
  std::filesystem::path file(const std::string& name, std::uint32_t pixel) {
    writeBytes(folder_.path() / name, jpegOf(plain({64, 48}, pixel)));
    return folder_.path() / name;
  }

  PictureLoader::Callback keep() {
    return [this](const PictureLoader::Loaded& loaded) {
      ++calls_;
      last_ = loaded;
    };
  }

  static constexpr std::size_t twoPictures = std::size_t{2} * 32 * 24 * 4;

  /// Asks for the picture; one that is not there is on its way.
  bool isReady(PictureLoader& loader, const std::filesystem::path& path) {
    const int before = calls_;
    ticket_ = loader.load(path, {32, 24}, keep());
    return calls_ > before;
  }

  /// All that stands before it in the pool has been done.
  void settle() {
    pool_.run([] {}).wait();
  }

  /// The pool's thread stands at the gate when this returns: urgent work posted later cannot
  /// slip in before it.
  void holdPool(const std::shared_future<void>& gate) {
    std::promise<void> reached;
    pool_.post([&reached, gate] {
      reached.set_value();
      gate.wait();
    });
    reached.get_future().wait();
  }

  TemporaryFolder folder_;
  Mailbox mailbox_;
  WorkPool pool_{1};
  int calls_ = 0;
  PictureLoader::Loaded last_;
  PictureLoader::Ticket ticket_;
};

TEST_F(PictureLoaderTest, DeliversOnTheAlbumsThread) {
  PictureLoader loader(pool_, mailbox_.deliver());
  const auto ticket = loader.load(file("a.jpg", red), {32, 24}, keep());
  EXPECT_EQ(calls_, 0);
  mailbox_.runNext();
  ASSERT_EQ(calls_, 1);
  EXPECT_EQ(last_.error, "");
  EXPECT_EQ(last_.decoded.picture.size(), (PixelSize{32, 24}));
  EXPECT_EQ(last_.decoded.fullSize, (PixelSize{64, 48}));
}

TEST_F(PictureLoaderTest, WhatIsReadyComesAtOnce) {
  PictureLoader loader(pool_, mailbox_.deliver());
  const auto path = file("a.jpg", red);
  const auto first = loader.load(path, {32, 24}, keep());
  mailbox_.runNext();
  const auto second = loader.load(path, {32, 24}, keep());
  EXPECT_EQ(calls_, 2);
}

TEST_F(PictureLoaderTest, ADeadTicketIsNotCalled) {
  PictureLoader loader(pool_, mailbox_.deliver());
  { const auto ticket = loader.load(file("a.jpg", red), {32, 24}, keep()); }
  const auto living = loader.load(file("b.jpg", blue), {32, 24}, keep());
  settle();
  while (mailbox_.waiting() > 0)
    mailbox_.runNext();
  EXPECT_EQ(calls_, 1);
  EXPECT_LE(distance(last_.decoded.picture.row(0)[0], blue), 3);
}

TEST_F(PictureLoaderTest, ATicketThatDiesAfterTheDecodingIsNotCalledEither) {
  PictureLoader loader(pool_, mailbox_.deliver());
  {
    const auto ticket = loader.load(file("a.jpg", red), {32, 24}, keep());
    settle();
  }
  mailbox_.runNext();
  EXPECT_EQ(calls_, 0);
}

TEST_F(PictureLoaderTest, WhatWasDecodedAheadIsReady) {
  PictureLoader loader(pool_, mailbox_.deliver());
  const auto a = file("a.jpg", red);
  const auto b = file("b.jpg", blue);
  loader.decodeAhead({{a, {32, 24}}, {b, {32, 24}}});
  settle(); // the first wish
  settle(); // the second
  const auto first = loader.load(a, {32, 24}, keep());
  const auto second = loader.load(b, {32, 24}, keep());
  EXPECT_EQ(calls_, 2);
}

TEST_F(PictureLoaderTest, NewWishesReplaceThoseNotBegun) {
  PictureLoader loader(pool_, mailbox_.deliver());
  std::promise<void> open;
  holdPool(open.get_future().share());
  const auto a = file("a.jpg", red);
  const auto b = file("b.jpg", blue);
  loader.decodeAhead({{a, {32, 24}}});
  loader.decodeAhead({{b, {32, 24}}});
  open.set_value();
  settle();
  const auto old = loader.load(a, {32, 24}, keep());
  EXPECT_EQ(calls_, 0);
  const auto wished = loader.load(b, {32, 24}, keep());
  EXPECT_EQ(calls_, 1);
  mailbox_.runNext();
}

TEST_F(PictureLoaderTest, AReplacedFileIsDecodedAgain) {
  PictureLoader loader(pool_, mailbox_.deliver());
  const auto path = file("a.jpg", red);
  const auto first = loader.load(path, {32, 24}, keep());
  mailbox_.runNext();
  std::filesystem::rename(file("b.jpg", blue), path);
  const auto second = loader.load(path, {32, 24}, keep());
  EXPECT_EQ(calls_, 1);
  mailbox_.runNext();
  EXPECT_EQ(calls_, 2);
  EXPECT_LE(distance(last_.decoded.picture.row(0)[0], blue), 3);
}

TEST_F(PictureLoaderTest, TheCacheLetsGoOfWhatWasUsedLongestAgo) {
  const auto a = file("a.jpg", red);
  const auto b = file("b.jpg", blue);
  const auto c = file("c.jpg", green);
  for (const PictureCache::Room room : {PictureCache::Room{twoPictures, 100}, {1 << 20, 2}}) {
    PictureLoader loader(pool_, mailbox_.deliver(), room);
    const auto load = [&](const std::filesystem::path& path) {
      const bool ready = isReady(loader, path);
      if (!ready)
        mailbox_.runNext();
      return ready;
    };
    EXPECT_FALSE(load(a));
    EXPECT_FALSE(load(b));
    EXPECT_TRUE(load(a));
    EXPECT_FALSE(load(c)); // b goes
    EXPECT_TRUE(load(a));
    EXPECT_FALSE(load(b));
  }
}

TEST_F(PictureLoaderTest, OfWhatIsWishedTheLikeliestStay) {
  const auto a = file("a.jpg", red);
  const auto b = file("b.jpg", blue);
  const auto c = file("c.jpg", green);
  for (const PictureCache::Room room : {PictureCache::Room{twoPictures, 100}, {1 << 20, 2}}) {
    PictureLoader loader(pool_, mailbox_.deliver(), room);
    loader.decodeAhead({{a, {32, 24}}, {b, {32, 24}}, {c, {32, 24}}});
    for (int wish = 0; wish < 3; ++wish)
      settle();
    EXPECT_TRUE(isReady(loader, a));
    EXPECT_TRUE(isReady(loader, b));
    EXPECT_FALSE(isReady(loader, c));
    mailbox_.runNext();
  }
}

TEST_F(PictureLoaderTest, AnErrorNamesTheFile) {
  PictureLoader loader(pool_, mailbox_.deliver());
  const auto path = folder_.path() / "none.jpg";
  const auto ticket = loader.load(path, {32, 24}, keep());
  mailbox_.runNext();
  ASSERT_EQ(calls_, 1);
  EXPECT_TRUE(last_.decoded.picture.isNull());
  EXPECT_NE(last_.error.find(path.string()), std::string::npos);
}

TEST_F(PictureLoaderTest, TwoWhoAskForTheSameAreServedByOneDecoding) {
  PictureLoader loader(pool_, mailbox_.deliver());
  std::promise<void> open;
  holdPool(open.get_future().share());
  const auto path = file("a.jpg", red);
  const auto first = loader.load(path, {32, 24}, keep());
  const auto second = loader.load(path, {32, 24}, keep());
  open.set_value();
  settle();
  EXPECT_EQ(mailbox_.waiting(), 1U);
  mailbox_.runNext();
  EXPECT_EQ(calls_, 2);
}

TEST_F(PictureLoaderTest, AnEndedLoaderDeliversNoMore) {
  std::promise<void> open;
  holdPool(open.get_future().share());
  PictureLoader::Ticket ticket;
  {
    PictureLoader loader(pool_, mailbox_.deliver());
    ticket = loader.load(file("a.jpg", red), {32, 24}, keep());
    loader.decodeAhead({{file("b.jpg", blue), {32, 24}}});
  }
  open.set_value();
  settle();
  EXPECT_EQ(mailbox_.waiting(), 0U);
  EXPECT_EQ(calls_, 0);
}

} // namespace
} // namespace hearthbook
