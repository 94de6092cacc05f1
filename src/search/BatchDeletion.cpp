#include "BatchDeletion.h"

#include "BatchWalk.h"
#include "PhotoDeletion.h"
#include "RunTimeError.h"

#include <exception>
#include <string>

namespace hearthbook {

namespace {

/// After a transaction was taken back; the set stands where it stood.
void readAgain(Recordset& rsSearch) {
  const std::int64_t place =
      rsSearch.atEOF() ? rsSearch.RecordCount() : rsSearch.AbsolutePosition() - 1;
  rsSearch.Requery();
  rsSearch.Move(place, Recordset::Start::First);
}

} // namespace

std::vector<std::int64_t> deletablePositions(const Recordset& rsSearch,
                                             std::vector<std::int64_t> positions) {
  const auto photos = rsSearch.Clone();
  std::erase_if(positions, [&](std::int64_t position) {
    photos->Move(position - 1, Recordset::Start::First);
    return !photos->atEOF() && !photos->atBOF() &&
           isProtectedPhoto(photos->Collect("PictureID").toText());
  });
  return positions;
}

void deletePhotos(Album& album, Recordset& rsSearch, const std::vector<std::int64_t>& positions,
                  const std::function<void(std::size_t done)>& tell) {
  const auto photos = rsSearch.Clone();
  std::vector<std::string> ids;
  std::vector<Recordset::Bookmark> rows;
  const BatchWalk walk = walkThrough(*photos, positions, [&] {
    std::string id = photos->Collect("PictureID").toText();
    deletePhotoFiles(album, id);
    rows.push_back(photos->bookmark());
    ids.push_back(std::move(id));
    tell(ids.size());
  });
  photos->Filter(rows);
  try {
    deletePhotoRows(album, *photos, Recordset::Affect::Group, ids);
  } catch (const std::exception& failure) {
    readAgain(rsSearch);
    throw RunTimeError(std::string(failure.what()) + "\n\nThe files of " +
                       std::to_string(ids.size()) + " photos are in the trash, their rows stay.");
  }
  requireWhole(walk, positions.size(), "deleted");
}

} // namespace hearthbook
