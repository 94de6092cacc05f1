#include "BuildAlbum.h"

namespace hearthbook {

namespace {

constexpr const char* wholeAlbum = "SELECT * FROM PhotoAlbum Order By PictureID";

} // namespace

void buildFromFirstUndatedPhoto(Album& album) {
  Recordset& photos = album.data.rsPhotoAlbum;
  photos.Open(wholeAlbum);
  if (photos.RecordCount() > 0) {
    photos.Find("Year = Null");
    if (photos.atEOF())
      photos.MoveFirst();
  }
  album.vars.CallerForm = "DBeditor";
}

void buildFromFirstPhoto(Album& album) {
  album.data.rsPhotoAlbum.Open(wholeAlbum);
  album.data.rsPhotoAlbum.Filter("");
  album.vars.CallerForm = "DBeditor";
}

} // namespace hearthbook
