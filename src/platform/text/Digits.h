#pragma once

namespace hearthbook {

/// True for 0 to 9, whatever the language.
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

} // namespace hearthbook
