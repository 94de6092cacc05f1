#pragma once

#include "Picture.h"

#include <vector>

namespace hearthbook {

/// A photo, and the same at a half, a quarter and so on of its size. What is painted from hardly
/// more pixels than it covers is painted at once and without jagged edges.
class PhotoLevels {
public:
  PhotoLevels() = default;
  /// Takes its time: to be made beside the window's thread.
  explicit PhotoLevels(Picture photo);

  [[nodiscard]] const Picture& photo() const { return levels_.front(); }
  /// The smallest that is at least so many pixels wide, else the photo.
  [[nodiscard]] const Picture& atLeast(double width) const;

private:
  std::vector<Picture> levels_{1}; ///< the photo first
};

} // namespace hearthbook
