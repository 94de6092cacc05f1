#include "MailHost.h"

#include "Numbers.h"
#include "RunTimeError.h"
#include "Words.h"

#include <limits>

namespace hearthbook {

namespace {

std::uint16_t portOf(const std::string& text) {
  const double port = numericValue(text).value_or(0);
  const auto whole = static_cast<std::uint16_t>(
      port >= 1 && port <= std::numeric_limits<std::uint16_t>::max() ? port : 0);
  if (whole == 0 || whole != port)
    throw RunTimeError("\"" + text + "\" is no port of a mail server.");
  return whole;
}

} // namespace

MailHost mailHost(std::string_view text) {
  const std::string host = trimmed(text);
  const std::size_t colon = host.find(':');
  if (colon == std::string::npos)
    return {host};
  return {host.substr(0, colon), portOf(host.substr(colon + 1))};
}

} // namespace hearthbook
