#include "DesignSearch.h"

#include "AlbumData.h"
#include "NamesInPhoto.h"
#include "Recordset.h"

#include <string_view>

namespace hearthbook {

namespace {

constexpr std::string_view photosWithNames =
    "SELECT PhotoAlbum.PictureID, PhotoAlbum.Year, Places.PlaceName, Events.EventName"
    " FROM (PhotoAlbum LEFT JOIN Places ON PhotoAlbum.PlaceID = Places.PlaceID)"
    " LEFT JOIN Events ON PhotoAlbum.EventID = Events.EventID"
    " WHERE ";

struct ListSource {
  const char* statement;
  const char* name;
  const char* id;
};

ListSource sourceOf(DesignSearch by) {
  switch (by) {
  case DesignSearch::Place:
    return {sources::places, "PlaceName", "PlaceID"};
  case DesignSearch::Event:
    return {sources::events, "EventName", "EventID"};
  case DesignSearch::Person:
    break;
  }
  return {sources::appearances, "AppearancesNames", "AppearancesID"};
}

std::string condition(DesignSearch by, std::int64_t id) {
  switch (by) {
  case DesignSearch::Place:
    return "(((PhotoAlbum.PlaceID) = " + std::to_string(id) + "))";
  case DesignSearch::Event:
    return "(((PhotoAlbum.EventID) = " + std::to_string(id) + "))";
  case DesignSearch::Person:
    break;
  }
  return "(((PhotoAlbum.NamesInPhoto) LIKE '%" + personKey(id) + "%'))";
}

std::string toolTipOf(const Recordset& photo) {
  return photo.Collect("Year").toText() + ", " + photo.Collect("EventName").toText() + " in " +
         photo.Collect("PlaceName").toText();
}

} // namespace

std::vector<DesignChoice> designChoices(Connection& albumDb, DesignSearch by) {
  const ListSource source = sourceOf(by);
  Recordset rows(albumDb);
  std::vector<DesignChoice> choices;
  for (rows.Open(source.statement); !rows.atEOF(); rows.MoveNext())
    choices.push_back({rows.Collect(source.name).toText(), rows.Collect(source.id).toInteger()});
  return choices;
}

std::string designStatement(DesignSearch by, std::int64_t id) {
  return std::string(photosWithNames) + condition(by, id) + " ORDER BY PhotoAlbum.Year;";
}

std::vector<DesignHit> designHits(Connection& albumDb, DesignSearch by, std::int64_t id) {
  Recordset photos(albumDb);
  std::vector<DesignHit> hits;
  for (photos.Open(designStatement(by, id)); !photos.atEOF(); photos.MoveNext())
    hits.push_back({photos.Collect("PictureID").toText(), toolTipOf(photos)});
  return hits;
}

} // namespace hearthbook
