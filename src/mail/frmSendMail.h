#pragma once

#include "Album.h"
#include "Form.h"
#include "MailMessage.h"
#include "MailPage.h"
#include "MailPreferences.h"
#include "SmtpSession.h"
#include "WorkPool.h"

#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Ui {
class frmSendMail;
}

class QLineEdit;

namespace hearthbook {

class DesktopMail;
class MailAttachments;
class ModalHelp;
class SendingPanel;
class Winsock;

/// E-Mail Photos: a few words to the photos of an album page, or to the selected one, and off they
/// go to a mail server, made small.
///
/// Viewer opens it. It keeps the sender and the server for the next time and changes nothing else.
/// Beside its own way to send there is that of the desktop's mail program.
class frmSendMail : public Form {
  Q_OBJECT
public:
  frmSendMail(Album& album, WorkPool& pool, MailPage page);
  ~frmSendMail() override;

protected:
  void load() override;
  bool unloading() override;

private:
  void wireControls();
  void wireServer();
  void keepOnLeaving(QLineEdit* field, MailPreference which);

  void showPreferences();
  void showDraft();
  void findPhotos(const std::vector<std::string>& ids);
  void showPhotos(const std::vector<std::filesystem::path>& photos);
  void showLooking(bool looking);
  void allowSending(bool allowed);
  [[nodiscard]] MailMessage readMessage() const;
  [[nodiscard]] std::string readHost() const;

  void changeServer();
  void send();
  void begin();
  void openMailProgram();
  bool handOverPhotos(
      const std::function<void(const std::filesystem::path& photo, const std::string& jpeg)>& then);
  void giveUp();
  [[nodiscard]] bool mayDropMessage() const;
  void mailProgramEnded();
  void mailProgramFailed();

  void showSending(bool sending);
  void showNote(const QString& note);
  void failed(const std::exception& failure);

  // What the server says
  void replyArrived(const std::string& text);
  void act(const SmtpSession::Step& step);
  void noteTaken();
  void endSession(const SmtpSession::Notice& notice);
  void serverHungUp();
  void connectionFailed(int number, const QString& description);

  Album& album_;
  WorkPool& pool_;
  MailPage page_;
  std::unique_ptr<Ui::frmSendMail> ui;
  std::unique_ptr<SendingPanel> panel_;
  ModalHelp* modalHelp_ = nullptr;
  Winsock* winsock_;
  std::optional<SmtpSession> session_; ///< while there is a talk with a server
  bool closed_ = false;
  bool isGivenUp_ = false; ///< the letter too, if there is one
};

} // namespace hearthbook
