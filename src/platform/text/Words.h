#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace hearthbook {

inline bool isAsciiDigit(char c) { return c >= '0' && c <= '9'; }

/// The text without the blanks around it; tabs and line ends stay.
std::string trimmed(std::string_view text);

/// The text without blanks, tabs and line ends around it.
std::string_view withoutBlanks(std::string_view text);

/// How many characters the UTF-8 text has: an accent that is written as a character of its own
/// counts as one.
std::size_t characterCount(std::string_view text);

/// Each `what` doubled: "O'Brien" becomes "O''Brien" between apostrophes.
std::string doubled(std::string_view text, char what);

} // namespace hearthbook
