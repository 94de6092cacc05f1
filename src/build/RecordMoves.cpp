#include "RecordMoves.h"

#include "Numbers.h"

#include <algorithm>
#include <memory>

namespace hearthbook {

namespace {

/// A walker on the set's present row, so that looking about moves nothing on the screen.
std::unique_ptr<Recordset> walkerFrom(const Recordset& photos) {
  auto walker = photos.Clone();
  if (!photos.Filter().empty())
    walker->Filter(photos.Filter());
  walker->goTo(photos.bookmark());
  return walker;
}

} // namespace

std::optional<std::int64_t> recordOffset(std::string_view answer, std::int64_t recordCount) {
  const std::optional<double> number = numericValue(answer);
  if (!number || *number > static_cast<double>(recordCount))
    return std::nullopt;
  // All numbers below 1 name the one place before the first row.
  return roundHalfEven(std::max(*number - 1, -1.0));
}

bool hasGap(const Recordset& photos) {
  const auto lacks = [&](std::string_view field) { return photos.Collect(field).isNull(); };
  return lacks("EventID") || lacks("PlaceID") || lacks("Year") || lacks("NamesInPhoto");
}

bool FindNextEmpty(Recordset& photos, const std::function<void(std::int64_t position)>& at) {
  const auto walker = walkerFrom(photos);
  for (walker->MoveNext(); !walker->atEOF(); walker->MoveNext()) {
    at(walker->AbsolutePosition());
    if (hasGap(*walker)) {
      photos.goTo(walker->bookmark());
      return true;
    }
  }
  photos.goTo(photos.bookmark()); // stores what is pending, as any move does
  return false;
}

std::vector<std::string> neighbourIds(const Recordset& photos) {
  std::vector<std::string> ids;
  if (!standsOnRow(photos))
    return ids;
  const auto walker = walkerFrom(photos);
  walker->MoveNext();
  if (!walker->atEOF())
    ids.push_back(walker->Collect("PictureID").toText());
  walker->Move(-2);
  if (!walker->atBOF())
    ids.push_back(walker->Collect("PictureID").toText());
  return ids;
}

} // namespace hearthbook
