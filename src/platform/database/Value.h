#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace hearthbook {

/// One field's content: Null, a whole number, a real number or UTF-8 text.
class Value {
public:
  Value() = default; ///< Null
  Value(int number) : content_(static_cast<std::int64_t>(number)) {}
  Value(std::int64_t number) : content_(number) {}
  Value(double number) : content_(number) {}
  Value(std::string text) : content_(std::move(text)) {}
  Value(std::string_view text) : content_(std::string(text)) {}
  Value(const char* text) : content_(std::string(text)) {}

  [[nodiscard]] bool isNull() const { return std::holds_alternative<std::monostate>(content_); }
  [[nodiscard]] bool isText() const { return std::holds_alternative<std::string>(content_); }
  [[nodiscard]] bool isInteger() const { return std::holds_alternative<std::int64_t>(content_); }
  [[nodiscard]] bool isReal() const { return std::holds_alternative<double>(content_); }

  /// As text; Null is the empty text. Ask isNull() where the two differ.
  [[nodiscard]] std::string toText() const;
  /// As a whole number; text gives the number it begins with; Null is 0.
  [[nodiscard]] std::int64_t toInteger() const;
  /// A real or whole number as it is; text and Null as toInteger() gives them.
  [[nodiscard]] double toReal() const;

  bool operator==(const Value&) const = default;

private:
  std::variant<std::monostate, std::int64_t, double, std::string> content_;
};

} // namespace hearthbook
