#include "Words.h"

#include "Ascii.h"

#include <algorithm>

namespace hearthbook {

namespace {

std::string_view stripped(std::string_view text, std::string_view blanks) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// True for the bytes of a UTF-8 character behind its first.
bool continuesCharacter(char byte) {
  constexpr unsigned continuationMask = 0xC0;
  constexpr unsigned continuation = 0x80;
  return (static_cast<unsigned char>(byte) & continuationMask) == continuation;
}

} // namespace

std::string trimmed(std::string_view text) { return std::string(stripped(text, " ")); }

std::string_view withoutBlanks(std::string_view text) { return stripped(text, " \t\n\v\f\r"); }

std::string asciiLower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower)
    c = asciiLower(c);
  return lower;
}

bool sameIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return asciiLower(x) == asciiLower(y); });
}

std::size_t characterCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char byte) { return !continuesCharacter(byte); }));
}

std::string_view beginningOf(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes)
    return text;
  while (bytes > 0 && continuesCharacter(text[bytes]))
    --bytes;
  return text.substr(0, bytes);
}

std::string doubled(std::string_view text, char what) {
  std::string result;
  for (const char c : text)
    result.append(c == what ? 2 : 1, c);
  return result;
}

} // namespace hearthbook
