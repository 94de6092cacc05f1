#include "SingleInstance.h"

#include "Text.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>

#include <memory>

namespace hearthbook {

namespace {

constexpr auto raise = "raise\n";
constexpr auto raised = "raised\n";
constexpr auto ending = "ending\n";
// The closing backup of a large album may take as long as this.
constexpr int endingPatience = 60'000;

std::filesystem::path canonicalFolder(const std::filesystem::path& folder) {
  std::error_code unknown;
  const auto found = std::filesystem::weakly_canonical(folder, unknown);
  return unknown ? folder : found;
}

// Socket paths are limited to some hundred bytes, so it cannot stand in the album's folder.
QString socketFor(const std::filesystem::path& folder) {
  QString place = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (place.isEmpty())
    place = QDir::tempPath();
  const auto name = QByteArray::fromStdString(canonicalFolder(folder).string());
  const auto hash = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex().left(16);
  return place + QStringLiteral("/hearthbook-") + QString::fromLatin1(hash);
}

} // namespace

std::unique_ptr<QLockFile> lockOf(const std::filesystem::path& albumFolder) {
  return std::make_unique<QLockFile>(toQString(albumFolder / ".hearthbook-lock"));
}

SingleInstance::SingleInstance(const std::filesystem::path& albumFolder,
                               std::unique_ptr<QLockFile> lock)
    : folder_(albumFolder), lock_(std::move(lock)) {
  connect(&server_, &QLocalServer::newConnection, this, &SingleInstance::answer);
}

// The lock comes first: listening on the name of a living server would take it over.
SingleInstance::Claim SingleInstance::claim() {
  if (lock_->isLocked() || lock_->tryLock(0))
    return listen();
  if (lock_->error() == QLockFile::LockFailedError)
    return askFirst();
  return Claim::Refused;
}

// Without a socket the program runs all the same; later starts are told that it is silent.
SingleInstance::Claim SingleInstance::listen() {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  const QString socket = socketFor(folder_);
  if (!server_.listen(socket)) {
    QLocalServer::removeServer(socket);
    server_.listen(socket);
  }
  return Claim::First;
}

SingleInstance::Claim SingleInstance::askFirst() {
  const QByteArray reply = ask(folder_, patience_);
  if (reply == raised)
    return Claim::HandedOver;
  // Without a reply the first one may just have ended.
  if (lock_->tryLock(reply == ending ? endingPatience : 0))
    return listen();
  return Claim::Silent;
}

QByteArray SingleInstance::ask(const std::filesystem::path& albumFolder, int patience) {
  QLocalSocket first;
  first.connectToServer(socketFor(albumFolder));
  if (!first.waitForConnected(patience))
    return {};
  first.write(raise);
  first.waitForBytesWritten(patience);
  while (!first.canReadLine() && first.waitForReadyRead(patience)) {
  }
  return first.readLine();
}

void SingleInstance::answer() {
  while (QLocalSocket* later = server_.nextPendingConnection()) {
    connect(later, &QLocalSocket::disconnected, later, &QObject::deleteLater);
    connect(later, &QLocalSocket::readyRead, this, [this, later] {
      if (!later->canReadLine() || later->readLine() != raise)
        return;
      const bool leaving = isEnding_ && isEnding_();
      if (!leaving)
        Q_EMIT raiseAsked();
      later->write(leaving ? ending : raised);
      later->flush();
      later->disconnectFromServer();
    });
  }
}

} // namespace hearthbook
