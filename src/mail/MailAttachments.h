#pragma once

#include "ApplicationFolder.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace hearthbook {

class SendingPanel;

/// The text of a mail's attachments as it grows, told on the panel. While it is made the user may
/// act.
class MailAttachments {
public:
  /// Goes on for as long as `isWanted` holds.
  MailAttachments(const ApplicationFolder& folder, SendingPanel& panel,
                  std::function<bool()> isWanted);

  /// Lays the reduced photo into the folder of the program's pictures for as long as it is encoded.
  void add(const std::filesystem::path& photo, std::string_view jpeg);

  /// The file as an attachment; an empty text, and a message, where it cannot be read.
  std::string MUUEncode(const std::filesystem::path& file);

  std::string take() { return std::move(text_); }

private:
  std::string encoded(const std::filesystem::path& file);

  const ApplicationFolder& folder_;
  SendingPanel& panel_;
  std::function<bool()> isWanted_;
  std::string text_;
};

} // namespace hearthbook
