#include "Picture.h"

#include "RunTimeError.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <string>
#include <utility>

namespace hearthbook {

namespace {

constexpr std::uint32_t blackPixel = 0xff000000;

std::size_t pixelCount(PixelSize size) {
  const std::int64_t count = std::int64_t{size.width} * size.height;
  const std::string sides = std::to_string(size.width) + " by " + std::to_string(size.height);
  if (size.width < 1 || size.height < 1)
    throw RunTimeError("A picture of " + sides + " pixels cannot be made.");
  if (count > maxPixels)
    throw RunTimeError("A picture of " + sides + " pixels is too large.");
  return static_cast<std::size_t>(count);
}

} // namespace

Picture Picture::unpainted(PixelSize size) {
  const std::size_t count = pixelCount(size);
  Picture picture;
  picture.size_ = size;
  try {
    picture.pixels_ = std::make_shared_for_overwrite<std::uint32_t[]>(count);
  } catch (const std::bad_alloc&) {
    throw RunTimeError("There is not enough memory for a picture of " + std::to_string(size.width) +
                       " by " + std::to_string(size.height) + " pixels.");
  }
  return picture;
}

Picture::Picture(PixelSize size) : Picture(unpainted(size)) {
  std::fill_n(pixels_.get(), startOf(size.height), blackPixel);
}

std::uint32_t* Picture::writableRow(int y) {
  if (pixels_.use_count() != 1) {
    Picture copy = unpainted(size_);
    std::copy_n(pixels_.get(), startOf(size_.height), copy.pixels_.get());
    *this = std::move(copy);
  }
  // The last other holder may have read the pixels on another thread just before it let go.
  std::atomic_thread_fence(std::memory_order_acquire);
  return pixels_.get() + startOf(y);
}

} // namespace hearthbook
