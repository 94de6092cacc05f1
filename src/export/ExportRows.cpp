#include "ExportRows.h"

#include "AlbumFiles.h"

namespace hearthbook {

namespace {

std::string photosOf(std::int64_t albumId) {
  return "SELECT SubAlbumPhotos.AlbumID, PhotoAlbum.PictureID, Events.EventName, "
         "Places.PlaceName, PhotoAlbum.Year, PhotoAlbum.NamesInPhoto, PhotoAlbum.NamesCords, "
         "PhotoAlbum.Description"
         " FROM SubAlbumPhotos INNER JOIN ((PhotoAlbum LEFT JOIN Places ON PhotoAlbum.PlaceID = "
         "Places.PlaceID) LEFT JOIN Events ON PhotoAlbum.EventID = Events.EventID) ON "
         "SubAlbumPhotos.PhotoID = PhotoAlbum.PictureID"
         " WHERE (((SubAlbumPhotos.AlbumID)=" +
         std::to_string(albumId) + ")) ORDER BY SubAlbumPhotos.Index, PhotoAlbum.PictureID;";
}

} // namespace

ExportRows::ExportRows(const ApplicationFolder& folder, std::int64_t albumId)
    : photos_(connection_), people_(connection_) {
  connection_.Open(folder.path(albumFile));
  photos_.Open(photosOf(albumId));
}

SidePage ExportRows::page() const {
  SidePage page;
  page.number = photos_.AbsolutePosition();
  page.year = photos_.Collect("Year");
  page.event = photos_.Collect("EventName");
  page.place = photos_.Collect("PlaceName");
  page.namesInPhoto = photos_.Collect("NamesInPhoto");
  page.namesCords = photos_.Collect("NamesCords");
  page.description = photos_.Collect("Description");
  return page;
}

std::optional<std::string> ExportRows::nameOfPerson(std::int64_t id) {
  const auto [known, isNew] = names_.try_emplace(id);
  if (isNew) {
    people_.Open("SELECT * FROM Appearances Where AppearancesID = " + std::to_string(id));
    if (!people_.atEOF())
      known->second = people_.Collect("AppearancesNames").toText();
  }
  return known->second;
}

} // namespace hearthbook
