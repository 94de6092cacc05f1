#pragma once

#include "AlbumFixture.h"

#include <cstdint>
#include <memory>
#include <string>

namespace hearthbook::test {

/// Photos HD00001 to HD00006 of the years 1991 to 1996, all found by a search that stands behind
/// its first page.
class BatchAlbum : public AlbumFixture {
protected:
  BatchAlbum() {
    data().AlbumDB.execute("UPDATE PhotoAlbum SET Year = 1991");
    for (int number = 2; number <= 6; ++number)
      folder_.addPhoto(id(number), {{"Year", 1990 + number}});
    search("SELECT * FROM PhotoAlbum  ORDER BY Year, PictureID");
  }

  static std::string id(int number) { return "HD0000" + std::to_string(number); }

  void search(const std::string& statement) {
    vars().rsSearch = std::make_unique<Recordset>(data().AlbumDB);
    results().Open(statement);
    results().MoveLast();
    results().MoveNext();
  }
  void set(const std::string& photo, const std::string& assignment) {
    data().AlbumDB.execute("UPDATE PhotoAlbum SET " + assignment + " WHERE PictureID = '" + photo +
                           "'");
    results().Requery();
  }
  /// The database refuses to store or delete this photo.
  void refuse(const char* act, const std::string& photo, const char* how = "ABORT") {
    data().AlbumDB.execute(std::string("CREATE TRIGGER Refuse BEFORE ") + act +
                           " ON PhotoAlbum WHEN OLD.PictureID = '" + photo +
                           "' BEGIN SELECT RAISE(" + how +
                           ", 'this photo is not to be touched'); END");
  }

  Recordset& results() { return *vars().rsSearch; }
  std::int64_t rowsOf(const std::string& select) {
    Recordset rows(data().AlbumDB);
    rows.Open(select);
    return rows.RecordCount();
  }
  /// What is on the disk, not what a record set remembers.
  Value stored(const std::string& photo, const char* field) {
    Recordset rows(data().AlbumDB);
    rows.Open("SELECT * FROM PhotoAlbum WHERE PictureID = '" + photo + "'");
    return rows.atEOF() ? Value("no such photo") : rows.Collect(field);
  }
};

} // namespace hearthbook::test
