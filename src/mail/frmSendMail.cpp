#include "frmSendMail.h"

#include "Beside.h"
#include "Command.h"
#include "DesktopMail.h"
#include "Guard.h"
#include "MailAttachments.h"
#include "MailHost.h"
#include "MailPhotoList.h"
#include "MailTitle.h"
#include "ModalHelp.h"
#include "MsgBox.h"
#include "PhotosToMail.h"
#include "SendingPanel.h"
#include "Text.h"
#include "Winsock.h"
#include "Words.h"
#include "ui_frmSendMail.h"

#include <QScreen>
#include <QTextCursor>
#include <QTextDocument>

namespace hearthbook {

namespace {

constexpr const char* helpText =
    "In order to e-mail your photos you have to be connected to the internet. For more help move "
    "your mouse over the fields above. If you have selected a picture in the viewer, only the "
    "selected picture will be e-mailed. if no picture is selected then all pictures in the current "
    "page will be e-mailed";

QString serverPrompt() {
  return QStringLiteral("PLEASE ENTER YOUR E-MAIL SERVER ADDRESS:\r\n") + QString(84, u'-') +
         QStringLiteral("\r\nYour e-mail server address is usually 'mail.example.com'. If you are "
                        "not sure, please contact your internet service provider."
                        "If you are using Outlook or Outlook Express you can go to 'Tools- "
                        "Accounts' menu and click on 'Properties'. Then click the Servers Tab and "
                        "copy the content of 'Outgoing Mail(SMTP)'.");
}

} // namespace

frmSendMail::frmSendMail(Album& album, WorkPool& pool, MailPage page)
    : Form(QStringLiteral("frmSendMail"), Kind::Dialog), album_(album), pool_(pool),
      page_(std::move(page)), ui(std::make_unique<Ui::frmSendMail>()), winsock_(new Winsock(this)) {
  ui->setupUi(this);
  resize(size().expandedTo(screen()->availableSize() * 2 / 5)); // more of the letter in sight
  winsock_->setObjectName(QStringLiteral("Winsock1"));
  panel_ = std::make_unique<SendingPanel>(
      SendingPanel::Parts{ui->Picture1, ui->Label7, ui->Label10, ui->ProgressBar1});
  modalHelp_ = new ModalHelp(this, HelpPane(*ui->helpFrame, *ui->Text4), album_.vars);
  wireControls();
  wireServer();
}

frmSendMail::~frmSendMail() = default;

void frmSendMail::wireControls() {
  keepOnLeaving(ui->txtSenderName, MailPreference::SenderName);
  keepOnLeaving(ui->txtSender, MailPreference::Sender);
  onCommand(ui->Command1, this, &frmSendMail::changeServer);       // "Change Server"
  onCommand(ui->cmdSend, this, &frmSendMail::send);                // "Send message"
  onCommand(ui->mailProgram, this, &frmSendMail::openMailProgram); // "Open in Mail Program"
  onCommand(ui->cmdClose, this, &frmSendMail::giveUp);             // "Cancel"
}

void frmSendMail::wireServer() {
  connect(winsock_, &Winsock::dataArrival, this, &frmSendMail::replyArrived);
  connect(winsock_, &Winsock::failed, this, &frmSendMail::connectionFailed);
  connect(winsock_, &Winsock::hungUp, this, &frmSendMail::serverHungUp);
}

void frmSendMail::keepOnLeaving(QLineEdit* field, MailPreference which) {
  setLostFocusRule(field, [this, field, which] {
    keepMailPreference(album_.folder, which, trimmed(toUtf8(field->text())));
    return true;
  });
}

void frmSendMail::load() {
  showPreferences();
  ui->txtSubject->setText(toQString(mailSubject(album_.vars.chosenAlbum.name)));
  showDraft();
  ui->Text4->setPlainText(toQString(helpText));
  QLineEdit* first = ui->txtSender->text().isEmpty() ? ui->txtSenderName : ui->txtRecipientName;
  first->setFocus();
}

void frmSendMail::showPreferences() {
  const MailPreferences kept = readMailPreferences(album_.folder);
  ui->txtSenderName->setText(toQString(kept.senderName));
  ui->txtSender->setText(toQString(kept.sender));
  ui->txtHost->setText(toQString(kept.host));
}

void frmSendMail::showDraft() {
  const MailDraft draft = draftMail(page_);
  setCaption(toQString(draft.caption));
  ui->txtMessage->setPlainText(toQString(draft.text));
  QTextCursor hint = ui->txtMessage->textCursor();
  hint.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
  ui->txtMessage->setTextCursor(hint); // the first key takes its place
  findPhotos(draft.photoIds);
}

/// The photo disc is looked for beside the window's thread; until it is found nothing can be sent.
void frmSendMail::findPhotos(const std::vector<std::string>& ids) {
  if (!needPhotoDisc(ids))
    return showPhotos(mailedFiles(album_, ids));
  showLooking(true);
  runBeside(
      pool_, this, [&album = album_, ids] { return mailedFiles(album, ids); },
      [this](const auto& photos) {
        showPhotos(photos);
        showLooking(false);
      },
      true);
}

void frmSendMail::showPhotos(const std::vector<std::filesystem::path>& photos) {
  showMailPhotos(*ui->lstAttachments, pool_, photos);
}

void frmSendMail::showLooking(bool looking) {
  ui->Label11->setText(looking ? QStringLiteral("Looking for the photo disc...")
                               : QStringLiteral("Photos:"));
  allowSending(!looking);
}

void frmSendMail::allowSending(bool allowed) {
  ui->cmdSend->setEnabled(allowed);
  ui->mailProgram->setEnabled(allowed);
}

MailMessage frmSendMail::readMessage() const {
  const auto text = [](const QLineEdit* field) { return toUtf8(field->text()); };
  return {text(ui->txtSenderName),
          text(ui->txtSender),
          text(ui->txtRecipientName),
          text(ui->txtRecipient),
          text(ui->txtReplyToName),
          text(ui->txtReplyTo),
          text(ui->txtSubject),
          toUtf8(ui->txtMessage->toPlainText()),
          {}};
}

std::string frmSendMail::readHost() const { return toUtf8(ui->txtHost->text()); }

void frmSendMail::changeServer() {
  const QString answer =
      InputBox(serverPrompt(), QStringLiteral("Outgoing Email (SMTP)"), ui->txtHost->text());
  if (answer.isEmpty())
    return;
  ui->txtHost->setText(answer);
  keepMailPreference(album_.folder, MailPreference::Host, toUtf8(answer));
}

void frmSendMail::send() {
  try {
    begin();
  } catch (const std::exception& failure) {
    if (!closed_)
      failed(failure);
  }
}

void frmSendMail::begin() {
  if (readHost().empty())
    changeServer();
  if (readHost().empty())
    return;
  showSending(true);
  MailAttachments attachments(album_.folder, *panel_, [this] { return !closed_; });
  if (!handOverPhotos([&](const auto& photo, const auto& jpeg) { attachments.add(photo, jpeg); }))
    return;
  MailMessage message = readMessage();
  message.attachments = attachments.take();
  const MailHost host = mailHost(readHost());
  session_.emplace(std::move(message));
  winsock_->Connect(host.name, host.port);
}

/// False where the form was closed meanwhile.
bool frmSendMail::handOverPhotos(
    const std::function<void(const std::filesystem::path&, const std::string&)>& then) {
  panel_->setBusy();
  PhotosToMail photos(pool_, mailPhotos(*ui->lstAttachments));
  return photos.handOver(then, [this] { return !closed_; });
}

/// The box has one text for all that can go wrong, so the cause stands in the form.
void frmSendMail::failed(const std::exception& failure) {
  showNote(toQString(failure.what()));
  MsgBox(QStringLiteral("E-mail transfer failed, please make sure you are connected to the "
                        "internet and that you entered the right Email Server"),
         mailTitle, MsgIcon::Critical);
  showSending(false);
}

void frmSendMail::openMailProgram() {
  showSending(true);
  try {
    auto* mail = new DesktopMail(this);
    connect(mail, &DesktopMail::opened, this, &frmSendMail::mailProgramEnded);
    connect(mail, &DesktopMail::failed, this, &frmSendMail::mailProgramFailed);
    if (!handOverPhotos([&](const auto& photo, const auto& jpeg) { mail->add(photo, jpeg); }))
      return;
    mail->open(readMessage());
    showSending(false);
  } catch (const std::exception& failure) {
    if (closed_)
      return;
    reportFailure(failure);
    showSending(false);
  }
}

/// A program may run for long; what is being sent by then is not broken off.
void frmSendMail::mailProgramEnded() {
  if (ui->cmdSend->isEnabled())
    giveUp();
}

void frmSendMail::mailProgramFailed() {
  MsgBox(QStringLiteral("Your mail program could not be opened. Please choose one in the settings "
                        "of your desktop."),
         mailTitle, MsgIcon::Exclamation);
}

void frmSendMail::showNote(const QString& note) {
  ui->note->setText(note);
  ui->note->setVisible(!note.isEmpty());
}

/// Only leaving is possible meanwhile.
void frmSendMail::showSending(bool sending) {
  if (sending)
    setFocus(); // not on to Cancel, which a second Return would press
  ui->fields->setEnabled(!sending);
  allowSending(!sending);
  if (sending) {
    showNote({});
    panel_->show();
  } else {
    panel_->hide();
    ui->cmdSend->setFocus();
  }
}

void frmSendMail::replyArrived(const std::string& text) {
  if (!session_)
    return;
  panel_->tell(QStringLiteral("Transfering Data"));
  panel_->setMaximum(SmtpSession::progressMaximum);
  panel_->setValue(0);
  panel_->setValue(SmtpSession::progressOfArrival);
  try {
    act(session_->reply(text));
  } catch (const std::exception& failure) {
    winsock_->Close();
    session_.reset();
    reportFailure(failure);
    showSending(false);
  }
}

void frmSendMail::act(const SmtpSession::Step& step) {
  for (const std::string& bytes : step.send)
    winsock_->SendData(bytes);
  panel_->setValue(step.progress);
  if (!step.close)
    return;
  noteTaken();
  winsock_->Close();
  session_.reset();
  if (step.notice)
    return endSession(*step.notice);
  showNote(QStringLiteral("The mail server has taken the message."));
  showSending(false);
}

/// What the server has taken is not lost with the form.
void frmSendMail::noteTaken() {
  if (session_->state() == SmtpSession::State::Quit)
    ui->txtMessage->document()->setModified(false);
}

void frmSendMail::endSession(const SmtpSession::Notice& notice) {
  MsgBox(toQString(notice.text), toQString(notice.title), MsgIcon::Information);
  showSending(false);
}

void frmSendMail::serverHungUp() {
  if (!session_)
    return;
  const auto good = session_->hungUp();
  noteTaken();
  session_.reset();
  if (good)
    endSession(*good);
  else
    connectionFailed(connectionReset, QStringLiteral("The server has closed the connection"));
}

void frmSendMail::connectionFailed(int number, const QString& description) {
  session_.reset();
  MsgBox(QStringLiteral("Winsock Error number %1\r\n%2. Please make sure you are connected to the "
                        "internet and that you entered the right Email Server.")
             .arg(QString::number(number), description),
         QStringLiteral("Winsock Error"), MsgIcon::Exclamation);
  showSending(false);
}

void frmSendMail::giveUp() {
  isGivenUp_ = true;
  Unload();
  isGivenUp_ = false; // where it asks already, its answer holds
}

/// Escape and the window's own cross ask first, where a letter was written.
bool frmSendMail::mayDropMessage() const {
  const bool isSending = !ui->fields->isEnabled();
  return isGivenUp_ || isSending || !ui->txtMessage->document()->isModified() ||
         MsgBox(QStringLiteral("The message has not been sent. What you have written would be "
                               "lost.\n\nClose without sending it?"),
                mailTitle, MsgIcon::Exclamation, MsgButtons::YesNo) == MsgAnswer::Yes;
}

bool frmSendMail::unloading() {
  if (!mayDropMessage())
    return false;
  closed_ = true;
  winsock_->Close();
  return true;
}

} // namespace hearthbook
