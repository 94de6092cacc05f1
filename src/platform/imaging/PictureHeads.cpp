#include "PictureHeads.h"

#include "Bytes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace hearthbook {

namespace {

using Head = std::span<const std::uint8_t>;

bool beginsWith(Head head, std::string_view mark) {
  return head.size() >= mark.size() &&
         std::equal(mark.begin(), mark.end(), head.begin(),
                    [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

bool isOneOf(std::uint32_t value, std::initializer_list<std::uint32_t> values) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

constexpr std::string_view pngMark("\x89PNG\r\n\x1a\n", 8);

struct Mark {
  std::string_view bytes;
  FileFormat format;
};
constexpr std::array<Mark, 9> marks{{
    {{"\xff\xd8\xff", 3}, FileFormat::Jpeg},
    {pngMark, FileFormat::Png},
    {{"BM", 2}, FileFormat::Bmp},
    {{"II*\0", 4}, FileFormat::Tiff},
    {{"MM\0*", 4}, FileFormat::Tiff},
    {{"II+\0", 4}, FileFormat::Tiff},
    {{"MM\0+", 4}, FileFormat::Tiff},
    {{"GIF8", 4}, FileFormat::Gif},
    {{"\0\0\1\0", 4}, FileFormat::Ico},
}};

/// Stored colour depth of a TGA without its alpha: 5551 counts as 16.
bool isTgaDepth(std::uint32_t kind, std::uint32_t bits) {
  switch (kind) {
  case 1:
  case 3:
    return bits == 8;
  default:
    return isOneOf(bits, {15, 16, 24, 32});
  }
}

IconChoice iconPicture(const InputFile& file, int index) {
  const auto entry = file.bytesAt(6 + static_cast<std::uintmax_t>(index) * 16, 16);
  IconChoice icon{index, {}, false, Bytes(entry).u32(12), Bytes(entry).u32(8)};
  const auto content = file.bytesAt(icon.offset, 24);
  icon.isPng = beginsWith(content, pngMark);
  const Bytes picture(content, icon.isPng ? Bytes::Order::BigEndian : Bytes::Order::LittleEndian);
  icon.size = icon.isPng ? PixelSize{picture.i32(16), picture.i32(20)}
                         : PixelSize{picture.i32(4), picture.i32(8) / 2}; // a mask stands below it
  return icon;
}

/// Where the colours of a GIF end that begin at `offset`, if its flags say that it has some.
std::uintmax_t behindGifColours(std::uintmax_t offset, std::uint32_t flags) {
  return offset + ((flags & 0x80U) != 0 ? std::uintmax_t{3} << ((flags & 7U) + 1) : 0);
}

/// Behind a chain of GIF blocks, each of which tells its length; nothing where the file ends first.
std::optional<std::uintmax_t> behindGifBlocks(const InputFile& file, std::uintmax_t offset) {
  while (offset < file.size()) {
    const std::uint32_t length = Bytes(file.bytesAt(offset, 1)).u8(0);
    ++offset;
    if (length == 0)
      return offset;
    offset += length;
  }
  return {};
}

std::int64_t areaOf(PixelSize size) { return std::int64_t{size.width} * size.height; }

} // namespace

std::optional<FileFormat> formatOfHead(Head head) {
  for (const Mark& mark : marks)
    if (beginsWith(head, mark.bytes))
      return mark.format;
  if (readPcxHead(head))
    return FileFormat::Pcx;
  return {};
}

std::optional<RasterHead> readPcxHead(Head head) {
  const Bytes bytes(head);
  if (head.size() < 128 || bytes.u8(0) != 10 || !isOneOf(bytes.u8(1), {0, 2, 3, 4, 5}) ||
      bytes.u8(2) > 1 || !isOneOf(bytes.u8(3), {1, 2, 4, 8}) ||
      !isOneOf(bytes.u8(65), {1, 2, 3, 4}))
    return {};
  RasterHead result;
  result.size = {static_cast<int>(bytes.u16(8)) - static_cast<int>(bytes.u16(4)) + 1,
                 static_cast<int>(bytes.u16(10)) - static_cast<int>(bytes.u16(6)) + 1};
  result.bitsPerPixel = static_cast<int>(bytes.u8(3));
  result.planes = static_cast<int>(bytes.u8(65));
  result.bytesPerLine = static_cast<int>(bytes.u16(66));
  constexpr std::uint32_t mostAllowed = 32767; // SDL takes these numbers for signed ones
  if (std::max({bytes.u16(8), bytes.u16(10), bytes.u16(66)}) > mostAllowed)
    return {};
  const int bytesNeeded = (result.size.width * result.bitsPerPixel + 7) / 8;
  if (result.size.width < 1 || result.size.height < 1 || result.bytesPerLine < bytesNeeded)
    return {};
  return result;
}

std::optional<RasterHead> readTgaHead(Head head) {
  const Bytes bytes(head);
  const std::uint32_t kind = bytes.u8(2) & ~8U; // 8: run lengths
  if (head.size() < 18 || bytes.u8(1) > 1 || !isOneOf(kind, {1, 2, 3}) || bytes.u8(2) > 11 ||
      !isTgaDepth(kind, bytes.u8(16)) || (bytes.u8(17) & 0xc0U) != 0)
    return {};
  if (kind == 1 && (bytes.u8(1) != 1 || !isOneOf(bytes.u8(7), {15, 16, 24, 32})))
    return {};
  RasterHead result;
  result.size = {static_cast<int>(bytes.u16(12)), static_cast<int>(bytes.u16(14))};
  result.bitsPerPixel = static_cast<int>(bytes.u8(16));
  result.hasAlpha = kind == 2 && result.bitsPerPixel == 32 && (bytes.u8(17) & 15U) != 0;
  if (result.size.width < 1 || result.size.height < 1)
    return {};
  return result;
}

std::optional<std::uint64_t> bmpLength(Head head) {
  const Bytes bytes(head);
  const bool old = bytes.u32(14) == 12;
  const std::uint32_t packing = old ? 0 : bytes.u32(30);
  const std::uint32_t packedLength = bytes.u32(34);
  if (isOneOf(packing, {1, 2}) && packedLength > 0)
    return std::uint64_t{bytes.u32(10)} + packedLength;
  if (!isOneOf(packing, {0, 3, 6}))
    return {};
  const std::int64_t width = old ? bytes.u16(18) : bytes.i32(18);
  const std::int64_t height = old ? bytes.u16(20) : std::int64_t{bytes.i32(22)};
  const std::int64_t bits = old ? bytes.u16(24) : bytes.u16(28);
  const std::int64_t rows = old ? std::int64_t{bytes.u16(20)} : std::abs(height);
  if (width < 1 || rows < 1)
    return {};
  const std::int64_t bytesPerRow = (width * bits + 31) / 32 * 4;
  return bytes.u32(10) + static_cast<std::uint64_t>(bytesPerRow * rows);
}

bool isWholeGif(const InputFile& file) {
  constexpr std::uint32_t extension = 0x21;
  constexpr std::uint32_t image = 0x2c;
  const auto flagsAt = [&](std::uintmax_t offset) { return Bytes(file.bytesAt(offset, 1)).u8(0); };
  std::optional<std::uintmax_t> offset = behindGifColours(13, flagsAt(10));
  while (offset && flagsAt(*offset) == extension)
    offset = behindGifBlocks(file, *offset + 2);
  if (!offset || flagsAt(*offset) != image)
    return false;
  const std::uintmax_t packed = behindGifColours(*offset + 10, flagsAt(*offset + 9));
  return behindGifBlocks(file, packed + 1).has_value();
}

std::optional<IconChoice> largestIcon(const InputFile& file) {
  const auto counted = file.bytesAt(4, 2);
  const int count = static_cast<int>(Bytes(counted).u16(0));
  std::optional<IconChoice> best;
  for (int i = 0; i < count && i < 256; ++i) {
    const IconChoice icon = iconPicture(file, i);
    if (icon.size.width >= 1 && icon.size.height >= 1 &&
        (!best || areaOf(icon.size) > areaOf(best->size)))
      best = icon;
  }
  return best;
}

} // namespace hearthbook
