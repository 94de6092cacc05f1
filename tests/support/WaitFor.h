#pragma once

#include <gtest/gtest.h>

#include <QTest>

#include <functional>

namespace hearthbook::test {

/// Lets events come in until the condition holds.
inline testing::AssertionResult waitFor(const std::function<bool()>& condition) {
  constexpr int patience = 60'000;
  return QTest::qWaitFor(condition, patience) ? testing::AssertionSuccess()
                                              : testing::AssertionFailure() << "waited in vain";
}

} // namespace hearthbook::test
