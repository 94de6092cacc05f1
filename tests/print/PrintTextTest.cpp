#include "PrintText.h"

#include "Words.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

using Lines = std::vector<std::string>;

/// Each character is one wide.
PrintType oneWide() {
  return {[](const std::string& text) { return static_cast<double>(characterCount(text)); }, 1};
}

Lines lines(std::string_view text, double width, int most = 9) {
  return textLines(text, width, most, oneWide());
}

TEST(TextLines, AShortTextIsOneLine) { EXPECT_EQ(lines("Anna, Ben", 20), Lines{"Anna, Ben"}); }

TEST(TextLines, AnEmptyTextHasNoLine) {
  EXPECT_TRUE(lines("", 20).empty());
  EXPECT_TRUE(lines("  ", 20).empty());
}

TEST(TextLines, BreakAtBlanks) {
  EXPECT_EQ(lines("Anna, Ben, Carl", 10), (Lines{"Anna, Ben,", "Carl"}));
  EXPECT_EQ(lines("Anna, Ben, Carl", 9), (Lines{"Anna,", "Ben, Carl"}));
}

TEST(TextLines, AWordWiderThanALineIsBrokenWithinIt) {
  EXPECT_EQ(lines("abcdefgh", 3), (Lines{"abc", "def", "gh"}));
}

TEST(TextLines, NoCharacterIsCutInTwo) {
  EXPECT_EQ(lines("ääää", 3), (Lines{"äää", "ä"}));
  EXPECT_EQ(lines("ääää", 0.5, 2), (Lines{"ä", "…"}));
}

TEST(TextLines, WhatHasNoRoomIsToldByAnEllipsis) {
  EXPECT_EQ(lines("Anna, Ben, Carl, Dora", 10, 1), Lines{"Anna, Ben…"});
  EXPECT_EQ(lines("Anna, Ben, Carl, Dora", 10, 2), (Lines{"Anna, Ben,", "Carl, Dora"}));
  EXPECT_EQ(lines("Anna, Ben, Carl, Dora, Emil", 10, 2), (Lines{"Anna, Ben,", "Carl, Dor…"}));
}

TEST(TextLines, ALineEndWithinANameIsABlank) {
  EXPECT_EQ(lines("Anna\nMaria\r\n", 20), Lines{"Anna Maria"});
}

TEST(TextLines, BlanksWithinTheTextStay) {
  EXPECT_EQ(lines("1987,  in Lake", 20), Lines{"1987,  in Lake"});
}

TEST(TextLines, ALongTextOfManyWordsEndsSoon) {
  std::string text;
  for (int word = 0; word < 20'000; ++word)
    text += "Anna, ";
  EXPECT_EQ(lines(text, 100, 5).size(), 5u);
}

} // namespace
} // namespace hearthbook
