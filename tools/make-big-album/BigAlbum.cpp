#include "BigAlbum.h"

#include "Connection.h"
#include "DatabaseMaker.h"
#include "RunTimeError.h"

#include <string>

namespace hearthbook {

namespace {

namespace fs = std::filesystem;

std::string rows(int last) {
  return "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
         std::to_string(last) + ") ";
}

void addLists(Connection& album) {
  album.execute(rows(120) + "INSERT INTO Places (PlaceName) SELECT 'Place ' || i FROM n");
  album.execute(rows(40) + "INSERT INTO Events (EventName) SELECT 'Event ' || i FROM n");
  album.execute(rows(200) + "INSERT INTO Appearances (AppearancesNames) SELECT 'Person ' || i "
                            "FROM n");
  album.execute(rows(12) + "INSERT INTO SubAlbums (albumName) SELECT 'Album ' || i FROM n");
}

void addPhotos(Connection& album, int photos) {
  album.execute(rows(photos) +
                "INSERT OR IGNORE INTO PhotoAlbum (PictureID, Year, PlaceID, EventID, "
                "NamesInPhoto, NamesCords, Description) SELECT printf('HD%05d', i), "
                "CASE WHEN i % 10 THEN 1950 + i % 75 END, 1 + i % 120, 1 + i % 40, "
                "printf('%03d,%03d,', 1 + i % 200, 1 + (i + 7) % 200), "
                "printf('%03d-%04dX%04d,', 1 + i % 200, i % 5760, i % 4320), "
                "'Photo ' || i || ', by the lake with the children and their cousins.' FROM n");
}

} // namespace

void makeBigAlbum(const fs::path& folder, const BigAlbumPlan& plan) {
  constexpr int mostPhotos = 99'999; // five digits in an id
  if (plan.photos < 1 || plan.photos > mostPhotos)
    throw RunTimeError("An album has 1 to 99,999 photos.");
  const fs::path album = folder / "Data" / "Photo_Album.mdb";
  fs::create_directories(album.parent_path());
  if (!makeAlbumDatabase(album, plan.schemaFolder))
    throw RunTimeError("There is an album in " + folder.string() + ".");
  makeHelpDatabase(folder / "Data" / "Help.mdb", plan.schemaFolder, readHelpRows(plan.helpRows));
  Connection connection;
  connection.Open(album);
  connection.transaction([&] {
    addLists(connection);
    addPhotos(connection, plan.photos);
  });
  connection.Close();
}

} // namespace hearthbook
