#pragma once

#include <filesystem>

namespace hearthbook {

/// What the tool makes an album from.
struct BigAlbumPlan {
  std::filesystem::path schemaFolder;
  std::filesystem::path helpRows;
  int photos = 10'000; ///< 1 to 99,999
};

/// Makes both databases of an application folder, the album with as many rows as wanted, each
/// with a year, a place, an event, people and a sentence. The photos themselves are not made.
/// Throws RunTimeError; databases that are there are never touched.
void makeBigAlbum(const std::filesystem::path& folder, const BigAlbumPlan& plan);

} // namespace hearthbook
