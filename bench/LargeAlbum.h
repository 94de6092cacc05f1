#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook::bench {

/// A photo's fields as a plain program would hold them.
struct Photo {
  std::string PictureID;
  std::optional<std::int64_t> Year;
  std::optional<std::int64_t> PlaceID;
  std::optional<std::int64_t> EventID;
  std::optional<std::string> NamesInPhoto;
  std::optional<std::string> NamesCords;
  std::optional<std::string> Description;
};

/// Photos as a family describes them, the same in every run: some without a year, a place or
/// names, half with a sentence or two.
std::vector<Photo> manyPhotos(int count);

/// The bytes of the fields: of the texts, and eight for each number.
std::size_t bytesOf(const std::vector<Photo>& photos);

/// An album of `manyPhotos(count)`, made once and kept in the folder for temporary files while
/// the program runs.
const std::filesystem::path& largeAlbum(int count);

} // namespace hearthbook::bench
