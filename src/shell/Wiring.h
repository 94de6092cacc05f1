#pragma once

#include "FrameCommands.h"
#include "FrameHelp.h"
#include "PictureLoader.h"
#include "SaneScanner.h"

namespace hearthbook {

struct Album;
class MDIForm1;

/// Says how each form of the program is made, and forgets it at its end.
class Wiring {
public:
  Wiring(Album& album, MDIForm1& frame, const ShellServices& services = {});
  ~Wiring();
  Wiring(const Wiring&) = delete;
  Wiring& operator=(const Wiring&) = delete;

private:
  WorkPool pool_;
  PictureLoader loader_;
  PictureLoader thumbnails_;  ///< for pages of them
  PictureLoader largePhotos_; ///< one by one
  SaneScanner scanner_;
  FrameHelp help_;
};

} // namespace hearthbook
