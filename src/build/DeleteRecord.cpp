#include "DeleteRecord.h"

#include "DBeditor.h"
#include "Forms.h"
#include "MsgBox.h"

namespace hearthbook {

namespace {

void openEditorAnew() {
  auto& former = Forms::get<DBeditor>();
  const QString caption = former.caption();
  former.Unload();
  auto& editor = Forms::get<DBeditor>();
  editor.setCaption(caption);
  editor.Show();
}

} // namespace

void DeleteRecord(Album& album) {
  if (MsgBox(QStringLiteral("Are you sure you want to delete this record?"), {}, MsgIcon::None,
             MsgButtons::YesNo) != MsgAnswer::Yes)
    return;
  Recordset& photos = album.data.rsPhotoAlbum;
  const std::int64_t position = photos.AbsolutePosition();
  photos.Delete();
  photos.UpdateBatch();
  photos.Requery();
  openEditorAnew();
  photos.Move(position - 1);
  Forms::get<DBeditor>().ComposeRecord();
}

} // namespace hearthbook
