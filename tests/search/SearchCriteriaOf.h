#pragma once

#include "SearchQuery.h"

namespace hearthbook::test {

inline constexpr int allCriteria = 64;

/// Criteria of which each bit of `present` says whether it is there: the place, the event, the
/// names, the two years and the description.
inline SearchCriteria criteriaOf(int present) {
  SearchCriteria criteria;
  if (present & 1)
    criteria.places = {{"Home", 3}, {"Lake", 5}};
  if (present & 2)
    criteria.events = {{"Wedding", 2}};
  if (present & 4)
    criteria.people = {{"Ann", 7}};
  if (present & 8)
    criteria.fromYear = "1990";
  if (present & 16)
    criteria.toYear = "1995";
  if (present & 32)
    criteria.description = "Bob's";
  return criteria;
}

} // namespace hearthbook::test
