#include "ZoomMoves.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace hearthbook {

namespace {

/// The position of the photo shown, from 1. Behind the last one a slide show goes on at the
/// first record without showing it, so that the last one is shown there too.
std::int64_t shownPosition(const Recordset& photos) {
  const std::int64_t behind = photos.AbsolutePosition();
  return behind < 2 ? photos.RecordCount() : behind - 1;
}

/// Empty where the last photo is shown.
std::string idBehindShown(Recordset& photos) {
  if (photos.RecordCount() == 0)
    return {};
  photos.Move(0); // off a row that was deleted
  return photos.atEOF() ? std::string() : photos.Collect("PictureID").toText();
}

bool standOn(Recordset& photos, const std::string& id) {
  photos.Find("PictureID = '" + id + "'", Recordset::Start::First);
  return !photos.atEOF();
}

std::string labelOf(std::int64_t position, const Recordset& photos) {
  return std::to_string(position) + " Of " + std::to_string(photos.RecordCount());
}

} // namespace

/// Where the row before was deleted meanwhile, a set takes its next one for the one behind that.
void moveBehindShown(Recordset& photos) {
  photos.Move(0);
  photos.MoveNext();
}

bool canGoNext(const Recordset& photos) { return !photos.atEOF(); }

bool goPrevious(Recordset& photos) {
  const std::int64_t previous = shownPosition(photos) - 1;
  if (previous < 1)
    return false;
  photos.Move(previous - 1, Recordset::Start::First);
  return true;
}

void goBackToShown(Recordset& photos) {
  if (photos.AbsolutePosition() < 2)
    photos.MoveLast();
  else
    photos.MovePrevious();
}

bool goNextAround(Recordset& photos) {
  if (canGoNext(photos))
    return true;
  photos.MoveFirst();
  return false;
}

bool readAgain(Recordset& photos, const std::string& shownId) {
  const std::string behind = idBehindShown(photos);
  const std::int64_t place = shownPosition(photos);
  photos.Requery();
  const std::int64_t count = photos.RecordCount();
  if (count == 0)
    return false;
  if (!standOn(photos, shownId) && !standOn(photos, behind))
    photos.Move(std::clamp<std::int64_t>(place, 1, count) - 1, Recordset::Start::First);
  return true;
}

std::vector<std::string> slideNeighbourIds(const Recordset& photos) {
  const std::int64_t count = photos.RecordCount();
  if (count < 2)
    return {};
  const std::int64_t shown = shownPosition(photos);
  const auto rows = photos.Clone();
  std::vector<std::string> ids;
  for (const std::int64_t step : std::array<std::int64_t, 3>{1, -1, 2}) {
    const std::int64_t row = (shown - 1 + step + count) % count;
    rows->Move(row, Recordset::Start::First);
    ids.push_back(rows->Collect("PictureID").toText());
  }
  return ids;
}

std::string positionLabel(const Recordset& photos) {
  return labelOf(photos.AbsolutePosition(), photos);
}

std::string shownLabel(const Recordset& photos) { return labelOf(shownPosition(photos), photos); }

} // namespace hearthbook
