#include "OddServer.h"
#include "SendMailFixture.h"

#include "DesktopMail.h"
#include "ReducedPhoto.h"
#include "ScopedVariable.h"

#include <QProcess>
#include <QUrl>
#include <QUrlQuery>

namespace hearthbook::test {

namespace {

/// A desktop on which `xdg-email`, or the mail program behind the real one, writes down what it is
/// told.
class DesktopMailTest : public SendMailFixture {
protected:
  DesktopMailTest() {
    for (const char* folder : {"Programs", "Temporary"})
      std::filesystem::create_directories(at(folder));
  }

  std::filesystem::path install(const std::string& name, const std::string& end = "exit 0") {
    const auto program = at("Programs/" + name);
    const std::string told = at("told").string();
    writeBytes(program, "#!/bin/sh\nprintf '%s\\n' \"$@\" >> '" + told + "'\n" + end + "\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    return program;
  }
  std::string told() const { return readBytes(at("told")); }
  void pressAndWaitForTheEnd() {
    press("mailProgram");
    EXPECT_TRUE(waitFor([] { return !isOpen(); }));
  }
  void expectNoProgram() {
    boxes_.expectMessage(
        toQString("Your mail program could not be opened. Please choose one in the "
                  "settings of your desktop."),
        toQString("E-Mail Photos"), MsgIcon::Exclamation);
  }
  /// The one folder that was made for a mail.
  std::filesystem::path mailFolder() const {
    return at("Temporary/" + namesIn(at("Temporary")).at(0));
  }

  ScopedVariable temporary_{"TMPDIR", at("Temporary").string()};
};

class StubbedDesktopMail : public DesktopMailTest {
  ScopedVariable path_{"PATH", at("Programs").string()};
};

} // namespace

TEST_F(StubbedDesktopMail, ThePhotosTheSubjectAndTheTextAreHandedOver) {
  install("xdg-email");
  openFilled("");
  pressAndWaitForTheEnd();
  const auto folder = mailFolder();
  EXPECT_EQ(told(),
            "--utf8\n--to\nanna@example.com\n--subject\nLake\n--body\nDear Anna\n--attach\n" +
                (folder / "00001.jpg").string() + "\n--attach\n" + (folder / "00002.jpg").string() +
                "\n");
  EXPECT_TRUE(readBytes(folder / "00001.jpg") == reducedForMail(photo(1)));
  EXPECT_TRUE(readBytes(folder / "00002.jpg") == reducedForMail(photo(2)));
}

TEST_F(StubbedDesktopMail, WhatIsEmptyIsLeftOut) {
  install("xdg-email");
  openFilled("");
  write("txtRecipient", "");
  write("txtSubject", "");
  control<QPlainTextEdit>(form(), "txtMessage")->clear();
  pressAndWaitForTheEnd();
  EXPECT_TRUE(told().starts_with("--utf8\n--attach\n")) << told();
}

TEST_F(StubbedDesktopMail, TwoPhotosOfOneNameBothGo) {
  page_.photos[1].id = "XX00001"; // on the disc
  install("xdg-email");
  openFilled("");
  EXPECT_TRUE(waitFor([] { return isEnabled(form(), "mailProgram"); }));
  control<QListWidget>(form(), "lstAttachments")->item(1)->setText(toQString(at("Disc/00001.jpg")));
  std::filesystem::create_directories(at("Disc"));
  std::filesystem::rename(photo(2), at("Disc/00001.jpg"));
  pressAndWaitForTheEnd();
  EXPECT_EQ(namesIn(mailFolder()), (std::vector<std::string>{"00001-2.jpg", "00001.jpg"}));
}

TEST_F(StubbedDesktopMail, WithoutAProgramThatIsToldAndTheTextStays) {
  openFilled("");
  expectNoProgram();
  press("mailProgram");
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_FALSE(isSending());
  EXPECT_EQ(message(), "Dear Anna");
}

TEST_F(StubbedDesktopMail, AProgramThatFailsIsToldAndTheTextStays) {
  install("xdg-email", "exit 4");
  openFilled("");
  expectNoProgram();
  press("mailProgram");
  EXPECT_TRUE(waitFor([this] { return boxes_.isDone(); }));
  EXPECT_EQ(message(), "Dear Anna");
}

TEST_F(StubbedDesktopMail, AProgramThatCannotBeStartedIsToldAndForgotten) {
  writeBytes(install("xdg-email"), "#!/no/such/shell\n");
  openFilled("");
  expectNoProgram();
  press("mailProgram");
  EXPECT_TRUE(waitFor([this] {
    return boxes_.isDone() && DesktopMail::programs().findChildren<QProcess*>().isEmpty();
  }));
}

TEST_F(StubbedDesktopMail, AProgramThatRunsOnBelongsToNothingThatEndsWithOurs) {
  install("xdg-email", "until [ -e '" + at("closed").string() + "' ]; do :; done");
  openFilled("");
  press("mailProgram");
  EXPECT_TRUE(waitFor([this] { return std::filesystem::exists(at("told")); }));
  press("cmdClose");
  QCoreApplication::processEvents();
  EXPECT_TRUE(QCoreApplication::instance()->findChildren<QProcess*>().isEmpty());
  EXPECT_EQ(DesktopMail::programs().findChildren<QProcess*>().size(), 1);
  writeBytes(at("closed"), "");
  EXPECT_TRUE(waitFor([] { return DesktopMail::programs().children().isEmpty(); }));
}

TEST_F(StubbedDesktopMail, AMailThatNoProgramTookLeavesNothing) {
  install("xdg-email", "exit 4");
  openFilled("");
  expectNoProgram();
  press("mailProgram");
  EXPECT_TRUE(waitFor([this] { return boxes_.isDone(); }));
  press("cmdClose");
  EXPECT_TRUE(waitFor([this] { return namesIn(at("Temporary")).empty(); }));
}

TEST_F(StubbedDesktopMail, AMissingPhotoIsTold) {
  install("xdg-email");
  page_.photos.resize(1);
  openFilled("");
  std::filesystem::remove(photo(1));
  boxes_.expectFailure(toQString("This could not be done:"));
  press("mailProgram");
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_FALSE(isSending());
}

TEST_F(StubbedDesktopMail, ClosedWhilePhotosAreReducedNoProgramOpens) {
  install("xdg-email");
  openFilled("");
  const auto release = holdPool(pool_);
  closeOnce([] { return isSending(); });
  press("mailProgram");
  EXPECT_FALSE(isOpen());
  release();
  openFilled("");
  write("txtRecipient", "rosa@example.com");
  pressAndWaitForTheEnd(); // what the first one would have opened stood before this
  EXPECT_TRUE(told().starts_with("--utf8\n--to\nrosa@example.com\n")) << told();
}

TEST_F(StubbedDesktopMail, AProgramThatEndsWhileAMailIsSentDoesNotBreakItOff) {
  install("xdg-email", "until [ -e '" + at("closed").string() + "' ]; do :; done");
  OddServer server([](QTcpSocket&, const std::string&) {});
  openFilled(server.host());
  press("mailProgram");
  bool isEnded = false;
  QObject::connect(form().findChild<DesktopMail*>(), &DesktopMail::opened,
                   [&isEnded] { isEnded = true; });
  press("cmdSend");
  EXPECT_TRUE(waitFor([&] { return server.guests() == 1; }));
  writeBytes(at("closed"), "");
  EXPECT_TRUE(waitFor([&] { return isEnded; }));
  ASSERT_TRUE(isOpen());
  EXPECT_TRUE(isSending());
  EXPECT_FALSE(server.isLeft());
  press("cmdClose");
}

TEST_F(DesktopMailTest, TheDesktopsOwnOpenerHandsAllOfItOn) {
  const ScopedVariable mailer("MAILER", install("mailer").string());
  const ScopedVariable desktop("XDG_CURRENT_DESKTOP", "X-Generic");
  openFilled("");
  write("txtSubject", "Zoë & the lake, 100%");
  control<QPlainTextEdit>(form(), "txtMessage")->setPlainText(toQString("Dear Anna,\n\nlook!"));
  pressAndWaitForTheEnd();
  QString address = toQString(told()).trimmed();
  ASSERT_TRUE(address.startsWith(toQString("mailto:?"))) << told();
  const QUrlQuery query(address.mid(8));
  const auto value = [&](const char* key) {
    return toUtf8(query.queryItemValue(toQString(key), QUrl::FullyDecoded));
  };
  EXPECT_EQ(value("to"), "anna@example.com");
  EXPECT_EQ(value("subject"), "Zoë & the lake, 100%");
  EXPECT_EQ(value("body"), "Dear Anna,\r\n\r\nlook!");
  const QStringList attached = query.allQueryItemValues(toQString("attach"), QUrl::FullyDecoded);
  ASSERT_EQ(attached.size(), 2);
  EXPECT_TRUE(readBytes(toPath(attached[0])) == reducedForMail(photo(1)));
  EXPECT_TRUE(readBytes(toPath(attached[1])) == reducedForMail(photo(2)));
}

} // namespace hearthbook::test
