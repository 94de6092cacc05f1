#pragma once

#include "PagePaging.h"
#include "PublicVar.h"

#include <cstdint>
#include <optional>
#include <string>

namespace hearthbook {

inline constexpr int resultColumns = 8;
inline constexpr int resultRows = 3;
inline constexpr int resultsPerPage = resultColumns * resultRows;

/// Where one is in the pages of a result. The record set stands behind the page shown, which is
/// all that a walk forward or backward has to go by.
struct ResultPaging {
  std::int64_t recordCount = 0;
  std::int64_t position = 0; ///< of the record set, 1-based; below 1 at an end
  bool atBeginning = false;
  bool atEnd = false;
  std::int64_t pageThumbCount = 0; ///< filled by the last composing, perhaps of another result
  bool atFirstPage = false;        ///< known to be so

  /// The position with which the page begins; nothing where there are no more records.
  [[nodiscard]] std::optional<std::int64_t> next() const;
  [[nodiscard]] std::optional<std::int64_t> previous() const;
  [[nodiscard]] std::int64_t last() const;

  /// How many rows behind the first the page begins to which one returns after the rows have
  /// changed.
  [[nodiscard]] std::int64_t returnRow() const;

  /// "25 to 48 of 100", of the page that was just composed.
  [[nodiscard]] std::string label() const;

private:
  [[nodiscard]] PagePaging pages() const;
};

ResultPaging resultPaging(const Recordset& rsSearch, const PublicVar& vars);

/// How many rows behind the first the page begins in which the position lies.
std::int64_t pageStart(std::int64_t position);

std::string positionLabel(std::int64_t first, std::int64_t last, std::int64_t recordCount);

/// The caption of the command that clears the selection.
std::string clearCaption(int selectedCount);

} // namespace hearthbook
