#include "WinsockNumbers.h"

#include <gtest/gtest.h>

namespace hearthbook::test {

TEST(WinsockNumbers, AreThoseOfTheSocketsOfOld) {
  EXPECT_EQ(winsockNumber(QAbstractSocket::ConnectionRefusedError), 10061);
  EXPECT_EQ(winsockNumber(QAbstractSocket::RemoteHostClosedError), 10054);
  EXPECT_EQ(winsockNumber(QAbstractSocket::HostNotFoundError), 11001);
  EXPECT_EQ(winsockNumber(QAbstractSocket::SocketAccessError), 10013);
  EXPECT_EQ(winsockNumber(QAbstractSocket::SocketResourceError), 10055);
  EXPECT_EQ(winsockNumber(QAbstractSocket::SocketTimeoutError), 10060);
  EXPECT_EQ(winsockNumber(QAbstractSocket::NetworkError), 10051);
}

TEST(WinsockNumbers, OfEveryOtherFailureAreThatOfAConnectionBrokenOff) {
  for (const auto error :
       {QAbstractSocket::AddressInUseError, QAbstractSocket::DatagramTooLargeError,
        QAbstractSocket::UnsupportedSocketOperationError, QAbstractSocket::OperationError,
        QAbstractSocket::TemporaryError, QAbstractSocket::UnknownSocketError})
    EXPECT_EQ(winsockNumber(error), 10053) << error;
}

} // namespace hearthbook::test
