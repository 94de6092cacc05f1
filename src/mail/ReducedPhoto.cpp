#include "ReducedPhoto.h"

#include "Decode.h"
#include "Encode.h"
#include "MUUEncode.h"
#include "Numbers.h"
#include "Twips.h"

#include <algorithm>
#include <utility>

namespace hearthbook {

namespace {

constexpr int mailFactor = 5;
constexpr double widest = 320;
constexpr double highest = 240;

/// A photo thinner than that has a side of one pixel all the same.
int pixels(double side) { return std::max(1, static_cast<int>(roundHalfEven(side))); }

/// One byte more, which changes no pixel: before each marker a JPEG may have any number of 0xFF.
/// It stands behind the head, whose own places are fixed.
std::string withFillByte(std::string jpeg) {
  constexpr std::size_t lengthOfHead = 4; // behind the marks of the picture and of its head
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(jpeg.at(at)); };
  const std::size_t length = std::size_t{byte(lengthOfHead)} << 8 | byte(lengthOfHead + 1);
  return jpeg.insert(lengthOfHead + length, 1, '\xFF');
}

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
  std::string jpeg = jpegBytes(decoded.picture, mailFactor);
  return lastUuLineBeginsWithDot(jpeg.size()) ? withFillByte(std::move(jpeg)) : jpeg;
}

} // namespace hearthbook
