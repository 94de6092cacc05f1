#include "SmtpSession.h"

#include "RunTimeError.h"
#include "Words.h"

#include <utility>

namespace hearthbook {

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::size_t shownOfReply = 2000; ///< bytes; a longer one would leave no room for "OK"

bool isAccepted(std::string_view code) { return code == "220" || code == "250" || code == "354"; }

std::string line(std::string_view begin, std::string_view rest) {
  std::string whole(begin);
  whole += onOneLine(rest);
  return whole += lineEnd;
}

/// "To:Anna <anna@example.com>".
std::string addressLine(std::string_view header, std::string_view name, std::string_view address) {
  return line(header, std::string(name) + " <" + std::string(address) + ">");
}

std::string heloName(std::string_view sender) {
  const std::string address = trimmed(sender);
  const std::size_t at = address.find('@');
  if (at == std::string::npos)
    throw RunTimeError("The sender's e-mail address \"" + address + "\" has no \"@\".", 5);
  return address.substr(0, at);
}

std::string_view shown(std::string_view reply) { return beginningOf(reply, shownOfReply); }

const SmtpSession::Notice sentNotice{"Message sent successfully.", ""};

} // namespace

SmtpSession::Step SmtpSession::reply(std::string_view text) {
  if (!isAccepted(text.substr(0, 3)))
    return ended(text);
  switch (state_) {
  case State::Greeting:
    return advanced(State::Helo, {line("HELO ", heloName(message_.sender))}, 50);
  case State::Helo:
    return advanced(State::MailFrom, {line("MAIL FROM:", trimmed(message_.sender))}, 25);
  case State::MailFrom:
    return advanced(State::RcptTo, {line("RCPT TO:", trimmed(message_.recipient))}, 60);
  case State::RcptTo:
    return advanced(State::Data, {line("DATA", "")}, 25);
  case State::Data:
    return advanced(State::Message, takeMessage(), 80);
  case State::Message:
    return advanced(State::Quit, {line("QUIT", "")}, 25);
  case State::Quit:
    break;
  }
  return {{}, 25, true};
}

/// The server's "221" in answer to QUIT is such an end too, and a good one.
SmtpSession::Step SmtpSession::ended(std::string_view text) const {
  const Notice refused{"SMTP Error: " + std::string(shown(text)) +
                           ". Please make sure you are connected to the internet.",
                       "SMTP Error"};
  return {{}, progressMaximum, true, hungUp().value_or(refused)};
}

SmtpSession::Step SmtpSession::advanced(State next, std::vector<std::string> lines, int progress) {
  state_ = next;
  return {std::move(lines), progress};
}

std::optional<SmtpSession::Notice> SmtpSession::hungUp() const {
  return state_ == State::Quit ? std::optional(sentNotice) : std::nullopt;
}

/// A line of the text that is a lone "." is not doubled: the server takes it for the end.
std::vector<std::string> SmtpSession::takeMessage() {
  const std::string blank(lineEnd);
  const std::string subject = line("Subject:", message_.subject);
  std::vector<std::string> sent;
  sent.push_back(addressLine("From:", message_.senderName, message_.sender));
  sent.push_back(addressLine("To:", message_.recipientName, message_.recipient));
  if (message_.replyTo.empty()) {
    sent.push_back(subject + blank);
  } else {
    sent.push_back(subject);
    sent.push_back(addressLine("Reply-To:", message_.replyToName, message_.replyTo) + blank);
  }
  sent.push_back(withCrLf(message_.text) + blank + blank + std::exchange(message_.attachments, {}) +
                 blank);
  sent.push_back("." + blank);
  return sent;
}

} // namespace hearthbook
