#pragma once

#include <string>
#include <string_view>

namespace hearthbook {

/// What is written and attached, as the form holds it.
struct MailMessage {
  std::string senderName;
  std::string sender; ///< address
  std::string recipientName;
  std::string recipient;
  std::string replyToName;
  std::string replyTo; ///< empty: none
  std::string subject;
  std::string text;
  std::string attachments; ///< the uuencoded blocks, in order
};

/// The text on one line: a line end that came in by pasting would begin another header or command.
std::string onOneLine(std::string_view text);

/// The text with CR LF at the end of each line, whatever stood there.
std::string withCrLf(std::string_view text);

} // namespace hearthbook
