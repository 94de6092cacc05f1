#include "DottedPhoto.h"
#include "MailServer.h"
#include "SendMailFixture.h"

#include "MailAttachments.h"
#include "ReducedPhoto.h"
#include "SendingPanel.h"

#include <cstdlib>
#include <vector>

namespace hearthbook::test {

namespace {

/// The attachments of a mail as an independent program takes them out, by their names.
class Attachments {
public:
  explicit Attachments(const std::string& mail) {
    std::size_t at = 0;
    while ((at = mail.find("\r\nbegin 664 ", at)) != std::string::npos) {
      const std::size_t end = mail.find("\r\nend\r\n", at) + 7;
      takeOut(mail.substr(at + 2, end - at - 2));
      at = end - 2;
    }
  }

  std::vector<std::string> names;
  std::vector<std::string> bytes;

private:
  void takeOut(const std::string& block) {
    const TemporaryFolder folder;
    writeBytes(folder.path() / "text", block);
    const std::string command = "cd '" + folder.path().string() + "' && uudecode text";
    EXPECT_EQ(std::system(command.c_str()), 0);
    std::filesystem::remove(folder.path() / "text");
    names.push_back(namesIn(folder.path()).at(0));
    bytes.push_back(readBytes(folder.path() / names.back()));
  }
};

class SendMail : public SendMailFixture {
protected:
  static std::string headOf(const std::string& mail) {
    return mail.substr(0, mail.find("\r\n\r\n"));
  }
};

} // namespace

TEST_F(SendMail, APageArrivesWithItsReducedPhotos) {
  const MailServer server;
  openFilled(server.host());
  expectSent();
  send();
  ASSERT_EQ(server.mails(), 1);
  EXPECT_EQ(server.envelope(), "henry@example.com\nanna@example.com\n");
  const std::string mail = server.mail();
  const std::string head = "From:Henry <henry@example.com>\r\nTo:Anna <anna@example.com>\r\n"
                           "Subject:Lake\r\n\r\nDear Anna\r\n\r\nbegin 664 00001.jpg\r\n";
  EXPECT_EQ(mail.substr(0, head.size()), head);
  EXPECT_TRUE(mail.ends_with("\r\nend\r\n\r\n\r\n"));
  const Attachments attachments(mail);
  EXPECT_EQ(attachments.names, (std::vector<std::string>{"00001.jpg", "00002.jpg"}));
  ASSERT_EQ(attachments.bytes.size(), 2U);
  EXPECT_TRUE(attachments.bytes[0] == reducedForMail(photo(1)));
  EXPECT_TRUE(attachments.bytes[1] == reducedForMail(photo(2)));
  EXPECT_FALSE(std::filesystem::exists(at("Media/00001.jpg")));
}

TEST_F(SendMail, APhotoOfALengthThatWouldBeginALineWithADotArrivesWhole) {
  const MailServer server;
  writeDottedPhoto(photo(2));
  openFilled(server.host());
  expectSent();
  send();
  const Attachments attachments(server.mail());
  ASSERT_EQ(attachments.bytes.size(), 2U);
  EXPECT_TRUE(attachments.bytes[1] == reducedForMail(photo(2)));
}

TEST_F(SendMail, TheReplyToAddressArrives) {
  const MailServer server;
  openFilled(server.host());
  write("txtReplyToName", "Rosa");
  write("txtReplyTo", "rosa@example.com");
  expectSent();
  send();
  EXPECT_EQ(headOf(server.mail()),
            "From:Henry <henry@example.com>\r\nTo:Anna <anna@example.com>\r\nSubject:Lake\r\n"
            "Reply-To:Rosa <rosa@example.com>");
}

TEST_F(SendMail, AMissingPhotoAmongSeveralIsLeftOut) {
  const MailServer server;
  openFilled(server.host());
  std::filesystem::remove(photo(1));
  expectSent();
  send();
  EXPECT_EQ(Attachments(server.mail()).names, std::vector<std::string>{"00002.jpg"});
}

TEST_F(SendMail, APhotoThatGoesBeforeItsTurnIsLeftOut) {
  const MailServer server;
  openFilled(server.host());
  const auto release = holdPool(pool_);
  onceThat([] { return isSending(); },
           [this, release] {
             std::filesystem::remove(photo(1));
             release();
           });
  expectSent();
  send();
  EXPECT_EQ(Attachments(server.mail()).names, std::vector<std::string>{"00002.jpg"});
}

TEST_F(SendMail, AMissingSinglePhotoFails) {
  const MailServer server;
  page_.photos.resize(1);
  openFilled(server.host());
  EXPECT_EQ(cause(), "");
  std::filesystem::remove(photo(1));
  expectFailed();
  send();
  EXPECT_NE(cause().find("00001.jpg"), std::string::npos) << cause();
  EXPECT_EQ(server.mails(), 0);
}

TEST_F(SendMail, APhotoThatIsNoPictureFails) {
  writeBytes(photo(2), "no picture");
  openFilled("127.0.0.1:1");
  expectFailed();
  send();
}

TEST_F(SendMail, APhotoThatCannotBePreparedIsToldAndTheOthersGo) {
  const MailServer server;
  writeBytes(photo(1), jpegOf(grainy({320, 1280}, 1)));
  ASSERT_GT(reducedForMail(photo(1)).size(), 100'000U); // more than is read at once
  openFilled(server.host());
  const auto prepared = at("Media/00001.jpg");
  onceThat([=] { return note() == "Preparing File: " + prepared.string(); },
           [=] { std::filesystem::resize_file(prepared, 0); });
  boxes_.expectMessage(toQString("Error Preparing File!"), toQString("E-Mail Photos"),
                       MsgIcon::Critical);
  expectSent();
  send();
  EXPECT_NE(server.mail().find("\r\n\r\nDear Anna\r\n\r\n\r\nbegin 664 00002.jpg\r\n"),
            std::string::npos);
  EXPECT_EQ(Attachments(server.mail()).names, std::vector<std::string>{"00002.jpg"});
  EXPECT_FALSE(std::filesystem::exists(prepared));
}

TEST_F(SendMail, APhotoThatHasNoPlaceToBePreparedFails) {
  openFilled("127.0.0.1:1");
  std::filesystem::rename(at("Media"), at("Elsewhere"));
  expectFailed();
  send();
  EXPECT_NE(cause().find("00001.jpg"), std::string::npos) << cause();
}

TEST_F(SendMail, APhotoThatIsPreparedOnAFullDiskFailsAndLeavesNothing) {
  openFilled("127.0.0.1:1");
  const auto prepared = at("Media/00001.jpg");
  std::filesystem::create_symlink("/dev/full", prepared);
  expectFailed();
  send();
  EXPECT_NE(cause().find("the disk is full"), std::string::npos) << cause();
  EXPECT_FALSE(std::filesystem::is_symlink(prepared));
}

TEST_F(SendMail, ARefusedRecipientIsTold) {
  const MailServer server({toQString("--refuse=anna@example.com")});
  openFilled(server.host());
  expectRefusal("550 No such person here\r\n");
  send();
  EXPECT_EQ(progress(), 100);
  EXPECT_EQ(server.mails(), 0);
}

TEST_F(SendMail, SentAgainAfterARefusalTheMailHoldsEachPhotoOnce) {
  const MailServer server({toQString("--refuse=anna@example.com")});
  openFilled(server.host());
  expectRefusal("550 No such person here\r\n");
  send();
  write("txtRecipient", "rosa@example.com");
  expectSent();
  send();
  EXPECT_EQ(Attachments(server.mail()).names, (std::vector<std::string>{"00001.jpg", "00002.jpg"}));
}

TEST_F(SendMail, AMailThatIsTooLargeIsTold) {
  const MailServer server({toQString("--limit=1000")});
  openFilled(server.host());
  expectRefusal("552 Error: Too much mail data\r\n");
  send();
  EXPECT_EQ(server.mails(), 0);
}

TEST_F(SendMail, NamesOfOtherAlphabetsArriveAsTheyAre) {
  const MailServer server;
  openFilled(server.host());
  write("txtRecipientName", "Zoë Müller");
  write("txtSubject", "סבתא");
  expectSent();
  send();
  EXPECT_EQ(headOf(server.mail()), "From:Henry <henry@example.com>\r\n"
                                   "To:Zoë Müller <anna@example.com>\r\nSubject:סבתא");
}

TEST_F(SendMail, AnAddressOfOtherLettersIsForTheServerToRefuse) {
  const MailServer server;
  openFilled(server.host());
  write("txtRecipient", "zoë@example.com");
  expectRefusal("500 Error: strict ASCII mode\r\n");
  send();
  EXPECT_EQ(server.mails(), 0);
}

TEST_F(SendMail, LineEndsInFieldsBringNoOtherHeaderAndNoOtherRecipient) {
  const MailServer server;
  openFilled(server.host());
  write("txtSubject", "Lake\r\nBcc: rosa@example.com");
  write("txtRecipientName", "Anna\nX-Other: yes");
  expectSent();
  send();
  EXPECT_EQ(server.envelope(), "henry@example.com\nanna@example.com\n");
  const std::string head = headOf(server.mail());
  EXPECT_EQ(std::ranges::count(head, '\n'), 2) << head;
}

TEST_F(SendMail, ALoneDotEndsTheMailThere) {
  const MailServer server;
  openFilled(server.host());
  for (const int gone : {1, 2}) // a server that takes attachments for commands hangs up
    std::filesystem::remove(photo(gone));
  control<QPlainTextEdit>(form(), "txtMessage")->setPlainText(toQString("one\n.\ntwo"));
  expectSent();
  send();
  EXPECT_TRUE(server.mail().ends_with("\r\n\r\none\r\n")) << server.mail();
}

TEST_F(SendMail, ASenderWithoutAnAtSignEndsInTheErrorReport) {
  const MailServer server;
  openFilled(server.host());
  write("txtSender", "henry");
  boxes_.expectFailure(toQString("This could not be done:"));
  send();
  EXPECT_EQ(server.mails(), 0);
  EXPECT_TRUE(isEnabled(form(), "cmdSend"));
}

TEST_F(SendMail, WithoutAServerTheOneThatIsToldIsUsed) {
  const MailServer server;
  openFilled("");
  boxes_.expectInput(toQString(serverPrompt), toQString("Outgoing Email (SMTP)"),
                     toQString(server.host()));
  expectSent();
  send();
  EXPECT_EQ(server.mails(), 1);
  EXPECT_EQ(kept("EmailHost"), server.host());
}

TEST_F(SendMail, WhatCannotBePreparedIsTold) {
  open();
  SendingPanel panel({control<QFrame>(form(), "Picture1"), control<QLabel>(form(), "Label7"),
                      control<QLabel>(form(), "Label10"),
                      control<QProgressBar>(form(), "ProgressBar1")});
  MailAttachments attachments(album().folder, panel, [] { return true; });
  boxes_.expectMessage(toQString("Error Preparing File!"), toQString("E-Mail Photos"),
                       MsgIcon::Critical);
  EXPECT_EQ(attachments.MUUEncode(at("Media/nothing.jpg")), "");
}

TEST_F(SendMail, ThePreparationTellsTheFileAndCountsItsLines) {
  open();
  SendingPanel panel({control<QFrame>(form(), "Picture1"), control<QLabel>(form(), "Label7"),
                      control<QLabel>(form(), "Label10"),
                      control<QProgressBar>(form(), "ProgressBar1")});
  MailAttachments attachments(album().folder, panel, [] { return true; });
  writeBytes(at("Media/00009.jpg"), std::string(450, 'A'));
  EXPECT_TRUE(attachments.MUUEncode(at("Media/00009.jpg")).starts_with("begin 664 00009.jpg\r\nM"));
  EXPECT_EQ(note(), "Preparing File: " + at("Media/00009.jpg").string());
  EXPECT_EQ(control<QProgressBar>(form(), "ProgressBar1")->maximum(), 11);
  EXPECT_EQ(progress(), 11);
}

} // namespace hearthbook::test
