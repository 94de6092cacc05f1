#include "PrintCopies.h"

#include "RunTimeError.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

TEST(PrintCopies, AreTheNumberThatWasTyped) {
  EXPECT_EQ(copiesOf("1"), 1);
  EXPECT_EQ(copiesOf(" 12 "), 12);
  EXPECT_EQ(copiesOf("999"), 999);
}

TEST(PrintCopies, OfAFractionAreTheNearestWholeNumber) {
  EXPECT_EQ(copiesOf("2.5"), 2);
  EXPECT_EQ(copiesOf("2.6"), 3);
}

TEST(PrintCopies, ThatNoPrinterTakesAreRefused) {
  for (const char* typed : {"", " ", "three", "2x", "0", "0.5", "-1", "1000", "1e30", "1 2"})
    EXPECT_THROW(copiesOf(typed), RunTimeError) << typed;
}

} // namespace
} // namespace hearthbook
