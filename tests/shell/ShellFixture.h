#pragma once

#include "AlbumFolder.h"
#include "Connection.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace hearthbook::test {

/// An album folder of its own for each test, whose databases are still closed.
class ShellTest : public testing::Test {
protected:
  [[nodiscard]] Album& album() { return folder_.album(); }
  [[nodiscard]] const ApplicationFolder& folder() { return folder_.album().folder; }
  [[nodiscard]] std::filesystem::path live() { return folder().path("\\Data\\Photo_Album.mdb"); }
  [[nodiscard]] std::filesystem::path backup() {
    return folder().path("\\Backup\\Photo_Album.mdb");
  }
  void open() { folder_.open(); }

  /// Changes the closed album.
  void execute(const std::string& statement) {
    Connection connection;
    connection.Open(live());
    connection.execute(statement);
    connection.Close();
  }

  void addPhoto(const std::string& id, const std::string& year) {
    execute("INSERT INTO PhotoAlbum (PictureID, Year) VALUES ('" + id + "', " + year + ")");
  }

  void addSubAlbum(int id, const std::string& name, const std::vector<std::string>& photos,
                   const std::string& description = "NULL") {
    const std::string number = std::to_string(id);
    execute("INSERT INTO SubAlbums (AlbumID, albumName, Description) VALUES (" + number + ", '" +
            name + "', " + description + ")");
    for (std::size_t place = 0; place < photos.size(); ++place)
      execute("INSERT INTO SubAlbumPhotos (AlbumID, PhotoID, [Index]) VALUES (" + number + ", '" +
              photos[place] + "', " + std::to_string(place) + ")");
  }

  void makeBackup() {
    std::filesystem::create_directories(backup().parent_path());
    std::filesystem::copy_file(live(), backup());
  }

  AlbumFolder folder_;
};

} // namespace hearthbook::test
