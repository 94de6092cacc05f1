#include "Value.h"

#include "Numbers.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

namespace hearthbook {

namespace {

std::string realText(double number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.15g", number);
  return text.data();
}

std::int64_t wholePart(double number) {
  constexpr double beyond = 9223372036854775808.0; // 2^63, which the whole numbers end below
  if (std::isnan(number))
    return 0;
  if (number >= beyond)
    return std::numeric_limits<std::int64_t>::max();
  if (number < -beyond)
    return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(number);
}

} // namespace

std::string Value::toText() const {
  if (const auto* text = std::get_if<std::string>(&content_))
    return *text;
  if (const auto* integer = std::get_if<std::int64_t>(&content_))
    return std::to_string(*integer);
  if (const auto* real = std::get_if<double>(&content_))
    return realText(*real);
  return {};
}

std::int64_t Value::toInteger() const {
  if (const auto* integer = std::get_if<std::int64_t>(&content_))
    return *integer;
  if (const auto* real = std::get_if<double>(&content_))
    return wholePart(*real);
  if (const auto* text = std::get_if<std::string>(&content_))
    return leadingNumber(*text);
  return 0;
}

double Value::toReal() const {
  if (const auto* real = std::get_if<double>(&content_))
    return *real;
  return static_cast<double>(toInteger());
}

} // namespace hearthbook
