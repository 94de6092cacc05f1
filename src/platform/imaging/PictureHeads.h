#pragma once

#include "Picture.h"
#include "PictureFile.h"

#include <cstdint>
#include <optional>
#include <span>

namespace hearthbook {

/// How many first bytes of a file the functions below want to see.
inline constexpr std::size_t headBytes = 128;

/// What the first bytes say, for the formats that have a mark of their own (all but TGA).
std::optional<FileFormat> formatOfHead(std::span<const std::uint8_t> head);

/// A PCX or TGA head that makes sense; nothing otherwise.
struct RasterHead {
  PixelSize size;
  int bitsPerPixel = 0;
  int planes = 1;        ///< of PCX
  int bytesPerLine = 0;  ///< of PCX, for one plane
  bool hasAlpha = false; ///< of TGA
};
std::optional<RasterHead> readPcxHead(std::span<const std::uint8_t> head);
std::optional<RasterHead> readTgaHead(std::span<const std::uint8_t> head);

/// How long a BMP file has to be for all of its rows; nothing where it does not say so.
std::optional<std::uint64_t> bmpLength(std::span<const std::uint8_t> head);

/// True if the first picture of a GIF file is there to its last block.
bool isWholeGif(const InputFile& file);

/// The largest picture of an icon file.
struct IconChoice {
  int index = 0;
  PixelSize size;           ///< as the picture itself says, not the icon's directory
  bool isPng = false;       ///< a PNG file inside the icon, not a bitmap
  std::uint64_t offset = 0; ///< where it begins in the file
  std::uint64_t length = 0; ///< as the directory says
};
std::optional<IconChoice> largestIcon(const InputFile& file);

} // namespace hearthbook
