#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

#include <filesystem>
#include <functional>
#include <memory>

namespace hearthbook {

/// The lock that one program holds for as long as it has the album in this folder, not yet taken.
std::unique_ptr<QLockFile> lockOf(const std::filesystem::path& albumFolder);

/// One program for one album folder. The first start holds a lock in the folder and listens;
/// a later one asks it to come forward. Locks of programs that were killed are taken over.
class SingleInstance : public QObject {
  Q_OBJECT
public:
  enum class Claim {
    First,      ///< this start owns the album
    HandedOver, ///< another start has come forward
    Silent,     ///< another start has the album and does not answer
    Refused,    ///< the lock cannot be written
  };

  explicit SingleInstance(const std::filesystem::path& albumFolder)
      : SingleInstance(albumFolder, lockOf(albumFolder)) {}
  /// With the folder's lock, which may have been taken already.
  SingleInstance(const std::filesystem::path& albumFolder, std::unique_ptr<QLockFile> lock);

  Claim claim();
  /// Asks the start that has the album to come forward; its reply, empty where there is none.
  static QByteArray ask(const std::filesystem::path& albumFolder, int patience);

  /// How long a later start waits for the answer of the first, in milliseconds.
  void setPatience(int milliseconds) { patience_ = milliseconds; }
  /// While this holds, later starts wait for the album instead of asking for the window.
  void setEnding(std::function<bool()> isEnding) { isEnding_ = std::move(isEnding); }

Q_SIGNALS:
  void raiseAsked();

private:
  Claim listen();
  void answer();
  Claim askFirst();

  std::filesystem::path folder_;
  std::unique_ptr<QLockFile> lock_;
  QLocalServer server_;
  int patience_ = 2000;
  std::function<bool()> isEnding_;
};

} // namespace hearthbook
