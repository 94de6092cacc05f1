#include "AlbumFile.h"

#include "TextFunctions.h"

#include <sqlite3.h>

#include <cstdlib>
#include <stdexcept>

namespace hearthbook::test {

namespace {

/// The order of text is the same wherever the tests run. It is asked for at its first use.
[[maybe_unused]] const int fixedOrder = setenv("LC_ALL", "en_US.UTF-8", 1);

} // namespace

const char* const albumSchema = R"(
CREATE TABLE PhotoAlbum(RowKey INTEGER PRIMARY KEY,
  PictureID TEXT NOT NULL UNIQUE COLLATE NOCASE, Year INTEGER, PlaceID INTEGER, EventID INTEGER,
  NamesInPhoto TEXT, NamesCords TEXT, Description TEXT COLLATE HEARTHBOOK_TEXT);
CREATE TABLE Places(PlaceID INTEGER PRIMARY KEY AUTOINCREMENT,
  PlaceName TEXT NOT NULL COLLATE HEARTHBOOK_TEXT CHECK(length(PlaceName) <= 20));
CREATE TABLE Events(EventID INTEGER PRIMARY KEY AUTOINCREMENT,
  EventName TEXT NOT NULL COLLATE HEARTHBOOK_TEXT);
CREATE TABLE Appearances(AppearancesID INTEGER PRIMARY KEY AUTOINCREMENT,
  AppearancesNames TEXT NOT NULL COLLATE HEARTHBOOK_TEXT, AFirstName TEXT, ALastName TEXT,
  BirthDate TEXT, BirthYear INTEGER, relationID INTEGER);
CREATE TABLE SubAlbums(AlbumID INTEGER PRIMARY KEY AUTOINCREMENT,
  albumName TEXT COLLATE HEARTHBOOK_TEXT, Description TEXT);
CREATE TABLE SubAlbumPhotos(RowKey INTEGER PRIMARY KEY, AlbumID INTEGER,
  PhotoID TEXT COLLATE NOCASE, [Index] INTEGER);
CREATE TABLE Help(helpID TEXT NOT NULL PRIMARY KEY COLLATE NOCASE, HelpText TEXT);
CREATE TABLE Preferences(eMail TEXT, EmailName TEXT, EmailHost TEXT);
CREATE INDEX PhotosOfAlbum ON SubAlbumPhotos(AlbumID);
CREATE INDEX AlbumsOfPhoto ON SubAlbumPhotos(PhotoID);
PRAGMA user_version = 1;
)";

const char* const smallAlbum = R"(
INSERT INTO Places(PlaceName) VALUES('lake'), ('Home'), ('Évian');
INSERT INTO Events(EventName) VALUES('Wedding'), ('Birthday');
INSERT INTO Appearances(AppearancesNames, AFirstName, BirthYear, relationID) VALUES
  ('zoë', NULL, 1970, 0), ('Ann', 'Anna', NULL, 0), ('Émile', NULL, 1999, 2), ('bob', '', 1950, 0);
INSERT INTO PhotoAlbum(PictureID, Year, PlaceID, EventID, NamesInPhoto, NamesCords, Description)
  VALUES
  ('HD00003', 1990, 1, 2, '001,002,', '001-1000X2000,', 'At the lake'),
  ('HD00001', 1995, 2, NULL, NULL, NULL, NULL),
  ('CD00002', NULL, NULL, 1, '003,', NULL, 'Ärger am See'),
  ('HD00002', 1990, 3, 1, '002,', NULL, 'Bob''s house'),
  ('HD00005', NULL, 1, NULL, NULL, NULL, NULL),
  ('HD00004', 2001, 2, 2, '004,012,', NULL, 'a_b 100%');
INSERT INTO SubAlbums(albumName, Description) VALUES('summer', 'Warm days'), ('Children', NULL);
INSERT INTO SubAlbumPhotos(AlbumID, PhotoID, [Index]) VALUES
  (1, 'HD00003', 1), (1, 'HD00001', 0), (2, 'HD00003', 0), (1, 'HD00002', 2), (2, 'HD09999', 1);
INSERT INTO Help VALUES('Build Album*Add Event', 'Adds an event.'), ('Start*Help', 'Welcome.');
INSERT INTO Preferences VALUES('a@example.org', 'Ann', 'mail.example.org');
)";

void makeDatabase(const std::filesystem::path& file, const std::string& statements) {
  sqlite3* database = nullptr;
  sqlite3_open(file.c_str(), &database);
  registerTextFunctions(database);
  // Nobody would miss the file after a power cut, and waiting for the disk is most of the time.
  const std::string all = "PRAGMA synchronous = OFF; BEGIN;" + statements + "; COMMIT";
  const int result = sqlite3_exec(database, all.c_str(), nullptr, nullptr, nullptr);
  const std::string trouble = sqlite3_errmsg(database);
  sqlite3_close(database);
  if (result != SQLITE_OK)
    throw std::runtime_error(trouble);
}

AlbumFile::AlbumFile(const std::string& content) {
  makeDatabase(file, albumSchema + content);
  connection.Open(file);
}

std::string AlbumFile::all(Recordset& rows, std::string_view field) {
  std::string text;
  for (rows.MoveFirst(); !rows.atEOF(); rows.MoveNext()) {
    const Value value = rows.Collect(field);
    text += (text.empty() ? "" : " ") + (value.isNull() ? "-" : value.toText());
  }
  return text;
}

std::string AlbumFile::stored(const std::string& select) {
  Recordset rows(connection);
  rows.Open(select);
  if (rows.atEOF())
    return "no row";
  const Value value = rows.Collect(rows.fieldNames().front());
  return value.isNull() ? "Null" : value.toText();
}

} // namespace hearthbook::test
