#pragma once

#include "ImageEdit.h"

#include <ostream>

namespace hearthbook {

// So that a failing test says what it saw.

inline void PrintTo(PixelSize size, std::ostream* out) {
  *out << size.width << " by " << size.height;
}
inline void PrintTo(const PixelRect& rect, std::ostream* out) {
  *out << rect.size().width << " by " << rect.size().height << " at " << rect.left << ", "
       << rect.top;
}
inline void PrintTo(PixelPoint point, std::ostream* out) { *out << point.x << ", " << point.y; }
inline void PrintTo(TwipsSize size, std::ostream* out) {
  *out << size.width << " by " << size.height << " twips";
}
inline void PrintTo(TwipsPoint point, std::ostream* out) {
  *out << point.x << ", " << point.y << " twips";
}

} // namespace hearthbook
