#include "BuildAlbum.h"

namespace hearthbook {

namespace {

void reopenWholeAlbum(Recordset& photos) {
  photos.Close();
  photos.Open("SELECT * FROM PhotoAlbum Order By PictureID");
}

} // namespace

void buildFromFirstUndatedPhoto(Album& album) {
  Recordset& photos = album.data.rsPhotoAlbum;
  reopenWholeAlbum(photos);
  if (photos.RecordCount() > 0) {
    photos.Find("Year = Null");
    if (photos.atEOF())
      photos.MoveFirst();
  }
  album.vars.CallerForm = "DBeditor";
}

void buildFromFirstPhoto(Album& album) {
  reopenWholeAlbum(album.data.rsPhotoAlbum);
  album.data.rsPhotoAlbum.Filter("");
  album.vars.CallerForm = "DBeditor";
}

} // namespace hearthbook
