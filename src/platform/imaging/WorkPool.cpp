#include "WorkPool.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

#ifdef __linux__
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace hearthbook {

namespace {

/// To the window's thread: with all cores decoding, a zoom step would wait for one of them. Where
/// that is not allowed the work is done all the same.
void giveWay() {
#ifdef __linux__          // elsewhere a process is nice as a whole
  constexpr int more = 5; // than the program, which may have been started as a nice one
  const auto self = static_cast<id_t>(gettid());
  setpriority(PRIO_PROCESS, self, getpriority(PRIO_PROCESS, self) + more);
#endif
}

} // namespace

struct WorkPool::Impl {
  void work();

  std::mutex mutex;
  std::condition_variable changed;
  std::deque<std::function<void()>> urgent;
  std::deque<std::function<void()>> waiting;
  bool stopping = false;
  std::vector<std::thread> threads;
};

void WorkPool::Impl::work() {
  giveWay();
  std::unique_lock lock(mutex);
  while (true) {
    changed.wait(lock, [&] { return stopping || !urgent.empty() || !waiting.empty(); });
    if (stopping)
      return;
    auto& queue = urgent.empty() ? waiting : urgent;
    auto next = std::move(queue.front());
    queue.pop_front();
    lock.unlock();
    next();
    next = nullptr; // what it holds goes outside the lock
    lock.lock();
  }
}

WorkPool::WorkPool(int threads) : impl_(std::make_unique<Impl>()) {
  const auto cores = static_cast<int>(std::thread::hardware_concurrency());
  const int count = threads > 0 ? threads : std::max(1, cores);
  for (int i = 0; i < count; ++i)
    impl_->threads.emplace_back([impl = impl_.get()] { impl->work(); });
}

WorkPool::~WorkPool() {
  {
    const std::lock_guard lock(impl_->mutex);
    impl_->stopping = true;
  }
  impl_->changed.notify_all();
  for (std::thread& thread : impl_->threads)
    thread.join();
}

int WorkPool::threads() const { return static_cast<int>(impl_->threads.size()); }

void WorkPool::post(std::function<void()> work, bool urgent) {
  {
    const std::lock_guard lock(impl_->mutex);
    (urgent ? impl_->urgent : impl_->waiting).push_back(std::move(work));
  }
  impl_->changed.notify_one();
}

} // namespace hearthbook
