#pragma once

#include "Recordset.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

/// The photos that are selected on the result pages, as 1-based positions in rsSearch: they hold
/// for its present statement and order only.
///
/// A photo that is taken out leaves a hole, an empty text, which the next one fills; the array
/// does not shrink.
struct SelectionSet {
  std::vector<Value> SelectedPositions{Value("")};
  std::int16_t SelectedCount = 0; ///< elements that are no holes

  /// Positions from here on are left out where the set is put in order.
  static constexpr std::int64_t positionLimit = 9999;

  void clear();
  [[nodiscard]] bool contains(std::int64_t position) const;
  void select(std::int64_t position); ///< throws RunTimeError 6 where the count is full
  void deselect(std::int64_t position);
  /// Selects what is not yet selected from one position to another, in one go.
  void selectAll(std::int64_t from, std::int64_t to);

  /// The first that is no hole.
  [[nodiscard]] std::optional<std::int64_t> first() const;
  /// Those below the limit, in rising order.
  [[nodiscard]] std::vector<std::int64_t> rising() const;
  /// Puts the array in rising order, its holes at the end.
  void sort();
  /// The same for a hand-over, which leaves one more hole behind the others.
  void sortAndGrow();

  bool operator==(const SelectionSet&) const = default;
};

/// The statement for the selected ones of the photos in `rows`, which are walked through. Its
/// first term matches nothing, so that every id can be joined on alike.
std::string selectedPhotosStatement(const SelectionSet& selection, Recordset& rows);

} // namespace hearthbook
