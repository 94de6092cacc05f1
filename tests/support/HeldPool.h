#pragma once

#include "WorkPool.h"

#include <functional>
#include <future>
#include <memory>

namespace hearthbook::test {

/// Keeps all threads of the pool busy until the answer is called.
[[nodiscard]] inline std::function<void()> holdPool(WorkPool& pool) {
  auto free = std::make_shared<std::promise<void>>();
  const std::shared_future<void> isFree = free->get_future().share();
  for (int thread = 0; thread < pool.threads(); ++thread)
    pool.post([isFree] { isFree.wait(); }, true);
  return [free] { free->set_value(); };
}

} // namespace hearthbook::test
