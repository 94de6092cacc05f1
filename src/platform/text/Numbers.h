#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace hearthbook {

/// True if a person would call the typed text a number: blanks around it, a sign, thousands
/// separators, a currency sign, an exponent and the forms &H10 and &O17 are all taken.
/// "1e3", " 12 ", "1,990", "$5" and "&H10" are numbers; "12a", "" and " " are not.
bool isNumeric(std::string_view text);

/// The value of a text for which isNumeric() holds; nothing otherwise.
std::optional<double> numericValue(std::string_view text);

/// The number at the start of a text, 0 if there is none: "0012x" is 12.
std::int64_t leadingNumber(std::string_view text);

/// A number with at least `digits` digits, zeros in front: padded(12, 5) is "00012".
/// A longer number stands as it is; a negative one has its sign before the zeros.
std::string padded(std::int64_t number, int digits);

/// Rounded to the nearest whole number, ties to the even one: 54.5 and 53.5 both give 54.
std::int64_t roundHalfEven(double number);

/// The number as one of 16 bits; throws RunTimeError 6 where it does not fit.
std::int16_t shortNumber(std::int64_t number);

} // namespace hearthbook
