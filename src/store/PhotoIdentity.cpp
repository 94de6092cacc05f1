#include "PhotoIdentity.h"

#include "Numbers.h"
#include "RunTimeError.h"

#include <algorithm>
#include <limits>

namespace hearthbook {
namespace {

constexpr std::string_view hardDiskPrefix = "HD";
constexpr std::string_view discPrefix = "CD";

std::string_view from(std::string_view text, std::size_t start) {
  return text.substr(std::min(start, text.size()));
}

} // namespace

PhotoOrigin originOf(std::string_view pictureId) {
  if (pictureId.starts_with(hardDiskPrefix))
    return PhotoOrigin::HardDisk;
  return pictureId.starts_with(discPrefix) ? PhotoOrigin::Disc : PhotoOrigin::Other;
}

std::string stemOf(std::string_view pictureId) {
  return std::string(from(pictureId, hardDiskPrefix.size()));
}

std::int16_t nextPhotoNumber(Recordset& photoAlbum) {
  if (photoAlbum.atBOF() && photoAlbum.atEOF())
    return 1;
  photoAlbum.MoveLast();
  const std::string last = photoAlbum.Collect("PictureID").toText();
  const std::int64_t number = leadingNumber(from(last, hardDiskPrefix.size() + 1));
  if (number >= std::numeric_limits<std::int16_t>::max())
    throw RunTimeError("No number follows that of the photo \"" + last + "\".", 6);
  return static_cast<std::int16_t>(number + 1);
}

std::string hardDiskId(std::int16_t number) {
  return std::string(hardDiskPrefix) + padded(number, 5);
}

std::string photosCriterion(std::string_view field, const std::vector<std::string>& pictureIds) {
  std::string criterion;
  for (const std::string& id : pictureIds)
    criterion += (criterion.empty() ? "" : " Or ") + std::string(field) + " = '" + id + "'";
  return criterion;
}

} // namespace hearthbook
