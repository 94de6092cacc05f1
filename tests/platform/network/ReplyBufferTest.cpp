#include "ReplyBuffer.h"

#include "RunTimeError.h"

#include <gtest/gtest.h>

namespace hearthbook::test {

TEST(ReplyBuffer, AReplyIsWholeWithItsLineEnd) {
  ReplyBuffer replies;
  EXPECT_FALSE(replies.isWhole());
  for (const char byte : std::string("220 mail.example.com\r")) {
    replies.add({&byte, 1});
    EXPECT_FALSE(replies.isWhole());
  }
  replies.add("\n");
  ASSERT_TRUE(replies.isWhole());
  EXPECT_EQ(replies.take(), "220 mail.example.com\r\n");
  EXPECT_FALSE(replies.isWhole());
}

TEST(ReplyBuffer, AReplyOfSeveralLinesIsWholeWithItsLastOne) {
  ReplyBuffer replies;
  replies.add("250-mail.example.com\r\n");
  EXPECT_FALSE(replies.isWhole());
  replies.add("250-SIZE\r\n250 HELP\r\n");
  ASSERT_TRUE(replies.isWhole());
  EXPECT_EQ(replies.take(), "250-mail.example.com\r\n250-SIZE\r\n250 HELP\r\n");
}

TEST(ReplyBuffer, TwoRepliesThatComeTogetherAreHandedOutTogether) {
  ReplyBuffer replies;
  replies.add("220 one\r\n220 two\r\n");
  ASSERT_TRUE(replies.isWhole());
  EXPECT_EQ(replies.take(), "220 one\r\n220 two\r\n");
}

TEST(ReplyBuffer, ALineWithoutACodeEndsAReplyToo) {
  for (const char* line : {"\n", "-\n", "25-\n", "twenty-one\r\n", "250\r\n"}) {
    ReplyBuffer replies;
    replies.add(line);
    EXPECT_TRUE(replies.isWhole()) << line;
  }
}

TEST(ReplyBuffer, AReplyWithoutAnEndFillsNoMemory) {
  ReplyBuffer replies;
  replies.add(std::string(ReplyBuffer::mostBytes, 'x'));
  EXPECT_THROW(replies.add("x"), RunTimeError);
}

} // namespace hearthbook::test
