#include "ScanCommands.h"

#include "Forms.h"
#include "MsgBox.h"
#include "PhotoFiles.h"
#include "PhotoIdentity.h"
#include "Pointer.h"
#include "Scan.h"

#include <string>

namespace hearthbook {

namespace {

void openScan(Form& editor, const QString& use) {
  editor.Tag = use;
  auto& scan = Forms::get<Scan>();
  scan.Tag = editor.Tag;
  scan.begin();
  scan.ShowModal();
}

/// The next number is made from the last row, which these rows do not have yet.
void readPhotosAgain(Recordset& photos, const std::string& id) {
  photos.Requery();
  photos.Find("PictureID = '" + id + "'", Recordset::Start::First);
}

} // namespace

void addFromScanner(Form& editor) { openScan(editor, QStringLiteral("Scan")); }

bool editImage(Album& album, Form& editor) {
  Recordset& photos = album.data.rsPhotoAlbum;
  const std::string id = photos.Collect("PictureID").toText();
  if (originOf(id) == PhotoOrigin::Disc) {
    MsgBox(QStringLiteral("Sorry, can't edit image from CD-ROM!"), QStringLiteral("Edit Image"),
           MsgIcon::Critical);
    return false;
  }
  const Hourglass hourglass;
  resolveImage(album, id); // what another form has looked up last is not meant
  bool isCut = false;
  const auto listening =
      QObject::connect(&Forms::get<Scan>(), &Scan::photoCut, &editor, [&] { isCut = true; });
  openScan(editor, QStringLiteral("edit"));
  QObject::disconnect(listening);
  if (isCut && standsOnWholeAlbum(photos))
    readPhotosAgain(photos, id);
  return true;
}

} // namespace hearthbook
