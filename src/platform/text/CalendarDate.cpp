#include "CalendarDate.h"

#include "Ascii.h"
#include "Numbers.h"
#include "Words.h"

#include <array>
#include <charconv>
#include <vector>

namespace hearthbook {

namespace {

constexpr std::array<std::string_view, 12> monthNames = {
    "january", "february", "march",     "april",   "may",      "june",
    "july",    "august",   "september", "october", "november", "december"};

constexpr int noYear = 0;
constexpr int leapYear = 2000; // stands in where no year was written

struct Piece {
  bool isMonthName = false;
  int value = 0;
  std::size_t length = 0;
};

bool isSeparator(char c) { return c == '/' || c == '-' || c == '.' || c == ','; }

/// 1 to 12 for a month's name or at least the first three letters of it, else 0.
int monthOf(std::string_view word) {
  if (word.size() < 3)
    return 0;
  const std::string small = asciiLower(word);
  for (std::size_t month = 0; month < monthNames.size(); ++month)
    if (monthNames[month].starts_with(small))
      return static_cast<int>(month) + 1;
  return 0;
}

/// The month's name or the number at the start of the text.
std::optional<Piece> takePiece(std::string_view& text) {
  std::size_t end = 0;
  const bool isWord = !text.empty() && isAsciiLetter(text[0]);
  while (end < text.size() && (isWord ? isAsciiLetter(text[end]) : isAsciiDigit(text[end])))
    ++end;
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(end);
  if (isWord) {
    const int month = monthOf(taken);
    return month ? std::optional<Piece>({true, month, end}) : std::nullopt;
  }
  constexpr std::size_t longestNumber = 4;
  if (end == 0 || end > longestNumber)
    return std::nullopt;
  Piece piece{false, 0, end};
  std::from_chars(taken.data(), taken.data() + end, piece.value);
  return piece;
}

/// Blanks and at most one mark between two pieces.
void takeSeparator(std::string_view& text) {
  text = withoutBlanks(text);
  if (!text.empty() && isSeparator(text[0]))
    text = withoutBlanks(text.substr(1));
}

std::optional<std::vector<Piece>> piecesOf(std::string_view text) {
  std::vector<Piece> pieces;
  text = withoutBlanks(text);
  if (!text.empty() && isSeparator(text.back()))
    return std::nullopt;
  while (!text.empty()) {
    const auto piece = takePiece(text);
    if (!piece)
      return std::nullopt;
    pieces.push_back(*piece);
    takeSeparator(text);
  }
  return pieces;
}

bool isLeap(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int daysIn(int month, int year) {
  constexpr std::array<int, 12> days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return days.at(static_cast<std::size_t>(month) - 1) + (month == 2 && isLeap(year) ? 1 : 0);
}

std::optional<CalendarDate> day(int year, int month, int dayOfMonth) {
  if (month < 1 || month > 12 || dayOfMonth < 1)
    return std::nullopt;
  if (dayOfMonth > daysIn(month, year == noYear ? leapYear : year))
    return std::nullopt;
  return CalendarDate{year, month, dayOfMonth};
}

/// Two digits are a year from 1930 to 2029.
std::optional<int> yearOf(const Piece& piece) {
  constexpr int firstOfLastCentury = 30;
  if (piece.length <= 2)
    return piece.value + (piece.value < firstOfLastCentury ? 2000 : 1900);
  constexpr int earliest = 100;
  return piece.value >= earliest ? std::optional(piece.value) : std::nullopt;
}

std::optional<CalendarDate> dayOfYear(const Piece& year, int month, int dayOfMonth) {
  const auto number = yearOf(year);
  return number ? day(*number, month, dayOfMonth) : std::nullopt;
}

template <class... Ways> std::optional<CalendarDate> firstDate(const Ways&... ways) {
  std::optional<CalendarDate> found;
  (void)((found = ways()) || ...);
  return found;
}

std::optional<CalendarDate> fromTwo(const Piece& a, const Piece& b) {
  return firstDate(
      [&] { return day(noYear, a.value, b.value); }, [&] { return day(noYear, b.value, a.value); },
      [&] { return dayOfYear(b, a.value, 1); }, [&] { return dayOfYear(a, b.value, 1); });
}

std::optional<CalendarDate> fromThree(const Piece& a, const Piece& b, const Piece& c) {
  return firstDate([&] { return dayOfYear(c, a.value, b.value); },
                   [&] { return dayOfYear(c, b.value, a.value); },
                   [&] { return dayOfYear(a, b.value, c.value); });
}

std::optional<CalendarDate> fromMonthAnd(int month, const Piece& a) {
  return firstDate([&] { return day(noYear, month, a.value); },
                   [&] { return dayOfYear(a, month, 1); });
}

std::optional<CalendarDate> fromMonthAnd(int month, const Piece& a, const Piece& b) {
  return firstDate([&] { return dayOfYear(b, month, a.value); },
                   [&] { return dayOfYear(a, month, b.value); });
}

/// The month that was written as a word, taken out of the pieces; 0 if there is none.
int takeMonthName(std::vector<Piece>& pieces) {
  for (auto piece = pieces.begin(); piece != pieces.end(); ++piece) {
    if (!piece->isMonthName)
      continue;
    const int month = piece->value;
    pieces.erase(piece);
    return month;
  }
  return 0;
}

} // namespace

std::optional<CalendarDate> calendarDate(std::string_view text) {
  auto pieces = piecesOf(text);
  if (!pieces)
    return std::nullopt;
  const int month = takeMonthName(*pieces);
  if (takeMonthName(*pieces) != 0)
    return std::nullopt;
  const std::vector<Piece>& numbers = *pieces;
  switch (numbers.size()) {
  case 1:
    return month ? fromMonthAnd(month, numbers[0]) : std::nullopt;
  case 2:
    return month ? fromMonthAnd(month, numbers[0], numbers[1]) : fromTwo(numbers[0], numbers[1]);
  case 3:
    return month ? std::nullopt : fromThree(numbers[0], numbers[1], numbers[2]);
  default:
    return std::nullopt;
  }
}

bool isDate(std::string_view text) { return calendarDate(text).has_value(); }

std::string monthDayText(const CalendarDate& date) {
  return padded(date.month, 2) + "/" + padded(date.day, 2);
}

} // namespace hearthbook
