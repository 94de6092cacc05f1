#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace hearthbook {

/// A connection to a server that answers in lines. What arrives is told when it ends with a whole
/// reply; a slow server's pieces are put together first. No waiting has a limit.
class Winsock : public QObject {
  Q_OBJECT
public:
  explicit Winsock(QObject* parent);
  ~Winsock() override;

  /// Begins to connect; a connection that is open is closed first.
  void Connect(const std::string& host, std::uint16_t port);
  void SendData(std::string_view bytes);
  /// At once, whether or not all has been sent.
  void Close();

Q_SIGNALS:
  void dataArrival(const std::string& text);
  /// The connection has failed and is closed. The numbers are those of the sockets of old.
  void failed(int number, const QString& description);
  /// The server has closed the connection.
  void hungUp();

private:
  struct Impl;
  void arrived();
  void broken();
  void fail(int number, const QString& description);

  std::unique_ptr<Impl> impl_;
};

/// The number for a connection that the other side has closed.
inline constexpr int connectionReset = 10054;

} // namespace hearthbook
