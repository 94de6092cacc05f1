#include "EndSignals.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include <csignal>

namespace hearthbook {
namespace {

class EndSignalsTest : public testing::TestWithParam<int> {};

TEST_P(EndSignalsTest, ASignalOfTheSystemArrivesInTheEventLoop) {
  EndSignals ending;
  QSignalSpy asked(&ending, &EndSignals::endAsked);

  ASSERT_EQ(std::raise(GetParam()), 0);

  EXPECT_EQ(asked.count(), 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return asked.count() == 1; }));
}

INSTANTIATE_TEST_SUITE_P(Each, EndSignalsTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST(EndSignals, SignalsBehindOneAnotherAskOnce) {
  EndSignals ending;
  QSignalSpy asked(&ending, &EndSignals::endAsked);

  std::raise(SIGTERM);
  std::raise(SIGTERM);

  EXPECT_TRUE(QTest::qWaitFor([&] { return asked.count() == 1; }));
}

} // namespace
} // namespace hearthbook
