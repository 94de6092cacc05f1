#pragma once

#include "Album.h"
#include "SafeFile.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>

namespace hearthbook::test {

/// The album of a folder as the next start finds it.
class FoundAlbum {
public:
  explicit FoundAlbum(const std::filesystem::path& root) : album_{ApplicationFolder(root)} {
    for (const char* folder : {"Photos", "Thumbnails", "Data"})
      removeLeftovers(root / folder);
    album_.data.AlbumDB.Open(root / "Data/Photo_Album.mdb");
    album_.data.openRecordsets();
    EXPECT_TRUE(album_.data.AlbumDB.passesQuickCheck());
  }

  Album& album() { return album_; }
  AlbumData& data() { return album_.data; }
  std::int64_t count(const std::string& select) {
    Recordset rows(album_.data.AlbumDB);
    rows.Open(select);
    return rows.RecordCount();
  }

private:
  Album album_;
};

} // namespace hearthbook::test
