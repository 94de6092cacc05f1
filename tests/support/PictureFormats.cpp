#include "PictureFormats.h"

#include "ByteOrder.h"
#include "TestPictures.h"

#include <cstdint>

namespace hearthbook::test {

namespace {

std::string u16(std::uint32_t value) { return littleEndian(value, 2); }
std::string u32(std::uint32_t value) { return littleEndian(value, 4); }
std::string u32(std::size_t value) { return u32(static_cast<std::uint32_t>(value)); }
std::string u32(int value) { return u32(static_cast<std::uint32_t>(value)); }

/// One entry of a TIFF's directory: a number of 32 bits, or where the value lies.
std::string entry(std::uint32_t tag, std::uint32_t count, std::uint32_t value) {
  constexpr std::uint32_t asU32 = 4;
  return u16(tag) + u16(asU32) + u32(count) + u32(value);
}

std::string tiffPixels(const Picture& picture, int bitsPerChannel) {
  std::string pixels;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      for (const int shift : {16, 8, 0}) {
        const std::uint32_t value = picture.row(y)[x] >> shift & 255U;
        pixels += bitsPerChannel == 16 ? u16(value * 257) : littleEndian(value, 1);
      }
  return pixels;
}

/// The head of a bitmap without its file's own.
std::string bitmapHead(int width, int height, std::uint32_t bits, std::uint32_t packing,
                       std::size_t length) {
  return u32(40) + u32(width) + u32(height) + u16(1) + u16(bits) + u32(packing) + u32(length) +
         std::string(8, '\0') + u32(0) + u32(0);
}

std::string iconOf(PixelSize size, const std::string& content) {
  constexpr std::size_t behindDirectory = 22;
  return u16(0) + u16(1) + u16(1) + littleEndian(static_cast<std::uint32_t>(size.width), 1) +
         littleEndian(static_cast<std::uint32_t>(size.height), 1) + u16(0) + u16(1) + u16(32) +
         u32(content.size()) + u32(behindDirectory) + content;
}

} // namespace

std::string tiffOf(const Picture& picture, int bitsPerChannel) {
  const auto width = static_cast<std::uint32_t>(picture.width());
  const auto height = static_cast<std::uint32_t>(picture.height());
  constexpr std::uint32_t entries = 9;
  constexpr std::uint32_t depths = 8 + 2 + entries * 12 + 4;
  constexpr std::uint32_t places = depths + 6;
  const std::uint32_t lengths = places + 4 * height;
  const std::uint32_t pixels = lengths + 4 * height;
  const std::uint32_t rowBytes = width * 3 * static_cast<std::uint32_t>(bitsPerChannel) / 8;
  std::string tiff = std::string("II*\0", 4) + u32(8) + u16(entries);
  tiff += entry(256, 1, width) + entry(257, 1, height);
  tiff += u16(258) + u16(3) + u32(3) + u32(depths); // bits of the three channels
  tiff += entry(259, 1, 1) + entry(262, 1, 2);      // not packed, red green blue
  tiff += entry(273, height, places) + entry(277, 1, 3);
  tiff += entry(278, 1, 1) + entry(279, height, lengths) + u32(0); // a strip for each row
  for (int i = 0; i < 3; ++i)
    tiff += u16(static_cast<std::uint32_t>(bitsPerChannel));
  for (std::uint32_t y = 0; y < height; ++y)
    tiff += u32(pixels + y * rowBytes);
  for (std::uint32_t y = 0; y < height; ++y)
    tiff += u32(rowBytes);
  return tiff + tiffPixels(picture, bitsPerChannel);
}

std::string pngIconOf(const Picture& picture) {
  return iconOf(picture.size(), encodedBy("png", picture));
}

std::string bitmapIconOf(const Picture& picture) {
  std::string bitmap = bitmapHead(picture.width(), 2 * picture.height(), 32, 0, 0);
  for (int y = picture.height() - 1; y >= 0; --y)
    for (int x = 0; x < picture.width(); ++x)
      bitmap += u32(picture.row(y)[x]);
  const auto maskRow = static_cast<std::size_t>((picture.width() + 31) / 32 * 4);
  bitmap.append(maskRow * static_cast<std::size_t>(picture.height()), '\0');
  return iconOf(picture.size(), bitmap);
}

std::string packedBmp(PixelSize size) {
  std::string rows;
  for (int y = 0; y < size.height; ++y)
    rows += littleEndian(static_cast<std::uint32_t>(size.width), 1) + '\1' + u16(0);
  rows += std::string("\0\1", 2);
  const std::string palette =
      std::string(4, '\0') + std::string("\0\0\xff\0", 4) + std::string(std::size_t{254} * 4, '\0');
  const std::string head = bitmapHead(size.width, size.height, 8, 1, rows.size());
  const std::size_t before = 14 + head.size() + palette.size();
  return "BM" + u32(before + rows.size()) + u32(0) + u32(before) + head + palette + rows;
}

std::string gifOf(PixelSize size) {
  constexpr char clear = '\x80'; // with seven bits for each pixel a code has eight: one byte
  constexpr char end = '\x81';
  constexpr int betweenClears = 100; // before the codes grow to nine bits
  std::string codes;
  for (int i = 0; i < size.width * size.height; ++i)
    codes += i % betweenClears == 0 ? std::string{clear, '\1'} : std::string{'\1'};
  codes += end;
  const std::string sides =
      u16(static_cast<std::uint32_t>(size.width)) + u16(static_cast<std::uint32_t>(size.height));
  std::string gif = "GIF89a" + sides + std::string("\xf6\0\0", 3); // 128 colours
  gif +=
      std::string(3, '\0') + std::string("\xff\0\0", 3) + std::string(std::size_t{126} * 3, '\0');
  gif += ',' + u32(0) + sides + std::string("\0\7", 2);
  constexpr std::size_t mostInBlock = 255;
  for (std::size_t at = 0; at < codes.size(); at += mostInBlock) {
    const std::string block = codes.substr(at, mostInBlock);
    gif += static_cast<char>(block.size()) + block;
  }
  return gif + std::string("\0;", 2);
}

} // namespace hearthbook::test
