#include "CalendarDate.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

struct Written {
  std::string_view text;
  int year;
  int month;
  int day;
};

constexpr Written dates[] = {
    // two numbers
    {"12/31", 0, 12, 31},
    {"1/5", 0, 1, 5},
    {"01/05", 0, 1, 5},
    {"1-5", 0, 1, 5},
    {"1.5", 0, 1, 5},
    {"1 5", 0, 1, 5},
    {" 12 / 31 ", 0, 12, 31},
    {"13/1", 0, 1, 13},
    {"31.12", 0, 12, 31},
    {"2/29", 0, 2, 29},
    {"29/2", 0, 2, 29},
    {"12/1977", 1977, 12, 1},
    {"1977/12", 1977, 12, 1},
    {"2/30", 1930, 2, 1},
    {"4/31", 1931, 4, 1},
    {"1/45", 1945, 1, 1},
    {"5/0", 2000, 5, 1},
    // three numbers
    {"12/31/1977", 1977, 12, 31},
    {"31/12/1977", 1977, 12, 31},
    {"1977-12-31", 1977, 12, 31},
    {"12/31/77", 1977, 12, 31},
    {"12/31/29", 2029, 12, 31},
    {"12/31/30", 1930, 12, 31},
    {"1/2/3", 2003, 1, 2},
    {"1/2/0", 2000, 1, 2},
    {"1/2/0100", 100, 1, 2},
    {"2/29/2000", 2000, 2, 29},
    {"2/29/1976", 1976, 2, 29},
    {"32/1/5", 1932, 1, 5},
    // months by name
    {"Dec 31", 0, 12, 31},
    {"dec 31", 0, 12, 31},
    {"Dec. 31", 0, 12, 31},
    {"31 December", 0, 12, 31},
    {"DECEMBER 31", 0, 12, 31},
    {"31dec", 0, 12, 31},
    {"Sept 5", 0, 9, 5},
    {"Feb 29", 0, 2, 29},
    {"Dec 31, 1977", 1977, 12, 31},
    {"31-Dec-77", 1977, 12, 31},
    {"1977 Dec 31", 1977, 12, 31},
    {"Dec 1977", 1977, 12, 1},
    {"Feb 30", 1930, 2, 1},
    {"May 5", 0, 5, 5},
};

constexpr std::string_view noDates[] = {
    "",
    " ",
    "12",
    "1231",
    "Dec",
    "31st December",
    "13/13",
    "13/32",
    "0/0",
    "12/31/",
    "/12/31",
    "12//31",
    "12/31/19777",
    "2/29/1977",
    "2/29/1900",
    "1/2/3/4",
    "1/2/99999",
    "12/31/50x",
    "De 31",
    "Decembers 1",
    "Dec Dec 1",
    "Dec 1 2 3",
    "12:30",
    "MM/DD",
    "abc",
    "12/31 1977 5",
    "Dec 32 33",
    "1/2/050",
    "-1/5",
    "１/５",
    "1e0/5",
    "Dezember 31",
};

TEST(CalendarDate, ReadsWhatPeopleWrite) {
  for (const Written& date : dates)
    EXPECT_EQ(calendarDate(date.text), (CalendarDate{date.year, date.month, date.day}))
        << date.text;
}

TEST(CalendarDate, RefusesWhatIsNoDate) {
  for (const std::string_view text : noDates)
    EXPECT_FALSE(isDate(text)) << text;
}

TEST(CalendarDate, BlanksAroundADateDoNotMatter) {
  EXPECT_TRUE(isDate("  12/31  "));
  EXPECT_TRUE(isDate("\t12/31\n"));
}

TEST(CalendarDate, MonthAndDayHaveTwoDigitsEach) {
  EXPECT_EQ(monthDayText({0, 1, 5}), "01/05");
  EXPECT_EQ(monthDayText({1977, 12, 31}), "12/31");
}

} // namespace
} // namespace hearthbook
