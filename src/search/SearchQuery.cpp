#include "SearchQuery.h"

#include <algorithm>
#include <functional>

namespace hearthbook {

namespace {

bool contains(const std::vector<NameEntry>& choices, std::int64_t id) {
  return std::ranges::find(choices, id, &NameEntry::id) != choices.end();
}

/// The condition on each choice, joined by OR; each choice's text goes to the summary.
std::string anyOf(const std::vector<NameEntry>& choices, std::string& summary,
                  const std::function<std::string(std::int64_t)>& condition) {
  std::string clause;
  for (const NameEntry& choice : choices) {
    clause += (clause.empty() ? "" : " OR ") + condition(choice.id);
    summary += choice.text + ", ";
  }
  return clause;
}

std::function<std::string(std::int64_t)> equals(const std::string& field) {
  return [field](std::int64_t id) { return field + " = " + std::to_string(id); };
}

std::string likePerson(std::int64_t id) { return "NamesInPhoto LIKE '%" + personKey(id) + "%'"; }

/// Only the single quote is treated: "%" and "_" keep their meaning.
std::string likeDescription(const std::string& text) {
  std::string clause = "Description LIKE '%";
  for (const char c : text)
    clause += c == '\'' ? std::string("''") : std::string(1, c);
  return clause + "%'";
}

/// The conditions that are not empty. An event behind a place has its connector in mixed case.
class WhereText {
public:
  void add(const std::string& clause, const char* connector = " AND (") {
    if (!clause.empty())
      text_ += (text_.empty() ? "WHERE (" : connector) + clause + ")";
  }
  [[nodiscard]] const std::string& text() const { return text_; }

private:
  std::string text_;
};

std::string sortField(const std::string& sort) {
  if (sort == "Place")
    return "PlaceID";
  if (sort == "Event")
    return "EventID";
  if (sort == "Year")
    return "Year";
  return sort == "No Sort" ? "PictureID" : "";
}

} // namespace

bool SearchCriteria::hasPlace(std::int64_t id) const { return contains(places, id); }

bool SearchCriteria::hasEvent(std::int64_t id) const { return contains(events, id); }

SearchQuery BuildSearchQuery(const SearchCriteria& criteria) {
  // The summary tells the events first, the statement asks for the places first.
  SearchQuery query;
  const std::string event = anyOf(criteria.events, query.summary, equals("PhotoAlbum.EventID"));
  const std::string place = anyOf(criteria.places, query.summary, equals("PhotoAlbum.PlaceID"));
  const std::string names = anyOf(criteria.people, query.summary, likePerson);
  WhereText where;
  where.add(place);
  where.add(event, " And (");
  where.add(names);
  if (!criteria.fromYear.empty()) {
    where.add("Year >= " + criteria.fromYear);
    query.summary += "From " + criteria.fromYear + " ";
  }
  if (!criteria.toYear.empty()) {
    where.add("Year <= " + criteria.toYear);
    query.summary += "To " + criteria.toYear;
  }
  if (!criteria.description.empty())
    where.add(likeDescription(criteria.description));
  query.sql = "SELECT * FROM PhotoAlbum " + where.text() + " ORDER BY " + sortField(criteria.sort) +
              ", PictureID";
  return query;
}

} // namespace hearthbook
