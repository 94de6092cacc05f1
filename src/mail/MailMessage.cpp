#include "MailMessage.h"

#include <algorithm>

namespace hearthbook {

std::string onOneLine(std::string_view text) {
  std::string line(text);
  std::ranges::replace_if(
      line, [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
  return line;
}

std::string withCrLf(std::string_view text) {
  std::string lines;
  lines.reserve(text.size() + text.size() / 16);
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n')
      continue;
    if (text[at] == '\r' || text[at] == '\n')
      lines += "\r\n";
    else
      lines += text[at];
  }
  return lines;
}

} // namespace hearthbook
