#include "TextOrder.h"

#include <gtest/gtest.h>

#include <string>

namespace hearthbook {
namespace {

TEST(TextOrder, LocaleComesFromTheEnvironmentInItsOrder) {
  EXPECT_EQ(textLocale("de_DE.UTF-8", "fr_FR", "it_IT"), "de_DE");
  EXPECT_EQ(textLocale(nullptr, "fr_FR@euro", "it_IT"), "fr_FR");
  EXPECT_EQ(textLocale("", "", "it_IT.UTF-8"), "it_IT");
}

TEST(TextOrder, LocaleIsAmericanEnglishWhereNoLanguageIsTold) {
  EXPECT_EQ(textLocale(nullptr, nullptr, nullptr), "en_US");
  EXPECT_EQ(textLocale("C", nullptr, nullptr), "en_US");
  EXPECT_EQ(textLocale("C.UTF-8", "de_DE", "de_DE"), "en_US");
  EXPECT_EQ(textLocale(nullptr, nullptr, "POSIX"), "en_US");
}

TEST(TextOrder, CaseDoesNotCountButAccentsDo) {
  EXPECT_EQ(compareText("anna", "ANNA"), 0);
  EXPECT_EQ(compareText("ÉMILE", "émile"), 0);
  EXPECT_EQ(compareText("ЖЕНЯ", "женя"), 0);
  EXPECT_LT(compareText("Emile", "Émile"), 0);
  EXPECT_LT(compareText("Émile", "Emilf"), 0);
  EXPECT_LT(compareText("zebra", "Zoë"), 0);
}

TEST(TextOrder, ComposedAndDecomposedLettersAreTheSame) {
  EXPECT_EQ(compareText("\u00e9", "e\u0301"), 0);
  EXPECT_TRUE(sameText("caf\u00e9", "cafe\u0301"));
  EXPECT_TRUE(LikePattern("%\u00c9").matches("cafe\u0301"));
  EXPECT_TRUE(LikePattern("cafe\u0301").matches("caf\u00e9"));
}

TEST(TextOrder, SameTextAgreesWithCompareText) {
  const std::string texts[] = {"",     "a",     "A", "aa", "b",       "a ",      "ab",
                               "a-b",  "é",     "É", "e",  "e\u0301", "a\x01",   "\x01",
                               "\xFF", "a\xFF", "ß", "ss", "\u00ad",  "a\u0301", "x\ty"};
  for (const std::string& left : texts)
    for (const std::string& right : texts)
      EXPECT_EQ(sameText(left, right), compareText(left, right) == 0) << left << "|" << right;
}

TEST(TextOrder, SortKeysOrderAsTheTextsDo) {
  const std::string texts[] = {"", "Émile", "emile", "Zoë", "bob", "Ann", std::string(500, 'z')};
  for (const std::string& left : texts)
    for (const std::string& right : texts)
      EXPECT_EQ(textSortKey(left) < textSortKey(right), compareText(left, right) < 0)
          << left << "|" << right;
}

TEST(LikePattern, WildcardsStandForOneAndForAnyRun) {
  EXPECT_TRUE(LikePattern("a_c").matches("aBc"));
  EXPECT_FALSE(LikePattern("a_c").matches("ac"));
  EXPECT_TRUE(LikePattern("_").matches("é"));
  EXPECT_TRUE(LikePattern("%").matches(""));
  EXPECT_TRUE(LikePattern("a%b%c").matches("aXbbXc"));
  EXPECT_FALSE(LikePattern("a%b%c").matches("aXcXb"));
  EXPECT_TRUE(LikePattern("").matches(""));
  EXPECT_FALSE(LikePattern("").matches("a"));
  EXPECT_TRUE(LikePattern("%%a%%").matches("a"));
}

TEST(LikePattern, EscapedWildcardsStandForThemselves) {
  EXPECT_TRUE(LikePattern("100!%", U'!').matches("100%"));
  EXPECT_FALSE(LikePattern("100!%", U'!').matches("1000"));
  EXPECT_TRUE(LikePattern("a!!b", U'!').matches("a!b"));
}

TEST(LikePattern, BrokenTextNeverMatchesWrongly) {
  EXPECT_TRUE(LikePattern("%").matches("\xFF\xFE"));
  EXPECT_FALSE(LikePattern("a").matches("\xFF"));
}

TEST(LikePattern, ManyRunsAreMatchedInReasonableTime) {
  std::string pattern;
  for (int i = 0; i < 50; ++i)
    pattern += "%a";
  EXPECT_FALSE(LikePattern(pattern + "%b").matches(std::string(2'000, 'a')));
}

} // namespace
} // namespace hearthbook
