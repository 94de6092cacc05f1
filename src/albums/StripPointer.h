#pragma once

#include <QCursor>

namespace hearthbook {

/// The pointer while a photo is pulled: an arrow that carries a print, or one that must not put
/// it down here. As large as the stage is scaled.
enum class StripPointer { CanDrop, NoDrop };
QCursor stripPointer(StripPointer kind, double scale);

} // namespace hearthbook
