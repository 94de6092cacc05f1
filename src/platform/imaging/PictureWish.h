#pragma once

#include "Picture.h"

#include <filesystem>
#include <tuple>

namespace hearthbook {

/// A picture that somebody wants: the file, and the pixels at which it is to be decoded.
struct PictureWish {
  std::filesystem::path file;
  PixelSize size;

  bool operator==(const PictureWish&) const = default;
  bool operator<(const PictureWish& other) const {
    return std::tie(file.native(), size.width, size.height) <
           std::tie(other.file.native(), other.size.width, other.size.height);
  }
};

} // namespace hearthbook
