#include "ThumbnailSize.h"

#include "Encode.h"
#include "Numbers.h"
#include "Resample.h"

namespace hearthbook {

PixelSize thumbnailSize(PixelSize photo) { return sizeWithin(photo, thumbnailSide); }

PixelSize reducedSize(PixelSize photo, std::uintmax_t bytes) {
  constexpr double bytesForOnePixel = 1000;
  const double width = photo.width;
  const double newWidth =
      width - (static_cast<double>(bytes) - static_cast<double>(reductionLimit)) / bytesForOnePixel;
  return {static_cast<int>(roundHalfEven(newWidth)),
          static_cast<int>(roundHalfEven(newWidth / width * photo.height))};
}

} // namespace hearthbook
