#include "WorkPool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <future>
#include <stdexcept>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

namespace hearthbook {
namespace {

TEST(WorkPool, RunsWhatItIsGivenAndHandsBackTheAnswer) {
  WorkPool pool(2);
  EXPECT_EQ(pool.threads(), 2);
  auto answer = pool.run([] { return 6 * 7; });
  EXPECT_EQ(answer.get(), 42);
}

TEST(WorkPool, HandsBackAnException) {
  WorkPool pool(1);
  auto answer = pool.run([]() -> int { throw std::runtime_error("no"); });
  EXPECT_THROW(answer.get(), std::runtime_error);
}

TEST(WorkPool, HasAThreadForEachCore) { EXPECT_GE(WorkPool().threads(), 1); }

TEST(WorkPool, ItsThreadsGiveWayToTheOneThatHasThem) {
  const auto niceness = [] { return getpriority(PRIO_PROCESS, static_cast<id_t>(gettid())); };
  constexpr int nicest = 19;
  const int mine = niceness();
  WorkPool pool(1);
  EXPECT_GE(pool.run(niceness).get(), std::min(mine + 1, nicest));
  EXPECT_EQ(niceness(), mine);
}

TEST(WorkPool, UrgentWorkGoesBeforeAllThatWaits) {
  WorkPool pool(1);
  std::promise<void> open;
  std::shared_future<void> gate = open.get_future();
  std::vector<int> order; // the pool's one thread alone writes to it
  pool.post([gate] { gate.wait(); });
  pool.post([&] { order.push_back(1); });
  pool.post([&] { order.push_back(2); }, true);
  auto last = pool.run([] {});
  open.set_value();
  last.wait();
  EXPECT_EQ(order, (std::vector<int>{2, 1}));
}

/// Tells when the thread ends in which it lives.
struct EndOfThread {
  std::promise<void>* told = nullptr;
  EndOfThread() = default;
  EndOfThread(const EndOfThread&) = delete;
  EndOfThread& operator=(const EndOfThread&) = delete;
  ~EndOfThread() {
    if (told)
      told->set_value();
  }
};

TEST(WorkPool, AtItsEndDropsWhatHasNotBegunAndWaitsForWhatHas) {
  std::atomic<bool> finished = false;
  std::atomic<bool> dropped = true;
  std::promise<void> begun;
  std::promise<void> ending; // an idle thread ends at once when the pool does
  {
    WorkPool pool(2);
    pool.post([&] {
      begun.set_value();
      ending.get_future().wait();
      pool.post([&] { dropped = false; });
      finished = true;
    });
    begun.get_future().wait();
    pool.run([&] {
          thread_local EndOfThread end;
          end.told = &ending;
        })
        .wait();
    // The pool ends here, while one of its threads is at work.
  }
  EXPECT_TRUE(finished);
  EXPECT_TRUE(dropped);
}

} // namespace
} // namespace hearthbook
