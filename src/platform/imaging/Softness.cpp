#include "Corrections.h"

#include "Bands.h"
#include "Bell.h"
#include "Brightness.h"
#include "RunTimeError.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace hearthbook {

namespace {

using Row = std::vector<std::uint8_t>;

/// Softens lines of bytes, `step` bytes to the pixel: down the columns, then along the row, whose
/// ends are repeated beyond the edges.
class LineSoftener {
public:
  LineSoftener(const Bell& bell, std::size_t width, std::size_t step)
      : bell_(bell), step_(step), count_(width * step),
        padding_(static_cast<std::size_t>(bell.radius()) * step), line_(count_ + 2 * padding_),
        places_(2 * static_cast<std::size_t>(bell.radius()) + 1) {}

  /// `rowAt(i)` is the row i below the one that is made, -radius to radius.
  template <class RowAt> void soften(RowAt rowAt, std::uint8_t* result) {
    auto place = places_.begin();
    for (int i = -bell_.radius(); i <= bell_.radius(); ++i)
      *place++ = rowAt(i);
    bell_.weigh(places_.data(), line_.data() + padding_, count_);
    repeatEnds();
    for (std::size_t i = 0; i < places_.size(); ++i)
      places_[i] = line_.data() + i * step_;
    bell_.weigh(places_.data(), result, count_);
  }

private:
  void repeatEnds() {
    std::uint8_t* first = line_.data() + padding_;
    std::uint8_t* behind = first + count_;
    for (std::size_t i = 0; i < padding_; ++i) {
      behind[i] = behind[i % step_ - static_cast<std::ptrdiff_t>(step_)];
      line_[i] = first[i % step_];
    }
  }

  const Bell& bell_;
  std::size_t step_;
  std::size_t count_;
  std::size_t padding_;
  Row line_;
  std::vector<const std::uint8_t*> places_;
};

const std::uint8_t* bytesOf(const std::uint32_t* row) {
  return reinterpret_cast<const std::uint8_t*>(row);
}

/// The brightness of the rows of a band and of those around it that count for it.
class BrightnessRows {
public:
  BrightnessRows(const Picture& picture, int first, int end)
      : width_(static_cast<std::size_t>(picture.width())), first_(first),
        bytes_(width_ * static_cast<std::size_t>(end - first)) {
    for (int y = first; y < end; ++y) {
      const std::uint32_t* pixels = picture.row(std::clamp(y, 0, picture.height() - 1));
      std::transform(pixels, pixels + width_, bytes_.data() + startOf(y), brightnessOf);
    }
  }

  [[nodiscard]] const std::uint8_t* row(int y) const { return bytes_.data() + startOf(y); }

private:
  [[nodiscard]] std::size_t startOf(int y) const {
    return static_cast<std::size_t>(y - first_) * width_;
  }

  std::size_t width_;
  int first_;
  Row bytes_;
};

std::uint32_t moreLight(std::uint32_t pixel, int light) {
  const auto colour = [&](int shift) {
    const int value = static_cast<int>(pixel >> shift & 0xffU) + light;
    return static_cast<std::uint32_t>(std::clamp(value, 0, 255)) << shift;
  };
  return 0xff000000U | colour(16) | colour(8) | colour(0);
}

void sharpenRow(const std::uint32_t* from, const std::uint8_t* bright, const std::uint8_t* soft,
                std::uint32_t* to, int width) {
  for (int x = 0; x < width; ++x)
    to[x] = moreLight(from[x], (3 * (int{bright[x]} - int{soft[x]}) + 2) >> 2);
}

constexpr int bandRows = 64; // many in relation to those around a band

void sharpenBand(const Picture& picture, const Bell& bell, std::uint32_t* rows, int first,
                 int end) {
  const auto width = static_cast<std::size_t>(picture.width());
  const BrightnessRows bright(picture, first - bell.radius(), end + bell.radius());
  LineSoftener softener(bell, width, 1);
  Row soft(width);
  for (int y = first; y < end; ++y) {
    softener.soften([&](int below) { return bright.row(y + below); }, soft.data());
    sharpenRow(picture.row(y), bright.row(y), soft.data(),
               rows + static_cast<std::size_t>(y) * width, picture.width());
  }
}

void softenBand(const Picture& picture, const Bell& bell, std::uint32_t* rows, int first, int end) {
  const auto width = static_cast<std::size_t>(picture.width());
  LineSoftener softener(bell, width, sizeof(std::uint32_t));
  for (int y = first; y < end; ++y) {
    const auto rowAt = [&](int below) {
      return bytesOf(picture.row(std::clamp(y + below, 0, picture.height() - 1)));
    };
    softener.soften(rowAt,
                    reinterpret_cast<std::uint8_t*>(rows + static_cast<std::size_t>(y) * width));
  }
}

using BandWork = void (*)(const Picture&, const Bell&, std::uint32_t*, int, int);

Picture inSurroundings(const Picture& picture, double deviation, WorkPool* pool, BandWork work) {
  if (picture.isNull())
    throw RunTimeError("There is no picture to soften or sharpen.");
  const Bell bell(deviation);
  if (bell.radius() == 0)
    return picture;
  Picture result = Picture::unpainted(picture.size());
  std::uint32_t* rows = result.writableRow(0);
  inBands(pool, picture.height(), bandRows,
          [&](int first, int end) { work(picture, bell, rows, first, end); });
  return result;
}

} // namespace

Picture softened(const Picture& picture, double level, double scale, WorkPool* pool) {
  return inSurroundings(picture, level * scale, pool, softenBand);
}

Picture sharpened(const Picture& picture, double level, double scale, WorkPool* pool) {
  return inSurroundings(picture, level * scale, pool, sharpenBand);
}

} // namespace hearthbook
