#pragma once

#include "FileBytes.h"
#include "QtPrint.h"
#include "TemporaryFolder.h"
#include "Text.h"
#include "WaitFor.h"

#include <QProcess>
#include <QStringList>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace hearthbook::test {

/// A real mail server on this machine, which ends with this.
class MailServer {
public:
  explicit MailServer(const QStringList& options = {}) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral("/usr/bin/python3"),
                   QStringList{QStringLiteral("-B"), QStringLiteral(HEARTHBOOK_MAIL_SERVER),
                               toQString(folder_.path())} +
                       options);
    if (!waitFor([this] { return process_.canReadLine() || isGone(); }) || isGone())
      throw std::runtime_error("the mail server does not start: is python3-aiosmtpd installed?");
    port_ = process_.readLine().trimmed().toStdString();
  }
  ~MailServer() {
    process_.closeWriteChannel();
    process_.waitForFinished(-1);
  }
  MailServer(const MailServer&) = delete;
  MailServer& operator=(const MailServer&) = delete;

  [[nodiscard]] std::string host() const { return "127.0.0.1:" + port_; }

  /// The n-th mail, from 1, as its bytes came; it must have come.
  [[nodiscard]] std::string mail(int number = 1) const {
    return readBytes(folder_.path() / (std::to_string(number) + ".eml"));
  }
  /// Who sent it and to whom, a line each.
  [[nodiscard]] std::string envelope(int number = 1) const {
    return readBytes(folder_.path() / (std::to_string(number) + ".envelope"));
  }
  [[nodiscard]] int mails() const {
    return static_cast<int>(std::ranges::count_if(
        namesIn(folder_.path()), [](const std::string& name) { return name.ends_with(".eml"); }));
  }

private:
  [[nodiscard]] bool isGone() const { return process_.state() == QProcess::NotRunning; }

  TemporaryFolder folder_;
  QProcess process_;
  std::string port_;
};

} // namespace hearthbook::test
