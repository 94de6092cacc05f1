#include "Numbers.h"

#include "Ascii.h"
#include "RunTimeError.h"
#include "Words.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace hearthbook {
namespace {

int digitValue(char c) {
  if (isAsciiDigit(c))
    return c - '0';
  const char letter = asciiLower(c);
  return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : 16;
}

/// "&H10" and "&O17".
std::optional<double> basedValue(std::string_view text) {
  if (text.size() < 3 || text[0] != '&' ||
      (asciiLower(text[1]) != 'h' && asciiLower(text[1]) != 'o'))
    return std::nullopt;
  const int base = asciiLower(text[1]) == 'h' ? 16 : 8;
  double value = 0;
  for (const char c : text.substr(2)) {
    const int digit = digitValue(c);
    if (digit >= base)
      return std::nullopt;
    value = value * base + digit;
  }
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// What stands around the digits of a decimal number, each at most once.
struct Dress {
  bool sign = false;
  bool negative = false;
  bool currency = false;
};

bool takeSign(Dress& dress, char c) {
  if ((c != '+' && c != '-') || dress.sign)
    return false;
  dress.sign = true;
  dress.negative = c == '-';
  return true;
}

bool takeCurrency(Dress& dress, char c) {
  if (c != '$' || dress.currency)
    return false;
  dress.currency = true;
  return true;
}

/// Takes off signs, the currency sign, a pair of brackets and the blanks between them.
Dress undress(std::string_view& text) {
  Dress dress;
  if (text.size() > 2 && text.front() == '(' && text.back() == ')') {
    dress.sign = dress.negative = true;
    text = text.substr(1, text.size() - 2);
  }
  text = withoutBlanks(text);
  while (!text.empty() && (takeSign(dress, text.front()) || takeCurrency(dress, text.front())))
    text = withoutBlanks(text.substr(1));
  while (!text.empty() && (takeSign(dress, text.back()) || takeCurrency(dress, text.back())))
    text = withoutBlanks(text.substr(0, text.size() - 1));
  return dress;
}

/// The length of the digits at the start; separators are left out of `plain`.
std::size_t takeDigits(std::string_view text, bool separators, std::string& plain) {
  std::size_t at = 0;
  while (at < text.size() &&
         (isAsciiDigit(text[at]) || (separators && at > 0 && text[at] == ','))) {
    if (text[at] != ',')
      plain += text[at];
    ++at;
  }
  return at;
}

/// The exponent "e+3" or "d3" that is the whole of `text`, as "e3".
bool takeExponent(std::string_view text, std::string& plain) {
  if (asciiLower(text[0]) != 'e' && asciiLower(text[0]) != 'd')
    return false;
  plain += 'e';
  text.remove_prefix(1);
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
    if (text[0] == '-')
      plain += '-';
    text.remove_prefix(1);
  }
  return !text.empty() && takeDigits(text, false, plain) == text.size();
}

/// An undressed decimal number in the form that the standard library reads.
std::optional<std::string> plainForm(std::string_view text) {
  std::string plain;
  text.remove_prefix(takeDigits(text, true, plain));
  std::size_t digits = plain.size();
  if (!text.empty() && text[0] == '.') {
    plain += '.';
    text.remove_prefix(1);
    const std::size_t decimals = takeDigits(text, false, plain);
    text.remove_prefix(decimals);
    digits += decimals;
  }
  if (digits == 0 || (!text.empty() && !takeExponent(text, plain)))
    return std::nullopt;
  return plain;
}

std::optional<double> readPlain(const std::string& plain) {
  double value = 0;
  const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (error == std::errc::result_out_of_range)
    return plain.find("e-") != std::string::npos ? std::optional(0.0) : std::nullopt;
  return error == std::errc() ? std::optional(value) : std::nullopt;
}

} // namespace

bool isNumeric(std::string_view text) { return numericValue(text).has_value(); }

std::optional<double> numericValue(std::string_view text) {
  text = withoutBlanks(text);
  if (const auto based = basedValue(text))
    return based;
  const Dress dress = undress(text);
  const auto plain = plainForm(text);
  if (!plain)
    return std::nullopt;
  const auto value = readPlain(*plain);
  return value && dress.negative ? std::optional(-*value) : value;
}

std::int64_t leadingNumber(std::string_view text) {
  text = withoutBlanks(text);
  const bool negative = !text.empty() && text[0] == '-';
  if (!text.empty() && (text[0] == '-' || text[0] == '+'))
    text.remove_prefix(1);
  constexpr auto limit = std::numeric_limits<std::int64_t>::max();
  std::int64_t number = 0;
  for (std::size_t at = 0; at < text.size() && isAsciiDigit(text[at]); ++at) {
    const int digit = text[at] - '0';
    if (number > (limit - digit) / 10)
      return negative ? -limit : limit;
    number = number * 10 + digit;
  }
  return negative ? -number : number;
}

std::string padded(std::int64_t number, int digits) {
  const bool negative = number < 0;
  std::string text = std::to_string(number).substr(negative ? 1 : 0);
  if (text.size() < static_cast<std::size_t>(digits))
    text.insert(0, static_cast<std::size_t>(digits) - text.size(), '0');
  return negative ? "-" + text : text;
}

std::int64_t roundHalfEven(double number) {
  constexpr double limit = 9.2e18;
  if (std::isnan(number))
    return 0;
  if (number >= limit || number <= -limit)
    return number > 0 ? std::numeric_limits<std::int64_t>::max()
                      : std::numeric_limits<std::int64_t>::min();
  const double below = std::floor(number);
  const auto whole = static_cast<std::int64_t>(below);
  const double rest = number - below;
  if (rest == 0.5)
    return whole % 2 == 0 ? whole : whole + 1;
  return rest > 0.5 ? whole + 1 : whole;
}

std::int16_t shortNumber(std::int64_t number) {
  using Limits = std::numeric_limits<std::int16_t>;
  constexpr int overflow = 6;
  if (number < Limits::min() || number > Limits::max())
    throw RunTimeError("The number " + std::to_string(number) + " is too large to be used here.",
                       overflow);
  return static_cast<std::int16_t>(number);
}

} // namespace hearthbook
