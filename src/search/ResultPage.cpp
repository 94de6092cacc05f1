#include "ResultPage.h"

#include "PassOver.h"
#include "PhotoFiles.h"
#include "ResultPaging.h"

#include <algorithm>
#include <optional>

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
  std::string tip;
  passOver([&] { tip += photos.Collect("Year").toText(); });
  passOver([&] {
    tip += nameBehindDash(photos.Collect("PlaceID"), data.rsPlaces, "PlaceID", "PlaceName");
  });
  passOver([&] {
    tip += nameBehindDash(photos.Collect("EventID"), data.rsEvents, "EventID", "EventName");
  });
  return tip;
}

PictureSource pictureOf(const Recordset& photos, Album& album) {
  std::optional<PictureSource> picture;
  passOver([&] {
    resolveThumbnail(album, photos.Collect("PictureID").toText());
    picture = album.vars.ImagePicture;
  });
  return picture ? *picture : PictureSource{notFoundPicture(album), false};
}

std::string idOf(const Recordset& photos) {
  std::string id;
  passOver([&] { id = photos.Collect("PictureID").toText(); });
  return id;
}

ResultPhoto readPhoto(Album& album) {
  const Recordset& photos = *album.vars.rsSearch;
  const std::int64_t position = photos.AbsolutePosition();
  return {position, idOf(photos), pictureOf(photos, album), toolTipOf(photos, album.data),
          album.vars.selection.contains(position)};
}

void addIds(const Recordset& result, std::int64_t first, std::int64_t last,
            std::vector<std::string>& ids) {
  const std::int64_t end = std::min(last, result.RecordCount());
  for (std::int64_t position = std::max<std::int64_t>(1, first); position <= end; ++position)
    ids.push_back(result.CollectAt(position, "PictureID").toText());
}

} // namespace

std::vector<ResultPhoto> readResultPage(Album& album, const std::function<void(int)>& filled) {
  std::vector<ResultPhoto> page;
  PublicVar& vars = album.vars;
  // Where it cannot go on, the page ends with the photos whose positions are noted.
  passOver([&] {
    while (page.size() < resultsPerPage && !vars.rsSearch->atEOF()) {
      page.push_back(readPhoto(album));
      vars.PagePositions[page.size() - 1] = page.back().position;
      vars.PageThumbCount = static_cast<std::int16_t>(page.size());
      vars.rsSearch->MoveNext();
      filled(vars.PageThumbCount);
    }
  });
  return page;
}

std::vector<std::string> neighbourIdsOfPage(const PublicVar& vars) {
  std::vector<std::string> ids;
  const std::int64_t first = vars.PagePositions[0].toInteger();
  const std::int64_t behind = first + vars.PageThumbCount;
  addIds(*vars.rsSearch, behind, behind + resultsPerPage - 1, ids);
  addIds(*vars.rsSearch, first - resultsPerPage, first - 1, ids);
  return ids;
}

} // namespace hearthbook
