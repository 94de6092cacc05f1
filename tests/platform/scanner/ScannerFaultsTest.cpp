#include "AskingThread.h"

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace hearthbook {
namespace {

class ScannerFaults : public test::ScannerTest {
protected:
  ScannerFaults() { folder_.useTestScanner(); }

  static ScanWish wishWith(const std::string& name, const std::string& value) {
    ScanWish wish;
    wish.dotsPerInch = 50;
    wish.settings[name] = value;
    return wish;
  }

  static void expectFailure(const ScannedPage& page, ScanStatus status) {
    EXPECT_EQ(page.status, status) << page.trouble;
    EXPECT_TRUE(page.trouble.ends_with('.')) << "a sentence: " << page.trouble;
    EXPECT_TRUE(page.picture.isNull());
  }
};

TEST_F(ScannerFaults, WithoutAScannerThereIsNoPage) {
  folder_ = test::ScannerFolder();
  EXPECT_TRUE(findDevices().empty());
  expectFailure(scan(), ScanStatus::NoScanner);
}

TEST_F(ScannerFaults, AScannerThatIsNotThereIsNotFound) {
  ScanWish wish;
  wish.device = "test:9";
  expectFailure(scan(wish), ScanStatus::NoScanner);
  wish.device = "nothing";
  expectFailure(scan(wish), ScanStatus::NoScanner);
}

TEST_F(ScannerFaults, EveryFailureInTheMiddleOfAPageHasItsStatus) {
  const std::pair<const char*, ScanStatus> failures[] = {
      {"SANE_STATUS_JAMMED", ScanStatus::Jammed},
      {"SANE_STATUS_NO_DOCS", ScanStatus::NoPaper},
      {"SANE_STATUS_COVER_OPEN", ScanStatus::CoverOpen},
      {"SANE_STATUS_IO_ERROR", ScanStatus::Failed},
      {"SANE_STATUS_NO_MEM", ScanStatus::NoMemory},
      {"SANE_STATUS_ACCESS_DENIED", ScanStatus::CannotOpen},
      {"SANE_STATUS_DEVICE_BUSY", ScanStatus::CannotOpen}};
  for (const auto& [value, status] : failures) {
    SCOPED_TRACE(value);
    expectFailure(scan(wishWith("read-return-value", value)), status);
  }
}

TEST_F(ScannerFaults, AFailureOnTheSecondPageLeavesTheThirdPossible) {
  const ScanWish sound = wishWith("read-return-value", "Default");
  EXPECT_EQ(scan(sound).status, ScanStatus::Success);
  expectFailure(scan(wishWith("read-return-value", "SANE_STATUS_IO_ERROR")), ScanStatus::Failed);
  EXPECT_EQ(scan(sound).status, ScanStatus::Success);
}

TEST_F(ScannerFaults, AFeederGivesPagesUntilItIsEmpty) {
  const ScanWish wish = wishWith("source", "Automatic Document Feeder");
  int taken = 0;
  while (scan(wish).status == ScanStatus::Success && taken < 100)
    ++taken;
  EXPECT_EQ(taken, 10);
  expectFailure(pages.back(), ScanStatus::NoPaper);
}

TEST_F(ScannerFaults, ASettingThatItDoesNotHaveIsTold) {
  const ScannedPage page = scan(wishWith("no-such-thing", "5"));
  expectFailure(page, ScanStatus::Failed);
  EXPECT_NE(page.trouble.find("no-such-thing"), std::string::npos) << page.trouble;
  expectFailure(scan(wishWith("source", "the moon")), ScanStatus::Failed);
  expectFailure(scan(wishWith("source", std::string(5000, 'a'))), ScanStatus::Failed);
}

TEST_F(ScannerFaults, ACancelledPageEndsAtOnceAndTheNextOneComes) {
  ScanWish slow = wishWith("read-delay", "yes");
  slow.settings["read-delay-duration"] = "200000";
  ask(slow);
  ask(slow);
  scanner().cancel();
  ASSERT_TRUE(thread_.waitFor([this] { return pages.size() == 2; }));
  for (const ScannedPage& page : pages)
    expectFailure(page, ScanStatus::Cancelled);
  EXPECT_EQ(scan(wishWith("read-delay", "no")).status, ScanStatus::Success);
  EXPECT_EQ(pages.size(), 3U);
}

TEST_F(ScannerFaults, APageIsCancelledInItsMiddle) {
  ScanWish slow = wishWith("read-delay", "yes");
  slow.settings["read-delay-duration"] = "20000";
  slow.settings["read-limit"] = "yes";
  slow.settings["read-limit-size"] = "1000";
  ask(slow);
  ASSERT_TRUE(thread_.waitFor([this] { return !shares.empty() && shares.back() > 0; }));
  scanner().cancel();
  ASSERT_TRUE(thread_.waitFor([this] { return !pages.empty(); }));
  expectFailure(pages.back(), ScanStatus::Cancelled);
}

TEST_F(ScannerFaults, CancellingWhereNothingIsAskedChangesNothing) {
  scanner().cancel();
  EXPECT_EQ(scan(wishWith("depth", "8")).status, ScanStatus::Success);
  scanner().cancel();
  EXPECT_EQ(pages.size(), 1U);
}

TEST_F(ScannerFaults, WhateverIsThrownOnTheScannersThreadEndsThePageAlone) {
  bool isFirst = true;
  SaneScanner clumsy([&, deliver = thread_.deliver()](std::function<void()> work) {
    if (std::exchange(isFirst, false))
      throw std::logic_error("nobody has thought of this");
    deliver(std::move(work));
  });
  for (const ScanStatus status : {ScanStatus::Failed, ScanStatus::Success}) {
    std::optional<ScannedPage> page;
    clumsy.acquire(
        wishWith("depth", "8"), [](double) {}, [&](const ScannedPage& taken) { page = taken; });
    ASSERT_TRUE(thread_.waitFor([&] { return page.has_value(); }));
    EXPECT_EQ(page->status, status) << page->trouble;
  }
}

TEST_F(ScannerFaults, AfterItsEndAScannerSaysNothing) {
  ask(wishWith("depth", "8"));
  closeScanner();
  while (thread_.hasAnswers())
    ASSERT_TRUE(thread_.waitFor([this] { return !thread_.hasAnswers(); }));
  EXPECT_TRUE(pages.empty());
}

} // namespace
} // namespace hearthbook
