#include "ScreenAwake.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace hearthbook {

namespace {

QDBusMessage call(const char* method) {
  return QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("/org/freedesktop/ScreenSaver"),
      QStringLiteral("org.freedesktop.ScreenSaver"), QString::fromLatin1(method));
}

/// The saver may sleep again for this cookie.
void release(uint cookie) {
  auto message = call("UnInhibit");
  message << cookie;
  QDBusConnection::sessionBus().call(message, QDBus::NoBlock);
}

} // namespace

/// The desktop answers with a cookie, by which it is told of the end. Nobody waits for it: where
/// the end comes first, it is told when the cookie has come.
struct ScreenAwake::Impl {
  std::string reason;
  QDBusPendingCallWatcher* asked = nullptr;

  void ask() {
    auto message = call("Inhibit");
    message << QStringLiteral("Hearthbook") << QString::fromStdString(reason);
    asked = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message));
  }

  void end() {
    const auto finish = [](QDBusPendingCallWatcher* watcher) {
      const QDBusPendingReply<uint> cookie = *watcher;
      if (!cookie.isError())
        release(cookie.value());
      watcher->deleteLater();
    };
    if (asked->isFinished())
      finish(asked);
    else
      QObject::connect(asked, &QDBusPendingCallWatcher::finished, finish);
    asked = nullptr;
  }
};

ScreenAwake::ScreenAwake(std::string reason) : impl_(new Impl{std::move(reason)}) {}

ScreenAwake::~ScreenAwake() { keep(false); }

void ScreenAwake::keep(bool awake) {
  if (awake == (impl_->asked != nullptr))
    return;
  if (awake)
    impl_->ask();
  else
    impl_->end();
}

} // namespace hearthbook
