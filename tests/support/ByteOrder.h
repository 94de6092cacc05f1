#pragma once

#include <cstdint>
#include <string>

namespace hearthbook::test {

/// A number of one to four bytes as files hold it, the lowest byte first.
inline std::string littleEndian(std::uint32_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i)
    text += static_cast<char>(value >> (8 * i));
  return text;
}

/// The same, the highest byte first.
inline std::string bigEndian(std::uint32_t value, int bytes) {
  const std::string text = littleEndian(value, bytes);
  return {text.rbegin(), text.rend()};
}

} // namespace hearthbook::test
