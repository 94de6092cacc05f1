#pragma once

namespace hearthbook {

/// Screen geometry is told in twips: 1440 to the inch, 15 to a standard pixel (96 to the inch).
inline constexpr int twipsPerInch = 1440;
inline constexpr int twipsPerPixel = 15;

struct TwipsPoint {
  double x = 0;
  double y = 0;
  bool operator==(const TwipsPoint&) const = default;
};

struct TwipsSize {
  double width = 0;
  double height = 0;
  bool operator==(const TwipsSize&) const = default;
};

struct TwipsRect {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  bool operator==(const TwipsRect&) const = default;
};

/// The size of every work form.
inline constexpr TwipsSize workFormSize{11850, 7830};

} // namespace hearthbook
