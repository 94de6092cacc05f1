#pragma once

#include "Guard.h"
#include "Ready.h"

#include <future>

namespace hearthbook {

/// What work beside the window's thread answers or throws. Until then the window lives on, with
/// the user's commands blocked.
template <class Result> Result awaited(std::future<Result> work) {
  waitUntil([&] { return isReady(work); });
  return work.get();
}

} // namespace hearthbook
