#pragma once

#include "Picture.h"

namespace hearthbook {

/// A region of a picture, in its pixels; empty where a side is below 1.
struct PixelRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  [[nodiscard]] bool isEmpty() const { return width < 1 || height < 1; }
  [[nodiscard]] PixelSize size() const { return {width, height}; }
  bool operator==(const PixelRect&) const = default;
};

/// What of the region lies in a picture of that size; empty (all zero) if nothing does.
PixelRect cutTo(const PixelRect& region, PixelSize size);

} // namespace hearthbook
