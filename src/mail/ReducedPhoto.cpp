#include "ReducedPhoto.h"

#include "Decode.h"
#include "Encode.h"
#include "Numbers.h"
#include "Twips.h"

#include <algorithm>
#include <sstream>

namespace hearthbook {

namespace {

constexpr int mailFactor = 5;
constexpr double widest = 320;
constexpr double highest = 240;

/// A photo thinner than that has a side of one pixel all the same.
int pixels(double side) { return std::max(1, static_cast<int>(roundHalfEven(side))); }

} // namespace

std::optional<PixelSize> mailedSize(PixelSize photo) {
  const double width = photo.width * twipsPerPixel;
  const double height = photo.height * twipsPerPixel;
  if (width > widest && height != 0)
    return PixelSize{pixels(widest), pixels(widest / width * height)};
  if (height > highest && width != 0)
    return PixelSize{pixels(highest / height * width), pixels(highest)};
  return std::nullopt;
}

std::string reducedForMail(const std::filesystem::path& photo) {
  const auto size = mailedSize(readPictureInfo(photo).size);
  const Decoded decoded = size ? decodePictureAt(photo, *size) : decodePicture(photo);
  std::ostringstream jpeg;
  writeJpeg(jpeg, decoded.picture, mailFactor);
  return std::move(jpeg).str();
}

} // namespace hearthbook
