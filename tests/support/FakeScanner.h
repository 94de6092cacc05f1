#pragma once

#include "Scanner.h"

#include <deque>
#include <utility>
#include <vector>

namespace hearthbook::test {

/// A scanner for forms, worked by the test: it notes what is asked for and answers when told to.
/// What is `scripted` it answers by itself, in that order, through `deliver`.
class FakeScanner : public Scanner {
public:
  using Deliver = std::function<void(std::function<void()>)>;

  /// `deliver` runs its work later, on the form's thread.
  explicit FakeScanner(Deliver deliver) : deliver_(std::move(deliver)) {}

  static ScannedPage pageOf(const Picture& picture, int dotsPerInch = 300) {
    return {ScanStatus::Success, {}, picture, dotsPerInch};
  }
  static ScannedPage failure(ScanStatus status) { return {status, describe(status), {}, 0}; }

  void findDevices(Found found) override {
    ++searches;
    deliver_([found = std::move(found), devices = devices] { found(devices); });
  }

  void acquire(const ScanWish& wish, Progress progress, Ended ended) override {
    wishes.push_back(wish);
    open_.push_back({std::move(progress), std::move(ended)});
    if (scripted.empty())
      return;
    answerLater(std::exchange(scripted.front(), {}));
    scripted.pop_front();
  }

  void cancel() override {
    while (!open_.empty())
      answerLater(failure(ScanStatus::Cancelled));
  }

  void release() override { ++releases; }

  [[nodiscard]] bool isAsked() const { return !open_.empty(); }
  void tellProgress(double share) const { open_.front().progress(share); }
  void answer(const ScannedPage& page) { takeOldest()(page); }

  std::vector<ScannerDevice> devices{{"test:0", "Noname frontend-tester"}};
  std::deque<ScannedPage> scripted;
  std::vector<ScanWish> wishes; ///< all that was asked for
  int searches = 0;
  int releases = 0;

private:
  struct Open {
    Progress progress;
    Ended ended;
  };

  Ended takeOldest() {
    Ended ended = std::move(open_.front().ended);
    open_.pop_front();
    return ended;
  }
  void answerLater(ScannedPage page) {
    deliver_([ended = takeOldest(), page = std::move(page)] { ended(page); });
  }

  Deliver deliver_;
  std::deque<Open> open_;
};

} // namespace hearthbook::test
