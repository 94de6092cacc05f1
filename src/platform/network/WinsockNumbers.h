#pragma once

#include <QAbstractSocket>

namespace hearthbook {

/// The number that the sockets of old gave to a failure.
int winsockNumber(QAbstractSocket::SocketError error);

} // namespace hearthbook
