#include "YearEntry.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

TEST(YearEntry, IsTheWholeNumberThatWasMeant) {
  EXPECT_EQ(wholeYear("1985"), 1985);
  EXPECT_EQ(wholeYear(" 85 "), 85);
  EXPECT_EQ(wholeYear("$19"), 19);
  EXPECT_EQ(wholeYear("&H13"), 19);
  EXPECT_EQ(wholeYear("54.5"), 54);
  EXPECT_EQ(wholeYear("-5"), -5);
}

TEST(YearEntry, IsNothingWhereThereIsNoNumber) {
  for (const char* typed : {"", " ", "198x", "abcd"})
    EXPECT_EQ(wholeYear(typed), std::nullopt) << typed;
}

TEST(YearEntry, IsNothingBeyondTheDigitsThatTheFieldShows) {
  EXPECT_EQ(wholeYear("9999"), 9999);
  EXPECT_EQ(wholeYear("-999"), -999);
  for (const char* typed : {"1e4", "10000", "-1000", "9e9"})
    EXPECT_EQ(wholeYear(typed), std::nullopt) << typed;
}

} // namespace
} // namespace hearthbook
