#pragma once

#include <string>

namespace hearthbook {

/// The slide show as it is set: whether it runs, and how long a photo stays.
struct SlideShow {
  static constexpr int shortest = 1;
  static constexpr int longest = 10;

  int seconds = 2;
  bool runs = false;

  void setSeconds(int wanted); ///< kept between the shortest and the longest

  [[nodiscard]] int interval() const { return seconds * 1000; } ///< milliseconds
  [[nodiscard]] std::string label() const;                      ///< "2 Sec."
  [[nodiscard]] std::string caption() const;                    ///< of the switch: what it does

  bool operator==(const SlideShow&) const = default;
};

} // namespace hearthbook
