#include "OpenAlbum.h"

namespace hearthbook {

namespace {

std::string photosOfSubAlbum(int albumId) {
  return "SELECT PhotoAlbum.* From PhotoAlbum, SubAlbumPhotos Where PhotoAlbum.PictureID = "
         "SubAlbumPhotos.PhotoID AND (SubAlbumPhotos.AlbumID = " +
         std::to_string(albumId) + ") ORDER BY SubAlbumPhotos.`Index`";
}

std::optional<OpenedAlbum> openSubAlbum(Album& album, int albumId, const std::string& name,
                                        const std::function<void(int)>& bar) {
  bar(20);
  album.vars.rsViewer->Open(photosOfSubAlbum(albumId));
  album.vars.CallerForm = "Viewer";
  if (album.vars.rsViewer->RecordCount() < 1)
    return std::nullopt;
  for (const int value : {30, 40, 50, 60, 100})
    bar(value);
  return OpenedAlbum{captionOfPages(name), std::to_string(albumId), true};
}

OpenedAlbum openMasterAlbum(Album& album, const std::function<void(int)>& bar) {
  bar(10);
  album.vars.CallerForm = "Viewer";
  album.vars.rsViewer->Open("SELECT * FROM PhotoAlbum Order By Year, PictureID");
  if (album.vars.rsViewer->RecordCount() > 0)
    album.vars.rsViewer->MoveFirst();
  for (const int value : {20, 30, 40, 50, 60, 80, 100})
    bar(value);
  return {"Viewing Master Album", "0", false};
}

} // namespace

std::string captionOfPages(const std::string& albumName) { return "Viewing Album: " + albumName; }

std::optional<OpenedAlbum> openAlbum(Album& album, int albumId, const std::string& name,
                                     const std::function<void(int)>& bar) {
  bar(0);
  album.vars.rsViewer = album.data.rsPhotoAlbum.Clone();
  if (albumId == 0)
    return openMasterAlbum(album, bar);
  return openSubAlbum(album, albumId, name, bar);
}

} // namespace hearthbook
