#include "SmtpSession.h"

#include "RunTimeError.h"

#include <gmock/gmock.h>

namespace hearthbook::test {

namespace {

using State = SmtpSession::State;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

MailMessage greetings() {
  return {"Henry", "henry@example.com", "Anna",     "anna@example.com", "", "",
          "Lake",  "Dear Anna,\nlook!", "begin\r\n"};
}

/// A session in which the server has agreed to everything so far.
SmtpSession sessionIn(State state, const MailMessage& message = greetings()) {
  SmtpSession session(message);
  for (int step = 0; step < static_cast<int>(state); ++step)
    session.reply(step == 4 ? "354 go on\r\n" : "250 ok\r\n");
  EXPECT_EQ(session.state(), state);
  return session;
}

std::string joined(const SmtpSession::Step& step) {
  std::string all;
  for (const std::string& bytes : step.send)
    all += bytes;
  return all;
}

std::string mailOf(const MailMessage& message) {
  SmtpSession session = sessionIn(State::Data, message);
  return joined(session.reply("354 go on\r\n"));
}

} // namespace

TEST(SmtpSession, GoesFromTheGreetingToQuitStepByStep) {
  SmtpSession session(greetings());
  struct Expected {
    const char* reply;
    const char* sent;
    int progress;
    State state;
  };
  for (const Expected& step : {
           Expected{"220 here\r\n", "HELO henry\r\n", 50, State::Helo},
           Expected{"250 hello\r\n", "MAIL FROM:henry@example.com\r\n", 25, State::MailFrom},
           Expected{"250 ok\r\n", "RCPT TO:anna@example.com\r\n", 60, State::RcptTo},
           Expected{"250 ok\r\n", "DATA\r\n", 25, State::Data},
       }) {
    const auto answer = session.reply(step.reply);
    EXPECT_THAT(answer.send, ElementsAre(step.sent));
    EXPECT_EQ(answer.progress, step.progress) << step.sent;
    EXPECT_FALSE(answer.close);
    EXPECT_FALSE(answer.notice);
    EXPECT_EQ(session.state(), step.state);
  }
  EXPECT_EQ(session.reply("354 go on\r\n").progress, 80);
  EXPECT_EQ(session.state(), State::Message);
  const auto quit = session.reply("250 taken\r\n");
  EXPECT_THAT(quit.send, ElementsAre("QUIT\r\n"));
  EXPECT_EQ(quit.progress, 25);
  EXPECT_EQ(session.state(), State::Quit);
}

TEST(SmtpSession, TheMessageIsSentInItsParts) {
  SmtpSession session = sessionIn(State::Data);
  EXPECT_THAT(session.reply("354 go on\r\n").send,
              ElementsAre("From:Henry <henry@example.com>\r\n", "To:Anna <anna@example.com>\r\n",
                          "Subject:Lake\r\n\r\n", "Dear Anna,\r\nlook!\r\n\r\nbegin\r\n\r\n",
                          ".\r\n"));
}

TEST(SmtpSession, AReplyToAddressComesBehindTheSubject) {
  MailMessage message = greetings();
  message.replyToName = "Rosa";
  message.replyTo = "rosa@example.com";
  SmtpSession session = sessionIn(State::Data, message);
  EXPECT_THAT(session.reply("354 go on\r\n").send,
              ElementsAre("From:Henry <henry@example.com>\r\n", "To:Anna <anna@example.com>\r\n",
                          "Subject:Lake\r\n", "Reply-To:Rosa <rosa@example.com>\r\n\r\n",
                          "Dear Anna,\r\nlook!\r\n\r\nbegin\r\n\r\n", ".\r\n"));
}

TEST(SmtpSession, WithoutAReplyToOneBlankLineStandsBeforeTheBody) {
  const std::string mail = mailOf(greetings());
  EXPECT_THAT(mail, Not(HasSubstr("Reply-To")));
  EXPECT_THAT(mail, HasSubstr("Subject:Lake\r\n\r\nDear Anna"));
}

TEST(SmtpSession, AReplyToNameAloneSendsNoReplyTo) {
  MailMessage message = greetings();
  message.replyToName = "Rosa";
  EXPECT_THAT(mailOf(message), Not(HasSubstr("Rosa")));
}

TEST(SmtpSession, AddressesAreTrimmedInCommandsOnly) {
  MailMessage message = greetings();
  message.sender = "  henry@example.com ";
  message.recipient = " anna@example.com  ";
  SmtpSession session(message);
  EXPECT_THAT(session.reply("220\r\n").send, ElementsAre("HELO henry\r\n"));
  EXPECT_THAT(session.reply("250\r\n").send, ElementsAre("MAIL FROM:henry@example.com\r\n"));
  EXPECT_THAT(session.reply("250\r\n").send, ElementsAre("RCPT TO:anna@example.com\r\n"));
  EXPECT_THAT(mailOf(message), HasSubstr("To:Anna < anna@example.com  >\r\n"));
}

TEST(SmtpSession, TheAnswerToQuitIsSuccess) {
  SmtpSession session = sessionIn(State::Quit);
  const auto end = session.reply("221 bye\r\n");
  EXPECT_TRUE(end.close);
  EXPECT_EQ(end.progress, 100);
  EXPECT_THAT(end.send, IsEmpty());
  ASSERT_TRUE(end.notice);
  EXPECT_EQ(end.notice->text, "Message sent successfully.");
  EXPECT_EQ(end.notice->title, "");
}

TEST(SmtpSession, EveryOtherAnswerToQuitIsSuccessToo) {
  for (const char* reply : {"421 busy\r\n", "500 what?\r\n", "554 no\r\n", "2", ""}) {
    const auto end = sessionIn(State::Quit).reply(reply);
    EXPECT_TRUE(end.close) << reply;
    ASSERT_TRUE(end.notice) << reply;
    EXPECT_EQ(end.notice->text, "Message sent successfully.") << reply;
  }
}

TEST(SmtpSession, AGoodAnswerToQuitEndsWithoutAWord) {
  SmtpSession session = sessionIn(State::Quit);
  const auto end = session.reply("250 ok\r\n");
  EXPECT_TRUE(end.close);
  EXPECT_EQ(end.progress, 25);
  EXPECT_THAT(end.send, IsEmpty());
  EXPECT_FALSE(end.notice);
  EXPECT_EQ(session.state(), State::Quit);
}

TEST(SmtpSession, ARefusalShowsTheWholeReply) {
  SmtpSession session = sessionIn(State::RcptTo);
  const auto end = session.reply("550-No such person\r\n550 here\r\n");
  EXPECT_TRUE(end.close);
  EXPECT_EQ(end.progress, 100);
  EXPECT_THAT(end.send, IsEmpty());
  ASSERT_TRUE(end.notice);
  EXPECT_EQ(end.notice->text,
            "SMTP Error: 550-No such person\r\n550 here\r\n. Please make sure you are connected to "
            "the internet.");
  EXPECT_EQ(end.notice->title, "SMTP Error");
}

TEST(SmtpSession, EveryOtherCodeBeforeQuitIsAnError) {
  for (const State state :
       {State::Greeting, State::Helo, State::MailFrom, State::RcptTo, State::Data, State::Message})
    for (const char* reply : {"221 bye\r\n", "421 busy\r\n", "450 later\r\n", "554 no\r\n",
                              "251 forwarded\r\n", "2", "", "\r\n", "abc"}) {
      SmtpSession session = sessionIn(state);
      const auto end = session.reply(reply);
      EXPECT_TRUE(end.close) << reply;
      ASSERT_TRUE(end.notice) << reply;
      EXPECT_EQ(end.notice->title, "SMTP Error") << reply;
      EXPECT_EQ(session.state(), state) << reply;
    }
}

TEST(SmtpSession, AnyAcceptedCodeLeadsOnInAnyState) {
  for (const char* code : {"220 ", "250 ", "354 "})
    for (const State state : {State::Greeting, State::Helo, State::MailFrom, State::RcptTo,
                              State::Data, State::Message}) {
      SmtpSession session = sessionIn(state);
      EXPECT_FALSE(session.reply(code).close);
      EXPECT_EQ(static_cast<int>(session.state()), static_cast<int>(state) + 1) << code;
    }
}

TEST(SmtpSession, TwoRepliesAtOnceLeaveItOneStepBehind) {
  SmtpSession session(greetings());
  const auto step = session.reply("220 one\r\n250 two\r\n");
  EXPECT_THAT(step.send, ElementsAre("HELO henry\r\n"));
  EXPECT_EQ(session.state(), State::Helo);
}

TEST(SmtpSession, ASenderWithoutAnAtSignStopsTheTalk) {
  MailMessage message = greetings();
  message.sender = "henry";
  SmtpSession session(message);
  EXPECT_THROW(session.reply("220 here\r\n"), RunTimeError);
  EXPECT_EQ(session.state(), State::Greeting);
}

TEST(SmtpSession, AServerThatHangsUpBehindQuitHasTakenTheMail) {
  ASSERT_TRUE(sessionIn(State::Quit).hungUp());
  EXPECT_EQ(sessionIn(State::Quit).hungUp()->text, "Message sent successfully.");
  for (const State state : {State::Greeting, State::Helo, State::Data, State::Message})
    EXPECT_FALSE(sessionIn(state).hungUp());
}

TEST(SmtpSession, LineEndsInAFieldMakeNoCommandAndNoHeader) {
  const std::string evil = "x\r\nBcc: a@example.com\nRCPT TO:b@example.com\r\n.\r\nDATA\r";
  MailMessage message{
      evil, evil + "@example.com", evil, evil + "@example.com", evil, evil, evil, "hi", ""};
  SmtpSession session(message);
  for (int command = 0; command < 4; ++command) {
    const std::string sent = joined(session.reply("250 ok\r\n"));
    EXPECT_EQ(std::ranges::count(sent, '\n'), 1) << sent;
    EXPECT_EQ(std::ranges::count(sent, '\r'), 1) << sent;
    EXPECT_TRUE(sent.ends_with("\r\n"));
  }
  const std::string head = joined(session.reply("354 go on\r\n"));
  const std::string headers = head.substr(0, head.find("\r\n\r\n"));
  EXPECT_EQ(std::ranges::count(headers, '\n'), 3) << headers; // between four headers
}

TEST(SmtpSession, ALoneDotInTheTextIsNotDoubled) {
  MailMessage message = greetings();
  message.text = "one\n.\ntwo\n..three";
  EXPECT_THAT(mailOf(message), HasSubstr("one\r\n.\r\ntwo\r\n..three\r\n\r\n"));
}

TEST(SmtpSession, EveryLineEndOfTheTextBecomesCrLf) {
  MailMessage message = greetings();
  message.text = "a\nb\r\nc\rd\n\n";
  EXPECT_THAT(mailOf(message), HasSubstr("\r\na\r\nb\r\nc\r\nd\r\n\r\n\r\n\r\nbegin"));
}

TEST(SmtpSession, NamesOfOtherAlphabetsGoOutAsTheyAre) {
  MailMessage message = greetings();
  message.recipientName = "Zoë Müller";
  EXPECT_THAT(mailOf(message), HasSubstr("To:Zoë Müller <anna@example.com>\r\n"));
}

TEST(SmtpSession, AnEndlessReplyIsShownAsFarAsABoxHasRoom) {
  SmtpSession session(greetings());
  const auto end = session.reply("554 " + std::string(60'000, 'x'));
  ASSERT_TRUE(end.notice);
  EXPECT_LT(end.notice->text.size(), 2200U);
  EXPECT_THAT(end.notice->text, HasSubstr("xxx. Please make sure"));
}

} // namespace hearthbook::test
