#include "Bands.h"

#include "WorkPool.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>

namespace hearthbook {

namespace {

constexpr int pixelsOfBand = 1 << 16;

/// The bands of one piece of work. A helper that comes late finds none and touches nothing else.
class Bands {
public:
  Bands(int rows, int rowsAtOnce, const std::function<void(int, int)>& work)
      : rows_(rows), rowsAtOnce_(rowsAtOnce), work_(work) {}

  void workThrough() {
    std::unique_lock lock(mutex_);
    while (next_ < rows_) {
      const int first = next_;
      next_ = std::min(rows_, first + rowsAtOnce_);
      const int end = next_;
      ++running_;
      lock.unlock();
      const std::exception_ptr failure = failureOf(first, end);
      lock.lock();
      if (failure && !failure_) {
        failure_ = failure;
        next_ = rows_;
      }
      if (--running_ == 0)
        idle_.notify_all();
    }
  }

  void waitForTheOthers() {
    std::unique_lock lock(mutex_);
    idle_.wait(lock, [this] { return running_ == 0; });
    if (failure_)
      std::rethrow_exception(failure_);
  }

private:
  [[nodiscard]] std::exception_ptr failureOf(int first, int end) const {
    try {
      work_(first, end);
      return nullptr;
    } catch (...) {
      return std::current_exception();
    }
  }

  const int rows_;
  const int rowsAtOnce_;
  const std::function<void(int, int)>& work_; ///< there as long as bands are left
  std::mutex mutex_;
  std::condition_variable idle_;
  int next_ = 0;
  int running_ = 0;
  std::exception_ptr failure_;
};

} // namespace

void inBands(WorkPool* pool, int rows, int rowsAtOnce,
             const std::function<void(int first, int end)>& work) {
  const auto bands = std::make_shared<Bands>(rows, std::max(1, rowsAtOnce), work);
  const int helpers = pool && rows > rowsAtOnce ? pool->threads() - 1 : 0;
  for (int i = 0; i < helpers; ++i)
    pool->post([bands] { bands->workThrough(); }, true);
  bands->workThrough();
  bands->waitForTheOthers();
}

int rowsOfBand(int width) { return std::max(1, pixelsOfBand / std::max(1, width)); }

} // namespace hearthbook
