#include "Words.h"

#include <algorithm>

namespace hearthbook {

namespace {

std::string_view stripped(std::string_view text, std::string_view blanks) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace

std::string trimmed(std::string_view text) { return std::string(stripped(text, " ")); }

std::string_view withoutBlanks(std::string_view text) { return stripped(text, " \t\n\v\f\r"); }

std::size_t characterCount(std::string_view text) {
  constexpr unsigned continuationMask = 0xC0;
  constexpr unsigned continuation = 0x80;
  return static_cast<std::size_t>(std::ranges::count_if(text, [](char byte) {
    return (static_cast<unsigned char>(byte) & continuationMask) != continuation;
  }));
}

std::string doubled(std::string_view text, char what) {
  std::string result;
  for (const char c : text)
    result.append(c == what ? 2 : 1, c);
  return result;
}

} // namespace hearthbook
