#include "Value.h"
#include "TextNumber.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

TEST(Value, IsNullUntilGivenSomething) {
  EXPECT_TRUE(Value().isNull());
  EXPECT_FALSE(Value("").isNull());
  EXPECT_FALSE(Value(0).isNull());
}

TEST(Value, NullReadsAsEmptyTextAndZero) {
  EXPECT_EQ(Value().toText(), "");
  EXPECT_EQ(Value().toInteger(), 0);
}

TEST(Value, NumbersReadAsText) {
  EXPECT_EQ(Value(1990).toText(), "1990");
  EXPECT_EQ(Value(-2.5).toText(), "-2.5");
  EXPECT_EQ(Value(12.0).toText(), "12");
}

TEST(Value, TextReadsAsTheNumberItBeginsWith) {
  EXPECT_EQ(Value("0012x").toInteger(), 12);
  EXPECT_EQ(Value("x").toInteger(), 0);
}

TEST(Value, RealNumbersBeyondTheWholeOnesAreBounded) {
  EXPECT_EQ(Value(1e300).toInteger(), INT64_MAX);
  EXPECT_EQ(Value(-1e300).toInteger(), INT64_MIN);
  EXPECT_EQ(Value(2.9).toInteger(), 2);
}

TEST(Value, NullEqualsNullAndNothingElse) {
  EXPECT_EQ(Value(), Value());
  EXPECT_NE(Value(), Value(""));
  EXPECT_NE(Value(1), Value("1"));
}

TEST(TextNumber, TakesWhatTheDatabaseTakes) {
  EXPECT_EQ(wholeNumberOrReal("012"), Value(12));
  EXPECT_EQ(wholeNumberOrReal(" 12 "), Value(12));
  EXPECT_EQ(wholeNumberOrReal("12.0"), Value(12.0));
  EXPECT_EQ(wholeNumberOrReal("-1.5e2"), Value(-150.0));
  EXPECT_EQ(wholeNumberOrReal("+7"), Value(7));
}

TEST(TextNumber, TakesNothingElse) {
  for (const char* text : {"", " ", "12x", "x", "0x10", "1,000", "inf", "nan", "+-1", "1e999"})
    EXPECT_EQ(wholeNumberOrReal(text), std::nullopt) << text;
}

} // namespace
} // namespace hearthbook
