#pragma once

#include <chrono>
#include <future>

namespace hearthbook {

/// Whether work that runs elsewhere has its answer.
template <class Result> bool isReady(const std::future<Result>& work) {
  return work.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

} // namespace hearthbook
