#include "OddServer.h"
#include "SendMailFixture.h"

#include <memory>
#include <vector>

namespace hearthbook::test {

namespace {

constexpr int stepsOfATalk = 6; ///< greeting, HELO, MAIL, RCPT, DATA, message; QUIT is the seventh

class SendMailServers : public SendMailFixture {
protected:
  /// Photos that are reduced in no time, where only the talk counts.
  void mailSmallPhotos() {
    for (const int number : {1, 2})
      writeBytes(photo(number), jpegOf(plain({64, 48}, red)));
  }
  /// A whole mail to another server: whoever wanted to call by now has done so.
  void mailElsewhere() {
    OddServer server(agreesUntil(99, ""));
    openFilled(server.host());
    expectSent();
    send();
  }
  /// Agrees to everything until the n-th answer, which is `last`; then, if so told, it hangs up.
  static OddServer::Answer agreesUntil(int answer, std::string last, bool hangsUp = false) {
    return [=, given = 0, polite = AgreeableServer()](QTcpSocket& guest,
                                                      const std::string& line) mutable {
      const std::string reply = polite.answer(line);
      if (reply.empty())
        return;
      const bool isLast = given++ == answer;
      guest.write((isLast ? last : reply).c_str());
      if (isLast && hangsUp)
        guest.disconnectFromHost();
    };
  }
};

} // namespace

TEST_F(SendMailServers, ThePortBehindTheColonIsUsed) {
  OddServer server(agreesUntil(99, ""));
  openFilled(" " + server.host() + " ");
  expectSent();
  send();
  EXPECT_EQ(server.guests(), 1);
  EXPECT_EQ(kept("EmailHost"), ""); // only Change Server keeps it
}

TEST_F(SendMailServers, TheTalkIsHeldLineByLine) {
  OddServer server(agreesUntil(99, ""));
  openFilled(server.host());
  expectSent();
  send();
  EXPECT_TRUE(server.heard().starts_with("HELO henry\r\nMAIL FROM:henry@example.com\r\n"
                                         "RCPT TO:anna@example.com\r\nDATA\r\nFrom:Henry "));
  EXPECT_TRUE(server.heard().ends_with("\r\n.\r\nQUIT\r\n"));
  EXPECT_EQ(note(), "Transfering Data");
  EXPECT_TRUE(waitFor([&] { return server.isLeft(); }));
}

TEST_F(SendMailServers, ASilentServerLeavesThePanelUntilTheFormIsClosed) {
  OddServer server([](QTcpSocket&, const std::string&) {});
  openFilled(server.host());
  press("cmdSend");
  EXPECT_TRUE(waitFor([&] { return server.guests() == 1; }));
  EXPECT_TRUE(isSending());
  EXPECT_FALSE(isEnabled(form(), "cmdSend"));
  EXPECT_FALSE(control(form(), "txtMessage")->isEnabled());
  press("cmdClose");
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(waitFor([&] { return server.isLeft(); }));
}

TEST_F(SendMailServers, ASecondReturnDoesNotCallTheMailBack) {
  OddServer server([](QTcpSocket&, const std::string&) {});
  openFilled(server.host());
  control(form(), "cmdSend")->setFocus();
  for (const bool sending : {false, true}) {
    EXPECT_EQ(isSending(), sending);
    QTest::keyClick(form().focusWidget() ? form().focusWidget() : &form(), Qt::Key_Return);
    ASSERT_TRUE(isOpen());
  }
  EXPECT_TRUE(isSending());
}

TEST_F(SendMailServers, AnUnsentLetterIsAskedForAndASentOneIsNot) {
  for (const bool accepts : {false, true}) {
    OddServer server(agreesUntil(accepts ? stepsOfATalk : 0, "421 busy\r\n", accepts));
    openFilled(server.host());
    QTest::keyClicks(control(form(), "txtMessage"), toQString("!"));
    if (accepts)
      expectSent();
    else
      expectRefusal("421 busy\r\n");
    send();
    if (!accepts)
      boxes_.expectQuestion(
          toQString("The message has not been sent. What you have written would be "
                    "lost.\n\nClose without sending it?"),
          toQString("E-Mail Photos"), MsgIcon::Exclamation, MsgButtons::YesNo, MsgAnswer::Yes);
    QTest::keyClick(&form(), Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
  }
}

TEST_F(SendMailServers, AServerThatHangsUpIsToldAtEveryStep) {
  mailSmallPhotos();
  openFilled("");
  for (int step = 0; step < stepsOfATalk; ++step) {
    OddServer server(agreesUntil(step, "", true));
    write("txtHost", server.host());
    expectWinsockError(10054, "The server has closed the connection");
    send();
  }
}

TEST_F(SendMailServers, AServerThatHangsUpAtQuitHasTakenTheMail) {
  OddServer server(agreesUntil(stepsOfATalk, "", true));
  openFilled(server.host());
  expectSent();
  send();
}

TEST_F(SendMailServers, ARefusalIsToldAtEveryStep) {
  mailSmallPhotos();
  openFilled("");
  for (const char* reply : {"421 busy\r\n", "451 later\r\n", "554 no\r\n", "221 bye\r\n"})
    for (int step = 0; step < stepsOfATalk; ++step) {
      OddServer server(agreesUntil(step, reply));
      write("txtHost", server.host());
      expectRefusal(reply);
      send();
      EXPECT_TRUE(waitFor([&] { return server.isLeft(); }));
    }
}

TEST_F(SendMailServers, ARefusalWithoutALineEndIsToldWhenTheServerHangsUp) {
  OddServer server(agreesUntil(0, "421 busy", true));
  openFilled(server.host());
  expectRefusal("421 busy");
  send();
}

TEST_F(SendMailServers, ASenderWithoutAnAtSignLeavesTheServerWithoutAWord) {
  OddServer server(agreesUntil(99, ""));
  openFilled(server.host());
  write("txtSender", "henry");
  boxes_.expectFailure(toQString("This could not be done:"));
  send();
  EXPECT_TRUE(waitFor([&] { return server.isLeft(); }));
  EXPECT_EQ(server.heard(), "");
}

TEST_F(SendMailServers, AServerThatSpeaksByteByByteIsUnderstood) {
  std::string left;
  QTcpSocket* listener = nullptr;
  QTimer oneByte;
  QObject::connect(&oneByte, &QTimer::timeout, [&] {
    if (left.empty())
      return;
    listener->write(left.data(), 1);
    listener->flush();
    left.erase(0, 1);
  });
  oneByte.start(0);
  AgreeableServer polite;
  OddServer server([&](QTcpSocket& guest, const std::string& line) {
    listener = &guest;
    left += polite.answer(line);
  });
  openFilled(server.host());
  expectSent();
  send();
  EXPECT_TRUE(server.heard().starts_with("HELO henry\r\nMAIL FROM:"));
}

TEST_F(SendMailServers, AReplyOfSeveralLinesIsOneReply) {
  AgreeableServer polite;
  OddServer server([&](QTcpSocket& guest, const std::string& line) {
    const std::string reply = polite.answer(line);
    if (reply.empty())
      return;
    guest.write((reply.substr(0, 3) + "-first\r\n").c_str());
    guest.flush();
    guest.write(reply.c_str());
  });
  openFilled(server.host());
  boxes_.expectMessage(toQString("Message sent successfully."), {}, MsgIcon::Information);
  send();
  EXPECT_TRUE(server.heard().starts_with("HELO henry\r\nMAIL FROM:henry@example.com\r\n"
                                         "RCPT TO:anna@example.com\r\nDATA\r\nFrom:"));
}

TEST_F(SendMailServers, ADoubleGreetingInOnePacketCountsOnce) {
  AgreeableServer polite;
  OddServer server([&](QTcpSocket& guest, const std::string& line) {
    guest.write((line.empty() ? "220 one\r\n220 two\r\n" : polite.answer(line)).c_str());
  });
  openFilled(server.host());
  expectSent();
  send();
}

TEST_F(SendMailServers, TwoAnswersInOnePacketLeaveTheTalkAStepBehind) {
  QTcpSocket* listener = nullptr;
  OddServer server([&](QTcpSocket& guest, const std::string& line) {
    listener = &guest;
    if (line.empty())
      guest.write("220 here\r\n250 and hello already\r\n");
  });
  openFilled(server.host());
  press("cmdSend");
  EXPECT_TRUE(waitFor([&] { return server.heard() == "HELO henry\r\n"; }));
  EXPECT_TRUE(isSending());
  EXPECT_EQ(progress(), 50);
  EXPECT_EQ(control<QProgressBar>(form(), "ProgressBar1")->maximum(), 100);
  listener->write("250 once more\r\n"); // only another answer leads on
  EXPECT_TRUE(
      waitFor([&] { return server.heard() == "HELO henry\r\nMAIL FROM:henry@example.com\r\n"; }));
  press("cmdClose");
}

TEST_F(SendMailServers, AGreetingWithoutEndIsRefused) {
  constexpr int megabytes = 10;
  openFilled("");
  for (const char* piece : {"220 welcome ", "220-welcome\r\n"}) {
    OddServer server([&](QTcpSocket& guest, const std::string& line) {
      if (!line.empty())
        return;
      for (int written = 0; written < megabytes << 20; written += 1200)
        guest.write(QByteArray(piece).repeated(100));
    });
    write("txtHost", server.host());
    expectWinsockError(10040, "The server's answer has no end");
    send();
  }
}

TEST_F(SendMailServers, AGoodAnswerToQuitClosesTheConnectionAndOpensNoBox) {
  OddServer server(agreesUntil(stepsOfATalk, "250 ok\r\n"));
  openFilled(server.host());
  send();
  EXPECT_TRUE(waitFor([&] { return server.isLeft(); }));
  EXPECT_EQ(progress(), 25);
  EXPECT_EQ(cause(), "The mail server has taken the message.");
  EXPECT_TRUE(isEnabled(form(), "cmdSend"));
}

TEST_F(SendMailServers, NobodyAtThePortIsTold) {
  std::string host;
  {
    OddServer gone([](QTcpSocket&, const std::string&) {});
    host = gone.host();
  }
  openFilled(host);
  expectWinsockError(10061, "Connection refused");
  send();
  EXPECT_TRUE(isEnabled(form(), "cmdSend"));
}

TEST_F(SendMailServers, AHostOfBlanksIsTold) {
  openFilled("   ");
  expectWinsockError(11001, "Host not found");
  send();
}

TEST_F(SendMailServers, APortOfLettersFails) {
  openFilled("127.0.0.1:smtp");
  expectFailed();
  send();
  EXPECT_EQ(cause(), "\"smtp\" is no port of a mail server.");
}

TEST_F(SendMailServers, ClosedWhileAPhotoIsReducedNothingIsSent) {
  OddServer server(agreesUntil(99, ""));
  openFilled(server.host());
  const auto release = holdPool(pool_);
  closeOnce([] { return isSending(); });
  press("cmdSend");
  EXPECT_FALSE(isOpen());
  release();
  mailElsewhere();
  EXPECT_EQ(server.guests(), 0);
}

TEST_F(SendMailServers, ClosedWhileAPhotoIsEncodedNothingIsSentAndNothingLeft) {
  OddServer server(agreesUntil(99, ""));
  openFilled(server.host());
  bool prepared = false;
  closeOnce([&] { return prepared = prepared || note().starts_with("Preparing File: "); });
  press("cmdSend");
  EXPECT_TRUE(prepared);
  EXPECT_FALSE(isOpen());
  mailElsewhere();
  EXPECT_EQ(server.guests(), 0);
  EXPECT_FALSE(std::filesystem::exists(at("Media/00001.jpg")));
}

TEST_F(SendMailServers, ClosedByItsWindowWhileAPhotoIsEncodedItEnds) {
  openFilled("127.0.0.1:1");
  onceThat([] { return isOpen() && note().starts_with("Preparing File: "); },
           [] { form().close(); });
  press("cmdSend");
  EXPECT_FALSE(isOpen());
}

TEST_F(SendMailServers, ClosedInTheMiddleOfTheTalkTheServerGetsNoMail) {
  OddServer server(agreesUntil(4, "")); // no word to DATA
  openFilled(server.host());
  press("cmdSend");
  EXPECT_TRUE(waitFor([&] { return server.heard().ends_with("DATA\r\n"); }));
  QTest::keyClick(&form(), Qt::Key_Escape);
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(waitFor([&] { return server.isLeft(); }));
  EXPECT_TRUE(server.heard().ends_with("DATA\r\n"));
}

TEST_F(SendMailServers, AfterAFailureItCanBeSentAgain) {
  openFilled("127.0.0.1:smtp");
  expectFailed();
  send();
  OddServer server(agreesUntil(99, ""));
  write("txtHost", server.host());
  expectSent();
  send();
  EXPECT_EQ(cause(), "");
}

} // namespace hearthbook::test
