#include "AlbumData.h"

#include "Ascii.h"
#include "RunTimeError.h"
#include "Words.h"

namespace hearthbook {
namespace {

/// One blank between the words, none around them.
std::string withSingleBlanks(std::string_view statement) {
  std::string text;
  bool blankWaits = false;
  for (const char c : statement) {
    if (isAsciiBlank(c)) {
      blankWaits = !text.empty();
      continue;
    }
    if (blankWaits)
      text += ' ';
    blankWaits = false;
    text += c;
  }
  return text;
}

} // namespace

AlbumData::AlbumData()
    : rsEvents(AlbumDB), rsPhotoAlbum(AlbumDB), rsPlaces(AlbumDB), rsAppearances(AlbumDB),
      rsSubAlbums(AlbumDB), rsSubAlbumPhotos(AlbumDB) {}

void AlbumData::openRecordsets() {
  rsEvents.Open(sources::events);
  rsPhotoAlbum.Open(sources::photoAlbum);
  rsPlaces.Open(sources::places);
  rsAppearances.Open(sources::appearances);
  rsSubAlbums.Open(sources::subAlbums);
  rsSubAlbumPhotos.Open(sources::subAlbumPhotos);
}

void AlbumData::execute(Recordset& through, std::string_view statement) {
  const std::string source = through.Source();
  through.Close(); // where its edits cannot be stored, it stays as it is
  try {
    through.Open(statement);
  } catch (const RunTimeError&) {
    through.Open(source);
    throw;
  }
  through.Open(source);
}

bool standsOnWholeAlbum(const Recordset& photoAlbum) {
  return photoAlbum.isOpen() && photoAlbum.Filter().empty() &&
         sameIgnoringCase(withSingleBlanks(photoAlbum.Source()),
                          withSingleBlanks(sources::photoAlbum));
}

} // namespace hearthbook
