#pragma once

#include <QDBusConnection>
#include <QObject>

#include <stdexcept>

namespace hearthbook::test {

/// The desktop's service that puts the screen to sleep, on the session bus as a real one: it
/// gives a cookie to everybody who wants it awake, and takes it back.
class FakeScreenSaver : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")
public:
  FakeScreenSaver()
      : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("saver"))) {
    if (!bus_.registerObject(QStringLiteral("/org/freedesktop/ScreenSaver"), this,
                             QDBusConnection::ExportScriptableSlots) ||
        !bus_.registerService(QStringLiteral("org.freedesktop.ScreenSaver")))
      throw std::runtime_error("there is no session bus, or it has a screen saver already");
  }
  ~FakeScreenSaver() override {
    bus_.unregisterService(QStringLiteral("org.freedesktop.ScreenSaver"));
    bus_.unregisterObject(QStringLiteral("/org/freedesktop/ScreenSaver"));
    QDBusConnection::disconnectFromBus(QStringLiteral("saver"));
  }
  FakeScreenSaver(const FakeScreenSaver&) = delete;
  FakeScreenSaver& operator=(const FakeScreenSaver&) = delete;

public Q_SLOTS:
  Q_SCRIPTABLE uint Inhibit(const QString& program, const QString& reason) {
    program_ = program;
    reason_ = reason;
    cookies_ << ++given_;
    return given_;
  }
  Q_SCRIPTABLE void UnInhibit(uint cookie) { cookies_.removeOne(cookie); }

public:
  [[nodiscard]] bool isKeptAwake() const { return !cookies_.isEmpty(); }
  [[nodiscard]] uint given() const { return given_; } ///< how often somebody asked
  [[nodiscard]] QString program() const { return program_; }
  [[nodiscard]] QString reason() const { return reason_; }

private:
  QDBusConnection bus_;
  QList<uint> cookies_;
  uint given_ = 0;
  QString program_;
  QString reason_;
};

} // namespace hearthbook::test
