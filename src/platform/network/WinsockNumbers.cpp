#include "WinsockNumbers.h"

#include "Winsock.h"

namespace hearthbook {

int winsockNumber(QAbstractSocket::SocketError error) {
  switch (error) {
  case QAbstractSocket::ConnectionRefusedError:
    return 10061;
  case QAbstractSocket::RemoteHostClosedError:
    return connectionReset;
  case QAbstractSocket::HostNotFoundError:
    return 11001;
  case QAbstractSocket::SocketAccessError:
    return 10013;
  case QAbstractSocket::SocketResourceError:
    return 10055;
  case QAbstractSocket::SocketTimeoutError:
    return 10060;
  case QAbstractSocket::NetworkError:
    return 10051;
  default:
    return 10053;
  }
}

} // namespace hearthbook
