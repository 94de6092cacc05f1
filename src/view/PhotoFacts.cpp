#include "PhotoFacts.h"

#include "NameMarks.h"
#include "NamesCords.h"
#include "NamesInPhoto.h"
#include "Numbers.h"
#include "PassOver.h"

#include <algorithm>

namespace hearthbook {

namespace {

constexpr double markedSide = 5760; // of the picture on which people are marked

/// The text of the row whose key is `id`; nothing where there is no such row.
std::optional<std::string> lookUp(Recordset& rows, const std::string& key, const Value& id,
                                  const std::string& text) {
  if (id.isNull() || rows.RecordCount() == 0)
    return std::nullopt;
  rows.Find(key + " = '" + id.toText() + "'", Recordset::Start::First);
  return rows.atEOF() ? std::nullopt : std::optional(rows.Collect(text).toText());
}

std::string placeText(AlbumData& data, const Recordset& photo) {
  const auto place = lookUp(data.rsPlaces, "PlaceID", photo.Collect("PlaceID"), "PlaceName");
  const auto event = lookUp(data.rsEvents, "EventID", photo.Collect("EventID"), "EventName");
  return (event ? *event + " in " : "") + place.value_or("");
}

NamesRow rowOf(const Recordset& person, const PhotoMarkers& markers) {
  NamesRow row{person.Collect("AppearancesNames").toText(),
               person.Collect("AppearancesID").toText(), false};
  if (!markers)
    return row;
  const std::int64_t id = leadingNumber(row.id);
  for (const std::string& marker : *markers)
    if (isMarkerOf(marker, id)) {
      row.text += "   ";
      row.marked = true;
    }
  return row;
}

PhotoMarkers markersOf(const Recordset& photo) {
  const Value markers = photo.Collect("NamesCords");
  return markers.isNull() ? std::nullopt : PhotoMarkers(markerEntries(markers.toText()));
}

} // namespace

PhotoFacts photoFacts(AlbumData& data, const Recordset& photo, std::size_t leastRows) {
  PhotoFacts facts;
  passOver([&] { facts.year = photo.Collect("Year").toText(); });
  passOver([&] { facts.place = placeText(data, photo); });
  passOver([&] { facts.hasDescription = !photo.Collect("Description").toText().empty(); });
  passOver([&] { facts.markers = markersOf(photo); });
  facts.names.resize(leastRows);
  passOver([&] {
    facts.names = namesRows(data.rsAppearances, photo.Collect("NamesInPhoto").toText(),
                            facts.markers, leastRows);
  });
  return facts;
}

std::vector<NamesRow> namesRows(Recordset& appearances, const std::string& namesInPhoto,
                                const PhotoMarkers& markers, std::size_t leastRows) {
  std::vector<NamesRow> rows(leastRows);
  const auto ids = namedIds(namesInPhoto);
  for (std::size_t entry = 0; entry < ids.size(); ++entry)
    passOver([&] {
      appearances.Find("AppearancesID = '" + ids[entry] + "'", Recordset::Start::First);
      if (appearances.atEOF())
        return;
      const NamesRow row = rowOf(appearances, markers);
      if (entry < leastRows)
        rows.pop_back();
      const auto place = static_cast<std::ptrdiff_t>(std::min(entry, rows.size()));
      rows.insert(rows.begin() + place, row);
    });
  return rows;
}

TwipsRect arrowRect(TwipsRect image, TwipsPoint marker, double side) {
  return markerRect(image, {marker.x * side / markedSide, marker.y * side / markedSide});
}

} // namespace hearthbook
