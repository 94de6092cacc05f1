#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace hearthbook {

/// The text without the blanks around it; tabs and line ends stay.
std::string trimmed(std::string_view text);

/// The text without blanks, tabs and line ends around it.
std::string_view withoutBlanks(std::string_view text);

/// The text with the letters A to Z made small; all others stay as they are.
std::string asciiLower(std::string_view text);

/// True if the two are equal without regard to the case of the letters A to Z.
bool sameIgnoringCase(std::string_view a, std::string_view b);

/// How many characters the UTF-8 text has: an accent that is written as a character of its own
/// counts as one.
std::size_t characterCount(std::string_view text);

/// As much of the beginning of a UTF-8 text as `bytes` bytes hold, no character cut in two.
std::string_view beginningOf(std::string_view text, std::size_t bytes);

/// Each `what` doubled: "O'Brien" becomes "O''Brien" between apostrophes.
std::string doubled(std::string_view text, char what);

} // namespace hearthbook
