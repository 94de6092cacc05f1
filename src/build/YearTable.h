#pragma once

#include "Connection.h"
#include "Value.h"

#include <cstdint>
#include <string>
#include <vector>

namespace hearthbook {

/// What one asks of the years of a person: who, where, at what event.
struct YearQuestion {
  std::int64_t personId = 0;
  std::int64_t placeId = 0;
  std::int64_t eventId = 0;
  int birthYear = 0;
  int currentYear = 0;
};

/// One year of a person's life.
struct YearRow {
  int year = 0;
  int age = 0;
  bool placeMark = false; ///< a photo of the person at the place is of that year
  bool eventMark = false; ///< one at the event, perhaps another

  bool operator==(const YearRow&) const = default;
};

/// The years from a person's birth to now. Rows are counted from 1.
struct YearTable {
  std::vector<YearRow> rows;
  int firstHit = 0; ///< the first row with both marks; 0 if there is none

  /// The row to which a window on the table scrolls, so that the first hit stands in its
  /// middle; 1 where it is in sight anyway.
  [[nodiscard]] int topRow() const;

  bool operator==(const YearTable&) const = default;
};

/// Reads the photos once, through a record set of its own. A person is in a photo whose names
/// hold the digits of the id, wherever they stand.
YearTable yearTable(Connection& connection, const YearQuestion& question);

/// The first year of the table; throws where what is stored is no year.
int firstYear(const Value& birthYear);

/// The header of the table, in a grid's format.
std::string yearTableFormat(const std::string& person, const std::string& place,
                            const std::string& event);

/// A row as a grid takes it, with tabs between the cells.
std::string yearRowText(const YearRow& row);

} // namespace hearthbook
