#pragma once

#include "MailMessage.h"

#include <QObject>
#include <QString>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// Opens a new mail in the mail program of the desktop. That program reads the photos when it sends
/// them, so they lie in a folder of their own among the temporary files, which the system clears.
class DesktopMail : public QObject {
  Q_OBJECT
public:
  explicit DesktopMail(QObject* parent);
  ~DesktopMail() override; ///< a mail that no program took leaves nothing

  /// Lays a photo aside for the mail. Throws RunTimeError.
  void add(const std::filesystem::path& photo, std::string_view jpeg);

  /// Opens the mail with the recipient, the subject, the text and the photos that were added. Some
  /// programs tell that they are open only when they are closed again.
  void open(const MailMessage& message);

  /// Whose children the mail programs are for as long as they run. It outlives the application.
  static QObject& programs();

Q_SIGNALS:
  void opened();
  void failed();

private:
  void ended(bool good);
  [[nodiscard]] std::filesystem::path freeName(const std::filesystem::path& photo) const;

  std::filesystem::path folder_;
  std::vector<std::filesystem::path> photos_;
  bool isTaken_ = false;
};

} // namespace hearthbook
