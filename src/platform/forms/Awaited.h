#pragma once

#include "Guard.h"

#include <chrono>
#include <future>

namespace hearthbook {

template <class Result> bool isReady(const std::future<Result>& work) {
  return work.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

/// What work beside the window's thread answers or throws. Until then the window lives on, with
/// the user's commands blocked.
template <class Result> Result awaited(std::future<Result> work) {
  waitUntil([&] { return isReady(work); });
  return work.get();
}

} // namespace hearthbook
