#pragma once

#include "Twips.h"

namespace hearthbook {

/// In which directions a photo may be dragged on the screen, as its mouse pointer says. The numbers
/// are those by which pointers are known to the program: 0 the arrow, 6 to 9 those for sizing.
enum class DragPointer {
  None = 0,
  Both = 6,
  UpAndDown = 7,
  Sideways = 9,
};

/// Where a photo of its own size lies on the full screen, in twips from its corner.
struct FullScreenPlace {
  TwipsRect photo;
  DragPointer pointer = DragPointer::None;

  /// Places the photo on a form of this size: centred where it fits. One that is larger both
  /// ways stays where the one before was, as far as it covers the form there.
  void makeFull(TwipsSize form);

  /// The photo is dragged by so much; its edges never come inside those of the screen.
  void drag(TwipsPoint by, TwipsSize screen);

  bool operator==(const FullScreenPlace&) const = default;
};

} // namespace hearthbook
