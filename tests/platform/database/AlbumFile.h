#pragma once

#include "Connection.h"
#include "Recordset.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook::test {

/// Makes a database file with the program's order of text and runs the statements in it.
void makeDatabase(const std::filesystem::path& file, const std::string& statements);

/// The tables of an album, without rows.
extern const char* const albumSchema;

/// Six photos, three places, two events, four people, two sub-albums; keys and texts are such
/// that each order differs from the others.
extern const char* const smallAlbum;

/// An open album of its own for one test.
class AlbumFile : public testing::Test {
protected:
  AlbumFile() : AlbumFile(smallAlbum) {}
  explicit AlbumFile(const std::string& content);

  /// The field of all rows that the set shows, joined by blanks; Null as "-". Leaves the set
  /// at its end.
  static std::string all(Recordset& rows, std::string_view field);

  /// The first column of the first row of a select, as the file holds it now.
  std::string stored(const std::string& select);

  TemporaryFolder folder;
  std::filesystem::path file = folder.path() / "Photo_Album.mdb";
  Connection connection;
};

class EmptyAlbumFile : public AlbumFile {
protected:
  EmptyAlbumFile() : AlbumFile("") {}
};

} // namespace hearthbook::test
