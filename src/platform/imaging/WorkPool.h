#pragma once

#include <functional>
#include <future>
#include <memory>

namespace hearthbook {

/// The few threads beside the album's own, on which pictures are decoded and encoded.
class WorkPool {
public:
  explicit WorkPool(int threads = 0); ///< 0: one for each core
  ~WorkPool();                        ///< drops what has not begun, waits for what has
  WorkPool(const WorkPool&) = delete;
  WorkPool& operator=(const WorkPool&) = delete;

  [[nodiscard]] int threads() const;
  /// Runs `work` some time; urgent work goes before all that waits.
  void post(std::function<void()> work, bool urgent = false);

  /// Runs `work` some time and hands back what it returns or throws. `afterwards` is called on
  /// the same thread once the answer is there. An answer never given, because the pool ended,
  /// throws std::future_error.
  template <class Work>
  auto run(Work work, std::function<void()> afterwards = {}, bool urgent = false)
      -> std::future<decltype(work())> {
    auto task = std::make_shared<std::packaged_task<decltype(work())()>>(std::move(work));
    auto result = task->get_future();
    post(
        [task, afterwards = std::move(afterwards)] {
          (*task)();
          if (afterwards)
            afterwards();
        },
        urgent);
    return result;
  }

private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

} // namespace hearthbook
