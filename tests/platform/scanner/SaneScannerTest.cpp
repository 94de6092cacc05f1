#include "AskingThread.h"
#include "SaneDevice.h"

#include <algorithm>
#include <optional>

namespace hearthbook {
namespace {

class SaneScannerTest : public test::ScannerTest {
protected:
  SaneScannerTest() { folder_.useTestScanner(); }

  static bool hasColour(const Picture& picture) {
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) {
        const std::uint32_t pixel = picture.row(y)[x];
        if ((pixel >> 16 & 0xffU) != (pixel & 0xffU))
          return true;
      }
    return false;
  }
};

TEST_F(SaneScannerTest, FindsTheScannersOfTheMachine) {
  const auto devices = findDevices();
  ASSERT_EQ(devices.size(), 1U);
  EXPECT_EQ(devices[0].name, "test:0");
  EXPECT_FALSE(devices[0].label.empty());
}

TEST_F(SaneScannerTest, TakesThePageOfTheWholeGlass) {
  ScanWish wish;
  wish.dotsPerInch = 100;
  const ScannedPage page = scan(wish);
  EXPECT_EQ(page.status, ScanStatus::Success) << page.trouble;
  EXPECT_EQ(page.trouble, "");
  EXPECT_EQ(page.dotsPerInch, 100);
  EXPECT_NEAR(page.picture.width(), 200 / 25.4 * 100, 1); // its glass is 200 mm square
  EXPECT_NEAR(page.picture.height(), 200 / 25.4 * 100, 1);
  EXPECT_TRUE(hasColour(page.picture));
}

TEST_F(SaneScannerTest, TakesAPageInGrey) {
  ScanWish wish;
  wish.dotsPerInch = 50;
  wish.settings["mode"] = "Gray";
  const ScannedPage page = scan(wish);
  ASSERT_EQ(page.status, ScanStatus::Success) << page.trouble;
  EXPECT_FALSE(hasColour(page.picture));
}

TEST_F(SaneScannerTest, TakesTheNearestResolutionThatThereIs) {
  ScanWish wish;
  wish.dotsPerInch = 0;
  EXPECT_EQ(scan(wish).dotsPerInch, 1);
}

TEST_F(SaneScannerTest, TheSamePageIsTheSamePicture) {
  ScanWish wish;
  wish.dotsPerInch = 75;
  const Picture first = scan(wish).picture;
  const Picture second = scan(wish).picture;
  ASSERT_EQ(first.size(), second.size());
  for (int y = 0; y < first.height(); ++y)
    ASSERT_TRUE(std::equal(first.row(y), first.row(y) + first.width(), second.row(y)));
}

TEST_F(SaneScannerTest, ThreePassesMakeThePictureOfOne) {
  ScanWish wish;
  wish.dotsPerInch = 50;
  const Picture one = scan(wish).picture;
  wish.settings["three-pass"] = "yes";
  const ScannedPage three = scan(wish);
  ASSERT_EQ(three.status, ScanStatus::Success) << three.trouble;
  ASSERT_EQ(three.picture.size(), one.size());
  for (int y = 0; y < one.height(); ++y)
    ASSERT_TRUE(std::equal(one.row(y), one.row(y) + one.width(), three.picture.row(y)));
}

TEST_F(SaneScannerTest, EveryDepthGivesAPage) {
  for (const char* depth : {"1", "8", "16"})
    for (const char* mode : {"Color", "Gray"}) {
      ScanWish wish;
      wish.dotsPerInch = 30;
      wish.settings["mode"] = mode;
      wish.settings["depth"] = depth;
      EXPECT_EQ(scan(wish).status, ScanStatus::Success) << depth << pages.back().trouble;
    }
}

TEST_F(SaneScannerTest, APageOfUnknownLengthIsTakenToItsEnd) {
  folder_.useTestScanner({{"hand-scanner", "true"}});
  ScanWish wish;
  wish.dotsPerInch = 100;
  const ScannedPage page = scan(wish);
  EXPECT_EQ(page.status, ScanStatus::Success) << page.trouble;
  EXPECT_GT(page.picture.height(), 10);
  EXPECT_TRUE(shares.empty());
}

TEST_F(SaneScannerTest, ScannersThatCannotTellTheirSizeBeforehandAreRead) {
  folder_.useTestScanner({{"fuzzy-parameters", "true"}, {"ppl-loss", "7"}});
  ScanWish wish;
  wish.dotsPerInch = 60;
  EXPECT_EQ(scan(wish).status, ScanStatus::Success);
}

TEST_F(SaneScannerTest, SmallPiecesMakeAPageToo) {
  folder_.useTestScanner({{"read-limit", "true"}, {"read-limit-size", "10"}});
  ScanWish wish;
  wish.dotsPerInch = 20;
  EXPECT_EQ(scan(wish).status, ScanStatus::Success);
}

TEST_F(SaneScannerTest, ProgressGrowsToTheWholePage) {
  ScanWish wish;
  wish.dotsPerInch = 200;
  scan(wish);
  ASSERT_FALSE(shares.empty());
  EXPECT_TRUE(std::ranges::is_sorted(shares));
  EXPECT_GE(shares.front(), 0);
  EXPECT_LE(shares.back(), 1);
  EXPECT_LE(shares.size(), 101U);
}

TEST_F(SaneScannerTest, PagesComeInTheOrderInWhichTheyWereAskedFor) {
  for (const int dotsPerInch : {20, 30, 40}) {
    ScanWish wish;
    wish.dotsPerInch = dotsPerInch;
    ask(wish);
  }
  ASSERT_TRUE(thread_.waitFor([this] { return pages.size() == 3; }));
  EXPECT_EQ(pages[0].dotsPerInch, 20);
  EXPECT_EQ(pages[1].dotsPerInch, 30);
  EXPECT_EQ(pages[2].dotsPerInch, 40);
}

TEST_F(SaneScannerTest, AScannerIsChosenByItsName) {
  folder_.useTestScanner({{"number_of_devices", "2"}});
  EXPECT_EQ(findDevices().size(), 2U);
  ScanWish wish;
  wish.device = "test:1";
  wish.dotsPerInch = 20;
  EXPECT_EQ(scan(wish).status, ScanStatus::Success);
  wish.device = "";
  EXPECT_EQ(scan(wish).status, ScanStatus::Success);
}

TEST_F(SaneScannerTest, AnotherScannerObjectComesAfterThisOne) {
  ScanWish wish;
  wish.dotsPerInch = 20;
  EXPECT_EQ(scan(wish).status, ScanStatus::Success);
  closeScanner();
  EXPECT_EQ(scan(wish).status, ScanStatus::Success);
}

TEST_F(SaneScannerTest, AScannerThatWasGivenBackIsFreeForOthers) {
  ScanWish wish;
  wish.dotsPerInch = 20;
  EXPECT_EQ(scan(wish).status, ScanStatus::Success);
  scanner().release();
  SaneScanner other(thread_.deliver());
  std::optional<ScannedPage> page;
  other.acquire(wish, {}, [&](const ScannedPage& taken) { page = taken; });
  ASSERT_TRUE(thread_.waitFor([&] { return page.has_value(); }));
  EXPECT_EQ(page->status, ScanStatus::Success) << page->trouble;
  other.release();
  EXPECT_EQ(scan(wish).status, ScanStatus::Success) << "it can be asked for again";
}

TEST_F(SaneScannerTest, GivingBackWhatWasNeverAskedForChangesNothing) {
  scanner().release();
  ScanWish wish;
  wish.dotsPerInch = 20;
  EXPECT_EQ(scan(wish).status, ScanStatus::Success);
}

TEST_F(SaneScannerTest, APageOfTwelveHundredDotsToTheInchComesWhileOtherThingsHappen) {
  ScanWish wish;
  wish.dotsPerInch = 1200;
  ask(wish);
  EXPECT_TRUE(pages.empty()) << "to ask does not wait";
  for (const double share : {0.2, 0.4, 0.6, 0.8}) // each told on the asking thread, which is free
    ASSERT_TRUE(thread_.waitFor([&] { return !shares.empty() && shares.back() >= share; }));
  EXPECT_TRUE(pages.empty());
  ASSERT_TRUE(thread_.waitFor([this] { return !pages.empty(); }));
  EXPECT_EQ(pages[0].status, ScanStatus::Success) << pages[0].trouble;
  EXPECT_NEAR(pages[0].picture.width(), 200 / 25.4 * 1200, 1);
  EXPECT_NEAR(pages[0].picture.height(), 200 / 25.4 * 1200, 1);
  EXPECT_GE(shares.size(), 90U);
}

TEST(ScannerLabelTest, IsWhatTheDriverTellsOfMakerAndModel) {
  EXPECT_EQ(labelOf({"test:0", "Noname", "tester", nullptr}), "Noname tester");
  EXPECT_EQ(labelOf({"test:0", nullptr, "tester", nullptr}), "tester");
  EXPECT_EQ(labelOf({"test:0", "Noname", "", nullptr}), "Noname");
  EXPECT_EQ(labelOf({"test:0", nullptr, nullptr, nullptr}), "test:0");
}

} // namespace
} // namespace hearthbook
