#include "Bands.h"

#include "RunTimeError.h"
#include "WorkPool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <vector>

namespace hearthbook {
namespace {

TEST(Bands, EveryRowIsVisitedOnce) {
  WorkPool pool(3);
  for (WorkPool* helpers : {static_cast<WorkPool*>(nullptr), &pool}) {
    for (const int rowsAtOnce : {1, 7, 100, 1000}) {
      std::vector<std::atomic<int>> visits(100);
      inBands(helpers, 100, rowsAtOnce, [&](int first, int end) {
        EXPECT_LE(end - first, rowsAtOnce);
        for (int row = first; row < end; ++row)
          ++visits.at(static_cast<std::size_t>(row));
      });
      for (const auto& count : visits)
        EXPECT_EQ(count, 1);
    }
  }
}

TEST(Bands, NoRowsAreNoWork) {
  inBands(nullptr, 0, 8, [](int, int) { FAIL(); });
}

TEST(Bands, APoolThatIsBusyIsNotWaitedFor) {
  WorkPool pool(2);
  std::promise<void> free;
  const auto isFree = free.get_future().share();
  for (int i = 0; i < 2; ++i)
    pool.post([isFree] { isFree.wait(); });
  std::atomic<int> rows = 0;
  inBands(&pool, 50, 5, [&](int first, int end) { rows += end - first; });
  EXPECT_EQ(rows, 50);
  free.set_value();
}

TEST(Bands, WorkOfThePoolMayGoInBandsItself) {
  WorkPool pool(1);
  const auto rows = pool.run([&pool] {
                          std::atomic<int> gone = 0;
                          inBands(&pool, 30, 4, [&](int first, int end) { gone += end - first; });
                          return gone.load();
                        })
                        .get();
  EXPECT_EQ(rows, 30);
}

TEST(Bands, AFailureIsHandedOn) {
  WorkPool pool(2);
  const auto fail = [](int first, int) {
    if (first >= 20)
      throw RunTimeError("no");
  };
  EXPECT_THROW(inBands(&pool, 100, 10, fail), RunTimeError);
}

} // namespace
} // namespace hearthbook
