#include "Exif.h"

#include <cstdint>

namespace hearthbook {

namespace {

constexpr std::uint16_t kText = 2;
constexpr std::uint16_t kShort = 3;
constexpr std::uint16_t kLong = 4;
constexpr int kHeaderSize = 8;
constexpr int kTextSize = 20; // "1998:06:14 15:02:11" and its closing zero

void put16(QByteArray& out, std::uint16_t value) {
  out.append(static_cast<char>(value & 0xff)).append(static_cast<char>(value >> 8));
}

void put32(QByteArray& out, std::uint32_t value) {
  put16(out, static_cast<std::uint16_t>(value & 0xffff));
  put16(out, static_cast<std::uint16_t>(value >> 16));
}

void putEntry(QByteArray& out, std::uint16_t tag, std::uint16_t type, std::uint32_t count,
              std::uint32_t value) {
  put16(out, tag);
  put16(out, type);
  put32(out, count);
  put32(out, value);
}

constexpr int directorySize(int entries) { return 2 + 12 * entries + 4; }

/// Two directories: the picture's own, and the camera's with the moment of the photograph.
QByteArray directories(const CameraData& data) {
  const int camera = kHeaderSize + directorySize(3);
  const int text = camera + directorySize(1);
  QByteArray out("II*\0", 4);
  put32(out, kHeaderSize);
  put16(out, 3);
  putEntry(out, 0x0112, kShort, 1, static_cast<std::uint32_t>(data.orientation));
  putEntry(out, 0x0132, kText, kTextSize, static_cast<std::uint32_t>(text));
  putEntry(out, 0x8769, kLong, 1, static_cast<std::uint32_t>(camera));
  put32(out, 0);
  put16(out, 1);
  putEntry(out, 0x9003, kText, kTextSize, static_cast<std::uint32_t>(text));
  put32(out, 0);
  out.append(data.taken.leftJustified(kTextSize - 1, ' ', true)).append('\0');
  return out;
}

} // namespace

QByteArray withCameraData(const QByteArray& jpeg, const CameraData& data) {
  const QByteArray body = QByteArray("Exif\0\0", 6) + directories(data);
  const auto length = static_cast<std::uint16_t>(body.size() + 2);
  QByteArray out = jpeg.left(2); // a JPEG begins with a marker of two bytes
  out.append("\xff\xe1", 2);
  out.append(static_cast<char>(length >> 8)).append(static_cast<char>(length & 0xff));
  return out + body + jpeg.mid(2);
}

} // namespace hearthbook
