#pragma once

#include "Picture.h"
#include "PixelRect.h"

#include <cstdint>
#include <vector>

#include <vips/vips.h>

namespace hearthbook::bench {

/// The same operations by libvips on the same pixels, each into memory. What moves pixels moves
/// them as they lie in ours; what computes is given them without the byte that ours leaves unused.
/// Only measurements use it.
class VipsReference {
public:
  VipsReference(const Picture& photo, const Picture& piece);
  ~VipsReference();
  VipsReference(const VipsReference&) = delete;
  VipsReference& operator=(const VipsReference&) = delete;

  void autoLevels();
  void lightness();
  void soften(double sigma);
  void sharpen(double sigma);
  void turnLeft();
  void turnByHalf();
  void turnByALittle(double degrees);
  void crop(const PixelRect& region);
  void putBack(const PixelRect& region);
  void flatten(const PixelRect& region);

private:
  Picture keptPhoto_;
  Picture keptPiece_;
  std::vector<std::uint8_t> colours_;
  VipsImage* photo_;
  VipsImage* piece_;
  VipsImage* photoInColours_;
};

} // namespace hearthbook::bench
