#pragma once

#include "Recordset.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// A photo as it stands in the order of a sub-album.
struct OrderedPhoto {
  std::string id;
  std::string caption; ///< "1987, Wedding in Lake"

  bool operator==(const OrderedPhoto&) const = default;
};

/// The order behind the move of one photo to another place; those between close up. A place
/// that is not there moves nothing.
std::vector<OrderedPhoto> moved(std::vector<OrderedPhoto> order, std::size_t from, std::size_t to);

/// The order of one sub-album while it is worked on, and whether the album may hold another one.
class PhotoOrder {
public:
  [[nodiscard]] const std::vector<OrderedPhoto>& photos() const { return photos_; }
  [[nodiscard]] std::size_t count() const { return photos_.size(); }

  /// May differ from what the album holds: after each reading, whose statement may have sorted
  /// otherwise, and after a move. A write-back does not end it.
  [[nodiscard]] bool isDirty() const { return isDirty_; }
  /// What was just read is the order that the album holds.
  void markAsStored() { isDirty_ = false; }

  void read(Recordset& members); ///< the rows of a strip query, from its first
  void clear() { photos_.clear(); }
  /// False, and nothing changes, where a photo is put on its own place.
  bool move(std::size_t from, std::size_t to);

  /// Numbers the photos 0, 1, 2, ... in the album, as one transaction, and opens the set again
  /// on its source. Writes only a dirty order.
  ///
  /// The number goes to every row of the photo: where it belongs to several sub-albums it
  /// stands at the place of the one that was written last in all of them.
  void writeBack(Recordset& members) const;

private:
  std::vector<OrderedPhoto> photos_;
  bool isDirty_ = false;
};

} // namespace hearthbook
