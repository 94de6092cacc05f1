#include "AskingThread.h"

#include <optional>
#include <string>

namespace hearthbook {
namespace {

class NetworkScanner : public test::ScannerTest {
protected:
  NetworkScanner() { folder_.useNetwork(address_); }

  std::string address_ = test::ownLoopbackAddress();
};

TEST_F(NetworkScanner, IsFoundAndScans) {
  const test::ScannerService service(address_);
  const auto devices = findDevices();
  ASSERT_EQ(devices.size(), 1U);
  EXPECT_EQ(devices[0].name, "net:" + address_ + ":test:0");
  ScanWish wish;
  wish.dotsPerInch = 100;
  const ScannedPage page = scan(wish);
  EXPECT_EQ(page.status, ScanStatus::Success) << page.trouble;
  EXPECT_NEAR(page.picture.width(), 200 / 25.4 * 100, 1);
}

TEST_F(NetworkScanner, GivesThePictureOfTheOneOnTheDesk) {
  const test::ScannerService service(address_);
  for (const char* depth : {"8", "16"}) {
    ScanWish wish;
    wish.dotsPerInch = 50;
    wish.settings["depth"] = depth;
    const Picture there = scan(wish).picture;
    closeScanner();
    folder_.useTestScanner();
    const Picture here = scan(wish).picture;
    closeScanner();
    folder_.useNetwork(address_);
    ASSERT_FALSE(here.isNull());
    ASSERT_EQ(there.size(), here.size());
    for (int y = 0; y < here.height(); ++y)
      ASSERT_TRUE(std::equal(here.row(y), here.row(y) + here.width(), there.row(y))) << depth;
  }
}

TEST_F(NetworkScanner, ThatIsSwitchedOffIsNoScanner) {
  EXPECT_EQ(scan().status, ScanStatus::NoScanner);
}

TEST_F(NetworkScanner, ThatDiesInTheMiddleOfAPageIsAFailureAndTheNextPageCanCome) {
  auto service = std::make_optional<test::ScannerService>(address_);
  ScanWish slow;
  slow.dotsPerInch = 100;
  slow.settings = {{"read-delay", "yes"},
                   {"read-delay-duration", "20000"},
                   {"read-limit", "yes"},
                   {"read-limit-size", "1000"}};
  ask(slow);
  ASSERT_TRUE(thread_.waitFor([this] { return !shares.empty() && shares.back() > 0; }));
  service.reset();
  ASSERT_TRUE(thread_.waitFor([this] { return !pages.empty(); }));
  EXPECT_EQ(pages.back().status, ScanStatus::Failed);
  EXPECT_NE(pages.back().trouble, "");
  EXPECT_TRUE(pages.back().picture.isNull());
  service.emplace(address_);
  ScanWish wish;
  wish.dotsPerInch = 50;
  EXPECT_EQ(scan(wish).status, ScanStatus::Success) << pages.back().trouble;
}

TEST_F(NetworkScanner, ThatWasSwitchedOffAndOnSinceTheLastPageIsFoundAgain) {
  auto service = std::make_optional<test::ScannerService>(address_);
  ScanWish wish;
  wish.dotsPerInch = 50;
  EXPECT_EQ(scan(wish).status, ScanStatus::Success) << pages.back().trouble;
  service.reset();
  EXPECT_NE(scan(wish).status, ScanStatus::Success);
  EXPECT_NE(pages.back().trouble, "");
  EXPECT_TRUE(findDevices().empty());
  service.emplace(address_);
  EXPECT_EQ(scan(wish).status, ScanStatus::Success) << pages.back().trouble;
  service.reset();
  service.emplace(address_);
  EXPECT_EQ(findDevices().size(), 1U);
}

TEST_F(NetworkScanner, ThatNeverAnswersIsCancelledAtOnce) {
  test::SilentService service(address_);
  ask({});
  service.waitForCall();
  scanner().cancel();
  ASSERT_TRUE(thread_.waitFor([this] { return !pages.empty(); }));
  EXPECT_EQ(pages.back().status, ScanStatus::Cancelled);
}

TEST_F(NetworkScanner, ThatNeverAnswersIsGivenUpInTheEnd) {
  const test::SilentService service(address_);
  useImpatientScanner();
  EXPECT_EQ(scan().status, ScanStatus::NotAnswering);
  EXPECT_TRUE(findDevices().empty());
}

TEST_F(NetworkScanner, ThatHangsDoesNotHoldUpTheEnd) {
  auto service = std::make_optional<test::SilentService>(address_);
  ask({});
  service->waitForCall();
  closeScanner();
  EXPECT_TRUE(pages.empty());
  service.reset();
  folder_.useTestScanner();
  ScanWish wish;
  wish.dotsPerInch = 20;
  EXPECT_EQ(scan(wish).status, ScanStatus::Success) << pages.back().trouble;
}

} // namespace
} // namespace hearthbook
