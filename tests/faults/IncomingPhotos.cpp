#include "IncomingPhotos.h"

#include "Decode.h"
#include "FileBytes.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace hearthbook::test {
namespace fs = std::filesystem;
namespace {

bool isFileIn(const fs::path& folder, const std::string& bytes) {
  return std::ranges::any_of(namesIn(folder), [&](const std::string& name) {
    return fs::is_regular_file(folder / name) && readBytes(folder / name) == bytes;
  });
}

} // namespace

IncomingPhotos::IncomingPhotos(const fs::path& root) {
  const Picture picture = corners({120, 90});
  photos_["a kept.jpg"] = {jpegOf(picture), true};
  photos_["b converted.png"] = {encodedBy("png", picture), false};
  photos_["c reduced.jpg"] = {jpegOfLength(picture, 302000), false};
  for (const auto& [name, photo] : photos_)
    writeBytes(root / "incoming" / name, photo.bytes);
}

int IncomingPhotos::add(const fs::path& root, bool move) const {
  Album album((ApplicationFolder(root)));
  album.data.AlbumDB.Open(root / "Data/Photo_Album.mdb");
  album.data.openRecordsets();
  WorkPool pool(1);
  AddPhotosRequest request;
  for (const auto& [name, photo] : photos_)
    request.list.push_back(root / "incoming" / name);
  request.selected.assign(request.list.size(), true);
  request.move = move;
  request.reduce = true;
  int failures = 0;
  AddPhotosListener listener;
  listener.failed = [&](const fs::path&, const std::exception&) { ++failures; };
  addPhotos(album, pool, request, listener);
  return failures;
}

void IncomingPhotos::expectNoneLost(const fs::path& root, const fs::path& trash) const {
  for (const auto& [name, photo] : photos_) {
    const fs::path source = root / "incoming" / name;
    const bool there = fs::exists(source) && readBytes(source) == photo.bytes;
    EXPECT_TRUE(there || isFileIn(photo.keptAsItIs ? root / "Photos" : trash, photo.bytes) ||
                isFileIn(root / "Backup", photo.bytes))
        << name << " is gone";
  }
}

void IncomingPhotos::expectWholePictures(const fs::path& root) {
  for (const char* folder : {"Photos", "Thumbnails"}) {
    for (const std::string& name : namesIn(root / folder)) {
      const bool unfinished = name.starts_with(".");
      EXPECT_TRUE(unfinished || !decodePicture(root / folder / name).cut) << folder << "/" << name;
    }
  }
}

} // namespace hearthbook::test
