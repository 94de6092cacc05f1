#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace hearthbook {

/// Numbers at given places of bytes that nobody has vouched for. What lies behind the end
/// reads as 0, so that a reader of a damaged head meets a senseless value, never foreign memory.
class Bytes {
public:
  enum class Order { LittleEndian, BigEndian };

  explicit Bytes(std::span<const std::uint8_t> bytes, Order order = Order::LittleEndian)
      : bytes_(bytes), order_(order) {}

  [[nodiscard]] std::size_t size() const { return bytes_.size(); }

  [[nodiscard]] std::uint32_t u8(std::size_t at) const {
    return at < bytes_.size() ? bytes_[at] : 0;
  }
  [[nodiscard]] std::uint32_t u16(std::size_t at) const {
    return order_ == Order::LittleEndian ? u8(at) | u8(at + 1) << 8 : u8(at) << 8 | u8(at + 1);
  }
  [[nodiscard]] std::uint32_t u32(std::size_t at) const {
    return order_ == Order::LittleEndian ? u16(at) | u16(at + 2) << 16
                                         : u16(at) << 16 | u16(at + 2);
  }
  [[nodiscard]] std::int32_t i32(std::size_t at) const {
    return static_cast<std::int32_t>(u32(at));
  }

private:
  std::span<const std::uint8_t> bytes_;
  Order order_;
};

} // namespace hearthbook
