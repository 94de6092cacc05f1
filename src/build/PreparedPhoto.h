#pragma once

#include "Picture.h"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>
#include <string>

namespace hearthbook {

/// A JPEG ready to be written, or why there is none.
class EncodedPicture {
public:
  EncodedPicture() = default;
  explicit EncodedPicture(const std::function<std::string()>& encode) noexcept;

  /// Throws what the encoding threw.
  [[nodiscard]] const std::string& bytes() const;
  [[nodiscard]] std::uintmax_t length() const { return bytes_.size(); }

private:
  std::string bytes_;
  std::exception_ptr failure_;
};

/// All that can be made of a source before it is its turn to be added: on any thread, without
/// the album.
struct PreparedPhoto {
  std::exception_ptr loadFailure; ///< it cannot be decoded; the rest is empty
  PixelSize size;                 ///< of the upright picture
  Picture preview;
  Picture thumbnail;
  EncodedPicture thumbnailJpeg;
  EncodedPicture photoJpeg;       ///< of a source that is not copied as it is
  EncodedPicture reducedJpeg;     ///< where a reduction was asked for and is due
  std::uintmax_t reducedFrom = 0; ///< the length for which `reducedJpeg` was made
};

/// True for sources whose bytes become the photo: the name ends in "jpg" or "JPG".
bool isStoredAsItIs(const std::filesystem::path& source);

PreparedPhoto preparePhoto(const std::filesystem::path& source, bool reduce);

/// The photo made smaller because its file has `length` bytes.
EncodedPicture encodeReduced(const std::filesystem::path& source, PixelSize size,
                             std::uintmax_t length);

} // namespace hearthbook
