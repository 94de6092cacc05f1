#include "EndSignals.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

namespace hearthbook {

namespace {

constexpr std::array endingSignals{SIGTERM, SIGINT, SIGHUP};
std::array<int, 2> endPipe{-1, -1};

// All that a signal handler may do: tell the event loop through a pipe.
void tellEventLoop(int /*signal*/) {
  const char byte = 1;
  [[maybe_unused]] const auto written = write(endPipe[1], &byte, 1);
}

} // namespace

EndSignals::EndSignals() {
  if (pipe2(endPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    throw std::runtime_error("The system gives no pipe.");
  notifier_ = new QSocketNotifier(endPipe[0], QSocketNotifier::Read, this);
  connect(notifier_, &QSocketNotifier::activated, this, &EndSignals::drain);
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &EndSignals::endAsked,
          Qt::DirectConnection);
  for (const int number : endingSignals)
    std::signal(number, tellEventLoop);
}

EndSignals::~EndSignals() {
  for (const int number : endingSignals)
    std::signal(number, SIG_DFL);
  delete notifier_;
  for (int& end : endPipe) {
    close(end);
    end = -1;
  }
}

void EndSignals::drain() {
  std::array<char, 16> bytes{};
  while (read(endPipe[0], bytes.data(), bytes.size()) > 0) {
  }
  Q_EMIT endAsked();
}

} // namespace hearthbook
