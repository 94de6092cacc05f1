#pragma once

#include "Recordset.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// A person's number as both fields of names write it: "004"; 1234 stands as it is.
std::string personKey(std::int64_t id);

/// The ids of a photo's field, each of which a comma ends; an empty one is one too.
std::vector<std::string> namedIds(std::string_view namesInPhoto);

/// One line of the names-in-photo list.
struct NameEntry {
  std::string text; ///< the screen name, with a leading "*" where the person has a marker
  std::int64_t id = 0;

  bool operator==(const NameEntry&) const = default;
};

/// The entries of a photo's list, in the order of the field. Reopens `appearances` on the
/// whole table, in which state it stays. Ids without a row give no entry.
std::vector<NameEntry> PopList(Recordset& appearances, std::string_view namesInPhoto,
                               std::string_view namesCords);

/// True if the person stands in the list.
bool ChkList(const std::vector<NameEntry>& list, std::int64_t id);

/// The field's text for a list: "004,017,". Null where the list is empty.
Value namesInPhotoText(const std::vector<NameEntry>& list);

} // namespace hearthbook
