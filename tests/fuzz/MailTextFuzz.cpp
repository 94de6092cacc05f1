#include "Mutation.h"

#include "MailHost.h"
#include "ReplyBuffer.h"
#include "RunTimeError.h"
#include "SmtpSession.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace hearthbook::test {
namespace {

constexpr int rounds = 5'000;
const std::string talk =
    "220 here\r\n250 hello\r\n250 ok\r\n250 ok\r\n354 go on\r\n250 taken\r\n221 bye\r\n";
const std::vector<std::string> talkFragments = {"\r", "\n", "\r\n", "250-", "250 ", "354 ", "220"};
const std::vector<std::string> fieldFragments = {"\r\n", "\n", "\r",   "\r\n.\r\n", "\r\n\r\n",
                                                 "<",    ">",  "Bcc:", "DATA",      "@"};

MailMessage damagedMessage(Mutation& mutation) {
  MailMessage message;
  for (std::string* field : {&message.senderName, &message.recipientName, &message.replyToName,
                             &message.recipient, &message.replyTo, &message.subject})
    *field = mutation.damaged("anna@example.com");
  message.sender = mutation.damaged("henry") + "@example.com";
  message.text = "hello";
  return message;
}

/// What comes in pieces goes into the session reply by reply.
void talkThrough(SmtpSession& session, const std::string& said, Mutation& mutation) {
  ReplyBuffer replies;
  for (std::size_t at = 0; at < said.size();) {
    const std::size_t piece = 1 + mutation.below(40);
    replies.add(std::string_view(said).substr(at, piece));
    at += piece;
    if (!replies.isWhole())
      continue;
    const auto step = session.reply(replies.take());
    for (const std::string& sent : step.send)
      ASSERT_TRUE(sent.ends_with("\r\n"));
    ASSERT_EQ(step.notice.has_value() && !step.close, false);
    if (step.close)
      return;
  }
}

TEST(MailTextFuzz, ADamagedTalkEndsInOrder) {
  Mutation mutation(31, talkFragments);
  const MailMessage message{
      "Henry", "henry@example.com", "Anna", "anna@example.com", "", "", "Lake", "hello", ""};
  for (int i = 0; i < rounds; ++i) {
    SmtpSession session(message);
    ASSERT_NO_FATAL_FAILURE(talkThrough(session, mutation.damaged(talk), mutation));
  }
}

TEST(MailTextFuzz, DamagedFieldsMakeNoOtherCommandAndNoOtherHeader) {
  Mutation mutation(32, fieldFragments);
  for (int i = 0; i < rounds; ++i) {
    const MailMessage message = damagedMessage(mutation);
    SmtpSession session(message);
    std::string sent;
    for (int command = 1; command <= 4; ++command) {
      sent += session.reply("250 ok\r\n").send.at(0);
      ASSERT_EQ(std::ranges::count(sent, '\n'), command) << sent;
    }
    std::string mail;
    for (const std::string& part : session.reply("354 go on\r\n").send)
      mail += part;
    const std::string head = mail.substr(0, mail.find("\r\n\r\n"));
    ASSERT_EQ(std::ranges::count(head, '\n'), message.replyTo.empty() ? 2 : 3) << head;
    ASSERT_EQ(std::ranges::count(head, '\r'), std::ranges::count(head, '\n')) << head;
  }
}

TEST(MailTextFuzz, AHostIsReadOrRefused) {
  Mutation mutation(33, {":", ":25", "65536", " ", "-", "&H", "1e3", "."});
  int read = 0;
  for (int i = 0; i < rounds; ++i) {
    const std::string text = mutation.damaged("mail.example.com:2525");
    try {
      ASSERT_GT(mailHost(text).port, 0) << text;
      ++read;
    } catch (const RunTimeError&) {
      ASSERT_NE(text.find(':'), std::string::npos) << text;
    }
  }
  EXPECT_GT(read, 0);
  EXPECT_LT(read, rounds);
}

} // namespace
} // namespace hearthbook::test
