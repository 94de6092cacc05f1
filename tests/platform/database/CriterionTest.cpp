#include "Criterion.h"

#include "RunTimeError.h"

#include <gtest/gtest.h>

#include <string>

namespace hearthbook {
namespace {

using Operator = Comparison::Operator;

Comparison one(std::string_view text) {
  const Criterion criterion = parseCriterion(text);
  EXPECT_EQ(criterion.kind, Criterion::Kind::One) << text;
  return criterion.comparison;
}

TEST(Criterion, TakesANumberAQuotedTextAndNull) {
  EXPECT_EQ(one("Year = 1990").value, Value(1990));
  EXPECT_EQ(one("Year = -1").value, Value(-1));
  EXPECT_EQ(one("Year = 1.5").value, Value(1.5));
  EXPECT_EQ(one(" Year = '1990'").value, Value("1990"));
  EXPECT_EQ(one("PhotoID = ''").value, Value(""));
  EXPECT_TRUE(one("Year = Null").value.isNull());
  EXPECT_TRUE(one("Year=NULL").value.isNull());
}

TEST(Criterion, TakesFieldsInEveryQuoting) {
  for (const char* text : {"Index = 1", "[Index] = 1", "`Index` = 1", "\"Index\" = 1"})
    EXPECT_EQ(one(text).field, "Index") << text;
  EXPECT_EQ(one("[Two words]=1").field, "Two words");
}

TEST(Criterion, TakesEveryOperator) {
  EXPECT_EQ(one("a=1").op, Operator::Equal);
  EXPECT_EQ(one("a<>1").op, Operator::Unequal);
  EXPECT_EQ(one("a<1").op, Operator::Less);
  EXPECT_EQ(one("a<=1").op, Operator::AtMost);
  EXPECT_EQ(one("a>1").op, Operator::More);
  EXPECT_EQ(one("a>=1").op, Operator::AtLeast);
  EXPECT_EQ(one("a like 'x%'").op, Operator::Like);
}

TEST(Criterion, TwoApostrophesStandForOne) {
  EXPECT_EQ(one("Name = 'O''Brien'").value, Value("O'Brien"));
  EXPECT_EQ(one("Name = ''''").value, Value("'"));
}

TEST(Criterion, JoinsByAndAndOr) {
  const Criterion any = parseCriterion("a = 1 OR b = 2 and c = 3 Or d = 4");
  ASSERT_EQ(any.kind, Criterion::Kind::Any);
  ASSERT_EQ(any.parts.size(), 3U);
  EXPECT_EQ(any.parts[1].kind, Criterion::Kind::All);
  EXPECT_EQ(any.parts[1].parts[1].comparison.field, "c");
}

TEST(Criterion, RefusesWhatItDoesNotUnderstand) {
  for (const char* text : {"",
                           " ",
                           "Year",
                           "Year =",
                           "= 1",
                           "Year = x",
                           "Year == 1",
                           "Year = 'x",
                           "Year = 'O'Brien'",
                           "Year = 'x' 'y'",
                           "Year = 1 2",
                           "Year = 1 AND",
                           "Year = 1 OR OR Year = 2",
                           "(Year = 1",
                           "Year = 1)",
                           "()",
                           "Year = -'x'",
                           "Year = -",
                           "Year = 12x",
                           "Year > Null",
                           "Year LIKE Null",
                           "[Year = 1",
                           "Year = 1; Year = 2",
                           "Year = \"x\"",
                           "Year IN (1)",
                           "NOT Year = 1"})
    EXPECT_THROW(parseCriterion(text), RunTimeError) << text;
}

TEST(Criterion, TellsWhatItDidNotUnderstand) {
  try {
    parseCriterion("Name = 'O'Brien'");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_STREQ(error.what(), "The criterion cannot be understood: Name = 'O'Brien'");
  }
}

TEST(Criterion, RefusesBracketsWithoutEnd) {
  EXPECT_NO_THROW(parseCriterion(std::string(50, '(') + "a = 1" + std::string(50, ')')));
  EXPECT_THROW(parseCriterion(std::string(100'000, '(') + "a = 1" + std::string(100'000, ')')),
               RunTimeError);
}

} // namespace
} // namespace hearthbook
