#include "Picture.h"

#include "RunTimeError.h"

#include <atomic>
#include <new>
#include <string>

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

Picture::Picture(PixelSize size) : size_(size) {
  const std::size_t count = pixelCount(size);
  try {
    pixels_ = std::make_shared<std::vector<std::uint32_t>>(count, blackPixel);
  } catch (const std::bad_alloc&) {
    throw RunTimeError("There is not enough memory for a picture of " + std::to_string(size.width) +
                       " by " + std::to_string(size.height) + " pixels.");
  }
}

std::uint32_t* Picture::writableRow(int y) {
  if (pixels_.use_count() != 1)
    pixels_ = std::make_shared<std::vector<std::uint32_t>>(*pixels_);
  // The last other holder may have read the pixels on another thread just before it let go.
  std::atomic_thread_fence(std::memory_order_acquire);
  return pixels_->data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width);
}

} // namespace hearthbook
