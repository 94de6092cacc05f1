#include "StartupPlace.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

TEST(StartupPlace, LeavesTheToldRoomInTheFrame) {
  EXPECT_EQ(startupSize({15360, 11520}), (TwipsSize{14360, 10020}));
}

TEST(StartupPlace, NothingHappensInAFrameThatIsTooSmall) {
  EXPECT_FALSE(startupSize({15360, 1500}));
  EXPECT_FALSE(startupSize({1000, 11520}));
  EXPECT_TRUE(startupSize({1001, 1501}));
}

} // namespace
} // namespace hearthbook
