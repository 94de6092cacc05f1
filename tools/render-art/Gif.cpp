#include "Gif.h"

#include <QImage>

#include <cstdint>
#include <map>
#include <utility>

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

QByteArray palette(const QImage& image) {
  QByteArray out;
  for (int i = 0; i < 256; ++i) {
    const QRgb colour = i < image.colorCount() ? image.color(i) : qRgb(0, 0, 0);
    out.append(static_cast<char>(qRed(colour)))
        .append(static_cast<char>(qGreen(colour)))
        .append(static_cast<char>(qBlue(colour)));
  }
  return out;
}

} // namespace

QByteArray toGif(const QImage& image) {
  const QImage indexed =
      image.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither);
  QByteArray out("GIF89a");
  put16(out, indexed.width());
  put16(out, indexed.height());
  out.append("\xf7\x00\x00", 3).append(palette(indexed)); // 256 colours of 8 bits
  out.append(',').append(QByteArray(4, '\0'));
  put16(out, indexed.width());
  put16(out, indexed.height());
  out.append('\0').append(static_cast<char>(kPixelBits));
  Compressor compressor;
  for (int y = 0; y < indexed.height(); ++y) {
    const uchar* line = indexed.constScanLine(y);
    for (int x = 0; x < indexed.width(); ++x)
      compressor.pixel(line[x]);
  }
  return out.append(compressor.finish()).append(';');
}

} // namespace hearthbook
