#include "Corrections.h"

#include "Bands.h"
#include "Resample.h"
#include "RunTimeError.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>

namespace hearthbook {

namespace {

constexpr std::uint32_t paper = 0xffffffff;
constexpr int fractionBits = 16;
constexpr double one = 1 << fractionBits;
constexpr std::uint32_t everyOtherByte = 0x00ff00ff;

/// Two pixels at a time, `weight` of 256 of the second.
std::uint32_t blend(std::uint32_t a, std::uint32_t b, std::uint32_t weight) {
  const std::uint32_t even =
      ((a & everyOtherByte) * (256 - weight) + (b & everyOtherByte) * weight) >> 8 & everyOtherByte;
  const std::uint32_t odd =
      ((a >> 8 & everyOtherByte) * (256 - weight) + (b >> 8 & everyOtherByte) * weight) &
      ~everyOtherByte;
  return even | odd;
}

/// A place between the pixels, in parts of one by 65536.
struct Place {
  std::int64_t x;
  std::int64_t y;
};

class Turner {
public:
  Turner(const Picture& picture, double degrees) : picture_(picture) {
    const double angle = degrees * std::numbers::pi / 180;
    cosine_ = std::cos(angle);
    sine_ = std::sin(angle);
    step_ = {std::llround(cosine_ * one), std::llround(sine_ * one)};
  }

  /// What holds the whole turned picture; a hair of a pixel does not count.
  [[nodiscard]] PixelSize size() const {
    const double width = picture_.width() * std::abs(cosine_) + picture_.height() * std::abs(sine_);
    const double height =
        picture_.width() * std::abs(sine_) + picture_.height() * std::abs(cosine_);
    return {static_cast<int>(std::ceil(width - 0.01)), static_cast<int>(std::ceil(height - 0.01))};
  }

  void turnRow(PixelSize turned, int y, std::uint32_t* row) const {
    const double right = 0.5 - turned.width / 2.0;
    const double down = y + 0.5 - turned.height / 2.0;
    const Place start{
        std::llround((right * cosine_ - down * sine_ + picture_.width() / 2.0 - 0.5) * one),
        std::llround((right * sine_ + down * cosine_ + picture_.height() / 2.0 - 0.5) * one)};
    const auto [first, end] = inside(start, turned.width, 0);
    const auto [firstNear, endNear] = inside(start, turned.width, 1);
    std::fill(row, row + firstNear, paper);
    between(start, firstNear, first, row, [this](Place at) { return atEdge(at); });
    between(start, first, end, row, [this](Place at) { return within(at); });
    between(start, end, endNear, row, [this](Place at) { return atEdge(at); });
    std::fill(row + endNear, row + turned.width, paper);
  }

private:
  template <class PixelAt>
  void between(Place start, int first, int end, std::uint32_t* row, PixelAt pixelAt) const {
    Place at{start.x + first * step_.x, start.y + first * step_.y};
    for (int x = first; x < end; ++x) {
      row[x] = pixelAt(at);
      at.x += step_.x;
      at.y += step_.y;
    }
  }

  /// The part of a row whose places have all four neighbours, or lie at most `beyond` outside.
  [[nodiscard]] std::pair<int, int> inside(Place start, int width, int beyond) const {
    int first = 0;
    int end = width;
    const std::int64_t low = -(std::int64_t{beyond} << fractionBits);
    limit(start.x, step_.x, low, (std::int64_t{picture_.width() - 1 + beyond} << fractionBits) - 1,
          first, end);
    limit(start.y, step_.y, low, (std::int64_t{picture_.height() - 1 + beyond} << fractionBits) - 1,
          first, end);
    return {std::min(first, end), end};
  }

  static void limit(std::int64_t start, std::int64_t step, std::int64_t low, std::int64_t high,
                    int& first, int& end) {
    const auto reach = [&](std::int64_t bound) {
      return static_cast<double>(bound - start) / static_cast<double>(step);
    };
    if (step == 0) {
      if (start < low || start > high)
        end = first;
      return;
    }
    const double from = std::ceil(reach(step > 0 ? low : high));
    const double to = std::floor(reach(step > 0 ? high : low)) + 1;
    first = static_cast<int>(std::clamp(from, double(first), double(end)));
    end = static_cast<int>(std::clamp(to, double(first), double(end)));
  }

  [[nodiscard]] std::uint32_t within(Place at) const {
    const auto x = static_cast<std::size_t>(at.x >> fractionBits);
    const std::uint32_t* upper = picture_.row(static_cast<int>(at.y >> fractionBits)) + x;
    const std::uint32_t* lower = upper + picture_.width();
    const auto right = static_cast<std::uint32_t>(at.x >> (fractionBits - 8) & 0xff);
    const auto down = static_cast<std::uint32_t>(at.y >> (fractionBits - 8) & 0xff);
    return blend(blend(upper[0], upper[1], right), blend(lower[0], lower[1], right), down);
  }

  [[nodiscard]] std::uint32_t pixelOrPaper(std::int64_t x, std::int64_t y) const {
    const bool there = x >= 0 && y >= 0 && x < picture_.width() && y < picture_.height();
    return there ? picture_.row(static_cast<int>(y))[x] : paper;
  }

  [[nodiscard]] std::uint32_t atEdge(Place at) const {
    const std::int64_t x = at.x >> fractionBits;
    const std::int64_t y = at.y >> fractionBits;
    const auto right = static_cast<std::uint32_t>(at.x >> (fractionBits - 8) & 0xff);
    const auto down = static_cast<std::uint32_t>(at.y >> (fractionBits - 8) & 0xff);
    return blend(blend(pixelOrPaper(x, y), pixelOrPaper(x + 1, y), right),
                 blend(pixelOrPaper(x, y + 1), pixelOrPaper(x + 1, y + 1), right), down);
  }

  const Picture& picture_;
  double cosine_ = 1;
  double sine_ = 0;
  Place step_{};
};

Picture turnedFreely(const Picture& picture, double degrees, WorkPool* pool) {
  const Turner turner(picture, degrees);
  const PixelSize size = turner.size();
  Picture result = Picture::unpainted(size);
  std::uint32_t* rows = result.writableRow(0);
  inBands(pool, size.height, rowsOfBand(size.width), [&](int first, int end) {
    for (int y = first; y < end; ++y)
      turner.turnRow(size, y,
                     rows + static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width));
  });
  return result;
}

/// The camera's orientation whose putting upright is a turn of so many right angles to the left.
constexpr std::array<int, 4> orientationOfTurn{1, 8, 3, 6};

} // namespace

Picture rotated(const Picture& picture, double degrees, WorkPool* pool) {
  if (picture.isNull() || !std::isfinite(degrees))
    throw RunTimeError("There is no picture to turn.");
  const double rightAngles = degrees / 90;
  const double nearest = std::round(rightAngles);
  if (std::abs(rightAngles - nearest) > 1e-6)
    return turnedFreely(picture, std::fmod(degrees, 360), pool);
  const int turns = (static_cast<int>(std::fmod(nearest, 4)) + 4) % 4;
  return uprighted(picture, orientationOfTurn[static_cast<std::size_t>(turns)], pool);
}

} // namespace hearthbook
