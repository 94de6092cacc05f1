#include "Corrections.h"

#include "Bands.h"
#include "RunTimeError.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>

namespace hearthbook {

namespace {

constexpr std::size_t levels = 256;
constexpr std::size_t colours = 3; // blue, green, red, as they lie in a pixel
constexpr int steepestStep = 99;
constexpr std::uint64_t leftOutAtEachEnd = 200; // one pixel in so many

using Tones = std::array<std::uint8_t, levels>;
using Counts = std::array<std::uint64_t, levels>;

/// What each value of each colour becomes, at its place in the pixel.
struct ToneTable {
  explicit ToneTable(const std::array<Tones, colours>& tones) {
    for (std::size_t c = 0; c < colours; ++c)
      for (std::size_t value = 0; value < levels; ++value)
        places[c][value] = std::uint32_t{tones[c][value]} << (8 * c);
  }

  [[nodiscard]] std::uint32_t operator()(std::uint32_t pixel) const {
    return 0xff000000U | places[0][pixel & 0xffU] | places[1][pixel >> 8 & 0xffU] |
           places[2][pixel >> 16 & 0xffU];
  }

  std::array<std::array<std::uint32_t, levels>, colours> places;
};

Picture withTones(const Picture& picture, const ToneTable& table, WorkPool* pool) {
  Picture result = Picture::unpainted(picture.size());
  std::uint32_t* rows = result.writableRow(0);
  inBands(pool, picture.height(), rowsOfBand(picture.width()), [&](int first, int end) {
    const std::uint32_t* from = picture.row(first);
    std::transform(from, from + std::ptrdiff_t{end - first} * picture.width(),
                   rows + std::ptrdiff_t{first} * picture.width(), table);
  });
  return result;
}

/// How often each colour has each value.
class Histogram {
public:
  Histogram(const Picture& picture, WorkPool* pool) {
    inBands(pool, picture.height(), rowsOfBand(picture.width()), [&](int first, int end) {
      const std::uint32_t* from = picture.row(first);
      add(from, from + std::ptrdiff_t{end - first} * picture.width());
    });
  }

  [[nodiscard]] const Counts& of(std::size_t colour) const { return counts_[colour]; }

private:
  /// Neighbours mostly have the same values: two sets of counts, so that one pixel need not wait
  /// for what the one before it has stored.
  void add(const std::uint32_t* pixel, const std::uint32_t* end) {
    std::array<std::array<std::array<std::uint32_t, levels>, colours>, 2> counts{};
    for (std::size_t set = 0; pixel != end; ++pixel, set ^= 1U) {
      ++counts[set][0][*pixel & 0xffU];
      ++counts[set][1][*pixel >> 8 & 0xffU];
      ++counts[set][2][*pixel >> 16 & 0xffU];
    }
    const std::lock_guard lock(mutex_);
    for (std::size_t c = 0; c < colours; ++c)
      for (std::size_t value = 0; value < levels; ++value)
        counts_[c][value] += counts[0][c][value] + counts[1][c][value];
  }

  std::mutex mutex_;
  std::array<Counts, colours> counts_{};
};

/// The first value, counted from the `begin`, with more than `leftOut` pixels up to it.
template <class Iterator> int valuesBefore(Iterator begin, Iterator end, std::uint64_t leftOut) {
  std::uint64_t sum = 0;
  const auto found =
      std::find_if(begin, end, [&](std::uint64_t count) { return (sum += count) > leftOut; });
  return static_cast<int>(found - begin);
}

Tones stretched(const Counts& counts, std::uint64_t leftOut) {
  const int low = valuesBefore(counts.begin(), counts.end(), leftOut);
  const int high = 255 - valuesBefore(counts.rbegin(), counts.rend(), leftOut);
  Tones tones{};
  for (int value = 0; value < static_cast<int>(levels); ++value) {
    const int apart = high - low;
    const int wanted = apart > 0 ? (2 * 255 * (value - low) + apart) / (2 * apart) : value;
    tones[static_cast<std::size_t>(value)] = static_cast<std::uint8_t>(std::clamp(wanted, 0, 255));
  }
  return tones;
}

/// A curve through black and white that bends what is between.
Tones bent(int step) {
  const int size = std::min(std::abs(step), steepestStep);
  const double brightening = std::log(0.5 + size / 200.0) / std::log(0.5);
  const double exponent = step < 0 ? 1 / brightening : brightening;
  Tones tones{};
  for (std::size_t value = 0; value < levels; ++value)
    tones[value] = static_cast<std::uint8_t>(
        std::lround(255 * std::pow(static_cast<double>(value) / 255, exponent)));
  return tones;
}

void needPicture(const Picture& picture) {
  if (picture.isNull())
    throw RunTimeError("There is no picture to correct.");
}

} // namespace

Picture autoLevels(const Picture& picture, WorkPool* pool) {
  needPicture(picture);
  const Histogram histogram(picture, pool);
  const std::uint64_t pixels =
      static_cast<std::uint64_t>(picture.width()) * static_cast<std::uint64_t>(picture.height());
  std::array<Tones, colours> tones;
  for (std::size_t c = 0; c < colours; ++c)
    tones[c] = stretched(histogram.of(c), pixels / leftOutAtEachEnd);
  return withTones(picture, ToneTable(tones), pool);
}

Picture withLightness(const Picture& picture, int step, WorkPool* pool) {
  needPicture(picture);
  const Tones tones = bent(step);
  return withTones(picture, ToneTable({tones, tones, tones}), pool);
}

} // namespace hearthbook
