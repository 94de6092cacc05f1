#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace hearthbook {

/// A day of the calendar as a person writes it down.
struct CalendarDate {
  int year = 0; ///< 0 where none was written
  int month = 0;
  int day = 0;

  bool operator==(const CalendarDate&) const = default;
};

/// Reads a date as loosely as people write it: "12/31", "1-5", "12.31.77", "Dec 31",
/// "31 December 1977", "1977/12/31". Month and day change places where only that gives a date
/// ("13/1"). Two numbers that are no day of any month are a month and a year ("12/1977"), of
/// which the first day is meant. The 29th of February without a year is always a date: it is
/// somebody's birthday in every year.
std::optional<CalendarDate> calendarDate(std::string_view text);

bool isDate(std::string_view text);

/// "mm/dd".
std::string monthDayText(const CalendarDate& date);

} // namespace hearthbook
