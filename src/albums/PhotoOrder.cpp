#include "PhotoOrder.h"

#include "Connection.h"
#include "RepeatedStatement.h"

#include <algorithm>
#include <utility>

namespace hearthbook {

namespace {

std::string captionOf(const Recordset& member) {
  return member.Collect("Year").toText() + ", " + member.Collect("EventName").toText() + " in " +
         member.Collect("PlaceName").toText();
}

constexpr const char* numbering =
    "UPDATE SubAlbumPhotos SET SubAlbumPhotos.[Index] = ? WHERE SubAlbumPhotos.PhotoID = ?";

} // namespace

std::vector<OrderedPhoto> moved(std::vector<OrderedPhoto> order, std::size_t from, std::size_t to) {
  if (from >= order.size() || to >= order.size())
    return order;
  const auto at = [&](std::size_t place) {
    return order.begin() + static_cast<std::ptrdiff_t>(place);
  };
  if (from > to)
    std::rotate(at(to), at(from), at(from + 1));
  else
    std::rotate(at(from), at(from + 1), at(to + 1));
  return order;
}

void PhotoOrder::read(Recordset& members) {
  isDirty_ = true;
  photos_.clear();
  photos_.reserve(static_cast<std::size_t>(members.RecordCount()));
  if (members.RecordCount() > 0)
    members.MoveFirst();
  for (; !members.atEOF(); members.MoveNext())
    photos_.push_back({members.Collect("PhotoID").toText(), captionOf(members)});
}

bool PhotoOrder::move(std::size_t from, std::size_t to) {
  if (from == to || from >= count() || to >= count())
    return false;
  photos_ = moved(std::move(photos_), from, to);
  isDirty_ = true;
  return true;
}

void PhotoOrder::writeBack(Recordset& members) const {
  if (!isDirty_ || photos_.empty())
    return;
  const std::string source = members.Source();
  members.Close();
  try {
    members.connection().transaction([&] {
      RepeatedStatement number(members.connection(), numbering);
      std::int64_t index = 0;
      for (const OrderedPhoto& photo : photos_)
        number.run({index++, photo.id});
    });
  } catch (...) {
    members.Open(source);
    throw;
  }
  members.Open(source);
}

} // namespace hearthbook
