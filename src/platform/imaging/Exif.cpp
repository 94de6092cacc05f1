#include "Exif.h"

#include "Bytes.h"

#include <algorithm>
#include <array>
#include <optional>

namespace hearthbook {

namespace {

constexpr std::array<std::uint8_t, 6> exifSignature{'E', 'x', 'i', 'f', 0, 0};
constexpr std::uint32_t orientationTag = 0x0112;
constexpr std::uint32_t typeShort = 3;
constexpr std::uint32_t typeLong = 4;
constexpr std::size_t directoryEntryBytes = 12;

std::optional<Bytes::Order> exifByteOrder(std::span<const std::uint8_t> tiff) {
  if (tiff.size() < 8)
    return {};
  if (tiff[0] == 'I' && tiff[1] == 'I')
    return Bytes::Order::LittleEndian;
  if (tiff[0] == 'M' && tiff[1] == 'M')
    return Bytes::Order::BigEndian;
  return {};
}

std::uint32_t orientationOfEntry(const Bytes& tiff, std::size_t entry) {
  switch (tiff.u16(entry + 2)) {
  case typeShort:
    return tiff.u16(entry + 8);
  case typeLong:
    return tiff.u32(entry + 8);
  default:
    return 1;
  }
}

std::uint32_t orientationOfDirectory(const Bytes& tiff, std::size_t directory) {
  const std::size_t entries = tiff.u16(directory);
  for (std::size_t i = 0; i < entries; ++i) {
    const std::size_t entry = directory + 2 + i * directoryEntryBytes;
    if (entry + directoryEntryBytes > tiff.size())
      break;
    if (tiff.u16(entry) == orientationTag)
      return orientationOfEntry(tiff, entry);
  }
  return 1;
}

} // namespace

int exifOrientation(std::span<const std::uint8_t> segment) {
  if (segment.size() < exifSignature.size() ||
      !std::equal(exifSignature.begin(), exifSignature.end(), segment.begin()))
    return 1;
  const auto content = segment.subspan(exifSignature.size());
  const auto order = exifByteOrder(content);
  if (!order)
    return 1;
  const Bytes tiff(content, *order);
  if (tiff.u16(2) != 42)
    return 1;
  const std::uint32_t orientation = orientationOfDirectory(tiff, tiff.u32(4));
  return orientation >= 1 && orientation <= 8 ? static_cast<int>(orientation) : 1;
}

} // namespace hearthbook
