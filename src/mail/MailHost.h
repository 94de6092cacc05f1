#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace hearthbook {

/// Where the mail server is.
struct MailHost {
  static constexpr std::uint16_t usualPort = 25;

  std::string name;
  std::uint16_t port = usualPort;

  bool operator==(const MailHost&) const = default;
};

/// "mail.example.com", or with a port behind a colon. Throws RunTimeError where what stands there
/// is no port.
MailHost mailHost(std::string_view text);

} // namespace hearthbook
