#include "Decode.h"

#include "PictureFile.h"
#include "Resample.h"

#include <exception>

namespace hearthbook {

namespace {

PixelSize fullSizeOf(const PictureFile::Head& head) {
  return uprightSize(head.size, head.orientation);
}

/// Reads at least `atLeast` (upright) and puts it upright; resamples to it where `exactly`.
Decoded decodeOpened(PictureFile& file, PixelSize atLeast, bool exactly) {
  const int orientation = file.head().orientation;
  const PixelSize stored = uprightSize(atLeast, orientation); // its own inverse
  auto pixels = file.read(stored);
  if (exactly)
    pixels.picture = resample(pixels.picture, stored);
  return {uprighted(pixels.picture, orientation), pixels.cut, fullSizeOf(file.head())};
}

} // namespace

PictureInfo readPictureInfo(const std::filesystem::path& file) {
  const auto head = openPictureFile(file)->head();
  return {fullSizeOf(head), head.orientation, formatName(head.format)};
}

Decoded decodePicture(const std::filesystem::path& file) {
  const auto opened = openPictureFile(file);
  return decodeOpened(*opened, fullSizeOf(opened->head()), false);
}

Decoded decodePictureAt(const std::filesystem::path& file, PixelSize size) {
  return decodeOpened(*openPictureFile(file), size, true);
}

Decoded decodePictureWithin(const std::filesystem::path& file, int longerSide) {
  const auto opened = openPictureFile(file);
  return decodeOpened(*opened, sizeWithin(fullSizeOf(opened->head()), longerSide), true);
}

Picture pictureWithinOrNone(const std::filesystem::path& file, int longerSide) {
  try {
    return decodePictureWithin(file, longerSide).picture;
  } catch (const std::exception&) {
    return {};
  }
}

Decoded decodePictureRoughly(const std::filesystem::path& file, int longerSide) {
  const auto opened = openPictureFile(file);
  return decodeOpened(*opened, sizeWithin(fullSizeOf(opened->head()), longerSide), false);
}

} // namespace hearthbook
