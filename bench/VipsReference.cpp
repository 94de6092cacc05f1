#include "VipsReference.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

#include <vips/vips.h>

namespace hearthbook::bench {

namespace {

constexpr std::size_t bands = 3;
constexpr int pixelBytes = 4;
constexpr std::size_t levels = 256;

std::vector<std::uint8_t> bytesOf(const Picture& picture) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(static_cast<std::size_t>(picture.width()) *
                static_cast<std::size_t>(picture.height()) * bands);
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      for (const int shift : {16, 8, 0})
        bytes.push_back(static_cast<std::uint8_t>(picture.row(y)[x] >> shift & 0xffU));
  return bytes;
}

VipsImage* imageOn(const void* pixels, PixelSize size, int bandCount) {
  const auto bytes = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) *
                     static_cast<std::size_t>(bandCount);
  VipsImage* image = vips_image_new_from_memory(pixels, bytes, size.width, size.height, bandCount,
                                                VIPS_FORMAT_UCHAR);
  image->Type = VIPS_INTERPRETATION_sRGB;
  return image;
}

void expectDone(int failed) {
  if (failed)
    throw std::runtime_error(vips_error_buffer());
}

/// Only now are the pixels computed.
void intoMemory(VipsImage* image) {
  std::size_t size = 0;
  void* pixels = vips_image_write_to_memory(image, &size);
  expectDone(pixels == nullptr);
  g_free(pixels);
  g_object_unref(image);
}

/// The stretch of one colour, as ours makes it; the colours take turns in both.
void stretch(const std::vector<unsigned>& counts, std::size_t band,
             std::vector<std::uint8_t>& tones) {
  const auto count = [&](std::size_t value) { return counts[value * bands + band]; };
  unsigned total = 0;
  for (std::size_t value = 0; value < levels; ++value)
    total += count(value);
  std::size_t low = 0;
  std::size_t high = levels - 1;
  for (unsigned sum = count(low); low < high && sum <= total / 200; sum += count(low))
    ++low;
  for (unsigned sum = count(high); high > low && sum <= total / 200; sum += count(high))
    --high;
  const auto apart = static_cast<double>(std::max<std::size_t>(1, high - low));
  for (std::size_t value = 0; value < levels; ++value) {
    const double wanted = (static_cast<double>(value) - static_cast<double>(low)) * 255 / apart;
    tones[value * bands + band] = static_cast<std::uint8_t>(std::clamp(wanted, 0.0, 255.0));
  }
}

} // namespace

VipsReference::VipsReference(const Picture& photo, const Picture& piece)
    : keptPhoto_(photo), keptPiece_(piece), colours_(bytesOf(photo)) {
  expectDone(vips_init("bench"));
  vips_cache_set_max(0); // nothing is answered from what was computed before
  photo_ = imageOn(photo.row(0), photo.size(), pixelBytes);
  piece_ = imageOn(piece.row(0), piece.size(), pixelBytes);
  photoInColours_ = imageOn(colours_.data(), photo.size(), bands);
}

VipsReference::~VipsReference() {
  g_object_unref(photo_);
  g_object_unref(piece_);
  g_object_unref(photoInColours_);
}

void VipsReference::autoLevels() {
  VipsImage* histogram = nullptr;
  expectDone(vips_hist_find(photoInColours_, &histogram, nullptr));
  std::size_t size = 0;
  auto* counted = static_cast<unsigned*>(vips_image_write_to_memory(histogram, &size));
  const std::vector<unsigned> counts(counted, counted + levels * bands);
  std::vector<std::uint8_t> tones(levels * bands);
  for (std::size_t band = 0; band < bands; ++band)
    stretch(counts, band, tones);
  g_free(counted);
  g_object_unref(histogram);
  VipsImage* table = imageOn(tones.data(), {static_cast<int>(levels), 1}, bands);
  VipsImage* result = nullptr;
  expectDone(vips_maplut(photoInColours_, &result, table, nullptr));
  intoMemory(result);
  g_object_unref(table);
}

void VipsReference::lightness() {
  VipsImage* result = nullptr;
  expectDone(
      vips_gamma(photoInColours_, &result, "exponent", std::log(0.5) / std::log(0.55), nullptr));
  intoMemory(result);
}

void VipsReference::soften(double sigma) {
  VipsImage* result = nullptr;
  expectDone(vips_gaussblur(photoInColours_, &result, sigma, nullptr));
  intoMemory(result);
}

void VipsReference::sharpen(double sigma) {
  VipsImage* result = nullptr;
  expectDone(vips_sharpen(photoInColours_, &result, "sigma", sigma, nullptr));
  intoMemory(result);
}

void VipsReference::turnLeft() {
  VipsImage* result = nullptr;
  expectDone(vips_rot(photo_, &result, VIPS_ANGLE_D270, nullptr));
  intoMemory(result);
}

void VipsReference::turnByHalf() {
  VipsImage* result = nullptr;
  expectDone(vips_rot(photo_, &result, VIPS_ANGLE_D180, nullptr));
  intoMemory(result);
}

void VipsReference::turnByALittle(double degrees) {
  VipsArrayDouble* white = vips_array_double_newv(bands, 255.0, 255.0, 255.0);
  VipsImage* result = nullptr;
  expectDone(vips_rotate(photoInColours_, &result, -degrees, "background", white, nullptr));
  intoMemory(result);
  vips_area_unref(VIPS_AREA(white));
}

void VipsReference::crop(const PixelRect& region) {
  VipsImage* result = nullptr;
  expectDone(
      vips_crop(photo_, &result, region.left, region.top, region.width, region.height, nullptr));
  intoMemory(result);
}

void VipsReference::putBack(const PixelRect& region) {
  VipsImage* result = nullptr;
  expectDone(vips_insert(photo_, piece_, &result, region.left, region.top, nullptr));
  intoMemory(result);
}

void VipsReference::flatten(const PixelRect& region) {
  VipsImage* result = vips_image_new_memory();
  expectDone(vips_image_write(photo_, result));
  expectDone(vips_draw_image(result, piece_, region.left, region.top, nullptr));
  g_object_unref(result);
}

} // namespace hearthbook::bench
