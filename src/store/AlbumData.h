#pragma once

#include "ApplicationFolder.h"
#include "Connection.h"
#include "Recordset.h"

namespace hearthbook {

/// The data environment: the connection to the album and its six shared record sets.
class AlbumData {
public:
  AlbumData();

  Connection AlbumDB;
  Recordset rsEvents;
  Recordset rsPhotoAlbum;
  Recordset rsPlaces;
  Recordset rsAppearances;
  Recordset rsSubAlbums;
  Recordset rsSubAlbumPhotos;

  /// Opens the six, in this order, on their stored sources.
  void openRecordsets();

  /// Runs a statement that changes rows through a shared set and opens the set again on the
  /// source that it had.
  static void execute(Recordset& through, std::string_view statement);
};

/// Statements that more than one room needs, worded once.
namespace sources {
inline constexpr const char* events = "Select * From Events Order By EventName";
inline constexpr const char* photoAlbum = "SELECT * FROM PhotoAlbum ORDER BY PictureID";
inline constexpr const char* places = "Select * From Places Order By PlaceName";
inline constexpr const char* appearances = "Select * From Appearances Order By AppearancesNames";
inline constexpr const char* familyMembers = "Select * From Appearances where RelationID = 0";
inline constexpr const char* subAlbums = "SELECT * From SubAlbums Order By AlbumName ";
inline constexpr const char* subAlbumPhotos = "SubAlbumPhotos"; // the table, whole
} // namespace sources

/// True where `rsPhotoAlbum` stands on the whole album in the order of PictureID, the only
/// order from which new numbers may be made.
bool standsOnWholeAlbum(const Recordset& photoAlbum);

} // namespace hearthbook
