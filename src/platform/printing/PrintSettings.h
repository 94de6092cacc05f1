#pragma once

#include <string>

namespace hearthbook {

// The numbers are those by which printing programs have always told printers.

enum class ColorMode { Monochrome = 1, Color = 2 };
enum class PrintQuality { Best = -4, Normal = -3, Draft = -1 };
enum class PaperOrientation { Portrait = 1, Landscape = 2 };

inline constexpr int mostCopies = 999;

struct PrintSettings {
  int copies = 1;
  ColorMode colorMode = ColorMode::Color;
  PrintQuality quality = PrintQuality::Normal;
  std::string media; ///< as the printing service calls the paper; empty: the printer's own
};

/// As many dots of a picture are worth printing, to the inch.
constexpr int dotsPerInch(PrintQuality quality) {
  switch (quality) {
  case PrintQuality::Best:
    return 600;
  case PrintQuality::Draft:
    return 150;
  case PrintQuality::Normal:
    break;
  }
  return 300;
}

} // namespace hearthbook
