#include "EditOperation.h"

#include "Corrections.h"

namespace hearthbook {

Picture applied(const EditOperation& operation, const Picture& picture, WorkPool* pool,
                double scale) {
  switch (operation.kind) {
  case EditOperation::Kind::AutoLevels:
    return autoLevels(picture, pool);
  case EditOperation::Kind::Lightness:
    return withLightness(picture, static_cast<int>(operation.value), pool);
  case EditOperation::Kind::Soften:
    return softened(picture, operation.value, scale, pool);
  case EditOperation::Kind::Sharpen:
    return sharpened(picture, operation.value, scale, pool);
  case EditOperation::Kind::Rotate:
    break;
  }
  return rotated(picture, operation.value, pool);
}

} // namespace hearthbook
