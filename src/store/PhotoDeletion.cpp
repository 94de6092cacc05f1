#include "PhotoDeletion.h"

#include "PhotoFiles.h"
#include "PhotoIdentity.h"
#include "SafeFile.h"
#include "Trash.h"

namespace hearthbook {
namespace {

void trash(const Album& album, const std::filesystem::path& file) {
  if (fileExists(file))
    moveToTrash(file, album.folder.path("\\Backup"));
}

/// Opened again first: Add To Sub-Album may have left the set on one album's rows.
void deleteMemberships(Recordset& members, const std::vector<std::string>& pictureIds) {
  members.Open(sources::subAlbumPhotos);
  members.Filter(photosCriterion("PhotoID", pictureIds));
  members.Delete(Recordset::Affect::Group);
  members.UpdateBatch();
  members.Filter("");
}

void standAt(Recordset& photos, std::int64_t offset) {
  if (photos.RecordCount() == 0)
    return;
  photos.MoveFirst();
  photos.Move(offset);
  if (photos.atEOF())
    photos.MoveLast();
  else if (photos.atBOF())
    photos.MoveFirst();
}

} // namespace

bool isProtectedPhoto(std::string_view pictureId) { return pictureId == "HD00001"; }

void deletePhotoFiles(const Album& album, const std::string& pictureId) {
  if (originOf(pictureId) == PhotoOrigin::HardDisk) {
    trash(album, *imagePath(album, pictureId));
    deleteFile(album.folder.path("\\Thumbnails\\" + stemOf(pictureId) + ".jpg"));
  }
  // Without a look at the prefix: the sound of a disc photo lies on the hard disk too.
  for (const auto& sound : album.folder.filesWithStem("\\Audio\\", stemOf(pictureId)))
    trash(album, sound);
}

void deletePhotoRows(Album& album, Recordset& photos, Recordset::Affect affect,
                     const std::vector<std::string>& pictureIds) {
  if (pictureIds.empty())
    return;
  try {
    album.data.AlbumDB.transaction([&] {
      photos.Delete(affect);
      photos.UpdateBatch();
      deleteMemberships(album.data.rsSubAlbumPhotos, pictureIds);
    });
  } catch (...) {
    album.data.rsSubAlbumPhotos.Open(sources::subAlbumPhotos);
    throw;
  }
}

void deletePhoto(Album& album) {
  Recordset& photos = album.data.rsPhotoAlbum;
  const std::int64_t back = photos.AbsolutePosition() - 1;
  const std::string id = photos.Collect("PictureID").toText();
  deletePhotoFiles(album, id);
  try {
    deletePhotoRows(album, photos, Recordset::Affect::Current, {id});
  } catch (...) {
    photos.Requery(); // it has let go of a row that is still there
    standAt(photos, back);
    throw;
  }
  standAt(photos, back);
}

} // namespace hearthbook
