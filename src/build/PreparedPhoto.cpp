#include "PreparedPhoto.h"

#include "Decode.h"
#include "Encode.h"
#include "Resample.h"
#include "ThumbnailSize.h"

#include <algorithm>

namespace hearthbook {

namespace {

constexpr int previewSide = 400; ///< pixels at least, where the picture has them

EncodedPicture encodeSmaller(const Picture& picture, PixelSize size) {
  return EncodedPicture([&] { return jpegBytes(resample(picture, size), photoFactor); });
}

/// The preview is all that is decoded: a few eighths of a large JPEG.
void prepareStoredAsItIs(PreparedPhoto& photo, const std::filesystem::path& source, bool reduce) {
  const Decoded decoded = decodePictureRoughly(source, previewSide);
  photo.size = decoded.fullSize;
  photo.preview = decoded.picture;
  photo.thumbnail = resample(photo.preview, thumbnailSize(photo.size));
  photo.reducedFrom = std::filesystem::file_size(source);
  if (reduce && photo.reducedFrom > reductionLimit)
    photo.reducedJpeg = encodeReduced(source, photo.size, photo.reducedFrom);
}

void prepareEncoded(PreparedPhoto& photo, const std::filesystem::path& source, bool reduce) {
  const Picture whole = decodePicture(source).picture;
  photo.size = whole.size();
  photo.thumbnail = resample(whole, thumbnailSize(photo.size));
  const bool large = std::max(photo.size.width, photo.size.height) > previewSide;
  photo.preview = large ? resample(whole, sizeWithin(photo.size, previewSide)) : whole;
  photo.photoJpeg = EncodedPicture([&] { return jpegBytes(whole, photoFactor); });
  photo.reducedFrom = photo.photoJpeg.length();
  if (reduce && photo.reducedFrom > reductionLimit)
    photo.reducedJpeg = encodeSmaller(whole, reducedSize(photo.size, photo.reducedFrom));
}

} // namespace

EncodedPicture::EncodedPicture(const std::function<std::string()>& encode) noexcept {
  try {
    bytes_ = encode();
  } catch (...) {
    failure_ = std::current_exception();
  }
}

const std::string& EncodedPicture::bytes() const {
  if (failure_)
    std::rethrow_exception(failure_);
  return bytes_;
}

bool isStoredAsItIs(const std::filesystem::path& source) {
  const std::string& name = source.native();
  return name.ends_with("jpg") || name.ends_with("JPG");
}

PreparedPhoto preparePhoto(const std::filesystem::path& source, bool reduce) {
  PreparedPhoto photo;
  try {
    (isStoredAsItIs(source) ? prepareStoredAsItIs : prepareEncoded)(photo, source, reduce);
    photo.thumbnailJpeg =
        EncodedPicture([&] { return jpegBytes(photo.thumbnail, thumbnailFactor); });
  } catch (...) {
    photo = {};
    photo.loadFailure = std::current_exception();
  }
  return photo;
}

EncodedPicture encodeReduced(const std::filesystem::path& source, PixelSize size,
                             std::uintmax_t length) {
  return EncodedPicture([&] {
    return jpegBytes(decodePictureAt(source, reducedSize(size, length)).picture, photoFactor);
  });
}

} // namespace hearthbook
