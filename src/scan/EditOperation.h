#pragma once

#include "Picture.h"

namespace hearthbook {

class WorkPool;

/// One of the commands that put a picture right, and by how much.
struct EditOperation {
  enum class Kind { AutoLevels, Lightness, Soften, Sharpen, Rotate };
  Kind kind = Kind::AutoLevels;
  double value = 0;

  /// The picture keeps its sides and what is where, so that a small copy shows what comes of it.
  [[nodiscard]] bool keepsPlaces() const { return kind != Kind::Rotate; }
  bool operator==(const EditOperation&) const = default;
};

namespace edits {
inline constexpr EditOperation autoLevels{EditOperation::Kind::AutoLevels, 0};
inline constexpr EditOperation brighter{EditOperation::Kind::Lightness, 10};
inline constexpr EditOperation darken{EditOperation::Kind::Lightness, -10};
inline constexpr EditOperation soften{EditOperation::Kind::Soften, 2};
inline constexpr EditOperation sharpen{EditOperation::Kind::Sharpen, 1};
inline constexpr EditOperation flip{EditOperation::Kind::Rotate, 180}; ///< half a turn, no mirror
inline constexpr EditOperation rotateRight{EditOperation::Kind::Rotate, -90};
inline constexpr EditOperation rotateLeft{EditOperation::Kind::Rotate, 90};
} // namespace edits

/// The picture as the operation makes it. `scale` is the size of this picture in relation to the
/// one meant. Throws RunTimeError.
Picture applied(const EditOperation& operation, const Picture& picture, WorkPool* pool = nullptr,
                double scale = 1);

} // namespace hearthbook
