#include "SubAlbums.h"

#include "AudioFiles.h"
#include "Connection.h"
#include "RepeatedStatement.h"
#include "Words.h"

#include <set>

namespace hearthbook {

namespace {

constexpr const char* stripText =
    "SELECT SubAlbumPhotos.*, PhotoAlbum.*, Events.EventName, Places.PlaceName FROM "
    "((SubAlbumPhotos LEFT JOIN PhotoAlbum ON SubAlbumPhotos.PhotoID = PhotoAlbum.PictureID) LEFT "
    "JOIN Events ON PhotoAlbum.EventID = Events.EventID) LEFT JOIN Places ON PhotoAlbum.PlaceID = "
    "Places.PlaceID WHERE SubAlbumPhotos.AlbumID = ";

constexpr const char* appending =
    "INSERT INTO SubAlbumPhotos (PhotoID, AlbumID, [Index]) VALUES (?, ?, ?)";

struct Arrangement {
  const char* choice;
  const char* clause;
};

constexpr Arrangement clauses[] = {
    {"By Year", " ORDER BY PhotoAlbum.Year, PhotoAlbum.PictureID"},
    {"By Event", " ORDER BY Events.EventName, PhotoAlbum.PictureID"},
    {"By Place", " ORDER BY Places.PlaceName, PhotoAlbum.PictureID"},
    {"By scan order", " ORDER BY PhotoAlbum.PictureID"},
};

/// A text for a statement or criterion.
std::string quotedText(std::string_view text) { return "'" + doubled(text, '\'') + "'"; }

/// The place behind the last one counts the new row too.
void appendMember(Recordset& members, std::string_view albumId, const std::string& photoId) {
  const std::int64_t place = members.RecordCount();
  members.AddNew({"PhotoID", "AlbumID", "Index"}, {photoId, std::string(albumId), place});
}

/// Ids are the same whatever the case of their letters.
std::set<std::string> memberKeys(Recordset& members) {
  std::set<std::string> keys;
  if (members.RecordCount() > 0)
    members.MoveFirst();
  for (; !members.atEOF(); members.MoveNext())
    keys.insert(asciiLower(members.Collect("PhotoID").toText()));
  return keys;
}

std::string audioName(const std::string& albumId) { return albumAudioName(std::stoll(albumId)); }

void standOnFirst(Recordset& rows) {
  if (rows.RecordCount() > 0)
    rows.MoveFirst();
}

} // namespace

std::string stripQuery(std::string_view albumId, std::string_view sortClause) {
  return stripText + std::string(albumId) + std::string(sortClause);
}

std::optional<std::string_view> arrangeClause(std::string_view choice) {
  for (const Arrangement& arrangement : clauses)
    if (choice == arrangement.choice)
      return arrangement.clause;
  return std::nullopt;
}

bool findSubAlbum(Recordset& rsSubAlbums, std::string_view albumId) {
  if (rsSubAlbums.RecordCount() == 0)
    return false;
  rsSubAlbums.MoveFirst();
  rsSubAlbums.Find("AlbumID = " + quotedText(albumId));
  return !rsSubAlbums.atEOF();
}

std::int64_t createSubAlbum(Recordset& rsSubAlbums, const std::string& name) {
  try {
    rsSubAlbums.AddNew({"AlbumName", "Description"}, {name, Value()});
  } catch (...) {
    if (rsSubAlbums.isPending())
      rsSubAlbums.CancelUpdate();
    throw;
  }
  const std::int64_t albumId = rsSubAlbums.Collect("AlbumID").toInteger();
  rsSubAlbums.Requery();
  rsSubAlbums.Find("AlbumName = " + quotedText(name));
  return albumId;
}

void deleteSubAlbum(Album& album, const std::string& albumId) {
  AlbumData& data = album.data;
  removeAudio(album, audioName(albumId));
  try {
    data.AlbumDB.transaction([&] {
      if (findSubAlbum(data.rsSubAlbums, albumId)) {
        data.rsSubAlbums.Delete();
        data.rsSubAlbums.UpdateBatch();
      }
      AlbumData::execute(data.rsSubAlbumPhotos,
                         "DELETE FROM SubAlbumPhotos WHERE AlbumID = " + albumId);
    });
  } catch (...) {
    data.rsSubAlbums.Requery(); // it may have let go of a row that is still there
    findSubAlbum(data.rsSubAlbums, albumId);
    throw;
  }
  standOnFirst(data.rsSubAlbums);
}

bool hasAlbumSound(const Album& album, const std::string& albumId) {
  return attachedAudio(album, audioName(albumId)).has_value();
}

bool addMember(Recordset& members, std::string_view albumId, const std::string& photoId) {
  members.Filter("PhotoID = " + quotedText(photoId));
  const bool isMember = members.RecordCount() > 0;
  members.Filter("");
  if (isMember)
    return false;
  appendMember(members, albumId, photoId);
  members.MoveFirst();
  return true;
}

void addMembers(Recordset& members, std::string_view albumId,
                const std::vector<std::string>& photoIds) {
  std::set<std::string> keys = memberKeys(members);
  members.connection().transaction([&] {
    RepeatedStatement append(members.connection(), appending);
    const std::int64_t album = std::stoll(std::string(albumId));
    std::int64_t place = members.RecordCount();
    for (const std::string& id : photoIds)
      if (keys.insert(asciiLower(id)).second)
        append.run({id, album, place++});
  });
  members.Requery();
}

void removeMember(Recordset& members, std::string_view albumId, std::string_view photoId) {
  AlbumData::execute(members, "DELETE FROM SubAlbumPhotos WHERE AlbumID = " + std::string(albumId) +
                                  " AND PhotoID = " + quotedText(photoId));
}

std::vector<std::string> photosOfResult(PublicVar& vars) {
  const auto result = vars.rsSearch->Clone();
  std::vector<std::string> ids;
  if (vars.selection.SelectedCount == 0) {
    for (; !result->atEOF(); result->MoveNext())
      ids.push_back(result->Collect("PictureID").toText());
    return ids;
  }
  vars.selection.sort();
  for (const std::int64_t position : vars.selection.rising()) {
    result->Move(position - 1, Recordset::Start::First);
    if (!result->atEOF())
      ids.push_back(result->Collect("PictureID").toText());
  }
  return ids;
}

} // namespace hearthbook
