#pragma once

#include "Connection.h"

#include <cstdint>
#include <string>
#include <vector>

namespace hearthbook {

/// By what a photo for a page is looked for.
enum class DesignSearch { Person, Place, Event };

/// One line of the list of persons, places or events.
struct DesignChoice {
  std::string name;
  std::int64_t id = 0;

  bool operator==(const DesignChoice&) const = default;
};
std::vector<DesignChoice> designChoices(Connection& albumDb, DesignSearch by);

/// A photo that was found, and what its thumbnail says of it.
struct DesignHit {
  std::string pictureId;
  std::string toolTip; ///< "1989, Wedding in Lake"; what is not known is left empty

  bool operator==(const DesignHit&) const = default;
};

std::string designStatement(DesignSearch by, std::int64_t id);
std::vector<DesignHit> designHits(Connection& albumDb, DesignSearch by, std::int64_t id);

} // namespace hearthbook
