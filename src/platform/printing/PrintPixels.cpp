#include "PrintPixels.h"

#include "Brightness.h"
#include "Decode.h"
#include "Resample.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <new>
#include <utility>

namespace hearthbook {

namespace {

int pixelsAlong(double twips, int dotsPerInch) {
  constexpr double most = 1e6; // what is cut off by the rules below anyway
  return std::max(1,
                  static_cast<int>(std::min(most, std::ceil(twips / twipsPerInch * dotsPerInch))));
}

std::uint32_t greyOf(std::uint32_t pixel) {
  const std::uint32_t grey = brightnessOf(pixel);
  return 0xff000000 | grey << 16 | grey << 8 | grey;
}

/// A file of another shape than its place is another picture than the screen shows, and would be
/// distorted.
bool hasShapeOf(PixelSize full, TwipsRect place) {
  constexpr double most = 0.1; // what a thumbnail's whole pixels make of it
  constexpr double hair = 30;  // twips, of a sliver
  const double height = place.width * full.height / std::max(full.width, 1);
  return std::abs(height - place.height) <= std::max(hair, most * place.height);
}

Picture decodedForPrint(const SheetPicture& picture, int dotsPerInch) {
  const PixelSize full = readPictureInfo(picture.file).size;
  if (!picture.atHand.isNull() && !hasShapeOf(full, picture.place))
    return picture.atHand;
  return decodePictureAt(picture.file, printedPixels(picture.place, full, dotsPerInch)).picture;
}

PrintedPixels decodedOrStoodInFor(const SheetPicture& picture, int dotsPerInch) {
  if (picture.file.empty())
    return {picture.atHand};
  try {
    return {decodedForPrint(picture, dotsPerInch)};
  } catch (const std::bad_alloc&) {
    throw; // nothing is wrong with the photo
  } catch (const std::exception&) {
    return {picture.atHand, true};
  }
}

} // namespace

PixelSize printedPixels(TwipsRect place, PixelSize full, int dotsPerInch) {
  PixelSize wanted{pixelsAlong(place.width, dotsPerInch), pixelsAlong(place.height, dotsPerInch)};
  if (wanted.width >= full.width || wanted.height >= full.height)
    wanted = full;
  return sizeOfAtMost(mostDecoded, wanted); // the parts beyond the sheet's edge are not printed
}

PrintedPixels pixelsForPrint(const SheetPicture& picture, const PrintSettings& settings) {
  PrintedPixels printed = decodedOrStoodInFor(picture, dotsPerInch(settings.quality));
  if (!printed.pixels.isNull() && settings.colorMode == ColorMode::Monochrome)
    printed.pixels = greyed(std::move(printed.pixels));
  return printed;
}

Picture greyed(Picture picture) {
  for (int y = 0; y < picture.height(); ++y) {
    std::uint32_t* row = picture.writableRow(y);
    std::transform(row, row + picture.width(), row, greyOf);
  }
  return picture;
}

} // namespace hearthbook
