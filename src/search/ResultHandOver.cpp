#include "ResultHandOver.h"

namespace hearthbook {

namespace {

void reopen(Recordset& photos, const std::string& statement) {
  photos.Filter(""); // positions count all rows
  photos.Close();
  photos.Open(statement); // and stands on the first photo, if there is any
}

} // namespace

void openResultForEditing(Album& album) {
  Recordset& photos = album.data.rsPhotoAlbum;
  SelectionSet& selection = album.vars.selection;
  reopen(photos, album.vars.rsSearch->Source());
  if (selection.SelectedCount == 1)
    photos.Move(selection.first().value_or(1) - 1, Recordset::Start::First);
  if (selection.SelectedCount <= 1)
    return;
  selection.sortAndGrow();
  reopen(photos, selectedPhotosStatement(selection, photos));
}

void openResultForViewing(Album& album) {
  album.vars.rsViewer = album.vars.rsSearch->Clone();
  album.vars.CallerForm = "Search";
}

bool openResultForZoom(Album& album, int cell) {
  PublicVar& vars = album.vars;
  vars.rsZoom = vars.rsSearch->Clone();
  const std::int64_t position = vars.PagePositions.at(static_cast<std::size_t>(cell)).toInteger();
  vars.rsZoom->Move(position - 1, Recordset::Start::First);
  return !vars.rsZoom->atBOF() && !vars.rsZoom->atEOF();
}

} // namespace hearthbook
