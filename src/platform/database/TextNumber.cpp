#include "TextNumber.h"

#include "Words.h"

#include <charconv>
#include <cmath>

namespace hearthbook {

namespace {

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
  text = withoutBlanks(text);
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
