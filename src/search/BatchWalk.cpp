#include "BatchWalk.h"

#include "Numbers.h"
#include "ResultPaging.h"
#include "RunTimeError.h"

namespace hearthbook {

std::int16_t batchReturnRow(const Recordset& rsSearch) {
  const std::int64_t position =
      rsSearch.atEOF() ? rsSearch.RecordCount() : rsSearch.AbsolutePosition() - 1;
  return shortNumber(pageStart(position));
}

std::vector<std::int64_t> takePositions(SelectionSet& selection) {
  if (selection.SelectedCount > 1) {
    selection.sort();
    return selection.rising();
  }
  const auto one = selection.first();
  return one ? std::vector{*one} : std::vector<std::int64_t>();
}

BatchWalk walkThrough(Recordset& photos, const std::vector<std::int64_t>& positions,
                      const std::function<void()>& step) {
  BatchWalk walk;
  for (const std::int64_t position : positions) {
    try {
      photos.Move(position - 1, Recordset::Start::First);
      step();
    } catch (const std::exception& failure) {
      walk.failure = failure.what();
      break;
    }
    ++walk.done;
  }
  return walk;
}

void requireWhole(const BatchWalk& walk, std::size_t count, const char* acted) {
  if (walk.failure)
    throw RunTimeError(*walk.failure + "\n\nOf " + std::to_string(count) + " selected photos " +
                       std::to_string(walk.done) + " were " + acted + " before that.");
}

} // namespace hearthbook
