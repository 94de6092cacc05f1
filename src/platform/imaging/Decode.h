#pragma once

#include "Picture.h"

#include <filesystem>
#include <string>

namespace hearthbook {

/// What the head of a picture file tells without its pixels being read.
struct PictureInfo {
  PixelSize size;      ///< upright, as it will be shown
  int orientation = 1; ///< as the camera stored it, 1 to 8
  std::string format;  ///< "jpeg", "png", "bmp", "tiff", "ico", "gif", "pcx", "tga"
};

struct Decoded {
  Picture picture;    ///< upright, sRGB
  bool cut = false;   ///< the file ends early; the picture goes as far as it does
  PixelSize fullSize; ///< upright size of the file's picture, whatever was asked for
};

/// Reads the head. The content decides the format, not the name. Throws RunTimeError naming
/// the file and the cause.
PictureInfo readPictureInfo(const std::filesystem::path& file);

/// The whole picture at its full size. Throws RunTimeError.
Decoded decodePicture(const std::filesystem::path& file);

/// The picture at exactly `size` (the caller has fitted it), through the smallest decoding
/// that is at least as large, then an area average; enlarges smoothly where the file is
/// smaller. Throws RunTimeError.
Decoded decodePictureAt(const std::filesystem::path& file, PixelSize size);

/// The picture fitted into a square of `longerSide` pixels, keeping its proportions, the other
/// side rounded half to even and at least 1. Throws RunTimeError.
Decoded decodePictureWithin(const std::filesystem::path& file, int longerSide);

/// The same for lists and previews: no picture where the file cannot be read. What is wrong with
/// it is told when it is opened or added.
Picture pictureWithinOrNone(const std::filesystem::path& file, int longerSide);

/// The picture as its file gives it most cheaply with a longer side of at least `longerSide`;
/// the whole picture where it is smaller. What several small sizes are made from.
Decoded decodePictureRoughly(const std::filesystem::path& file, int longerSide);

} // namespace hearthbook
