#include "SendMailFixture.h"

#include "ControlChecks.h"
#include "MailPreferences.h"

namespace hearthbook::test {

namespace {

const Control mailControls[] = {
    {"txtSenderName", "QLineEdit", "", "Sender"},
    {"txtSender", "QLineEdit", "", "Sender"},
    {"txtRecipientName", "QLineEdit", "", "Recipient"},
    {"txtRecipient", "QLineEdit", "", "Recipient"},
    {"txtReplyToName", "QLineEdit"},
    {"txtReplyTo", "QLineEdit"},
    {"txtSubject", "QLineEdit", "", "Subject"},
    {"txtMessage", "QPlainTextEdit", "", "Message"},
    {"lstAttachments", "QListWidget"},
    {"txtHost", "QLineEdit"},
    {"Text4", "QPlainTextEdit"},
    {"Command1", "QPushButton", "Change Server"},
    {"cmdSend", "QPushButton", "&Send message"},
    {"cmdClose", "QPushButton", "Cancel"},
    {"Picture1", "QFrame"},
    {"Label7", "QLabel", "Sending Mail, Please Wait..."},
    {"Label10", "hearthbook::ElidedLabel"},
    {"ProgressBar1", "QProgressBar"},
    {"senderFrame", "QGroupBox", "Sender:", "Sender"},
    {"recipientFrame", "QGroupBox", "Recipient:", "Recipient"},
    {"replyToFrame", "QGroupBox", "Reply To:"},
    {"mailFrame", "QGroupBox", "E-Mail"},
    {"Label1", "QLabel", "Name:"},
    {"Label2", "QLabel", "E-mail address:"},
};

class SendMailForm : public SendMailFixture {
protected:
  void expectServerAsked(const char* present, const char* answer) {
    boxes_.expectInputOf(toQString(present), toQString(serverPrompt),
                         toQString("Outgoing Email (SMTP)"), toQString(answer));
  }
  static QStringList attachments() {
    return textsOf(*control<QListWidget>(form(), "lstAttachments"));
  }
};

} // namespace

TEST_F(SendMailForm, HasEachOfItsControlsOnce) {
  expectControls(open(), "E-Mail", mailControls);
  EXPECT_NE(form().findChild<QObject*>(toQString("Winsock1")), nullptr);
}

TEST_F(SendMailForm, ThePageIsOfferedWhole) {
  open();
  EXPECT_EQ(form().caption(), toQString("E-Mail Album Page"));
  EXPECT_EQ(textOf("txtSubject"), "Pictures From My Album: Summer");
  EXPECT_EQ(message(), "<Type message here>\n\nPicture 00001:\n1987, Wedding in Lake\n\n"
                       "Picture 00002:\n1990, Lake\n\n");
  EXPECT_EQ(attachments(), (QStringList{toQString(photo(1)), toQString(photo(2))}));
  EXPECT_FALSE(isSending());
}

TEST_F(SendMailForm, ASelectedPhotoIsOfferedAlone) {
  page_.selected = 1;
  open();
  EXPECT_EQ(form().caption(), toQString("E-Mail Selected Photo"));
  EXPECT_EQ(message(), "<Type message here>\n\nPicture 00002:\n1990, Lake\n\n");
  EXPECT_EQ(attachments(), QStringList{toQString(photo(2))});
}

TEST_F(SendMailForm, TheFieldsBeginEmpty) {
  open();
  for (const char* field : {"txtSenderName", "txtSender", "txtRecipientName", "txtRecipient",
                            "txtReplyToName", "txtReplyTo", "txtHost"})
    EXPECT_EQ(textOf(field), "") << field;
}

TEST_F(SendMailForm, TheSenderAndTheServerAreAsTheyWereKept) {
  keepMailPreference(album().folder, MailPreference::SenderName, "Henry");
  keepMailPreference(album().folder, MailPreference::Sender, "henry@example.com");
  keepMailPreference(album().folder, MailPreference::Host, "mail.example.com");
  open();
  EXPECT_EQ(textOf("txtSenderName"), "Henry");
  EXPECT_EQ(textOf("txtSender"), "henry@example.com");
  EXPECT_EQ(textOf("txtHost"), "mail.example.com");
  EXPECT_EQ(textOf("txtRecipient"), "");
}

TEST_F(SendMailForm, TheHelpTextStandsThereFromTheBeginning) {
  open();
  EXPECT_EQ(
      toUtf8(control<QPlainTextEdit>(form(), "Text4")->toPlainText()),
      "In order to e-mail your photos you have to be connected to the internet. For more help "
      "move your mouse over the fields above. If you have selected a picture in the viewer, "
      "only the selected picture will be e-mailed. if no picture is selected then all "
      "pictures in the current page will be e-mailed");
}

TEST_F(SendMailForm, TheMouseOverAFieldExplainsIt) {
  open();
  const auto pane = [this] {
    return HelpEntry{toUtf8(control<QGroupBox>(form(), "helpFrame")->title()),
                     toUtf8(control<QPlainTextEdit>(form(), "Text4")->toPlainText())};
  };
  EXPECT_GE(expectMouseExplains(form(), "E-Mail", mailControls, pane, *vars().rsHelp), 6);
}

TEST_F(SendMailForm, TheSenderIsKeptWhenItsFieldIsLeft) {
  open();
  form().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form()));
  for (const auto& [field, kind] :
       {std::pair("txtSenderName", "EmailName"), std::pair("txtSender", "eMail")}) {
    control(form(), field)->setFocus();
    write(field, "  Henry  ");
    EXPECT_EQ(kept(kind), "");
    control(form(), "txtSubject")->setFocus();
    EXPECT_EQ(kept(kind), "Henry");
    control(form(), field)->setFocus();
    write(field, "   ");
    control(form(), "txtSubject")->setFocus();
    EXPECT_EQ(kept(kind), "");
  }
}

TEST_F(SendMailForm, TheSenderIsKeptAlsoWhenTheFormIsClosedFromIt) {
  open();
  form().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form()));
  control(form(), "txtSender")->setFocus();
  write("txtSender", "henry@example.com");
  QTest::keyClick(&form(), Qt::Key_Escape);
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(kept("eMail"), "henry@example.com");
}

TEST_F(SendMailForm, AnotherServerIsShownAndKept) {
  keepMailPreference(album().folder, MailPreference::Host, "old.example.com");
  open();
  expectServerAsked("old.example.com", "mail.example.com:26");
  press("Command1");
  EXPECT_EQ(textOf("txtHost"), "mail.example.com:26");
  EXPECT_EQ(kept("EmailHost"), "mail.example.com:26");
}

TEST_F(SendMailForm, AServerThatCannotBeKeptIsReportedAndUsedAllTheSame) {
  open();
  control(form(), "txtSubject")->setFocus(); // leaving the sender would fail too
  std::filesystem::remove(at("Data/Help.mdb"));
  expectServerAsked("", "mail.example.com");
  boxes_.expectFailure(toQString("This could not be done:"));
  press("Command1");
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_EQ(textOf("txtHost"), "mail.example.com");
  EXPECT_TRUE(isEnabled(form(), "cmdSend"));
}

TEST_F(SendMailForm, ThePhotoDiscIsLookedForWhileTheWindowLivesOn) {
  std::filesystem::create_directories(at("Disc/Photos"));
  writeBytes(at("Disc/Photos/00002.jpg"), jpegOf(plain({64, 48}, red)));
  folder_.drives().insertDisc("sr0", at("Disc"));
  page_.photos[1].id = "CD00002";
  const auto release = holdPool(pool_);
  open();
  EXPECT_TRUE(attachments().isEmpty());
  const auto* above = control<QLabel>(form(), "Label11");
  EXPECT_EQ(above->text(), toQString("Looking for the photo disc..."));
  for (const char* command : {"cmdSend", "mailProgram"})
    EXPECT_FALSE(isEnabled(form(), command)) << command;
  release();
  EXPECT_TRUE(waitFor([] { return isEnabled(form(), "cmdSend"); }));
  EXPECT_TRUE(isEnabled(form(), "mailProgram"));
  EXPECT_EQ(above->text(), toQString("Photos:"));
  EXPECT_EQ(attachments(),
            (QStringList{toQString(photo(1)), toQString(at("Disc/Photos/00002.jpg"))}));
}

TEST_F(SendMailForm, NoAnswerLeavesTheServer) {
  keepMailPreference(album().folder, MailPreference::Host, "old.example.com");
  open();
  expectServerAsked("old.example.com", "");
  press("Command1");
  EXPECT_EQ(textOf("txtHost"), "old.example.com");
  EXPECT_EQ(kept("EmailHost"), "old.example.com");
}

TEST_F(SendMailForm, WithoutAServerSendingAsksForOneAndStopsWithoutIt) {
  open();
  expectServerAsked("", "");
  press("cmdSend");
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_FALSE(isSending());
}

TEST_F(SendMailForm, AServerThatCannotBeKeptIsAFailureOfSending) {
  open();
  control(form(), "txtSubject")->setFocus(); // leaving the sender would fail too
  expectServerAsked("", "mail.example.com");
  expectFailed();
  std::filesystem::remove(at("Data/Help.mdb"));
  press("cmdSend");
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_FALSE(isSending());
}

TEST_F(SendMailForm, CancelClosesIt) {
  open();
  press("cmdClose");
  EXPECT_FALSE(isOpen());
}

TEST_F(SendMailForm, AWrittenLetterIsLostByEscapeOnlyAfterAQuestion) {
  open();
  QTest::keyClicks(control(form(), "txtMessage"), toQString("Dear Anna"));
  for (const MsgAnswer answer : {MsgAnswer::No, MsgAnswer::Yes}) {
    boxes_.expectQuestion(toQString("The message has not been sent. What you have written would be "
                                    "lost.\n\nClose without sending it?"),
                          toQString("E-Mail Photos"), MsgIcon::Exclamation, MsgButtons::YesNo,
                          answer);
    QTest::keyClick(&form(), Qt::Key_Escape);
    EXPECT_EQ(isOpen(), answer == MsgAnswer::No);
  }
}

TEST_F(SendMailForm, CancelAsksNothing) {
  open();
  QTest::keyClicks(control(form(), "txtMessage"), toQString("Dear Anna"));
  press("cmdClose");
  EXPECT_FALSE(isOpen());
}

TEST_F(SendMailForm, TheFirstKeyTakesThePlaceOfTheHint) {
  open();
  QTest::keyClicks(control(form(), "txtMessage"), toQString("Dear Anna"));
  EXPECT_TRUE(message().starts_with("Dear Anna\n\nPicture 00001:")) << message();
  press("cmdClose");
}

TEST_F(SendMailForm, EachPhotoOfTheListHasItsPicture) {
  open();
  const auto* list = control<QListWidget>(form(), "lstAttachments");
  EXPECT_TRUE(
      waitFor([&] { return !list->item(0)->icon().isNull() && !list->item(1)->icon().isNull(); }));
}

TEST_F(SendMailForm, TheFourPhotosOfAPageAreInSightTogether) {
  page_.photos.clear();
  for (const int number : {1, 2, 3, 4}) {
    writeBytes(photo(number), jpegOf(plain({300, 400}, red)));
    page_.photos.push_back({"HD0000" + std::to_string(number), "1987", "Lake"});
  }
  open();
  const auto* list = control<QListWidget>(form(), "lstAttachments");
  EXPECT_TRUE(waitFor([&] {
    for (int row = 0; row < 4; ++row)
      if (list->item(row)->icon().isNull())
        return false;
    return true;
  }));
  QCoreApplication::processEvents();
  EXPECT_LE(list->visualItemRect(list->item(3)).bottom(), list->viewport()->height());
}

TEST_F(SendMailForm, TabReachesEveryControlBothWays) {
  open();
  expectTabReachesAll(form(), control(form(), "txtSenderName"), 14);
}

TEST_F(SendMailForm, FitsASmallScreen) {
  open();
  EXPECT_LE(form().minimumSizeHint().width(), 1000);
  EXPECT_LE(form().minimumSizeHint().height(), 700);
}

} // namespace hearthbook::test
