#pragma once

#include "AlbumFixture.h"
#include "BoxScript.h"
#include "FileBytes.h"
#include "FormControls.h"
#include "Forms.h"
#include "HeldPool.h"
#include "QtPrint.h"
#include "TestPictures.h"
#include "Text.h"
#include "WaitFor.h"
#include "frmSendMail.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTimer>

#include <functional>
#include <string>

namespace hearthbook::test {

inline const char* const serverPrompt =
    "PLEASE ENTER YOUR E-MAIL SERVER ADDRESS:\r\n"
    "------------------------------------------------------------------------------------\r\n"
    "Your e-mail server address is usually 'mail.example.com'. If you are not sure, please contact "
    "your internet service provider.If you are using Outlook or Outlook Express you can go to "
    "'Tools- Accounts' menu and click on 'Properties'. Then click the Servers Tab and copy the "
    "content of 'Outgoing Mail(SMTP)'.";

/// The mail composer for a page of two photos, as the album pages open it.
class SendMailFixture : public AlbumFixture, protected FormControls {
protected:
  SendMailFixture() {
    for (const int number : {1, 2})
      writeBytes(photo(number), jpegOf(grainy({640, 480}, static_cast<unsigned>(number))));
    page_.photos = {{"HD00001", "1987", "Wedding in Lake"}, {"HD00002", "1990", "Lake"}};
    vars().chosenAlbum.name = "Summer";
    Forms::provide<frmSendMail>([this] { return new frmSendMail(album(), pool_, page_); });
  }
  ~SendMailFixture() override { Forms::reset(); }

  frmSendMail& open() {
    auto& form = Forms::get<frmSendMail>();
    form.Show();
    QCoreApplication::processEvents();
    return form;
  }
  /// Filled in by somebody who knows what belongs there.
  frmSendMail& openFilled(const std::string& host) {
    auto& form = open();
    write("txtSenderName", "Henry");
    write("txtSender", "henry@example.com");
    write("txtRecipientName", "Anna");
    write("txtRecipient", "anna@example.com");
    write("txtSubject", "Lake");
    write("txtHost", host);
    control<QPlainTextEdit>(form, "txtMessage")->setPlainText(toQString("Dear Anna"));
    return form;
  }

  static frmSendMail& form() { return *Forms::loaded<frmSendMail>(); }
  static bool isOpen() { return Forms::loaded<frmSendMail>() != nullptr; }
  static void write(const char* field, const std::string& text) {
    control<QLineEdit>(form(), field)->setText(toQString(text));
  }
  static std::string textOf(const char* field) {
    return toUtf8(control<QLineEdit>(form(), field)->text());
  }
  static std::string message() {
    return toUtf8(control<QPlainTextEdit>(form(), "txtMessage")->toPlainText());
  }
  static void press(const char* name) { FormControls::press(form(), name); }
  static bool isSending() { return control(form(), "Picture1")->isVisible(); }
  static int progress() { return control<QProgressBar>(form(), "ProgressBar1")->value(); }
  static std::string note() { return toUtf8(control<QLabel>(form(), "Label10")->text()); }

  /// What the form says under its fields.
  static std::string cause() {
    const auto* label = control<QLabel>(form(), "note");
    return label->isVisible() ? toUtf8(label->text()) : std::string();
  }

  /// Presses Send and waits until the boxes of the script have come.
  void send() {
    press("cmdSend");
    EXPECT_TRUE(waitFor([this] { return boxes_.isDone() && !isSending(); }));
  }
  /// Does something as soon as `when` holds, however deep the form is in its work.
  static void onceThat(std::function<bool()> when, std::function<void()> act) {
    auto* timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
      if (!when())
        return;
      timer->stop();
      timer->deleteLater();
      act();
    });
    timer->start(0);
  }
  static void closeOnce(std::function<bool()> when) {
    onceThat([when = std::move(when)] { return isOpen() && when(); }, [] { press("cmdClose"); });
  }

  void expectSent() {
    boxes_.expectMessage(toQString("Message sent successfully."), {}, MsgIcon::Information);
  }
  void expectRefusal(const std::string& reply) {
    boxes_.expectMessage(
        toQString("SMTP Error: " + reply + ". Please make sure you are connected to the internet."),
        toQString("SMTP Error"), MsgIcon::Information);
  }
  void expectWinsockError(int number, const std::string& description) {
    boxes_.expectMessage(toQString("Winsock Error number " + std::to_string(number) + "\r\n" +
                                   description +
                                   ". Please make sure you are connected to the internet and that "
                                   "you entered the right Email Server."),
                         toQString("Winsock Error"), MsgIcon::Exclamation);
  }
  void expectFailed() {
    boxes_.expectMessage(toQString("E-mail transfer failed, please make sure you are connected to "
                                   "the internet and that you entered the right Email Server"),
                         toQString("E-Mail Photos"), MsgIcon::Critical);
  }

  [[nodiscard]] std::filesystem::path photo(int number) const {
    return at("Photos/0000" + std::to_string(number) + ".jpg");
  }
  std::string kept(const char* field) {
    Recordset rows(album().helpConnection);
    rows.Open("SELECT * FROM Preferences");
    return rows.Collect(field).toText();
  }

  MailPage page_;
  WorkPool pool_{2};
  BoxScript boxes_;
};

} // namespace hearthbook::test
