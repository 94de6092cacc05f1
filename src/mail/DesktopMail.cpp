#include "DesktopMail.h"

#include "ApplicationFolder.h"
#include "RunTimeError.h"
#include "SafeFile.h"
#include "Text.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <ostream>
#include <system_error>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

const QString opener = QStringLiteral("xdg-email");

std::string folderOfItsOwn() {
  QTemporaryDir folder(QStandardPaths::writableLocation(QStandardPaths::TempLocation) +
                       QStringLiteral("/hearthbook-mail-XXXXXX"));
  if (!folder.isValid())
    throw RunTimeError(toUtf8(folder.errorString()));
  folder.setAutoRemove(false);
  return toUtf8(folder.path());
}

QStringList wordsFor(const MailMessage& message, const std::vector<fs::path>& photos) {
  QStringList words{QStringLiteral("--utf8")};
  const auto add = [&](const char* option, const std::string& value) {
    if (!value.empty())
      words << toQString(option) << toQString(value);
  };
  add("--to", onOneLine(message.recipient));
  add("--subject", onOneLine(message.subject));
  add("--body", message.text);
  for (const auto& photo : photos)
    add("--attach", photo.string());
  return words;
}

} // namespace

DesktopMail::DesktopMail(QObject* parent) : QObject(parent) {}

DesktopMail::~DesktopMail() {
  std::error_code gone;
  if (!isTaken_ && !folder_.empty())
    fs::remove_all(folder_, gone);
}

/// Photos of the disc and of the album may have one name.
fs::path DesktopMail::freeName(const fs::path& photo) const {
  fs::path free = folder_ / photo.filename();
  for (int number = 2; fileExists(free); ++number)
    free = folder_ /
           (photo.stem().string() + "-" + std::to_string(number) + photo.extension().string());
  return free;
}

/// Some mail programs run until they are closed, and whoever ends such an object ends the program:
/// so they belong to something that nobody ends.
QObject& DesktopMail::programs() {
  static auto* const owner = new QObject;
  return *owner;
}

void DesktopMail::add(const fs::path& photo, std::string_view jpeg) {
  if (folder_.empty())
    folder_ = folderOfItsOwn();
  const fs::path file = freeName(photo);
  replaceFile(file, [&](std::ostream& out) { out << jpeg; });
  photos_.push_back(file);
}

void DesktopMail::open(const MailMessage& message) {
  const QString program = QStandardPaths::findExecutable(opener);
  if (program.isEmpty())
    return ended(false);
  auto* process = new QProcess(&programs());
  connect(process, &QProcess::finished, process, &QObject::deleteLater);
  connect(process, &QProcess::finished, this, [this](int code, QProcess::ExitStatus how) {
    ended(how == QProcess::NormalExit && code == 0);
  });
  connect(process, &QProcess::errorOccurred, this, [this, process](QProcess::ProcessError error) {
    if (error != QProcess::FailedToStart)
      return;
    process->deleteLater(); // it has never begun, so it does not end either
    ended(false);
  });
  process->setStandardInputFile(QProcess::nullDevice());
  process->setProcessChannelMode(QProcess::ForwardedChannels);
  isTaken_ = true;
  process->start(program, wordsFor(message, photos_));
}

void DesktopMail::ended(bool good) {
  isTaken_ = good;
  if (good)
    Q_EMIT opened();
  else
    Q_EMIT failed();
}

} // namespace hearthbook
