#pragma once

#include "SaneScanner.h"
#include "ScannerFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace hearthbook::test {

/// The thread of the test as the window's thread: answers come when it looks for them.
class AskingThread {
public:
  SaneScanner::Deliver deliver() {
    return [this](std::function<void()> work) {
      const std::lock_guard lock(mutex_);
      waiting_.push_back(std::move(work));
      changed_.notify_all();
    };
  }

  /// Takes answers until the condition holds.
  testing::AssertionResult waitFor(const std::function<bool()>& condition) {
    const auto giveUp = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!condition()) {
      std::unique_lock lock(mutex_);
      if (!changed_.wait_until(lock, giveUp, [this] { return !waiting_.empty(); }))
        return testing::AssertionFailure() << "waited in vain";
      const auto work = std::move(waiting_.front());
      waiting_.pop_front();
      lock.unlock();
      work();
    }
    return testing::AssertionSuccess();
  }

  [[nodiscard]] bool hasAnswers() {
    const std::lock_guard lock(mutex_);
    return !waiting_.empty();
  }

private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> waiting_;
};

/// Scanners as the test configures them, and one page or list at a time from them.
class ScannerTest : public testing::Test {
protected:
  using Milliseconds = std::chrono::milliseconds;

  SaneScanner& scanner() {
    if (!scanner_)
      scanner_.emplace(thread_.deliver());
    return *scanner_;
  }
  void useImpatientScanner() { scanner_.emplace(thread_.deliver(), Milliseconds(50)); }
  void closeScanner() { scanner_.reset(); }

  /// Asks; the answer comes into `pages`.
  void ask(const ScanWish& wish) {
    scanner().acquire(
        wish, [this](double share) { shares.push_back(share); },
        [this](const ScannedPage& page) { pages.push_back(page); });
  }
  ScannedPage scan(const ScanWish& wish = {}) {
    const std::size_t before = pages.size();
    ask(wish);
    EXPECT_TRUE(thread_.waitFor([&] { return pages.size() > before; }));
    return pages.size() > before ? pages.back() : ScannedPage();
  }
  std::vector<ScannerDevice> findDevices() {
    std::optional<std::vector<ScannerDevice>> found;
    scanner().findDevices([&](const std::vector<ScannerDevice>& devices) { found = devices; });
    EXPECT_TRUE(thread_.waitFor([&] { return found.has_value(); }));
    return found.value_or(std::vector<ScannerDevice>());
  }

  ScannerFolder folder_;
  AskingThread thread_;
  std::vector<ScannedPage> pages;
  std::vector<double> shares;

private:
  std::optional<SaneScanner> scanner_;
};

} // namespace hearthbook::test
