#include "Numbers.h"
#include "RunTimeError.h"

#include <gtest/gtest.h>

#include <limits>

namespace hearthbook {
namespace {

struct Typed {
  const char* text;
  std::optional<double> value;
};

class TypedText : public testing::TestWithParam<Typed> {};

TEST_P(TypedText, IsTakenOrRefusedAsAPersonWould) {
  EXPECT_EQ(isNumeric(GetParam().text), GetParam().value.has_value());
  EXPECT_EQ(numericValue(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, TypedText,
    testing::Values(Typed{"0", 0}, Typed{"1990", 1990}, Typed{"1e3", 1000}, Typed{"1E+3", 1000},
                    Typed{"1d3", 1000}, Typed{"25D-1", 2.5}, Typed{" 12 ", 12},
                    Typed{"\t12\r\n", 12}, Typed{"1,990", 1990}, Typed{"1,2,3", 123},
                    Typed{"1,", 1}, Typed{"1,990.5", 1990.5}, Typed{"$5", 5}, Typed{"5$", 5},
                    Typed{"-$5", -5}, Typed{"$-5", -5}, Typed{"$ 5", 5}, Typed{"- 5", -5},
                    Typed{"-5", -5}, Typed{"5-", -5}, Typed{"+5", 5}, Typed{"(5)", -5},
                    Typed{"($5)", -5}, Typed{".5", 0.5}, Typed{"1.", 1}, Typed{"-.5", -0.5},
                    Typed{"&H10", 16}, Typed{"&hfF", 255}, Typed{"&O17", 15}, Typed{" &o7 ", 7},
                    Typed{"007", 7}, Typed{"1e-999", 0}));

INSTANTIATE_TEST_SUITE_P(
    Refused, TypedText,
    testing::Values(Typed{"", {}}, Typed{" ", {}}, Typed{"12a", {}}, Typed{"a12", {}},
                    Typed{".", {}}, Typed{"-", {}}, Typed{"$", {}}, Typed{"()", {}},
                    Typed{"(5", {}}, Typed{"(-5)", {}}, Typed{"--5", {}}, Typed{"-5-", {}},
                    Typed{"$5$", {}}, Typed{",5", {}}, Typed{"1.2.3", {}}, Typed{"1.5,0", {}},
                    Typed{"1 2", {}}, Typed{"1e", {}}, Typed{"e3", {}}, Typed{"1e3.5", {}},
                    Typed{"1e999", {}}, Typed{"&H", {}}, Typed{"&HG", {}}, Typed{"&O8", {}},
                    Typed{"&10", {}}, Typed{"0x10", {}}, Typed{"inf", {}}, Typed{"nan", {}},
                    Typed{"\xEF\xBC\x91\xEF\xBC\x92", {}}, // digits of full width
                    Typed{"\xD9\xA1", {}},                 // an Arabic one
                    Typed{"\xC2\xBD", {}},                 // a half
                    Typed{"19\xC3\xA4", {}}));

TEST(Numbers, AnEmbeddedNulIsNoNumber) { EXPECT_FALSE(isNumeric(std::string_view("1\0", 2))); }

TEST(Numbers, TheNumberAtTheStartOfATextEndsAtTheFirstOtherCharacter) {
  EXPECT_EQ(leadingNumber("0012x"), 12);
  EXPECT_EQ(leadingNumber("  7"), 7);
  EXPECT_EQ(leadingNumber("-3 apples"), -3);
  EXPECT_EQ(leadingNumber("+3"), 3);
  EXPECT_EQ(leadingNumber("x12"), 0);
  EXPECT_EQ(leadingNumber(""), 0);
  EXPECT_EQ(leadingNumber("-"), 0);
}

TEST(Numbers, ANumberTooLongStaysAtTheLimit) {
  constexpr auto limit = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(leadingNumber("9223372036854775807"), limit);
  EXPECT_EQ(leadingNumber("99999999999999999999999"), limit);
  EXPECT_EQ(leadingNumber("-99999999999999999999999"), -limit);
}

TEST(Numbers, PaddingFillsUpWithZerosAndNeverCuts) {
  EXPECT_EQ(padded(12, 5), "00012");
  EXPECT_EQ(padded(0, 3), "000");
  EXPECT_EQ(padded(1234, 3), "1234");
  EXPECT_EQ(padded(-7, 3), "-007");
  EXPECT_EQ(padded(std::numeric_limits<std::int64_t>::min(), 3), "-9223372036854775808");
}

TEST(Numbers, TiesRoundToTheEvenNumber) {
  EXPECT_EQ(roundHalfEven(54.5), 54);
  EXPECT_EQ(roundHalfEven(53.5), 54);
  EXPECT_EQ(roundHalfEven(54.49), 54);
  EXPECT_EQ(roundHalfEven(54.51), 55);
  EXPECT_EQ(roundHalfEven(-0.5), 0);
  EXPECT_EQ(roundHalfEven(-1.5), -2);
  EXPECT_EQ(roundHalfEven(-2.5), -2);
  EXPECT_EQ(roundHalfEven(1e300), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(roundHalfEven(-1e300), std::numeric_limits<std::int64_t>::min());
}

TEST(Numbers, AShortNumberThatDoesNotFitIsRefused) {
  EXPECT_EQ(shortNumber(32767), 32767);
  EXPECT_EQ(shortNumber(-32768), -32768);
  EXPECT_THROW(shortNumber(32768), RunTimeError);
  EXPECT_THROW(shortNumber(-32769), RunTimeError);
}

} // namespace
} // namespace hearthbook
