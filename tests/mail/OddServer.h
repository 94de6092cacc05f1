#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include <functional>
#include <string>

namespace hearthbook::test {

/// A server that does to its one guest what a test tells it to.
class OddServer : public QObject {
public:
  using Answer = std::function<void(QTcpSocket& guest, const std::string& line)>;

  /// `answer` is called with an empty line when the guest has come, then with each of his lines.
  explicit OddServer(Answer answer) : answer_(std::move(answer)) {
    server_.listen(QHostAddress::LocalHost, 0);
    connect(&server_, &QTcpServer::newConnection, this, &OddServer::welcome);
  }

  [[nodiscard]] std::string host() const {
    return "127.0.0.1:" + std::to_string(server_.serverPort());
  }
  [[nodiscard]] const std::string& heard() const { return heard_; }
  [[nodiscard]] int guests() const { return guests_; }
  [[nodiscard]] bool isLeft() const { return guests_ > 0 && !guest_; }

private:
  void welcome() {
    guest_ = server_.nextPendingConnection();
    ++guests_;
    connect(guest_, &QTcpSocket::readyRead, this, &OddServer::listen);
    connect(guest_, &QTcpSocket::disconnected, this, [this] {
      guest_->deleteLater();
      guest_ = nullptr;
    });
    answer_(*guest_, {});
  }

  void listen() {
    while (guest_ && guest_->canReadLine()) {
      const std::string line = guest_->readLine().toStdString();
      heard_ += line;
      answer_(*guest_, line);
    }
  }

  Answer answer_;
  QTcpServer server_;
  QTcpSocket* guest_ = nullptr;
  std::string heard_;
  int guests_ = 0;
};

/// What a server that agrees to everything says to a line; nothing within the message.
class AgreeableServer {
public:
  std::string answer(const std::string& line) {
    if (inMessage_ && line != ".\r\n")
      return {};
    inMessage_ = line == "DATA\r\n";
    if (line.empty())
      return "220 here\r\n";
    if (inMessage_)
      return "354 go on\r\n";
    return line == "QUIT\r\n" ? "221 bye\r\n" : "250 ok\r\n";
  }

private:
  bool inMessage_ = false;
};

} // namespace hearthbook::test
