#include "TextNumber.h"

#include <charconv>
#include <cmath>

namespace hearthbook {

namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\n\r\f\v";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

template <typename Number> std::optional<Number> whole(std::string_view text) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (text.empty() || result.ec != std::errc() || result.ptr != end)
    return std::nullopt;
  return number;
}

} // namespace

std::optional<Value> wholeNumberOrReal(std::string_view text) {
  text = trimmed(text);
  if (text.starts_with('+') && !text.starts_with("+-"))
    text = text.substr(1);
  if (const auto integer = whole<std::int64_t>(text))
    return Value(*integer);
  const auto real = whole<double>(text);
  if (!real || !std::isfinite(*real))
    return std::nullopt;
  return Value(*real);
}

} // namespace hearthbook
