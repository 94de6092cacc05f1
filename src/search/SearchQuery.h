#pragma once

#include "NamesInPhoto.h"

#include <cstdint>
#include <string>
#include <vector>

namespace hearthbook {

/// What a search asks for. An empty list or text sets no condition.
struct SearchCriteria {
  std::vector<NameEntry> places; ///< any of them
  std::vector<NameEntry> events;
  std::vector<NameEntry> people;
  std::string fromYear; ///< as typed
  std::string toYear;
  std::string description; ///< a piece of it
  std::string sort = "Year";

  [[nodiscard]] bool hasPlace(std::int64_t id) const;
  [[nodiscard]] bool hasEvent(std::int64_t id) const;

  bool operator==(const SearchCriteria&) const = default;
};

/// The entries of the list of sorts. The last one is not what BuildSearchQuery() knows, so that
/// the database refuses its statement; both texts are as they are to be.
inline constexpr const char* sortEntries[] = {"Place", "Event", "Year", "No Sort!"};

struct SearchQuery {
  std::string sql;     ///< opens rsSearch
  std::string summary; ///< the criteria in words, for captions; untrimmed

  bool operator==(const SearchQuery&) const = default;
};

SearchQuery BuildSearchQuery(const SearchCriteria& criteria);

} // namespace hearthbook
