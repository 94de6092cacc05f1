#include "ResultPage.h"

#include "PhotoFiles.h"
#include "ResultPaging.h"

#include <algorithm>

namespace hearthbook {

namespace {

/// " - Lake", or nothing where the photo has no place or its place is gone.
std::string nameBehindDash(const Value& id, Recordset& names, const std::string& idField,
                           const char* nameField) {
  if (id.isNull() || names.RecordCount() < 1)
    return {};
  names.Find(idField + " = '" + id.toText() + "'", Recordset::Start::First);
  return names.atEOF() ? std::string() : " - " + names.Collect(nameField).toText();
}

std::string toolTipOf(const Recordset& photos, AlbumData& data) {
  return photos.Collect("Year").toText() +
         nameBehindDash(photos.Collect("PlaceID"), data.rsPlaces, "PlaceID", "PlaceName") +
         nameBehindDash(photos.Collect("EventID"), data.rsEvents, "EventID", "EventName");
}

ResultPhoto readPhoto(Album& album) {
  const Recordset& photos = *album.vars.rsSearch;
  resolveThumbnail(album, photos.Collect("PictureID").toText());
  ResultPhoto photo{photos.AbsolutePosition(), album.vars.ImagePicture, {}, false};
  photo.toolTip = toolTipOf(photos, album.data);
  photo.isSelected = album.vars.selection.contains(photo.position);
  return photo;
}

void addThumbnails(const Album& album, std::int64_t first, std::int64_t last,
                   std::vector<std::filesystem::path>& files) {
  const auto walker = album.vars.rsSearch->Clone();
  const std::int64_t end = std::min(last, walker->RecordCount());
  for (std::int64_t position = std::max<std::int64_t>(1, first); position <= end; ++position) {
    walker->Move(position - 1, Recordset::Start::First);
    if (const auto file = thumbnailPath(album, walker->Collect("PictureID").toText()))
      files.push_back(*file);
  }
}

} // namespace

std::vector<ResultPhoto> readResultPage(Album& album, const std::function<void(int)>& filled) {
  std::vector<ResultPhoto> page;
  PublicVar& vars = album.vars;
  while (page.size() < resultsPerPage && !vars.rsSearch->atEOF()) {
    page.push_back(readPhoto(album));
    vars.PagePositions[page.size() - 1] = page.back().position;
    vars.rsSearch->MoveNext();
    vars.PageThumbCount = static_cast<std::int16_t>(page.size());
    filled(vars.PageThumbCount);
  }
  return page;
}

std::vector<std::filesystem::path> neighbourThumbnails(const Album& album) {
  std::vector<std::filesystem::path> files;
  const std::int64_t first = album.vars.PagePositions[0].toInteger();
  const std::int64_t behind = first + album.vars.PageThumbCount;
  addThumbnails(album, behind, behind + resultsPerPage - 1, files);
  addThumbnails(album, first - resultsPerPage, first - 1, files);
  return files;
}

} // namespace hearthbook
