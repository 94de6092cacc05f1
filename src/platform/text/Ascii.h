#pragma once

namespace hearthbook {

// Characters of a UTF-8 text that are letters, digits and blanks of ASCII, whatever the language:
// the functions of <cctype> ask the locale and must not be given a byte beyond ASCII.

constexpr bool isAsciiDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
/// A blank, a tab or a line end.
constexpr bool isAsciiBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
/// A to Z as a to z; everything else as it is.
constexpr char asciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace hearthbook
