#include "AlbumPages.h"

#include "Forms.h"
#include "Text.h"
#include "Viewer.h"

namespace hearthbook {

void closeAlbumPages() {
  if (auto* open = Forms::loaded<Viewer>())
    open->Unload();
}

void showAlbumPages(const OpenedAlbum& opened) {
  auto& viewer = Forms::get<Viewer>();
  viewer.setCaption(toQString(opened.caption));
  viewer.Tag = toQString(opened.tag);
  viewer.allowSubAlbumEdit(opened.isSubAlbum);
  viewer.Show();
}

void renameAlbumPages(int albumId, const QString& name) {
  auto* open = Forms::loaded<Viewer>();
  if (open && open->Tag == QString::number(albumId))
    open->setCaption(toQString(captionOfPages(toUtf8(name))));
}

void showResultPages(const QString& caption) {
  auto& viewer = Forms::get<Viewer>();
  viewer.setCaption(caption);
  viewer.Show();
}

} // namespace hearthbook
