#include "Picture.h"

#include "RunTimeError.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <string>
#include <utility>

#include <sys/mman.h>

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

/// What malloc() asks of the system anew each time comes in large pages where there are any: to be
/// handed it in small ones takes longer than most of what is done to the pixels.
void* memoryFor(std::size_t bytes) {
  constexpr std::size_t largePage = std::size_t{2} << 20;
  constexpr std::size_t mostThatMallocKeeps = std::size_t{32} << 20;
  if (bytes <= mostThatMallocKeeps)
    return std::malloc(bytes);
  const std::size_t whole = (bytes + largePage - 1) / largePage * largePage;
  void* memory = std::aligned_alloc(largePage, whole);
  if (memory)
    ::madvise(memory, whole, MADV_HUGEPAGE); // where it is refused nothing is lost
  return memory;
}

} // namespace

Picture Picture::unpainted(PixelSize size) {
  void* memory = memoryFor(pixelCount(size) * sizeof(std::uint32_t));
  if (!memory)
    throw RunTimeError("There is not enough memory for a picture of " + std::to_string(size.width) +
                       " by " + std::to_string(size.height) + " pixels.");
  Picture picture;
  picture.size_ = size;
  picture.pixels_ = {static_cast<std::uint32_t*>(memory), std::free};
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
