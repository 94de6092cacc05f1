#include "PrinterThread.h"

#include <chrono>
#include <future>
#include <thread>
#include <utility>

namespace hearthbook {

namespace {

constexpr auto mostWaitAtTheEnd = std::chrono::seconds(1);

} // namespace

PrinterThread::PrinterThread() : pool_(std::make_unique<WorkPool>(1)) {}

PrinterThread::~PrinterThread() {
  std::promise<void> ended;
  const std::future<void> end = ended.get_future();
  std::thread([pool = std::move(pool_), ended = std::move(ended)]() mutable {
    pool.reset();
    ended.set_value_at_thread_exit();
  }).detach();
  end.wait_for(mostWaitAtTheEnd);
}

} // namespace hearthbook
