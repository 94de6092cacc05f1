#include "YearTable.h"

#include "Numbers.h"
#include "Recordset.h"
#include "RunTimeError.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace hearthbook {

namespace {

/// The row of a photo's year, if it has one and the table reaches so far.
YearRow* rowOf(std::vector<YearRow>& rows, const Value& year) {
  if (rows.empty() || year.isNull() || year.toReal() != std::floor(year.toReal()))
    return nullptr;
  const double place = year.toReal() - rows.front().year;
  if (place < 0 || place >= static_cast<double>(rows.size()))
    return nullptr;
  return &rows[static_cast<std::size_t>(place)];
}

void markYears(std::vector<YearRow>& rows, Recordset& photos, const YearQuestion& question) {
  for (; !photos.atEOF(); photos.MoveNext()) {
    YearRow* row = rowOf(rows, photos.Collect("Year"));
    if (!row)
      continue;
    const Value place = photos.Collect("PlaceID");
    const Value event = photos.Collect("EventID");
    row->placeMark |= !place.isNull() && place.toInteger() == question.placeId;
    row->eventMark |= !event.isNull() && event.toInteger() == question.eventId;
  }
}

int firstHitOf(const std::vector<YearRow>& rows) {
  const auto hit =
      std::ranges::find_if(rows, [](const YearRow& row) { return row.placeMark && row.eventMark; });
  return hit == rows.end() ? 0 : static_cast<int>(hit - rows.begin()) + 1;
}

/// A name inside the format of a header, which "|" divides.
std::string inFormat(std::string name) {
  std::ranges::replace(name, '|', '/');
  return name;
}

} // namespace

int YearTable::topRow() const {
  constexpr int rowsInSight = 14;
  constexpr int rowsAbove = 7;
  return firstHit >= rowsInSight ? firstHit - rowsAbove : 1;
}

YearTable yearTable(Connection& connection, const YearQuestion& question) {
  YearTable table;
  for (int year = question.birthYear; year <= question.currentYear; ++year)
    table.rows.push_back({year, year - question.birthYear});
  Recordset photos(connection);
  photos.Open("SELECT Year, PlaceID, EventID FROM PhotoAlbum WHERE (PlaceID = " +
              std::to_string(question.placeId) +
              " OR EventID = " + std::to_string(question.eventId) + ") AND NamesInPhoto LIKE '%" +
              padded(question.personId, 3) + "%'");
  markYears(table.rows, photos, question);
  table.firstHit = firstHitOf(table.rows);
  return table;
}

int firstYear(const Value& birthYear) {
  const auto number =
      birthYear.isText() ? numericValue(birthYear.toText()) : std::optional(birthYear.toReal());
  if (birthYear.isNull() || !number)
    throw RunTimeError("\"" + birthYear.toText() + "\" is no year of birth.");
  return shortNumber(roundHalfEven(*number));
}

std::string yearTableFormat(const std::string& person, const std::string& place,
                            const std::string& event) {
  return "<Year    |<" + inFormat(person) + "      |^" + inFormat(place) + "  |^" +
         inFormat(event) + "  ";
}

std::string yearRowText(const YearRow& row) {
  return std::to_string(row.year) + "\tAge " + std::to_string(row.age) + "\t" +
         (row.placeMark ? "X" : "") + "\t" + (row.eventMark ? "X" : "");
}

} // namespace hearthbook
