#pragma once

#include "AlbumFolder.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace hearthbook::test {

/// "HD00012".
inline std::string photoId(int number) {
  char text[16];
  static_cast<void>(std::snprintf(text, sizeof text, "HD%05d", number));
  return text;
}

/// Rows alone, HD00002 to HD`last`, with a year each.
inline void addPhotoRows(AlbumFolder& folder, int last) {
  Connection& connection = folder.album().data.AlbumDB;
  connection.transaction([&] {
    for (int number = 2; number <= last; ++number)
      connection.execute("INSERT INTO PhotoAlbum (PictureID, Year) VALUES ('" + photoId(number) +
                         "', " + std::to_string(2000 - number) + ")");
  });
  folder.album().data.rsPhotoAlbum.Requery();
}

/// A sub-album of the photos with these numbers, in this order. Returns its number.
inline std::int64_t addSubAlbum(AlbumFolder& folder, const std::string& name,
                                const std::vector<int>& photos) {
  Recordset& albums = folder.album().data.rsSubAlbums;
  albums.AddNew({"AlbumName"}, {name});
  const std::int64_t id = albums.Collect("AlbumID").toInteger();
  albums.Requery();
  Connection& connection = folder.album().data.AlbumDB;
  connection.transaction([&] {
    int index = 0;
    for (const int number : photos)
      connection.execute("INSERT INTO SubAlbumPhotos (AlbumID, PhotoID, [Index]) VALUES (" +
                         std::to_string(id) + ", '" + photoId(number) + "', " +
                         std::to_string(index++) + ")");
  });
  return id;
}

/// The members of a sub-album and their numbers, as they are on the disk.
using Stored = std::vector<std::pair<std::string, std::int64_t>>;
inline Stored storedOrder(AlbumFolder& folder, std::int64_t albumId) {
  Recordset rows(folder.album().data.AlbumDB);
  rows.Open("SELECT * FROM SubAlbumPhotos WHERE AlbumID = " + std::to_string(albumId) +
            " ORDER BY SubAlbumPhotos.Index");
  Stored stored;
  for (; !rows.atEOF(); rows.MoveNext())
    stored.emplace_back(rows.Collect("PhotoID").toText(), rows.Collect("Index").toInteger());
  return stored;
}
inline std::vector<int> storedNumbers(AlbumFolder& folder, std::int64_t albumId) {
  std::vector<int> numbers;
  for (const auto& [id, index] : storedOrder(folder, albumId))
    numbers.push_back(std::stoi(id.substr(2)));
  return numbers;
}

} // namespace hearthbook::test
