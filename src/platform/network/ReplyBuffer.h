#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace hearthbook {

/// Gathers what comes over a wire in pieces until it ends with a whole reply: with a line end, and
/// not with a line such as "250-mail.example.com", which says that others follow. What comes
/// together is handed out together.
class ReplyBuffer {
public:
  /// No server has so much to say; one that goes on for ever must not fill the memory.
  static constexpr std::size_t mostBytes = std::size_t{64} * 1024;

  /// Throws RunTimeError where the reply becomes too long.
  void add(std::string_view bytes);

  [[nodiscard]] bool isWhole() const;
  std::string take(); ///< what has come; it is empty then

private:
  std::string text_;
};

} // namespace hearthbook
