#include "SingleInstance.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QLocalServer>
#include <QSignalSpy>
#include <QTest>

#include <fstream>
#include <future>

namespace hearthbook {
namespace {

using Claim = SingleInstance::Claim;

class SingleInstanceTest : public testing::Test {
protected:
  /// A later start, beside this thread, in whose loop the first one answers.
  Claim claimLater() {
    auto later = std::async(std::launch::async, [this] {
      SingleInstance instance(folder_.path());
      instance.setPatience(patience_);
      return instance.claim();
    });
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return later.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    return later.get();
  }

  test::TemporaryFolder folder_;
  int patience_ = 2000;
};

TEST_F(SingleInstanceTest, TheFirstStartGetsTheAlbum) {
  SingleInstance first(folder_.path());

  EXPECT_EQ(first.claim(), Claim::First);
}

TEST_F(SingleInstanceTest, ALaterStartBringsTheFirstForwardAndIsToEnd) {
  SingleInstance first(folder_.path());
  ASSERT_EQ(first.claim(), Claim::First);
  QSignalSpy raised(&first, &SingleInstance::raiseAsked);

  EXPECT_EQ(claimLater(), Claim::HandedOver);
  EXPECT_EQ(raised.count(), 1);
  EXPECT_EQ(claimLater(), Claim::HandedOver);
  EXPECT_EQ(raised.count(), 2);
}

TEST_F(SingleInstanceTest, AnEndedStartLeavesTheAlbumToTheNext) {
  { SingleInstance(folder_.path()).claim(); }

  EXPECT_EQ(SingleInstance(folder_.path()).claim(), Claim::First);
}

TEST_F(SingleInstanceTest, AnotherAlbumIsNobodysBusiness) {
  test::TemporaryFolder other;
  SingleInstance first(folder_.path());
  SingleInstance second(other.path());

  EXPECT_EQ(first.claim(), Claim::First);
  EXPECT_EQ(second.claim(), Claim::First);
}

TEST_F(SingleInstanceTest, AFirstStartThatDoesNotAnswerIsFoundOut) {
  SingleInstance first(folder_.path());
  ASSERT_EQ(first.claim(), Claim::First);
  SingleInstance later(folder_.path());
  later.setPatience(10);

  // The first one cannot answer: its loop does not run.
  EXPECT_EQ(later.claim(), Claim::Silent);
}

TEST_F(SingleInstanceTest, WhileTheFirstEndsALaterStartWaitsForTheAlbum) {
  auto first = std::make_unique<SingleInstance>(folder_.path());
  ASSERT_EQ(first->claim(), Claim::First);
  QSignalSpy raised(first.get(), &SingleInstance::raiseAsked);
  bool asked = false;
  first->setEnding([&asked] { return asked = true; });

  auto later =
      std::async(std::launch::async, [this] { return SingleInstance(folder_.path()).claim(); });
  ASSERT_TRUE(QTest::qWaitFor([&] { return asked; }));
  first.reset();

  EXPECT_EQ(later.get(), Claim::First);
  EXPECT_EQ(raised.count(), 0);
}

TEST_F(SingleInstanceTest, AFolderThatIsNotThereIsRefused) {
  EXPECT_EQ(SingleInstance(folder_.path() / "missing").claim(), Claim::Refused);
}

TEST_F(SingleInstanceTest, AnAlbumDeepInTheFoldersIsHandedOverToo) {
  std::filesystem::path deep = folder_.path();
  for (int level = 0; level < 10; ++level)
    deep /= "a folder with a rather long name";
  std::filesystem::create_directories(deep);
  SingleInstance first(deep);
  ASSERT_EQ(first.claim(), Claim::First);
  auto later = std::async(std::launch::async, [&] { return SingleInstance(deep).claim(); });

  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return later.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
  EXPECT_EQ(later.get(), Claim::HandedOver);
}

} // namespace
} // namespace hearthbook
