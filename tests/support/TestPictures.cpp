#include "TestPictures.h"

#include "ByteOrder.h"
#include "Encode.h"
#include "PictureImage.h"

#include <QBuffer>
#include <QImage>

#include <cstdio>

#include <jpeglib.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace hearthbook::test {

namespace {

int channel(std::uint32_t pixel, int shift) { return static_cast<int>(pixel >> shift & 0xffU); }

/// Compresses through libjpeg as `configure` wants, from rows that `fill` writes.
std::string compress(PixelSize size, int components, J_COLOR_SPACE space,
                     const std::function<void(jpeg_compress_struct&)>& configure,
                     const std::function<void(int y, JSAMPLE* row)>& fill) {
  jpeg_compress_struct codec{};
  jpeg_error_mgr errors{};
  codec.err = jpeg_std_error(&errors);
  jpeg_create_compress(&codec);
  unsigned char* bytes = nullptr;
  unsigned long length = 0;
  jpeg_mem_dest(&codec, &bytes, &length);
  codec.image_width = static_cast<JDIMENSION>(size.width);
  codec.image_height = static_cast<JDIMENSION>(size.height);
  codec.input_components = components;
  codec.in_color_space = space;
  jpeg_set_defaults(&codec);
  jpeg_set_quality(&codec, 95, TRUE);
  configure(codec);
  jpeg_start_compress(&codec, TRUE);
  std::vector<JSAMPLE> row(static_cast<std::size_t>(size.width * components));
  for (int y = 0; y < size.height; ++y) {
    fill(y, row.data());
    JSAMPROW rows = row.data();
    jpeg_write_scanlines(&codec, &rows, 1);
  }
  jpeg_finish_compress(&codec);
  std::string result(reinterpret_cast<const char*>(bytes), length);
  jpeg_destroy_compress(&codec);
  std::free(bytes);
  return result;
}

void fillRgb(const Picture& picture, int y, JSAMPLE* row) {
  for (int x = 0; x < picture.width(); ++x)
    for (int c = 0; c < 3; ++c)
      row[x * 3 + c] = static_cast<JSAMPLE>(channel(picture.row(y)[x], 16 - 8 * c));
}

} // namespace

Picture plain(PixelSize size, std::uint32_t pixel) {
  Picture picture(size);
  for (int y = 0; y < size.height; ++y)
    std::fill_n(picture.writableRow(y), size.width, pixel);
  return picture;
}

Picture corners(PixelSize size) {
  Picture picture(size);
  for (int y = 0; y < size.height; ++y)
    for (int x = 0; x < size.width; ++x) {
      const bool right = x >= size.width / 2;
      if (y < size.height / 2)
        picture.writableRow(y)[x] = right ? green : red;
      else
        picture.writableRow(y)[x] = right ? white : blue;
    }
  return picture;
}

Picture grainy(PixelSize size, unsigned seed) {
  std::minstd_rand random(seed);
  Picture picture(size);
  for (int y = 0; y < size.height; ++y) {
    std::uint32_t* row = picture.writableRow(y);
    for (int x = 0; x < size.width; ++x) {
      const auto grain = static_cast<std::uint32_t>(random() >> 8 & 31U);
      const auto across = static_cast<std::uint32_t>(x * 200 / size.width);
      const auto down = static_cast<std::uint32_t>(y * 200 / size.height);
      row[x] = 0xff000000U | (across + grain) << 16 | (down + grain) << 8 | (100 + grain);
    }
  }
  return picture;
}

int distance(std::uint32_t a, std::uint32_t b) {
  int most = 0;
  for (const int shift : {0, 8, 16, 24})
    most = std::max(most, std::abs(channel(a, shift) - channel(b, shift)));
  return most;
}

std::string jpegOf(const Picture& picture, int factor) {
  std::ostringstream stream;
  writeJpeg(stream, picture, factor);
  return stream.str();
}

std::string jpegOfLength(const Picture& picture, std::size_t bytes) {
  std::string jpeg = jpegOf(picture, 15);
  if (jpeg.size() > bytes)
    throw std::runtime_error("the JPEG is longer than wanted");
  jpeg.resize(bytes);
  return jpeg;
}

std::string withSegment(std::string_view jpeg, int kind, std::string_view content) {
  std::string result(jpeg.substr(0, 2));
  result += '\xff';
  result += static_cast<char>(kind);
  result += bigEndian(static_cast<unsigned>(content.size() + 2), 2);
  result += content;
  return result += jpeg.substr(2);
}

std::string withOrientation(std::string_view jpeg, int orientation, bool highFirst) {
  const auto number = highFirst ? bigEndian : littleEndian;
  const auto u16 = [&](unsigned value) { return number(value, 2); };
  const auto u32 = [&](unsigned value) { return number(value, 4); };
  std::string exif("Exif\0\0", 6);
  exif += (highFirst ? "MM" : "II") + u16(42) + u32(8);
  exif += u16(1) + u16(0x0112) + u16(3) + u32(1) + u16(static_cast<unsigned>(orientation)) + u16(0);
  return withSegment(jpeg, 0xe1, exif + u32(0));
}

std::string pressJpegOf(const Picture& picture, bool adobe) {
  return compress(
      picture.size(), 4, JCS_CMYK,
      [&](jpeg_compress_struct& codec) { codec.write_Adobe_marker = adobe ? TRUE : FALSE; },
      [&](int y, JSAMPLE* row) {
        for (int x = 0; x < picture.width(); ++x) {
          for (int c = 0; c < 3; ++c) {
            const int light = channel(picture.row(y)[x], 16 - 8 * c);
            row[x * 4 + c] = static_cast<JSAMPLE>(adobe ? light : 255 - light);
          }
          row[x * 4 + 3] = static_cast<JSAMPLE>(adobe ? 255 : 0);
        }
      });
}

std::string greyJpegOf(const Picture& picture) {
  return compress(
      picture.size(), 1, JCS_GRAYSCALE, [](jpeg_compress_struct&) {},
      [&](int y, JSAMPLE* row) {
        for (int x = 0; x < picture.width(); ++x)
          row[x] = static_cast<JSAMPLE>(channel(picture.row(y)[x], 8));
      });
}

std::string plainGreyJpeg(PixelSize size, int light) {
  return compress(
      size, 1, JCS_GRAYSCALE, [](jpeg_compress_struct&) {},
      [&](int, JSAMPLE* row) { std::fill_n(row, size.width, static_cast<JSAMPLE>(light)); });
}

std::string progressiveJpegOf(const Picture& picture) {
  return compress(
      picture.size(), 3, JCS_RGB,
      [](jpeg_compress_struct& codec) { jpeg_simple_progression(&codec); },
      [&](int y, JSAMPLE* row) { fillRgb(picture, y, row); });
}

std::string encodedBy(const char* format, const Picture& picture, int bitsPerChannel) {
  QImage image = toImage(picture);
  if (bitsPerChannel == 16)
    image = image.convertToFormat(QImage::Format_RGBX64);
  QBuffer buffer;
  if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, format))
    throw std::runtime_error(std::string("cannot write ") + format);
  return buffer.data().toStdString();
}

std::string tgaOf(const Picture& picture) {
  std::string tga(18, '\0');
  tga[2] = 2; // true colour, not packed
  tga.replace(12, 2, littleEndian(static_cast<unsigned>(picture.width()), 2));
  tga.replace(14, 2, littleEndian(static_cast<unsigned>(picture.height()), 2));
  tga[16] = 24;
  tga[17] = 0x20; // from the top
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      for (const int shift : {0, 8, 16})
        tga += static_cast<char>(channel(picture.row(y)[x], shift));
  return tga;
}

std::string pcxOf(const Picture& picture) {
  const int bytesPerLine = picture.width() + picture.width() % 2;
  std::string pcx(128, '\0');
  pcx[0] = 10;
  pcx[1] = 5;
  pcx[2] = 1;
  pcx[3] = 8;
  pcx.replace(8, 2, littleEndian(static_cast<unsigned>(picture.width() - 1), 2));
  pcx.replace(10, 2, littleEndian(static_cast<unsigned>(picture.height() - 1), 2));
  pcx[65] = 3;
  pcx.replace(66, 2, littleEndian(static_cast<unsigned>(bytesPerLine), 2));
  for (int y = 0; y < picture.height(); ++y)
    for (const int shift : {16, 8, 0})
      for (int x = 0; x < bytesPerLine; ++x) {
        const int value = x < picture.width() ? channel(picture.row(y)[x], shift) : 0;
        pcx += '\xc1'; // a run of one
        pcx += static_cast<char>(value);
      }
  return pcx;
}

} // namespace hearthbook::test
