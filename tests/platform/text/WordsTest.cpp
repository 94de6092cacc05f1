#include "Words.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

TEST(Words, TrimmingTakesOnlyTheBlanksAround) {
  EXPECT_EQ(trimmed("  Anna Maria "), "Anna Maria");
  EXPECT_EQ(trimmed("\tAnna"), "\tAnna");
  EXPECT_EQ(trimmed("   "), "");
  EXPECT_EQ(trimmed(""), "");
}

TEST(Words, WithoutBlanksTakesTabsAndLineEndsToo) {
  EXPECT_EQ(withoutBlanks(" \t 12\n"), "12");
  EXPECT_EQ(withoutBlanks(" \n"), "");
}

TEST(Words, OnlyTheLettersOfAsciiAreMadeSmall) {
  EXPECT_EQ(asciiLower("AZ az 09 [@`{"), "az az 09 [@`{"); // the neighbours of A and Z stay
  EXPECT_EQ(asciiLower("ZOË"), "zoË");
}

TEST(Words, TheCaseOfAsciiLettersAloneIsIgnored) {
  EXPECT_TRUE(sameIgnoringCase("Photos", "pHOTOS"));
  EXPECT_FALSE(sameIgnoringCase("Photos", "Photo"));
  EXPECT_FALSE(sameIgnoringCase("Photo", "Photos"));
  EXPECT_FALSE(sameIgnoringCase("Zoë", "ZOË"));
  EXPECT_TRUE(sameIgnoringCase("", ""));
}

TEST(Words, ABeginningCutsNoCharacterInTwo) {
  EXPECT_EQ(beginningOf("Zoë", 9), "Zoë");
  EXPECT_EQ(beginningOf("Zoë", 4), "Zoë");
  EXPECT_EQ(beginningOf("Zoë", 3), "Zo");
  EXPECT_EQ(beginningOf("\U0001F382", 3), "");
  EXPECT_EQ(beginningOf("Anna", 0), "");
}

TEST(Words, CharactersAreCountedNotBytes) {
  EXPECT_EQ(characterCount(""), 0U);
  EXPECT_EQ(characterCount("Zoë"), 3U);
  EXPECT_EQ(characterCount("שרה"), 3U);
  EXPECT_EQ(characterCount("Zoe\u0308"), 4U); // the accent is a character of its own
  EXPECT_EQ(characterCount("\U0001F382"), 1U);
}

TEST(Words, ApostrophesAreDoubled) {
  EXPECT_EQ(doubled("O'Brien's", '\''), "O''Brien''s");
  EXPECT_EQ(doubled("Anna", '\''), "Anna");
}

} // namespace
} // namespace hearthbook
