#pragma once

#include "BatchWalk.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

/// What a batch edit writes into every selected photo. What is Null or empty leaves its field
/// alone, so that nothing can be emptied.
struct BatchChanges {
  Value placeId{};
  Value eventId{};
  Value year{};
  std::string description{};
  std::vector<std::int64_t> people{}; ///< added; nobody is ever taken out

  bool operator==(const BatchChanges&) const = default;
};

/// The field with the people added who are not in it. Whoever's number stands anywhere in its
/// text counts as being there.
Value withPeople(const Value& namesInPhoto, const std::vector<std::int64_t>& people);

struct BatchReport {
  std::vector<std::string> ids{};       ///< of the photos that are changed, in their order
  std::optional<std::string> failure{}; ///< of the step that stopped it
  /// The result shows changes that are not stored: it must be read again.
  bool wasTakenBack = false;

  [[nodiscard]] BatchWalk walk() const { return {ids.size(), failure}; }
};

/// Writes the changes into the photos at these positions of the result, as one transaction. A
/// step that fails stops it, and those changed before stay. A full disk makes the database take
/// all of them back; then as many as fit are changed once more.
BatchReport updatePhotos(const Recordset& rsSearch, const std::vector<std::int64_t>& positions,
                         const BatchChanges& changes);

} // namespace hearthbook
