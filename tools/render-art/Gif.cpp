#include "Gif.h"

#include <QImage>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace hearthbook {

namespace {

constexpr int kPixelBits = 8;
constexpr int kClear = 1 << kPixelBits;
constexpr int kEnd = kClear + 1;
constexpr int kLastCode = 4095;

/// Codes of growing width, lowest bit first, in blocks of at most 255 bytes.
class CodeWriter {
public:
  void put(int code, int width) {
    bits_ |= static_cast<std::uint32_t>(code) << count_;
    count_ += width;
    while (count_ >= 8)
      flushByte();
  }

  QByteArray finish() {
    if (count_ > 0)
      flushByte();
    QByteArray blocks;
    for (int at = 0; at < bytes_.size(); at += 255) {
      const QByteArray block = bytes_.mid(at, 255);
      blocks.append(static_cast<char>(block.size())).append(block);
    }
    return blocks.append('\0');
  }

private:
  void flushByte() {
    bytes_.append(static_cast<char>(bits_ & 0xff));
    bits_ >>= 8;
    count_ -= 8;
  }

  QByteArray bytes_;
  std::uint32_t bits_ = 0;
  int count_ = 0;
};

/// The dictionary of known strings of pixels: a string is its beginning's code and one pixel.
class Compressor {
public:
  Compressor() { out_.put(kClear, width_); }

  void pixel(int value) {
    if (prefix_ < 0) {
      prefix_ = value;
      return;
    }
    const auto known = codes_.find({prefix_, value});
    if (known != codes_.end()) {
      prefix_ = known->second;
      return;
    }
    out_.put(prefix_, width_);
    learn(value);
    prefix_ = value;
  }

  QByteArray finish() {
    if (prefix_ >= 0)
      out_.put(prefix_, width_);
    out_.put(kEnd, width_);
    return out_.finish();
  }

private:
  void learn(int value) {
    if (next_ > kLastCode) {
      out_.put(kClear, width_);
      codes_.clear();
      next_ = kEnd + 1;
      width_ = kPixelBits + 1;
      return;
    }
    if (next_ == 1 << width_)
      ++width_;
    codes_[{prefix_, value}] = next_++;
  }

  CodeWriter out_;
  std::map<std::pair<int, int>, int> codes_;
  int prefix_ = -1;
  int next_ = kEnd + 1;
  int width_ = kPixelBits + 1;
};

void put16(QByteArray& out, int value) {
  out.append(static_cast<char>(value & 0xff)).append(static_cast<char>(value >> 8));
}

constexpr qsizetype kPaletteBytes = 768; // 256 colours
constexpr int kClearPixel = 0; // of the palette, where the image has pixels that are not there

/// The colours that an image is written in: its own where they are few, else the most frequent.
class Palette {
public:
  explicit Palette(const QImage& image) {
    const std::map<QRgb, int> counts = countColours(image);
    hasClear_ = counts.contains(0);
    std::vector<std::pair<int, QRgb>> frequent;
    for (const auto& [colour, count] : counts)
      if (colour != 0)
        frequent.emplace_back(count, colour);
    std::ranges::sort(frequent, std::greater());
    colours_.assign(hasClear_ ? 1 : 0, 0);
    for (std::size_t i = 0; i < frequent.size() && colours_.size() < 256; ++i)
      colours_.push_back(frequent[i].second);
  }

  [[nodiscard]] bool hasClear() const { return hasClear_; }

  int indexOf(QRgb colour) {
    const auto known = known_.find(colour);
    if (known != known_.end())
      return known->second;
    const int index = colour == 0 ? kClearPixel : nearest(colour);
    known_.emplace(colour, index);
    return index;
  }

  [[nodiscard]] QByteArray bytes() const {
    QByteArray out;
    for (const QRgb colour : colours_)
      out.append(static_cast<char>(qRed(colour)))
          .append(static_cast<char>(qGreen(colour)))
          .append(static_cast<char>(qBlue(colour)));
    return out.leftJustified(kPaletteBytes, '\0');
  }

private:
  static std::map<QRgb, int> countColours(const QImage& image) {
    std::map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        ++counts[image.pixel(x, y)];
    return counts;
  }

  static int distance(QRgb a, QRgb b) {
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
  }

  [[nodiscard]] int nearest(QRgb colour) const {
    const auto visible = colours_.begin() + (hasClear_ ? 1 : 0);
    const auto found = std::min_element(visible, colours_.end(), [colour](QRgb a, QRgb b) {
      return distance(a, colour) < distance(b, colour);
    });
    return static_cast<int>(found - colours_.begin());
  }

  std::vector<QRgb> colours_;
  std::map<QRgb, int> known_;
  bool hasClear_ = false;
};

void putClearColour(QByteArray& out) {
  out.append("\x21\xf9\x04\x01\x00\x00", 6); // holds for the picture that follows
  out.append(static_cast<char>(kClearPixel)).append('\0');
}

/// A pixel is there or not, nothing between: what is less than half there is not.
QImage withoutHalfTones(const QImage& image) {
  constexpr int half = 128;
  QImage whole = image.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < whole.height(); ++y)
    for (int x = 0; x < whole.width(); ++x) {
      const QRgb colour = whole.pixel(x, y);
      whole.setPixel(x, y, qAlpha(colour) < half ? 0 : colour | 0xff000000);
    }
  return whole;
}

} // namespace

QByteArray toGif(const QImage& image) {
  const QImage whole = withoutHalfTones(image);
  Palette palette(whole);
  QByteArray out("GIF89a");
  put16(out, whole.width());
  put16(out, whole.height());
  out.append("\xf7\x00\x00", 3).append(palette.bytes()); // 256 colours of 8 bits
  if (palette.hasClear())
    putClearColour(out);
  out.append(',').append(QByteArray(4, '\0'));
  put16(out, whole.width());
  put16(out, whole.height());
  out.append('\0').append(static_cast<char>(kPixelBits));
  Compressor compressor;
  for (int y = 0; y < whole.height(); ++y)
    for (int x = 0; x < whole.width(); ++x)
      compressor.pixel(palette.indexOf(whole.pixel(x, y)));
  return out.append(compressor.finish()).append(';');
}

} // namespace hearthbook
