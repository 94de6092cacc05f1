-- The hover help and the user's mail settings, first version. One transaction; the version is
-- written last. The rows of Help are added by the tool that makes the file.
BEGIN IMMEDIATE;

CREATE TABLE Help (
  RowKey   INTEGER PRIMARY KEY,
  helpID   TEXT NOT NULL UNIQUE COLLATE NOCASE,
  HelpText TEXT
);

CREATE TABLE Preferences (
  RowKey    INTEGER PRIMARY KEY,
  eMail     TEXT,
  EmailName TEXT,
  EmailHost TEXT
);

INSERT INTO Preferences DEFAULT VALUES;

PRAGMA user_version = 1;
COMMIT;
