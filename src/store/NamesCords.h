#pragma once

#include "Twips.h"
#include "Value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// One marker: "004-0341X1022,". The position is in twips from the top-left corner of the
/// shown picture, within the 5760 box of the record editor.
std::string markerEntry(std::int64_t id, TwipsPoint position);

/// True if the field holds "<id in three digits>-" anywhere.
bool hasMarker(std::string_view namesCords, std::int64_t id);

/// The field with the person's marker added or moved.
std::string withMarker(std::string_view namesCords, std::int64_t id, TwipsPoint position);

/// The field without the person's marker; Null where nothing is left. Entries are taken to be
/// 14 characters long, so that of an id of four digits the comma stays behind.
Value withoutMarker(std::string_view namesCords, std::int64_t id);

/// The entries of the field without their commas; what follows the last comma, mostly nothing,
/// is one too.
std::vector<std::string> markerEntries(std::string_view namesCords);

/// True if the entry begins with the id in three digits.
bool isMarkerOf(std::string_view entry, std::int64_t id);

/// The place in the first of the entries that is the person's.
std::optional<TwipsPoint> placeOfMarker(const std::vector<std::string>& entries, std::int64_t id);

/// Where the person's marker stands: the first entry that begins with the id in three digits.
std::optional<TwipsPoint> markerPosition(std::string_view namesCords, std::int64_t id);

} // namespace hearthbook
