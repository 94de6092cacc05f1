#pragma once

#include "Guard.h"

#include <chrono>
#include <future>

namespace hearthbook {

/// What work beside the window's thread answers or throws. Until then the window lives on, with
/// the user's commands blocked.
template <class Result> Result awaited(std::future<Result> work) {
  waitUntil([&] { return work.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
  return work.get();
}

} // namespace hearthbook
