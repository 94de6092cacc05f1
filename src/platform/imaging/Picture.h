#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace hearthbook {

/// Width and height in pixels.
struct PixelSize {
  int width = 0;
  int height = 0;
  bool operator==(const PixelSize&) const = default;
};

/// No picture may have more pixels than this; larger ones are refused before memory is taken.
inline constexpr std::int64_t maxPixels = 300'000'000;

/// Pixels in sRGB, 0xffRRGGBB each, rows from the top without padding. Copies share the
/// pixels; writing to one of them makes it a picture of its own.
class Picture {
public:
  Picture() = default; ///< no picture
  /// Black. Throws RunTimeError where a side is below 1, over maxPixels, or memory is short.
  explicit Picture(PixelSize size);
  /// For those who write every pixel at once: what they hold until then is not told.
  static Picture unpainted(PixelSize size);

  [[nodiscard]] bool isNull() const { return !pixels_; }
  [[nodiscard]] PixelSize size() const { return size_; }
  [[nodiscard]] int width() const { return size_.width; }
  [[nodiscard]] int height() const { return size_.height; }
  [[nodiscard]] const std::uint32_t* row(int y) const { return pixels_.get() + startOf(y); }
  [[nodiscard]] std::uint32_t* writableRow(int y);
  /// Keeps the pixels alive for others that look at them.
  [[nodiscard]] std::shared_ptr<const std::uint32_t[]> share() const { return pixels_; }

private:
  [[nodiscard]] std::size_t startOf(int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width);
  }

  PixelSize size_;
  std::shared_ptr<std::uint32_t[]> pixels_;
};

} // namespace hearthbook
