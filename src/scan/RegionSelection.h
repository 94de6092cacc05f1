#pragma once

#include "Picture.h"
#include "PixelRect.h"

namespace hearthbook {

/// A place in a picture, in its pixels; between two of them too.
struct PixelPoint {
  double x = 0;
  double y = 0;
  bool operator==(const PixelPoint&) const = default;
};

/// What of a rectangle one takes hold of to change it.
enum class Handle { None, TopLeft, Top, TopRight, Right, BottomRight, Bottom, BottomLeft, Left };

/// The rectangle that the user draws on a picture, by its corners in the picture's pixels. It may
/// reach beyond the picture until it is used.
class RegionSelection {
public:
  [[nodiscard]] bool isThere() const { return isThere_; }
  void clear() { *this = {}; }
  void set(const PixelRect& rectangle);

  /// A new rectangle begins there ...
  void begin(PixelPoint corner);
  /// ... or a side or a corner of the present one is taken ...
  void grab(Handle handle);
  /// ... and pulled there.
  void pullTo(PixelPoint place);

  void moveBy(double right, double down);
  /// Moves the right and the lower side; the rectangle keeps a pixel at least.
  void growBy(double right, double down);

  [[nodiscard]] PixelPoint topLeft() const;
  [[nodiscard]] PixelPoint bottomRight() const;
  [[nodiscard]] PixelPoint placeOf(Handle handle) const;
  /// The handle that is no farther than `reach` in both directions; of two the nearer.
  [[nodiscard]] Handle handleAt(PixelPoint place, double reach) const;

  /// What of it lies in a picture of that size, in whole pixels; empty if nothing does.
  [[nodiscard]] PixelRect mappedTo(PixelSize picture) const;

private:
  bool isThere_ = false;
  bool pullsAcross_ = true; ///< the corner that is pulled moves sideways
  bool pullsDown_ = true;
  PixelPoint fixed_; ///< the corner that stays
  PixelPoint pulled_;
};

} // namespace hearthbook
