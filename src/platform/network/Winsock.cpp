#include "Winsock.h"

#include "ReplyBuffer.h"
#include "RunTimeError.h"
#include "WinsockNumbers.h"

#include <QNetworkProxy>
#include <QTcpSocket>

namespace hearthbook {

namespace {

constexpr int messageTooLong = 10040;

} // namespace

struct Winsock::Impl {
  QTcpSocket socket;
  ReplyBuffer replies;
};

Winsock::Winsock(QObject* parent) : QObject(parent), impl_(std::make_unique<Impl>()) {
  impl_->socket.setProxy(QNetworkProxy::NoProxy);
  // What a server says without end stays with it until there is room.
  impl_->socket.setReadBufferSize(ReplyBuffer::mostBytes);
  connect(&impl_->socket, &QTcpSocket::readyRead, this, &Winsock::arrived);
  connect(&impl_->socket, &QTcpSocket::errorOccurred, this, &Winsock::broken);
}

Winsock::~Winsock() { Close(); }

void Winsock::Connect(const std::string& host, std::uint16_t port) {
  Close();
  impl_->socket.connectToHost(QString::fromStdString(host), port);
}

void Winsock::SendData(std::string_view bytes) {
  if (impl_->socket.state() == QAbstractSocket::ConnectedState)
    impl_->socket.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void Winsock::Close() {
  impl_->socket.abort();
  impl_->replies.take();
}

void Winsock::arrived() {
  const QByteArray bytes = impl_->socket.readAll();
  try {
    impl_->replies.add({bytes.data(), static_cast<std::size_t>(bytes.size())});
  } catch (const RunTimeError& tooLong) {
    return fail(messageTooLong, QString::fromUtf8(tooLong.what()));
  }
  if (impl_->replies.isWhole())
    Q_EMIT dataArrival(impl_->replies.take());
}

void Winsock::broken() {
  if (impl_->socket.error() == QAbstractSocket::RemoteHostClosedError) {
    const std::string lastWords = impl_->replies.take(); // without a line end
    Close();
    if (!lastWords.empty())
      Q_EMIT dataArrival(lastWords);
    Q_EMIT hungUp();
    return;
  }
  fail(winsockNumber(impl_->socket.error()), impl_->socket.errorString());
}

void Winsock::fail(int number, const QString& description) {
  Close();
  Q_EMIT failed(number, description);
}

} // namespace hearthbook
