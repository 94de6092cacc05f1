#include "SaneScanner.h"

#include "SaneSeat.h"
#include "ScanFailure.h"

#include <algorithm>
#include <condition_variable>
#include <csignal>
#include <deque>
#include <exception>
#include <list>
#include <mutex>
#include <thread>
#include <utility>

namespace hearthbook {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto mostWaitAtTheEnd = std::chrono::seconds(1);

/// What was asked of the scanner and is not answered yet.
struct Question {
  std::function<void(SaneSeat&, const std::shared_ptr<Question>&)> work;
  std::function<void(ScanStatus)> giveUp; ///< the answer in place of the scanner's
  bool isPage = false;
};

using QuestionPointer = std::shared_ptr<Question>;

/// What a driver still writes to a scanner of the network that has gone would end the program.
void ignoreBrokenConnections() {
  sigset_t broken;
  sigemptyset(&broken);
  sigaddset(&broken, SIGPIPE);
  ::pthread_sigmask(SIG_BLOCK, &broken, nullptr); // of this thread alone
}

ScannedPage noPage(ScanStatus status) {
  ScannedPage page;
  page.status = status;
  page.trouble = describe(status);
  return page;
}

} // namespace

/// Where questions wait for the scanner's thread. It outlives the scanner object for as long as a
/// scanner that hangs keeps that thread.
class SaneScanner::Desk : public std::enable_shared_from_this<Desk> {
public:
  Desk(Deliver deliver, std::chrono::milliseconds patience)
      : deliver_(std::move(deliver)), patience_(patience) {}

  void findDevices(const Found& found);
  void acquire(const ScanWish& wish, const Progress& progress, const Ended& ended);
  void cancelPages();
  void release();
  void close();

private:
  void ask(QuestionPointer question);
  void work();
  void answer(SaneSeat& seat, const QuestionPointer& question);
  QuestionPointer next();
  void watch();
  void giveUp(ScanStatus status, bool pagesOnly);
  bool take(const QuestionPointer& question);
  void noteSign(const QuestionPointer& question, bool isAlive);
  void tell(std::function<void()> answer);

  std::mutex mutex_;
  std::condition_variable changed_;
  Deliver deliver_;
  std::chrono::milliseconds patience_;
  std::deque<QuestionPointer> waiting_; ///< for the scanner's thread
  std::list<QuestionPointer> open_;     ///< not answered yet
  Clock::time_point lastSign_;          ///< of the scanner's being alive
  bool closed_ = false;
  bool workHasEnded_ = false;
  std::shared_ptr<bool> asker_ = std::make_shared<bool>(true); ///< gone with the scanner object
  std::thread worker_;
  std::thread watcher_;
};

void SaneScanner::Desk::findDevices(const Found& found) {
  auto question = std::make_shared<Question>();
  question->work = [this, found](SaneSeat& seat, const QuestionPointer& self) {
    auto devices = seat.devices();
    if (take(self))
      tell([found, devices = std::move(devices)] { found(devices); });
  };
  question->giveUp = [this, found](ScanStatus) { tell([found] { found({}); }); };
  ask(std::move(question));
}

void SaneScanner::Desk::acquire(const ScanWish& wish, const Progress& progress,
                                const Ended& ended) {
  auto question = std::make_shared<Question>();
  question->isPage = true;
  question->work = [this, wish, progress, ended](SaneSeat& seat, const QuestionPointer& self) {
    int told = -1;
    auto page = seat.acquire(wish, [&](double share, bool hasSent) {
      noteSign(self, hasSent);
      const int percent = static_cast<int>(share * 100);
      if (share >= 0 && progress && std::exchange(told, percent) != percent)
        tell([progress, share] { progress(share); });
    });
    if (take(self))
      tell([ended, page = std::move(page)] { ended(page); });
  };
  question->giveUp = [this, ended](ScanStatus status) {
    tell([ended, status] { ended(noPage(status)); });
  };
  ask(std::move(question));
}

/// Nobody is woken who has not been asked for anything.
void SaneScanner::Desk::release() {
  if (!worker_.joinable())
    return;
  auto question = std::make_shared<Question>();
  question->work = [this](SaneSeat& seat, const QuestionPointer& self) {
    seat.leave();
    take(self);
  };
  question->giveUp = [](ScanStatus) {};
  ask(std::move(question));
}

/// Called with the mutex free. What is told is heard only while the asker is there.
void SaneScanner::Desk::tell(std::function<void()> answer) {
  const std::lock_guard lock(mutex_);
  if (!closed_)
    deliver_([asker = std::weak_ptr<bool>(asker_), answer = std::move(answer)] {
      if (!asker.expired())
        answer();
    });
}

void SaneScanner::Desk::ask(QuestionPointer question) {
  const std::lock_guard lock(mutex_);
  if (!worker_.joinable()) {
    worker_ = std::thread([desk = shared_from_this()] { desk->work(); });
    watcher_ = std::thread([this] { watch(); });
  }
  lastSign_ = Clock::now();
  open_.push_back(question);
  waiting_.push_back(std::move(question));
  changed_.notify_all();
}

void SaneScanner::Desk::work() {
  ignoreBrokenConnections();
  {
    SaneSeat seat;
    while (const QuestionPointer question = next())
      answer(seat, question);
  }
  const std::lock_guard lock(mutex_);
  workHasEnded_ = true;
  changed_.notify_all();
}

/// Whatever goes wrong ends the question, not the program.
void SaneScanner::Desk::answer(SaneSeat& seat, const QuestionPointer& question) {
  try {
    question->work(seat, question);
  } catch (const std::exception&) {
    seat.leave();
    if (take(question))
      question->giveUp(ScanStatus::Failed);
  }
}

/// The next question that nobody has given up; none once the desk is closed.
QuestionPointer SaneScanner::Desk::next() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return closed_ || !waiting_.empty(); });
    if (closed_)
      return nullptr;
    QuestionPointer question = std::move(waiting_.front());
    waiting_.pop_front();
    lastSign_ = Clock::now();
    if (std::ranges::find(open_, question) != open_.end())
      return question;
  }
}

/// Ends what a silent scanner leaves open.
void SaneScanner::Desk::watch() {
  std::unique_lock lock(mutex_);
  while (!closed_) {
    if (open_.empty()) {
      changed_.wait(lock);
    } else if (Clock::now() >= lastSign_ + patience_) {
      lock.unlock();
      giveUp(ScanStatus::NotAnswering, false);
      lock.lock();
    } else {
      changed_.wait_until(lock, lastSign_ + patience_);
    }
  }
}

void SaneScanner::Desk::giveUp(ScanStatus status, bool pagesOnly) {
  std::list<QuestionPointer> given;
  {
    const std::lock_guard lock(mutex_);
    for (auto question = open_.begin(); question != open_.end();) {
      const auto here = question++;
      if ((*here)->isPage || !pagesOnly)
        given.splice(given.end(), open_, here);
    }
  }
  for (const QuestionPointer& question : given)
    question->giveUp(status);
}

void SaneScanner::Desk::cancelPages() { giveUp(ScanStatus::Cancelled, true); }

/// True for the one who may answer it.
bool SaneScanner::Desk::take(const QuestionPointer& question) {
  const std::lock_guard lock(mutex_);
  lastSign_ = Clock::now();
  return open_.remove(question) > 0;
}

/// A page that was given up is not read to its end.
void SaneScanner::Desk::noteSign(const QuestionPointer& question, bool isAlive) {
  const std::lock_guard lock(mutex_);
  if (isAlive)
    lastSign_ = Clock::now();
  if (std::ranges::find(open_, question) == open_.end())
    throw ScanFailure(ScanStatus::Cancelled);
}

/// Waits a little for the scanner's thread; one that hangs is left behind.
void SaneScanner::Desk::close() {
  std::unique_lock lock(mutex_);
  closed_ = true;
  open_.clear();
  asker_.reset();
  changed_.notify_all();
  if (!worker_.joinable())
    return;
  const bool ended = changed_.wait_for(lock, mostWaitAtTheEnd, [this] { return workHasEnded_; });
  lock.unlock();
  watcher_.join();
  if (ended)
    worker_.join();
  else
    worker_.detach();
}

SaneScanner::SaneScanner(Deliver deliver, std::chrono::milliseconds patience)
    : desk_(std::make_shared<Desk>(std::move(deliver), patience)) {}

SaneScanner::~SaneScanner() { desk_->close(); }

void SaneScanner::findDevices(Found found) { desk_->findDevices(found); }

void SaneScanner::acquire(const ScanWish& wish, Progress progress, Ended ended) {
  desk_->acquire(wish, progress, ended);
}

void SaneScanner::cancel() { desk_->cancelPages(); }

void SaneScanner::release() { desk_->release(); }

} // namespace hearthbook
