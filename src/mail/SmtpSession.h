#pragma once

#include "MailMessage.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// The talk with a mail server, without a socket: a reply goes in, and what is to be sent, shown
/// and done comes out. One reply is one step; two that arrive together count as one, and leave the
/// talk a step behind.
class SmtpSession {
public:
  /// What was sent last. The numbers are those of the steps.
  enum class State : std::int16_t { Greeting, Helo, MailFrom, RcptTo, Data, Message, Quit };

  /// What the user is told at the end.
  struct Notice {
    std::string text;
    std::string title; ///< empty: the program's
  };

  struct Step {
    std::vector<std::string> send; ///< one after the other, line ends included
    int progress = 0;              ///< of 100
    bool close = false;            ///< the connection
    std::optional<Notice> notice{};
  };

  static constexpr int progressMaximum = 100;
  static constexpr int progressOfArrival = 25; ///< before the reply is acted upon

  explicit SmtpSession(MailMessage message) : message_(std::move(message)) {}

  /// Throws RunTimeError where the sender's address has no "@"; the talk stops then.
  Step reply(std::string_view text);

  /// The server hung up without a word. Nothing where that is a failure; behind QUIT it is not.
  [[nodiscard]] std::optional<Notice> hungUp() const;

  [[nodiscard]] State state() const { return state_; }

private:
  [[nodiscard]] Step ended(std::string_view text) const;
  Step advanced(State next, std::vector<std::string> lines, int progress);
  std::vector<std::string> takeMessage();

  MailMessage message_;
  State state_ = State::Greeting;
};

} // namespace hearthbook
