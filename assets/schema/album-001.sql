-- The album, first version. One transaction; the version is written last, so that a file
-- without it is one that was never finished.
--
-- RowKey tells the record sets which row a line of an answer came from. Numbers given by the
-- database are never given twice. Names have the order HEARTHBOOK_TEXT, which the program brings
-- along. No index may use it, since other tools could not keep that in order; triggers see to it
-- that a name stands once. How long the name of a person may be, the forms that ask for it say:
-- one of them takes a longer one, to be shortened in its field.
BEGIN IMMEDIATE;

CREATE TABLE PhotoAlbum (
  RowKey       INTEGER PRIMARY KEY,
  PictureID    TEXT NOT NULL UNIQUE COLLATE NOCASE CHECK (length(PictureID) <= 7),
  Year         INTEGER CHECK (typeof(Year) <> 'text'),
  PlaceID      INTEGER CHECK (typeof(PlaceID) <> 'text'),
  EventID      INTEGER CHECK (typeof(EventID) <> 'text'),
  NamesInPhoto TEXT,
  NamesCords   TEXT,
  Description  TEXT COLLATE HEARTHBOOK_TEXT
);

CREATE TABLE Places (
  PlaceID   INTEGER PRIMARY KEY AUTOINCREMENT,
  PlaceName TEXT NOT NULL COLLATE HEARTHBOOK_TEXT CHECK (length(PlaceName) <= 20)
);

CREATE TABLE Events (
  EventID   INTEGER PRIMARY KEY AUTOINCREMENT,
  EventName TEXT NOT NULL COLLATE HEARTHBOOK_TEXT CHECK (length(EventName) <= 20)
);

CREATE TABLE Appearances (
  AppearancesID    INTEGER PRIMARY KEY AUTOINCREMENT,
  AppearancesNames TEXT NOT NULL COLLATE HEARTHBOOK_TEXT,
  AFirstName       TEXT COLLATE HEARTHBOOK_TEXT,
  ALastName        TEXT COLLATE HEARTHBOOK_TEXT,
  BirthDate        TEXT,
  BirthYear        INTEGER,
  relationID       INTEGER DEFAULT 0
);

CREATE TABLE SubAlbums (
  AlbumID     INTEGER PRIMARY KEY AUTOINCREMENT CHECK (AlbumID BETWEEN 1 AND 32767),
  albumName   TEXT COLLATE HEARTHBOOK_TEXT,
  Description TEXT COLLATE HEARTHBOOK_TEXT
);

CREATE TABLE SubAlbumPhotos (
  RowKey  INTEGER PRIMARY KEY,
  AlbumID INTEGER NOT NULL,
  PhotoID TEXT NOT NULL COLLATE NOCASE CHECK (length(PhotoID) <= 7),
  [Index] INTEGER
);
CREATE INDEX SubAlbumPhotosByPhoto ON SubAlbumPhotos (PhotoID);
CREATE INDEX SubAlbumPhotosByAlbum ON SubAlbumPhotos (AlbumID);

CREATE TRIGGER PlaceAdded BEFORE INSERT ON Places
  WHEN EXISTS (SELECT 1 FROM Places WHERE PlaceName = NEW.PlaceName)
  BEGIN SELECT RAISE(ABORT, 'this place is there already'); END;
CREATE TRIGGER PlaceRenamed BEFORE UPDATE OF PlaceName ON Places
  WHEN EXISTS (SELECT 1 FROM Places WHERE PlaceName = NEW.PlaceName AND PlaceID <> OLD.PlaceID)
  BEGIN SELECT RAISE(ABORT, 'this place is there already'); END;

CREATE TRIGGER EventAdded BEFORE INSERT ON Events
  WHEN EXISTS (SELECT 1 FROM Events WHERE EventName = NEW.EventName)
  BEGIN SELECT RAISE(ABORT, 'this event is there already'); END;
CREATE TRIGGER EventRenamed BEFORE UPDATE OF EventName ON Events
  WHEN EXISTS (SELECT 1 FROM Events WHERE EventName = NEW.EventName AND EventID <> OLD.EventID)
  BEGIN SELECT RAISE(ABORT, 'this event is there already'); END;

CREATE TRIGGER PersonAdded BEFORE INSERT ON Appearances
  WHEN EXISTS (SELECT 1 FROM Appearances WHERE AppearancesNames = NEW.AppearancesNames)
  BEGIN SELECT RAISE(ABORT, 'this name is there already'); END;
CREATE TRIGGER PersonRenamed BEFORE UPDATE OF AppearancesNames ON Appearances
  WHEN EXISTS (SELECT 1 FROM Appearances WHERE AppearancesNames = NEW.AppearancesNames
               AND AppearancesID <> OLD.AppearancesID)
  BEGIN SELECT RAISE(ABORT, 'this name is there already'); END;

INSERT INTO PhotoAlbum (PictureID) VALUES ('HD00001');

PRAGMA user_version = 1;
COMMIT;
