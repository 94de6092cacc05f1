#include "AlbumFolder.h"

#include "DatabaseMaker.h"
#include "FileBytes.h"
#include "PhotoIdentity.h"
#include "TemplateWaves.h"
#include "TestPictures.h"
#include "Words.h"

namespace hearthbook::test {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view emptyGif{"GIF89a\1\0\1\0\x80\0\0\0\0\0\xFF\xFF\xFF,\0\0\0\0\1\0\1\0\0"
                                    "\2\2D\1\0;",
                                    35};

std::string literalOf(const Value& value) {
  if (value.isNull())
    return "Null";
  return value.isText() ? "'" + doubled(value.toText(), '\'') + "'" : value.toText();
}

/// The pictures that the build has rendered; where it has not, the one that none can miss.
void copyMedia(const fs::path& media) {
  if (fs::is_directory(fs::path(HEARTHBOOK_STAGED) / "Media"))
    fs::copy(fs::path(HEARTHBOOK_STAGED) / "Media", media, fs::copy_options::recursive);
  if (!fs::exists(media / "NotFound.gif"))
    writeBytes(media / "NotFound.gif", emptyGif);
}

void makeFolders(const fs::path& root) {
  for (const char* folder :
       {"Data", "Backup", "Photos", "Thumbnails", "Audio", "Media", "help", "export"})
    fs::create_directories(root / folder);
}

std::unique_ptr<Album> albumIn(const fs::path& root, const FakeDrives& drives) {
  return std::make_unique<Album>(ApplicationFolder(root), Drives(drives.roots()));
}

} // namespace

AlbumFolder::AlbumFolder()
    : dataHome_("XDG_DATA_HOME", (folder_.path() / "data").string()),
      drives_(folder_.path() / "machine"), root_(folder_.path() / "Hearthbook") {
  makeFolders(root_);
  copyMedia(root_ / "Media");
  makeTemplateWaves(ApplicationFolder(root_));
  makeAlbumDatabase(at("Data/Photo_Album.mdb"), HEARTHBOOK_SCHEMA);
  makeHelpDatabase(at("Data/Help.mdb"), HEARTHBOOK_SCHEMA,
                   readHelpRows(fs::path(HEARTHBOOK_HELP_ROWS)));
  writeJpeg(at("Photos/00001.jpg"));
  writeJpeg(at("Thumbnails/00001.jpg"), 73, 55);
  album_ = albumIn(root_, drives_);
}

void AlbumFolder::open() {
  album_->data.AlbumDB.Open(at("Data/Photo_Album.mdb"));
  album_->helpConnection.Open(at("Data/Help.mdb"));
  album_->vars.rsHelp = std::make_unique<Recordset>(album_->helpConnection);
  album_->vars.rsHelp->Open("SELECT * FROM Help");
  album_->data.openRecordsets();
}

void AlbumFolder::close() {
  album_->data.AlbumDB.Close();
  album_ = albumIn(root_, drives_);
}

fs::path AlbumFolder::at(const std::string& relative) const { return root_ / relative; }

fs::path AlbumFolder::trash() const { return folder_.path() / "data/Trash/files"; }

void AlbumFolder::addRow(const std::string& table, const Fields& fields) {
  std::string names;
  std::string values;
  for (const auto& [name, value] : fields) {
    names += (names.empty() ? "[" : ", [") + name + "]";
    values += (values.empty() ? "" : ", ") + literalOf(value);
  }
  album_->data.AlbumDB.execute("INSERT INTO " + table + " (" + names + ") VALUES (" + values + ")");
}

void AlbumFolder::addPhoto(const std::string& id, const Fields& fields) {
  Fields row = fields;
  row["PictureID"] = id;
  addRow("PhotoAlbum", row);
  if (originOf(id) == PhotoOrigin::HardDisk) {
    writeJpeg(at("Photos/" + stemOf(id) + ".jpg"));
    writeJpeg(at("Thumbnails/" + stemOf(id) + ".jpg"), 73, 55);
  }
  album_->data.rsPhotoAlbum.Requery();
}

std::int64_t AlbumFolder::addNamed(const std::string& table, const std::string& key,
                                   const Fields& fields, Recordset& shared) {
  addRow(table, fields);
  Recordset last(album_->data.AlbumDB);
  last.Open("SELECT * FROM " + table + " ORDER BY " + key);
  last.MoveLast();
  shared.Requery();
  return last.Collect(key).toInteger();
}

std::int64_t AlbumFolder::addPlace(const std::string& name) {
  return addNamed("Places", "PlaceID", {{"PlaceName", name}}, album_->data.rsPlaces);
}

std::int64_t AlbumFolder::addEvent(const std::string& name) {
  return addNamed("Events", "EventID", {{"EventName", name}}, album_->data.rsEvents);
}

std::int64_t AlbumFolder::addPerson(const std::string& name, std::int64_t relationId) {
  return addNamed("Appearances", "AppearancesID",
                  {{"AppearancesNames", name}, {"relationID", relationId}},
                  album_->data.rsAppearances);
}

void writeJpeg(const fs::path& file, int width, int height, unsigned colour) {
  writeBytes(file, jpegOf(plain({width, height}, 0xff000000U | colour)));
}

} // namespace hearthbook::test
